#include "output/visio/visio_cells.h"

#include "graph/decimal.h"
#include "graph/numbers.h"

#include <QtNumeric>

namespace ORR::Graph {

namespace {

// A file has no name for what is not a number, and no use for a negative zero.
bool isZero(double value)
{
    return !qIsFinite(value) || value == 0.0;
}

} // namespace

QByteArray visioNumber(double value)
{
    return isZero(value) ? QByteArrayLiteral("0") : exactNumberText(value);
}

QByteArray visioShort(double value)
{
    QByteArray text;
    appendNumber(text, isZero(value) ? 0.0 : value);
    return text;
}

void VisioCells::writeConnection(VisioMarkup &markup, int index, QPointF position,
                                 const VisioFrame &frame) const
{
    openRow(markup, "Connection", index);
    length(markup, "X", position.x(), "Width*" + visioShort(frame.xShare(position.x())));
    length(markup, "Y", position.y(), "Height*" + visioShort(frame.yShare(position.y())));
    closeRow(markup, "Connection");
}

void VisioCells::writeRowPlace(VisioMarkup &markup, const VisioRow &row, const VisioFrame &frame,
                               bool /*isEdge*/) const
{
    writePlace(markup, "X", "Y", row, frame);
}

void VisioCells::writePlace(VisioMarkup &markup, const char *xName, const char *yName,
                            const VisioRow &row, const VisioFrame &frame) const
{
    const QPointF position = frame.position(row.point());
    length(markup, xName, position.x(), "Width*" + visioShort(frame.xShare(position.x())));
    length(markup, yName, position.y(), "Height*" + visioShort(frame.yShare(position.y())));
}

void VisioCells::length(VisioMarkup &markup, const char *name, double points,
                        const QByteArray &formula) const
{
    cell(markup, name, number(points / pointsPerInch), formula);
}

void VisioCells::ratio(VisioMarkup &markup, const char *name, double value,
                       const QByteArray &formula) const
{
    cell(markup, name, number(value), formula);
}

void VisioCells::whole(VisioMarkup &markup, const char *name, int value) const
{
    cell(markup, name, QByteArray::number(value), QByteArray());
}

void VisioCells::color(VisioMarkup &markup, const char *name, const char *transparencyName,
                       const Device::Color *color) const
{
    constexpr int opaque = 255;
    const ColorValue value = ColorValue::of(color, 0);
    cell(markup, name, value.toString().toLatin1(), colorFormula(value));
    if (value.alpha() != opaque)
        ratio(markup, transparencyName, 1.0 - value.alpha() / double(opaque));
}

void VisioCells::linePaint(VisioMarkup &markup, const Device::Pen *pen) const
{
    length(markup, "LineWeight", pen->width());
    color(markup, "LineColor", "LineColorTrans", pen->color());
    whole(markup, "LinePattern", pen->style() + 1);
}

void VisioCells::arrows(VisioMarkup &markup, const VisioGeometry &geometry) const
{
    whole(markup, "BeginArrow", geometry.beginArrow);
    whole(markup, "EndArrow", geometry.endArrow);
}

void VisioCells::placement(VisioMarkup &markup, const VisioFrame &frame, bool isEdge) const
{
    const auto ofEdge = [&](const char *formula) {
        return isEdge ? QByteArray(formula) : QByteArray();
    };
    length(markup, "PinX", frame.pin().x(), ofEdge("(BeginX+EndX)/2"));
    length(markup, "PinY", frame.pin().y(), ofEdge("(BeginY+EndY)/2"));
    length(markup, "Width", frame.width(), ofEdge("SQRT((EndX-BeginX)^2+(EndY-BeginY)^2)"));
    length(markup, "Height", frame.height());
    length(markup, "LocPinX", frame.width() * 0.5, "Width*0.5");
    length(markup, "LocPinY", frame.height() * frame.pinShare(),
           "Height*" + visioShort(frame.pinShare()));
}

QByteArray VisioCells::angleFormula()
{
    return "ATAN2(EndY-BeginY,EndX-BeginX)";
}

void VisioCells::endCells(VisioMarkup &markup, QPointF begin, QPointF end,
                          const std::array<QByteArray, 2> &formulas) const
{
    const auto &[tailFormula, headFormula] = formulas;
    length(markup, "BeginX", begin.x(), tailFormula);
    length(markup, "BeginY", begin.y(), tailFormula);
    length(markup, "EndX", end.x(), headFormula);
    length(markup, "EndY", end.y(), headFormula);
}

QByteArray VisioCells::partOf(VisioEnd end)
{
    constexpr int beginPart = 9;
    constexpr int endPart = 12;
    return QByteArray::number(end == VisioEnd::Begin ? beginPart : endPart);
}

QByteArray VisioCells::cellOf(VisioEnd end)
{
    return end == VisioEnd::Begin ? "BeginX" : "EndX";
}

QByteArray VisioCells::connectionCell(int index)
{
    return "Connections.X" + QByteArray::number(index + 1);
}

QByteArray VisioCells::connectionPart(int index)
{
    constexpr int firstConnectionPoint = 100;
    return QByteArray::number(index + firstConnectionPoint);
}

} // namespace ORR::Graph
