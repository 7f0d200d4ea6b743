#include "layout/charts/flat_bubble.h"

#include "device/graph_style.h"
#include "graph/numbers.h"
#include "graph/subgraph_walk.h"
#include "layout/charts/bubble_attributes.h"
#include "layout/charts/bubble_places.h"
#include "layout/charts/chart_legend.h"
#include "layout/charts/chart_rect.h"

#include <QHash>

#include <algorithm>

namespace ORR::Graph::Layout {

namespace {

namespace Rows = BubbleAttributes;

template <typename Object>
void store(DotGraph *graph, Object *object, const PackCircle &circle)
{
    Rows::x.setNumber(graph, object, circle.x);
    Rows::y.setNumber(graph, object, circle.y);
    Rows::r.setNumber(graph, object, circle.r);
}

// Packs the members of a subgraph, the circles of the child subgraphs being given, and stores their
// places. Returns the radius of the circle around them.
double packMembers(DotGraph *graph, DotSubgraph *subgraph, const DotSubgraph *legend,
                   QList<PackCircle> circles)
{
    circles.reserve(circles.size() + subgraph->nodes.size());
    for (const DotNode *node : std::as_const(subgraph->nodes))
        circles.append(
            paddedCircle(bubbleRadius(Rows::radius.of(graph, node), Rows::area.of(graph, node))));
    const double radius = packSiblings(circles);

    auto circle = circles.cbegin();
    for (DotSubgraph *child : std::as_const(subgraph->subgraphs)) {
        if (child != legend)
            store(graph, child, *circle++);
    }
    for (DotNode *node : std::as_const(subgraph->nodes))
        store(graph, node, *circle++);
    return radius;
}

// Packs the graph from the innermost subgraphs outward. Returns the radius of the circle around it
// all.
double packGraph(DotGraph *graph, const DotSubgraph *legend)
{
    DotSubgraph *root = graph->root();
    QList<QList<PackCircle>> open; // the circles of the children done so far, a list for each level
    double radius = 0.0; // of the level that was finished last
    walkSubgraphs(
        root,
        [&](DotSubgraph *entered) {
            if (entered == legend && entered != root)
                return false;
            open.emplaceBack();
            return true;
        },
        [&](DotSubgraph *done) {
            radius = packMembers(graph, done, legend, open.takeLast());
            if (!open.isEmpty())
                open.last().append(paddedCircle(radius));
        });
    return radius;
}

// The labels of all subgraphs but the root and of all nodes, measured once. Those within the legend
// are the legend's to measure and count here only where the input gives a radius.
class BubbleLabels
{
public:
    BubbleLabels(const DotGraph *graph, const DotSubgraph *legend, const GraphStyle &style)
    {
        bool inLegend = false;
        const auto counts = [&](const auto *object) {
            return !inLegend || Rows::r.number(object) > 0.0;
        };
        walkSubgraphs(
            graph->root(),
            [&](DotSubgraph *subgraph) {
                inLegend |= subgraph == legend;
                firsts.insert(subgraph, blocks.size());
                add(subgraph,
                    subgraph->parent && counts(subgraph) ? style.clusterLabel(subgraph)
                                                         : TextBlock());
                for (const DotNode *node : std::as_const(subgraph->nodes))
                    add(node, counts(node) ? style.nodeLabel(node) : TextBlock());
                return true;
            },
            [&](const DotSubgraph *subgraph) { inLegend &= subgraph != legend; });
    }

    // At which each label fits into its circle.
    double scale() const { return largestScale; }

    // That of the subgraph; those of its nodes stand behind it in the order of the nodes.
    const TextBlock *of(const DotSubgraph *subgraph) const
    {
        return &blocks.at(firsts.value(subgraph));
    }

private:
    template <typename Object>
    void add(const Object *object, const TextBlock &label)
    {
        if (!label.isEmpty())
            largestScale = std::max(
                largestScale, fittingScale(Rows::r.number(object), {label.width, label.height}));
        blocks.append(label);
    }

