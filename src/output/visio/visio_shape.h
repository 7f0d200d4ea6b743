#pragma once

#include "device/device.h"
#include "output/visio/visio_cells.h"
#include "output/visio/visio_element.h"
#include "output/visio/visio_frame.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QPoint>

#include <array>
#include <optional>
#include <utility>

namespace ORR::Graph {

// One shape of either format. It gathers what is drawn on it, has its cells written when it is
// finished, and takes connection points, glued ends and container cells at any time. Shapes of
// objects that were begun within it may stand inside it, ahead of its cells.
class VisioShape : public Device::Cluster, public Device::Node, public Device::Edge
{
public:
    // parent: null for a shape of the page. Neither it nor the cells are owned; both outlive the
    // shape.
    VisioShape(int id, VisioKind kind, VisioShape *parent, const VisioCells &cells);

    QByteArray idText() const { return QByteArray::number(sheet); }
    bool isEdge() const { return content.isEdge(); }
    // 1 for a shape of the page.
    int level() const { return nesting; }
    VisioShape *parent() const { return outer; }
    const QList<VisioShape *> &children() const { return inner; }

    // Drawing. `addRows` is given the geometry; pen and fill may be null.
    template <typename AddRows>
    void draw(const Device::Pen *pen, const Device::Color *fill, AddRows addRows)
    {
        addRows(content.geometry);
        knownFrame.reset();
        cells.takePaint(content, pen, fill, element.body);
    }
    // Several texts are the lines of one.
    void addText(QPoint topLeft, const Device::Text *text);

    // Writes the cells.
    void finish(int pageHeight);
    bool isFinished() const { return finished; }

    // Connecting. Whether there are rows, which have two ends, in device units.
    bool hasEnds() const { return !content.geometry.isEmpty(); }
    QPointF end(VisioEnd end) const;
    // The index of a connection point at the place, which is new unless the format shares them.
    int connectionIndex(QPointF devicePoint, int pageHeight);
    // Glues an end of an edge by the formula.
    void glue(VisioEnd end, const QByteArray &formula);
    // Writes both ends of an edge, glued or not, and forgets the formulas. One without rows has
    // them in the corner of the page.
    void writeEnds(int pageHeight);
    bool hasWrittenEnds() const { return !element.ends.content.isEmpty(); }

    // Ties it to the containers around it and, if it is one, to its members: the formula's entries,
    // joined.
    void tie(const QByteArray &entries, bool isContainer);

    // The start tag, the cells and the end tag of the shape's element.
    void appendStart(QByteArray &document) const;
    void appendCells(QByteArray &document) const { element.appendTo(document); }
    void appendEnd(QByteArray &document) const;
    qsizetype size() const { return element.size(); } // of the cells
    // Forgets the cells.
    void clear() { element = VisioElement(cellDepth()); }

private:
    int depth() const { return cells.shapeDepth() + nesting - 1; }
    int cellDepth() const { return depth() + 1; }
    const VisioFrame &frame(int pageHeight);
    QList<VisioRow> frameRows() const;

    int sheet;
    const VisioCells &cells;
    VisioShape *outer;
    QList<VisioShape *> inner;
    int nesting;
    bool finished = false;
    VisioContent content;
    VisioElement element;
    std::optional<VisioFrame> knownFrame;
    int connectionCount = 0;
    QHash<std::pair<double, double>, int> connectionPoints; // by place on the page, if shared
    std::array<QByteArray, 2> glued; // the formulas by end, until they are written
};

} // namespace ORR::Graph
