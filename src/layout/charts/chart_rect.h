#pragma once

#include <QRect>

namespace ORR::Graph::Layout {

// The rectangle of a chart. A far corner that no int can hold is moved to the nearest that can, so
// that neither the corner nor the width and the height overflow.
QRect chartRect(int left, int top, qint64 width, qint64 height);

} // namespace ORR::Graph::Layout
