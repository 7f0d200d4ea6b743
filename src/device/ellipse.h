#pragma once

#include <QPointF>

namespace ORR::Graph {

// The point of the axis-aligned ellipse around `centre` that is seen from there at `angle` degrees,
// counter-clockwise on a page with y downward. It is the one such function: gradients, arcs and the
// paths of the structured formats meet in the same points because of it.
QPointF pointOnEllipse(QPointF centre, double rx, double ry, double angle);

} // namespace ORR::Graph
