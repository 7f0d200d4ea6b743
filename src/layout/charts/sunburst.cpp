#include "layout/charts/sunburst.h"

#include "device/ellipse.h"
#include "device/graph_style.h"
#include "graph/numbers.h"
#include "graph/subgraph_walk.h"
#include "layout/charts/chart_items.h"
#include "layout/charts/chart_legend.h"
#include "layout/charts/chart_rect.h"
#include "layout/charts/sunburst_attributes.h"
#include "layout/charts/sunburst_slices.h"

#include <algorithm>

namespace ORR::Graph::Layout {

namespace {

namespace Rows = SunburstAttributes;

constexpr double halfTurn = 180.0;
const double defaultRingStep = numberFrom(QByteArrayView(Rows::ringStep.byDefault));
constexpr int pageMargin = 4; // points

template <typename Object>
void store(DotGraph *graph, Object *object, const SunburstSlice &slice)
{
    Rows::sweep.setNumber(graph, object, slice.sweep);
    Rows::a0.setNumber(graph, object, slice.a0);
    Rows::r0.setNumber(graph, object, slice.r0);
    Rows::r1.setNumber(graph, object, slice.r1);
}

// What the object has stored, with the sweep that was read before.
template <typename Object>
SunburstSlice stored(const DotGraph *graph, const Object *object, double sweep)
{
    return {Rows::a0.inheritedNumber(graph, object), sweep, Rows::r0.inheritedNumber(graph, object),
            Rows::r1.inheritedNumber(graph, object)};
}

// Lays out the members of one subgraph. Appends the subgraphs among them to `inner` and returns the
// outer radius of the ring.
double layoutMembers(DotGraph *graph, DotSubgraph *subgraph, double sweep, double ringStep,
                     QList<DotSubgraph *> &inner)
{
    QList<ChartItem> items = chartItems(graph, subgraph, true);
    double total = Rows::totalArea.inheritedNumber(graph, subgraph);
    items.remove(0, narrowSlices(areasOf(items), sweep, total));
    sortByIdNumber(items);

    const double r0 = Rows::r1.inheritedNumber(graph, subgraph);
    const double r1 = r0 + (items.isEmpty() ? 0.0 : ringStep);
    const double a0 = Rows::a0.inheritedNumber(graph, subgraph);
    const QList<SunburstSlice> slices = slicesOf(areasOf(items), total, {a0, sweep, r0, r1});
    for (qsizetype i = 0; i < items.size(); ++i) {
        const ChartItem &item = items.at(i);
        if (item.node) {
            store(graph, item.node, slices.at(i));
        } else {
            store(graph, item.subgraph, slices.at(i));
            inner.append(item.subgraph);
        }
    }
    return r1;
}

// Lays out the rings within `root` and returns their outer radius.
double layoutRings(DotGraph *graph, DotSubgraph *root)
{
    const double wantedStep = Rows::ringStep.of(graph, root);
    const double ringStep = wantedStep > 0.0 ? wantedStep : defaultRingStep;
    QList<DotSubgraph *> pending{root};
    double outer = 0.0;
    while (!pending.isEmpty()) {
        DotSubgraph *subgraph = pending.takeLast();
        const double sweep = Rows::sweep.number(subgraph);
        // Too narrow to hold anything, with an outer radius of 0.
        const double reach =
            sweep < smallestSweep ? 0.0 : layoutMembers(graph, subgraph, sweep, ringStep, pending);
        outer = subgraph == root ? reach : std::max(outer, reach);
    }
    return outer;
}

void ringSegment(Device::Path *path, QPointF centre, const SunburstSlice &slice)
{
    const auto pointAt = [&](double r, double angle) {
        return pointOnEllipse(centre, r, r, angle);
    };
    const auto arc = [&](double r, double start, double sweep) {
        path->arcTo(QPointF(centre.x() - r, centre.y() - r),
                    QPointF(centre.x() + r, centre.y() + r), start, sweep);
    };
    const auto &[a0, sweep, r0, r1] = slice;
    if (r0 == 0.0) {
        path->moveTo(centre);
        path->lineTo(pointAt(r1, a0));
        arc(r1, a0, sweep);
    } else {
        path->moveTo(pointAt(r1, a0));
        arc(r1, a0, sweep);
        path->lineTo(pointAt(r0, a0 + sweep));
        arc(r0, a0 + sweep, -sweep);
    }
    path->closeSubpath();
}

// Draws the slices that the rings have stored.
class RingPainter
{
public:
    RingPainter(const LayoutContext &context, const GraphStyle &graphStyle, QPointF middle)
        : graph(context.graph), device(context.device), style(graphStyle), centre(middle)
    {
    }

    void paint(DotSubgraph *root)
    {
        walkSubgraphs(
            root, [this](DotSubgraph *subgraph) { return enter(subgraph); },
            [this](DotSubgraph *subgraph) { leave(subgraph); });
    }

private:
    bool enter(DotSubgraph *subgraph)
    {
        const double sweep = Rows::sweep.number(subgraph);
        if (!(sweep > 0.0))
            return false;
        device->beginCluster(subgraph, true);
        const SunburstSlice slice = stored(graph, subgraph, sweep);
        if (slice.r0 < slice.r1)
            paintSlice(slice, style.clusterPen(subgraph), style.clusterFill(subgraph, nullptr));
        return true;
    }

    void leave(DotSubgraph *subgraph)
    {
        for (DotNode *node : std::as_const(subgraph->nodes)) {
            const double sweep = Rows::sweep.number(node);
            if (!(sweep > 0.0))
                continue;
            device->beginNode(node);
            paintSlice(stored(graph, node, sweep), style.nodePen(node),
                       style.nodeFill(node, nullptr));
            device->endNode();
        }
        device->endCluster();
    }

    void paintSlice(const SunburstSlice &slice, Device::Pen *pen, Device::Color *fill)
    {
        Device::Path *path = device->createPath();
        ringSegment(path, centre, slice);
        device->drawPath(path, pen, fill);
    }

    DotGraph *graph;
    Device *device;
    const GraphStyle &style;
    QPointF centre;
};

} // namespace

QString Sunburst::run(const LayoutContext &context)
{
    const auto [graph, device] = context;
    DotSubgraph *root = graph->root();
    if (!Rows::wholeSweep.isGiven(graph, root))
        Rows::sweep.setText(graph, root, latin1(Rows::wholeSweep.byDefault));
    sumArea(graph, root);

    const double radius = layoutRings(graph, root);
    const int width = rounded(radius + radius);
    const int height = Rows::sweep.number(root) > halfTurn ? width : truncated(radius);
    QRect rect = chartRect(pageMargin, pageMargin, width, height);
    const GraphStyle style(graph, device);
    const ChartLegend legend(graph, findLegend(graph), style);
    const QSize size = legend.place(rect);
    device->begin(size.width(), size.height());
    RingPainter(context, style, QPointF(rect.x() + radius, rect.y() + radius)).paint(root);
    legend.draw(device);
    return device->end();
}

} // namespace ORR::Graph::Layout
