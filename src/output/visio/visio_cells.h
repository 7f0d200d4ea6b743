#pragma once

#include "device/color_value.h"
#include "device/device.h"
#include "output/visio/visio_frame.h"
#include "output/visio/visio_geometry.h"
#include "output/visio/visio_markup.h"
#include "output/visio/visio_spline.h"

#include <QByteArray>
#include <QRectF>
#include <QStringList>

#include <array>

namespace ORR::Graph {

enum class VisioKind { Node, Edge, Cluster };

// The ends of an edge: at its tail and at its head.
enum class VisioEnd { Begin, Finish };

// What is drawn on a shape. None of the paint values is owned; each is null until one counts.
struct VisioContent
{
    VisioKind kind = VisioKind::Node;
    VisioGeometry geometry;
    const Device::Pen *pen = nullptr;
    const Device::Color *fill = nullptr;
    const Device::Font *font = nullptr;
    const Device::Color *fontColor = nullptr;
    QStringList texts; // the lines of one
    QRectF textBox; // around all of them, in points

    bool isEdge() const { return kind == VisioKind::Edge; }
};

// The number with all the digits that tell it apart; 0 for what is none.
QByteArray visioNumber(double value);
// The number with six significant digits, as formulas have it.
QByteArray visioShort(double value);

// Writes the cells of shapes in one of the two formats: a cell is a value with a name and, where
// one is given, a formula. What both formats have stands here; what they spell differently is
// virtual. Lengths are given in points and written in inches.
class VisioCells
{
public:
    virtual ~VisioCells() = default;

    // The level of the outermost shapes within their document.
    virtual int shapeDepth() const = 0;
    // The level of the records of glued ends within theirs.
    virtual int connectDepth() const = 0;
    // Whether shapes stand within the shape that is open when they begin.
    virtual bool nests() const = 0;
    // Whether edges that end in one place of a shape share its connection point.
    virtual bool sharesConnectionPoints() const = 0;
    virtual VisioFrame::Measure measure() const = 0;

    // While the shape is drawn on. Pen and fill may be null.
    virtual void takePaint(VisioContent &content, const Device::Pen *pen, const Device::Color *fill,
                           VisioMarkup &body) const = 0;
    // Ahead of the text itself.
    virtual void takeFont(VisioContent &content, const Device::Text *text,
                          VisioMarkup &body) const = 0;

    // The start tag of the shape, and the cells of one that is complete.
    virtual void startShape(VisioMarkup &markup, const QByteArray &sheet, bool hasInner) const = 0;
    virtual void writeShape(const VisioContent &content, const VisioFrame &frame,
                            VisioMarkup &body) const = 0;

    // What stands around all connection points of a shape.
    virtual void startConnections(VisioMarkup &markup) const = 0;
    virtual void endConnections(VisioMarkup &markup) const = 0;
    // The level of a connection point below the shape's cells.
    virtual int connectionDepth() const = 0;
    void writeConnection(VisioMarkup &markup, int index, QPointF position,
                         const VisioFrame &frame) const;

    // The ends of an edge, on the page with y upward, and the formulas that glue them, or none.
    virtual void writeEnds(VisioMarkup &markup, QPointF begin, QPointF end,
                           const std::array<QByteArray, 2> &formulas) const = 0;
    // What ties a shape to the containers around it and, if it is one, to its members.
    virtual void writeContainer(VisioMarkup &markup, const QByteArray &entries,
                                bool isContainer) const = 0;
    // The record of a glued end. index: of the node's connection point, from 0.
    virtual void writeConnect(VisioMarkup &markup, const QByteArray &edge, VisioEnd end,
                              const QByteArray &node, int index) const = 0;

    // The pieces of a row of the geometry section.
    virtual void openRow(VisioMarkup &markup, const char *type, int index) const = 0;
    virtual void closeRow(VisioMarkup &markup, const char *type) const = 0;
    virtual void writeRowPlace(VisioMarkup &markup, const VisioRow &row, const VisioFrame &frame,
                               bool isEdge) const;
    // whole: the spline counted to its end.
    virtual void writeSplineStart(VisioMarkup &markup, const VisioSpline &spline,
                                  const VisioSpline &whole) const = 0;
    // The width of an arc's ellipse by its height: its own, 0 for that of the shape.
    virtual void writeArcRatio(VisioMarkup &markup, double own, double ofShape) const = 0;
    void writePlace(VisioMarkup &markup, const char *xName, const char *yName, const VisioRow &row,
                    const VisioFrame &frame) const;

    // Single cells.
    void length(VisioMarkup &markup, const char *name, double points,
                const QByteArray &formula = QByteArray()) const;
    // The value as it is: an angle in radians, a ratio.
    void ratio(VisioMarkup &markup, const char *name, double value,
               const QByteArray &formula = QByteArray()) const;
    void whole(VisioMarkup &markup, const char *name, int value) const;

protected:
    // Value and formula are escaped.
    virtual void cell(VisioMarkup &markup, const char *name, const QByteArray &value,
                      const QByteArray &formula) const = 0;
    virtual QByteArray number(double value) const = 0;
    virtual QByteArray colorFormula(const ColorValue &color) const = 0;

    // The first colour, and with it, under `transparencyName`, how far it lets through what lies
    // below, if it does.
    void color(VisioMarkup &markup, const char *name, const char *transparencyName,
               const Device::Color *color) const;
    void linePaint(VisioMarkup &markup, const Device::Pen *pen) const;
    void arrows(VisioMarkup &markup, const VisioGeometry &geometry) const;
    // Pin, size and local pin. Those of an edge follow its ends.
    void placement(VisioMarkup &markup, const VisioFrame &frame, bool isEdge) const;
    static QByteArray angleFormula();
    void endCells(VisioMarkup &markup, QPointF begin, QPointF end,
                  const std::array<QByteArray, 2> &formulas) const;

    // The numbers of a glued end in its record.
    static QByteArray partOf(VisioEnd end);
    static QByteArray cellOf(VisioEnd end);
    static QByteArray connectionCell(int index);
    static QByteArray connectionPart(int index);
};

} // namespace ORR::Graph
