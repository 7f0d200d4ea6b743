#include "output/visio/visio_spline.h"

#include "graph/numbers.h"

namespace ORR::Graph {

const char *visioRowType(int kind)
{
    switch (kind) {
    case VisioRow::MoveTo:
        return "MoveTo";
    case VisioRow::SplineStart:
        return "SplineStart";
    case VisioRow::SplineKnot:
        return "SplineKnot";
    case VisioRow::EllipticalArcTo:
        return "EllipticalArcTo";
    case VisioRow::ArcControl:
        return nullptr;
    default:
        return "LineTo";
    }
}

VisioSpline::VisioSpline(const VisioRow &start) : knotSpan(qMax(truncated(start.extra), 1)) { }

VisioSpline VisioSpline::counted(const QList<VisioRow> &rows, qsizetype start)
{
    VisioSpline spline(rows.at(start));
    for (qsizetype i = start + 1; i < rows.size() && rows.at(i).kind == VisioRow::SplineKnot; ++i)
        spline.count();
    return spline;
}

} // namespace ORR::Graph
