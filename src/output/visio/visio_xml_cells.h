#pragma once

#include "output/visio/visio_cells.h"

namespace ORR::Graph {

// The cells of the single file: elements of the cell's own name with six digits of a number, in
// groups. Of pens, fills and fonts the last one given counts. Readers that work out no formula need
// the value, and some drop a shape with a cell that has none.
class VisioXMLCells : public VisioCells
{
public:
    int shapeDepth() const override;
    int connectDepth() const override;
    bool nests() const override;
    bool sharesConnectionPoints() const override;
    VisioFrame::Measure measure() const override;
    void takePaint(VisioContent &content, const Device::Pen *pen, const Device::Color *fill,
                   VisioMarkup &body) const override;
    void takeFont(VisioContent &content, const Device::Text *text,
                  VisioMarkup &body) const override;
    void startShape(VisioMarkup &markup, const QByteArray &sheet, bool hasInner) const override;
    void writeShape(const VisioContent &content, const VisioFrame &frame,
                    VisioMarkup &body) const override;
    void startConnections(VisioMarkup &markup) const override;
    void endConnections(VisioMarkup &markup) const override;
    int connectionDepth() const override;
    void writeEnds(VisioMarkup &markup, QPointF begin, QPointF end,
                   const std::array<QByteArray, 2> &formulas) const override;
    void writeContainer(VisioMarkup &markup, const QByteArray &entries,
                        bool isContainer) const override;
    void writeConnect(VisioMarkup &markup, const QByteArray &edge, VisioEnd end,
                      const QByteArray &node, int index) const override;
    void openRow(VisioMarkup &markup, const char *type, int index) const override;
    void closeRow(VisioMarkup &markup, const char *type) const override;
    void writeRowPlace(VisioMarkup &markup, const VisioRow &row, const VisioFrame &frame,
                       bool isEdge) const override;
    void writeSplineStart(VisioMarkup &markup, const VisioSpline &spline,
                          const VisioSpline &whole) const override;
    void writeArcRatio(VisioMarkup &markup, double own, double ofShape) const override;

protected:
    void cell(VisioMarkup &markup, const char *name, const QByteArray &value,
              const QByteArray &formula) const override;
    QByteArray number(double value) const override;
    QByteArray colorFormula(const ColorValue &color) const override;

private:
    void writeTextTransform(const VisioFrame &frame, VisioMarkup &body) const;
    void writeLine(const VisioContent &content, VisioMarkup &body) const;
    void writeCharacter(const VisioContent &content, VisioMarkup &body) const;
    void writeGeometry(const VisioContent &content, const VisioFrame &frame,
                       VisioMarkup &body) const;
};

} // namespace ORR::Graph
