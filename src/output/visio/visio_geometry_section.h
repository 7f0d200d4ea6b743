#pragma once

#include "output/visio/visio_frame.h"
#include "output/visio/visio_geometry.h"
#include "output/visio/visio_markup.h"

#include <QList>

namespace ORR::Graph {

// The knots of one spline as they are counted row by row: each row's knot is its number divided by
// the degree, in whole numbers, and the last knot is known at the end.
class VisioSpline
{
public:
    VisioSpline() = default;
    explicit VisioSpline(const VisioRow &start);

    int degree() const { return spanOfKnots; }
    int knot() const { return counter / spanOfKnots; }
    void count() { ++counter; }
    // Whether it has rows beyond its first control point.
    bool isOpen() const { return counter > 0; }
    int lastKnot() const { return knot() + 1; }

    // The spline that starts at `start` in the list, counted to its end.
    static VisioSpline counted(const QList<VisioRow> &rows, qsizetype start);

private:
    int spanOfKnots = 3;
    int counter = 0;
};

// Writes the rows of a package's Geometry section. The section has some cells of its own already,
// and rows are numbered by what stands ahead of them in the section.
void writeGeometryRows(VisioMarkup &section, int cellsBefore, const QList<VisioRow> &rows,
                       const VisioFrame &frame);

} // namespace ORR::Graph
