#include "output/visio/visio_cells.h"

#include "device/color_value.h"

#include <QtNumeric>

namespace ORR::Graph {

namespace {

constexpr double pointsPerInch = 72.0;
constexpr int opaque = 255;

void valueCell(VisioMarkup &markup, const char *name, const QByteArray &value,
               const QByteArray &formula)
{
    if (formula.isEmpty())
        markup.empty("Cell", {{"N", name}, {"V", value}});
    else
        markup.empty("Cell", {{"N", name}, {"V", value}, {"F", formula}});
}

QByteArray numberWith(double value, int digits)
{
    // A file has no name for what is not a number, and no use for a negative zero.
    if (!qIsFinite(value) || value == 0.0)
        return QByteArrayLiteral("0");
    return QByteArray::number(value, 'g', digits);
}

} // namespace

QByteArray visioNumber(double value)
{
    constexpr int exactDigits = 17;
    return numberWith(value, exactDigits);
}

QByteArray visioShort(double value)
{
    constexpr int formulaDigits = 6;
    return numberWith(value, formulaDigits);
}

void numberCell(VisioMarkup &markup, const char *name, double value, const QByteArray &formula)
{
    rawCell(markup, name, value / pointsPerInch, formula);
}

void rawCell(VisioMarkup &markup, const char *name, double value, const QByteArray &formula)
{
    valueCell(markup, name, visioNumber(value), formula);
}

void plainCell(VisioMarkup &markup, const char *name, int value)
{
    valueCell(markup, name, QByteArray::number(value), QByteArray());
}

void colorCell(VisioMarkup &markup, const char *name, const char *transparencyName,
               const Device::Color *color)
{
    const ColorValue value = ColorValue::of(color, 0);
    valueCell(markup, name, value.toString().toLatin1(), QByteArray());
    if (value.alpha() != opaque)
        rawCell(markup, transparencyName, 1.0 - value.alpha() / double(opaque));
}

} // namespace ORR::Graph