    double largestScale = 0.0;
    QList<TextBlock> blocks;
    QHash<const DotSubgraph *, qsizetype> firsts; // where those of a subgraph start
};

// Draws the circles at the scale.
class BubblePainter
{
public:
    BubblePainter(Device *drawingDevice, const GraphStyle &graphStyle,
                  const BubbleLabels &bubbleLabels, double drawingScale)
        : device(drawingDevice), style(graphStyle), labels(bubbleLabels), scale(drawingScale)
    {
    }

    // `middle` is the centre of the drawing. The legend is left out.
    void paint(DotSubgraph *root, const DotSubgraph *legend, QPointF middle)
    {
        QList<QPointF> centres{middle}; // of the subgraphs that the walk is inside of
        walkSubgraphs(
            root,
            [&](DotSubgraph *entered) {
                if (entered == legend)
                    return false;
                const QPointF centre = centreOf(entered, centres.constLast());
                centres.append(centre);
                if (entered->parent) {
                    device->beginCluster(entered, true);
                    paintCircle(centre, Rows::r.number(entered), style.clusterPen(entered),
                                style.clusterFill(entered, nullptr));
                }
                return true;
            },
            [&](DotSubgraph *done) {
                const QPointF centre = centres.takeLast();
                const TextBlock *label = labels.of(done);
                const TextBlock *nodeLabel = label;
                for (DotNode *node : std::as_const(done->nodes))
                    paintNode(node, centreOf(node, centre), *++nodeLabel);
                if (done->parent) {
                    paintLabel(*label, centre);
                    device->endCluster();
                }
            });
    }

private:
    template <typename Object>
    QPointF centreOf(const Object *object, QPointF origin) const
    {
        return {origin.x() + Rows::x.number(object) * scale,
                origin.y() + Rows::y.number(object) * scale};
    }

    void paintNode(DotNode *node, QPointF centre, const TextBlock &label)
    {
        device->beginNode(node);
        paintCircle(centre, Rows::r.number(node), style.nodePen(node),
                    style.nodeFill(node, nullptr));
        paintLabel(label, centre);
        device->endNode();
    }

    void paintCircle(QPointF centre, double r, Device::Pen *pen, Device::Color *fill)
    {
        // Truncated, unlike the centre: a circle never grows into its padding.
        const int radius = truncated(r * scale - bubblePadding);
        device->drawEllipse(QPoint(rounded(centre.x()), rounded(centre.y())), radius, radius, pen,
                            fill);
    }

    void paintLabel(const TextBlock &label, QPointF centre)
    {
        if (!label.isEmpty())
            TextBlock::draw(label,
                            QPoint(rounded(centre.x() - label.width * 0.5),
                                   rounded(centre.y() - label.height * 0.5)),
                            device);
    }

    Device *device;
    const GraphStyle &style;
    const BubbleLabels &labels;
    double scale;
};

} // namespace

QString FlatBubble::run(const LayoutContext &context)
{
    const auto [graph, device] = context;
    DotSubgraph *root = graph->root();
    DotSubgraph *legendGraph = findLegend(graph);
    const double radius = packGraph(graph, legendGraph);

    const GraphStyle style(graph, device);
    const BubbleLabels labels(graph, legendGraph, style);
    const double wanted = std::max(Rows::height.of(graph, root), Rows::width.of(graph, root));
    const double scale = bubbleScale(radius, labels.scale(), wanted);
    const double scaledRadius = scale * radius;
    const int side = rounded(scaledRadius + scaledRadius);

    QRect rect = chartRect(0, 0, side, side);
    const ChartLegend legend(graph, legendGraph, style);
    const QSize size = legend.place(rect);
    device->begin(size.width(), size.height());
    BubblePainter(device, style, labels, scale)
        .paint(root, legendGraph, {rect.x() + scaledRadius, rect.y() + scaledRadius});
    legend.draw(device);
    return device->end();
}

} // namespace ORR::Graph::Layout
