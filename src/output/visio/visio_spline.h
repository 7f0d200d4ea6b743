#pragma once

#include "output/visio/visio_geometry.h"

#include <QList>

namespace ORR::Graph {

// The row type of a kind in both formats; null for a control row, which is none of its own. One
// whose arc is gone is not written at all: where a path that opens with an arc is joined to
// another, the arc's end is the point that both share, and nothing is left to draw.
const char *visioRowType(int kind);

// The knots of one spline as they are counted row by row: each row's knot is its number divided by
// the degree, in whole numbers, and the last knot is known at the end.
class VisioSpline
{
public:
    VisioSpline() = default;
    explicit VisioSpline(const VisioRow &start);

    // The spline that starts at `start` in the list, counted to its end.
    static VisioSpline counted(const QList<VisioRow> &rows, qsizetype start);

    int degree() const { return knotSpan; }
    int knot() const { return counter / knotSpan; }
    void count() { ++counter; }
    // Whether it has rows beyond its first control point.
    bool isOpen() const { return counter > 0; }
    int lastKnot() const { return knot() + 1; }

private:
    int knotSpan = 3;
    int counter = 0;
};

} // namespace ORR::Graph
