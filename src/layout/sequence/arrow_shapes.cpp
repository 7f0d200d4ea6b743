#include "layout/sequence/arrow_shapes.h"

#include "graph/numbers.h"

namespace ORR::Graph::Layout {

namespace {

constexpr int hookReach = 10; // beyond the right side of the box that it runs to
constexpr int hookGap = 3; // what a labelled hook draws of its vertical stretch, at either end

} // namespace

Shaft levelShaft(const QRect &from, const QRect &to, int y, bool rightward)
{
    return {{rightward ? to.left() : to.right(), y}, {rightward ? from.right() : from.left(), y}};
}

Hook hookBeside(const QRect &label, const QRect &from, const QRect &to, bool labelled)
{
    const int x = saturated(qint64(to.right()) + hookReach);
    const int middle = label.center().y();
    const int outEnd = labelled ? saturated(qint64(label.top()) + hookGap) : middle;
    const int backEnd = labelled ? saturated(qint64(to.top()) - hookGap) : middle;
    return {{{from.right(), label.top()}, {x, label.top()}, {x, outEnd}},
            {{to.right(), to.top()}, {x, to.top()}, {x, backEnd}}};
}

} // namespace ORR::Graph::Layout
