#pragma once

#include "device/device.h"
#include "output/visio/visio_element.h"
#include "output/visio/visio_geometry.h"
#include "output/visio/visio_xml_frame.h"

#include <QByteArray>
#include <QList>
#include <QRectF>
#include <QStringList>

#include <optional>

namespace ORR::Graph {

// One shape of the single-file format. It gathers what is drawn on it and writes its cells when it
// is finished. Shapes of objects that were begun within it stand inside it, ahead of its cells.
class VisioXMLShape
{
public:
    enum Kind { Node, Edge, Cluster };
    enum End { Begin, Finish };

    // parent: null for a shape of the page.
    VisioXMLShape(int id, Kind kind, VisioXMLShape *parent);

    int id() const { return sheet; }
    QByteArray idText() const { return QByteArray::number(sheet); }
    bool isEdge() const { return shapeKind == Edge; }
    bool isFinished() const { return finished; }
    // 1 for a shape of the page.
    int level() const { return nesting; }
    VisioXMLShape *parent() const { return outer; }
    const QList<VisioXMLShape *> &children() const { return inner; }

    // Drawing. Of pens, brushes and fonts the last one given counts; null leaves it as it was.
    VisioGeometry &pieces() { return geometry; }
    const VisioGeometry &pieces() const { return geometry; }
    void setPaint(const Device::Pen *pen, const Device::Color *brush);
    // Several texts are the lines of one.
    void addText(QPoint topLeft, const Device::Text *text);

    // Writes the cells.
    void finish(int pageHeight);

    // Adds a connection point at the place and gives its index.
    int addConnection(QPointF devicePoint, int pageHeight);
    // Glues an end of an edge by the formula.
    void glue(End end, const QByteArray &formula);
    // Writes the ends of an edge, once everything is glued.
    void writeEnds(int pageHeight);
    void setRelationships(const QByteArray &entries);

    // The start tag, the cells and the end tag of the shape's element.
    void appendStart(QByteArray &document) const;
    void appendCells(QByteArray &document) const;
    void appendEnd(QByteArray &document) const;
    qsizetype size() const { return element.size(); } // of the cells
    // Forgets the cells.
    void clear() { element = VisioElement(cellDepth()); }

private:
    int depth() const;
    int cellDepth() const { return depth() + 1; }
    const VisioXMLFrame &frame(int pageHeight);
    QList<VisioRow> frameRows() const;
    void writeTransform(const VisioXMLFrame &frame);
    void writeTextTransform(const VisioXMLFrame &frame);
    void writeFill();
    void writeLine();
    void writeCharacter();
    void writeUser();

    int sheet;
    Kind shapeKind;
    VisioXMLShape *outer;
    QList<VisioXMLShape *> inner;
    int nesting;
    bool finished = false;

    VisioGeometry geometry;
    const Device::Pen *pen = nullptr;
    const Device::Color *brush = nullptr;
    const Device::Font *font = nullptr;
    const Device::Color *fontColor = nullptr;
    QStringList texts;
    QRectF textBox;

    VisioElement element;
    std::optional<VisioXMLFrame> knownFrame; // once it is finished
    int connectionCount = 0;
    QByteArray glued[2]; // the formulas by end; empty if not glued
};

} // namespace ORR::Graph
