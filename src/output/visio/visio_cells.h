#pragma once

#include "device/device.h"
#include "output/visio/visio_markup.h"

#include <QByteArray>

// The cells of a package's sheets: elements with a name, a value and, where one is given, a
// formula.
namespace ORR::Graph {

// The number with all the digits that tell it apart; 0 for what is none.
QByteArray visioNumber(double value);
// The number with six significant digits, as formulas have it.
QByteArray visioShort(double value);

// The value, in points, is written in inches.
void numberCell(VisioMarkup &markup, const char *name, double value,
                const QByteArray &formula = QByteArray());
// The value is written as it is: an angle in radians, a ratio.
void rawCell(VisioMarkup &markup, const char *name, double value,
             const QByteArray &formula = QByteArray());
void plainCell(VisioMarkup &markup, const char *name, int value);
// The first colour, and with it, under `transparencyName`, how far it lets through what lies below,
// if it does.
void colorCell(VisioMarkup &markup, const char *name, const char *transparencyName,
               const Device::Color *color);

} // namespace ORR::Graph
