#pragma once

#include "device/device.h"

#include <QBrush>
#include <QColor>
#include <QPen>

// The conversions from a device's paint values to those of the toolkit's painter. A font has its
// own, `Device::Font::qFont`.
namespace ORR::Graph {

// The first colour of a solid colour or a gradient, with its alpha. Black for null.
QColor painterColor(const Device::Color *color);

// A null pen is the painter's own default, black and one pixel wide. A pen without a colour draws
// nothing.
QPen painterPen(const Device::Pen *pen);

// No brush for null. Stops whose offset is not within 0 to 1 are left out; a gradient between
// points that are beyond all drawings, or no points, is its first colour.
QBrush painterBrush(const Device::Color *fill);

} // namespace ORR::Graph
