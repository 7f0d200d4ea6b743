#pragma once

#include "device/device.h"
#include "output/visio/visio_element.h"
#include "output/visio/visio_frame.h"
#include "output/visio/visio_geometry.h"

#include <QByteArray>
#include <QHash>
#include <QPoint>
#include <QStringList>

#include <optional>
#include <utility>

namespace ORR::Graph {

// One shape of a page part. It gathers what is drawn on it, writes its cells when it is finished,
// and takes connection points, glued ends and container cells at any time.
class VisioShape : public Device::Cluster, public Device::Node, public Device::Edge
{
public:
    VisioShape(int id, bool isEdge);

    VisioGeometry geometry;
    QStringList texts;

    int id() const { return sheet; }
    QByteArray idText() const { return QByteArray::number(sheet); }

    // Drawing. Only the first pen, the first fill and the first text's font and colour count; null
    // for none. An edge takes no fill.
    void addPen(const Device::Pen *pen);
    void addFill(const Device::Color *fill);
    void addText(QPoint topLeft, const Device::Text *text);
    // The geometry has changed.
    void touch() { knownFrame.reset(); }

    // Writes the cells.
    void finish(int pageHeight);
    bool isFinished() const { return finished; }

    // Connecting. The index of the connection point at the edge's end; a new one if there is none.
    int connectionIndex(QPointF devicePoint, int pageHeight);
    bool hasEnds() const { return element.ends.at >= 0; }
    // Both ends, from the first and the last row, with the formulas that glue them or none. An edge
    // without rows has its ends in the corner of the page.
    void setEnds(int pageHeight, const QByteArray &tailFormula, const QByteArray &headFormula);

    // Containers. The formula's entries, joined.
    void setRelationships(const QByteArray &entries);
    void setContainer(const QByteArray &entries);

    // The shape's element. It is forgotten here.
    QByteArray takeMarkup();

    // The level of the shape's element within its part.
    static constexpr int depth = 2;

private:
    const VisioFrame &frame(int pageHeight);
    QList<VisioRow> frameRows() const;
    void writeTransform(const VisioFrame &frame);
    void writeText(const VisioFrame &frame);
    void writeGeometry(const VisioFrame &frame);

    int sheet;
    bool hasFill = false;
    bool hasLine = false;
    bool hasCharacter = false;
    bool finished = false;
    VisioRow textTopLeft;
    VisioRow textBottomRight;
    VisioElement element;
    std::optional<VisioFrame> knownFrame;
    QHash<std::pair<double, double>, int> connectionPoints; // by place on the page
};

} // namespace ORR::Graph
