#include "layout/charts/flat_bubble.h"

#include "graph/attribute_values.h"
#include "graph/subgraph_walk.h"
#include "layout/charts/chart_legend.h"
#include "layout/charts/circle_packing.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;

namespace {

const QString areaName = u"area"_s;
const QString heightName = u"height"_s;
const QString rName = u"r"_s;
const QString radiusName = u"radius"_s;
const QString widthName = u"width"_s;
const QString xName = u"x"_s;
const QString yName = u"y"_s;

// Not a more precise pi: the sizes of all circles depend on it.
constexpr double areaDivisor = 3.14;
constexpr double padding = 1.0;
// What a label needs around it, both sides together.
constexpr double labelMargin = 4.0;
// The sum of any number of them is below what the packing takes.
constexpr double largestNode = 1e290;
constexpr double infinity = std::numeric_limits<double>::infinity();

double ownNumber(const DotObject *object, const QString &name)
{
    return numberFrom(object->attributes.value(name));
}

PackCircle circleOf(double radius)
{
    PackCircle circle;
    circle.r = radius + padding;
    return circle;
}

// The scale at which a label fits into its object's circle; 0 where there is no circle, as in the
// legend.
double fittingScale(const DotObject *object, const TextBlock &label)
{
    const double r = ownNumber(object, rName);
    if (!(r > 0.0) || label.isEmpty())
        return 0.0;
    return (std::max(label.width, label.height) + labelMargin) / (r + r);
}

// The scale at which the drawing is as large as an int can measure. Beyond it all circles would
// come to lie in the same place, and a device would paint the page once for each of them.
double largestScale(double radius)
{
    constexpr double largestSide = std::numeric_limits<int>::max();
    return radius > 0.0 && std::isfinite(radius) ? largestSide * 0.5 / radius : infinity;
}

} // namespace

FlatBubble::FlatBubble(DotGraph *dotGraph, Device *drawingDevice)
    : graph(dotGraph), device(drawingDevice)
{
}

QString FlatBubble::run()
{
    DotSubgraph *root = graph->root();
    legend = findLegend(root);
    const double radius = packLevel(root);

    const GraphStyle style(graph, device);
    double scale = std::max(1.0, labelScale(style));
    const double wanted = std::max(numberFrom(graph->graphAttribute(root, heightName)),
                                   numberFrom(graph->graphAttribute(root, widthName)));
    if (radius > 0.0)
        scale = std::max(scale, wanted * 0.5 / radius);
    scale = std::min(scale, largestScale(radius));
    const double scaledRadius = scale * radius;
    const int side = rounded(scaledRadius + scaledRadius);

    QRect rect = chartRect(0, 0, side, side);
    const QSize size = placeLegend(graph, rect, legend, style);
    device->begin(size.width(), size.height());
    paintLevel(style, root, rect.x() + scaledRadius, rect.y() + scaledRadius, scale);
    drawLegend(device, graph, style, legend);
    return device->end();
}

// Packs the subgraph and all below it, from the innermost ones outward. Returns the radius of the
// circle around its members.
double FlatBubble::packLevel(DotSubgraph *subgraph)
{
    QList<QList<PackCircle>> open; // the circles of the children done so far, a list for each level
    double radius = 0.0; // of the level that was finished last
    walkSubgraphs(
        subgraph,
        [&](DotSubgraph *entered) {
            if (entered == legend && entered != subgraph)
                return false;
            open.emplaceBack();
            return true;
        },
        [&](DotSubgraph *done) {
            QList<PackCircle> circles = open.takeLast();
            circles.reserve(circles.size() + done->nodes.size());
            for (const DotNode *node : std::as_const(done->nodes))
                circles.append(circleOf(nodeRadius(node)));
            radius = packSiblings(circles);

            qsizetype next = 0;
            for (DotSubgraph *child : std::as_const(done->subgraphs)) {
                if (child == legend)
                    continue;
                const PackCircle &circle = circles.at(next++);
                graph->setGraphAttribute(child, xName, numberText(circle.x));
                graph->setGraphAttribute(child, yName, numberText(circle.y));
                graph->setGraphAttribute(child, rName, numberText(circle.r));
            }
            for (DotNode *node : std::as_const(done->nodes)) {
                const PackCircle &circle = circles.at(next++);
                graph->setNodeAttribute(node, xName, numberText(circle.x));
                graph->setNodeAttribute(node, yName, numberText(circle.y));
                graph->setNodeAttribute(node, rName, numberText(circle.r));
            }
            if (!open.isEmpty())
                open.last().append(circleOf(radius));
        });
    return radius;
}

