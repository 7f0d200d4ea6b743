#include "layout/graflib/tree_edges.h"

namespace ORR::Graph::Layout {

TreeEdge treeEdge(const PlacedNode &tail, const PlacedNode &head, const EdgeRuns &runs,
                  bool flipped)
{
    double start = tail.place.along;
    double end = head.place.along;
    double out = runs.out;
    double in = runs.in;
    if (flipped) {
        end += head.size.along;
        out = -out;
    } else {
        start += tail.size.along;
        in = -in;
    }
    const double second = end + in;
    const double first = runs.straight ? second : start + out;
    const double from = tail.place.across + tail.size.across * 0.5;
    const double to = head.place.across + head.size.across * 0.5;
    return {{start, first, second, end}, {from, from, to, to}};
}

} // namespace ORR::Graph::Layout
