#include "layout/charts/sunburst.h"

#include "device/ellipse.h"
#include "device/graph_style.h"
#include "graph/attribute_values.h"
#include "graph/subgraph_walk.h"
#include "layout/charts/chart_items.h"
#include "layout/charts/chart_legend.h"

#include <algorithm>

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;

namespace {

const QString a0Name = u"a0"_s;
const QString areaName = u"area"_s;
const QString r0Name = u"r0"_s;
const QString r1Name = u"r1"_s;
const QString ringStepName = u"rstep"_s;
const QString sweepName = u"sweep"_s;

const QString wholeTurn = u"360"_s;
constexpr double halfTurn = 180.0;
constexpr double defaultRingStep = 72.0; // points
constexpr double smallestSweep = 0.29; // degrees
constexpr int margin = 4; // points

double ownNumber(const DotObject *object, const QString &name)
{
    return numberFrom(object->attributes.value(name));
}

double graphNumber(const DotGraph *graph, const DotSubgraph *subgraph, const QString &name)
{
    return numberFrom(graph->graphAttribute(subgraph, name));
}

struct Slice
{
    double a0;
    double sweep;
    double r0;
    double r1;
};

void store(DotGraph *graph, const ChartItem &item, const Slice &slice)
{
    const auto set = [&](const QString &name, double value) {
        if (item.node)
            graph->setNodeAttribute(item.node, name, numberText(value));
        else
            graph->setGraphAttribute(item.subgraph, name, numberText(value));
    };
    set(sweepName, slice.sweep);
    set(a0Name, slice.a0);
    set(r0Name, slice.r0);
    set(r1Name, slice.r1);
}

// Takes out the items that would be too narrow to be seen, smallest first. Each one gives its room
// to the others, and may save the next by that. Returns the area of those that stay.
double dropNarrowItems(QList<ChartItem> &items, double total, double sweep)
{
    qsizetype dropped = 0;
    // What is not a number, as behind a total of 0, is narrow.
    while (dropped < items.size() && !((items.at(dropped).area / total) * sweep >= smallestSweep))
        total -= items.at(dropped++).area;
    items.remove(0, dropped);
    return total;
}

// Lays out the members of one subgraph. Appends the subgraphs among them to `inner` and returns the
// outer radius of the ring.
double layoutMembers(DotGraph *graph, DotSubgraph *subgraph, double sweep, double ringStep,
                     QList<DotSubgraph *> &inner)
{
    QList<ChartItem> items = chartItems(graph, subgraph, true);
    const double total = dropNarrowItems(items, graphNumber(graph, subgraph, areaName), sweep);
    const double step = items.isEmpty() ? 0.0 : ringStep;
    sortByIdNumber(items);

    double a0 = graphNumber(graph, subgraph, a0Name);
    const double r1 = graphNumber(graph, subgraph, r1Name);
    for (const ChartItem &item : std::as_const(items)) {
        const double share = (item.area / total) * sweep;
        store(graph, item, {a0, share, r1, r1 + step});
        a0 += share;
        if (item.subgraph)
            inner.append(item.subgraph);
    }
    return r1 + step;
}

// Lays out the rings within `root` and returns their outer radius.
double layoutRing(DotGraph *graph, DotSubgraph *root)
{
    const double wantedStep = graphNumber(graph, root, ringStepName);
    const double ringStep = wantedStep > 0.0 ? wantedStep : defaultRingStep;
    QList<DotSubgraph *> pending{root};
    double outer = 0.0;
    while (!pending.isEmpty()) {
        DotSubgraph *subgraph = pending.takeLast();
        const double sweep = ownNumber(subgraph, sweepName);
        // Too narrow to hold anything, with an outer radius of 0.
        const double reach =
            sweep < smallestSweep ? 0.0 : layoutMembers(graph, subgraph, sweep, ringStep, pending);
        outer = subgraph == root ? reach : std::max(outer, reach);
    }
    return outer;
}

void ringSegment(Device::Path *path, QPointF centre, const Slice &slice)
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

class Painter
{
public:
    Painter(const LayoutContext &context, const GraphStyle &graphStyle, QPointF middle)
        : graph(context.graph), device(context.device), style(graphStyle), centre(middle)
    {
    }

    void paintRings(DotSubgraph *root)
    {
        walkSubgraphs(
            root, [this](DotSubgraph *subgraph) { return enter(subgraph); },
            [this](DotSubgraph *subgraph) { leave(subgraph); });
    }

private:
    bool enter(DotSubgraph *subgraph)
    {
        const double sweep = ownNumber(subgraph, sweepName);
        if (!(sweep > 0.0))
            return false;
        device->beginCluster(subgraph, true);
        const double r0 = graphNumber(graph, subgraph, r0Name);
        const double r1 = graphNumber(graph, subgraph, r1Name);
        if (r0 < r1)
            paintSlice({graphNumber(graph, subgraph, a0Name), sweep, r0, r1},
                       style.clusterPen(subgraph), style.clusterFill(subgraph, nullptr));
        return true;
    }

    void leave(DotSubgraph *subgraph)
    {
        for (DotNode *node : std::as_const(subgraph->nodes)) {
            const double sweep = ownNumber(node, sweepName);
            if (!(sweep > 0.0))
                continue;
            device->beginNode(node);
            paintSlice({nodeNumber(node, a0Name), sweep, nodeNumber(node, r0Name),
                        nodeNumber(node, r1Name)},
                       style.nodePen(node), style.nodeFill(node, nullptr));
            device->endNode();
        }
        device->endCluster();
    }

    void paintSlice(const Slice &slice, Device::Pen *pen, Device::Color *fill)
    {
        Device::Path *path = device->createPath();
        ringSegment(path, centre, slice);
        device->drawPath(path, pen, fill);
    }

    double nodeNumber(const DotNode *node, const QString &name) const
    {
        return numberFrom(graph->nodeAttribute(node, name));
    }

    DotGraph *graph;
    Device *device;
    const GraphStyle &style;
    QPointF centre;
};

} // namespace

QString Sunburst::run(const LayoutContext &context)
{
    DotGraph *graph = context.graph;
    Device *device = context.device;
    DotSubgraph *root = graph->root();
    if (!root->attributes.contains(sweepName))
        graph->setGraphAttribute(root, sweepName, wholeTurn);
    sumArea(graph, root);

    const double radius = layoutRing(graph, root);
    const int width = rounded(radius + radius);
    const int height = ownNumber(root, sweepName) > halfTurn ? width : truncated(radius);
    QRect rect = chartRect(margin, margin, width, height);
    const GraphStyle style(graph, device);
    DotSubgraph *legend = findLegend(root);
    const QSize size = placeLegend(graph, rect, legend, style);
    device->begin(size.width(), size.height());
    Painter(context, style, QPointF(rect.x() + radius, rect.y() + radius)).paintRings(root);
    drawLegend(device, graph, style, legend);
    return device->end();
}

} // namespace ORR::Graph::Layout