double FlatBubble::nodeRadius(const DotNode *node) const
{
    double radius = numberFrom(graph->nodeAttribute(node, radiusName));
    if (!(radius > 0.0))
        radius = std::sqrt(numberFrom(graph->nodeAttribute(node, areaName)) / areaDivisor);
    return std::min(radius, largestNode); // not a number stays that
}

// The scale that the labels of all nodes and of all subgraphs but the root ask for.
double FlatBubble::labelScale(const GraphStyle &style) const
{
    double scale = 0.0;
    walkSubgraphs(
        graph->root(),
        [&](DotSubgraph *subgraph) {
            if (subgraph->parent)
                scale = std::max(scale, fittingScale(subgraph, style.clusterLabel(subgraph)));
            for (const DotNode *node : std::as_const(subgraph->nodes))
                scale = std::max(scale, fittingScale(node, style.nodeLabel(node)));
            return true;
        },
        [](DotSubgraph *) {});
    return scale;
}

void FlatBubble::paintLevel(const GraphStyle &style, DotSubgraph *subgraph, double ox, double oy,
                            double scale)
{
    QList<QPointF> centres{QPointF(ox, oy)}; // of the subgraphs that the walk is inside of
    walkSubgraphs(
        subgraph,
        [&](DotSubgraph *entered) {
            if (entered == legend)
                return false;
            const QPointF origin = centres.constLast();
            const QPointF centre(origin.x() + ownNumber(entered, xName) * scale,
                                 origin.y() + ownNumber(entered, yName) * scale);
            centres.append(centre);
            if (entered->parent) {
                device->beginCluster(entered, true);
                paintCircle(centre, ownNumber(entered, rName) * scale, style.clusterPen(entered),
                            style.clusterFill(entered, nullptr));
            }
            return true;
        },
        [&](DotSubgraph *done) {
            const QPointF centre = centres.takeLast();
            for (DotNode *node : std::as_const(done->nodes)) {
                const QPointF nodeCentre(ownNumber(node, xName) * scale + centre.x(),
                                         ownNumber(node, yName) * scale + centre.y());
                device->beginNode(node);
                paintCircle(nodeCentre, ownNumber(node, rName) * scale, style.nodePen(node),
                            style.nodeFill(node, nullptr));
                paintLabel(style.nodeLabel(node), nodeCentre);
                device->endNode();
            }
            if (done->parent) {
                paintLabel(style.clusterLabel(done), centre);
                device->endCluster();
            }
        });
}

void FlatBubble::paintCircle(QPointF centre, double r, Device::Pen *pen, Device::Color *fill)
{
    // Truncated, unlike the centre: a circle never grows into its padding.
    const int radius = truncated(r - padding);
    device->drawEllipse(QPoint(rounded(centre.x()), rounded(centre.y())), radius, radius, pen,
                        fill);
}

void FlatBubble::paintLabel(const TextBlock &label, QPointF centre)
{
    if (label.isEmpty())
        return;
    TextBlock::draw(
        label,
        QPoint(rounded(centre.x() - label.width * 0.5), rounded(centre.y() - label.height * 0.5)),
        device);
}

} // namespace ORR::Graph::Layout
