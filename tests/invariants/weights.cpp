#include "invariants/weights.h"

#include "graph/subgraph_walk.h"
#include "invariants/figures.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

// The weight of each node, and of each subgraph as the sum of what is in it. The ids of nodes and
// of subgraphs are told apart by the kind of the object in front.
QHash<QString, double> weightsOf(const Graph::DotGraph &graph)
{
    QHash<QString, double> weights;
    QList<Graph::DotSubgraph *> subgraphs = Graph::subgraphsInPreorder(graph.root());
    // Children before their parents.
    std::reverse(subgraphs.begin(), subgraphs.end());
    for (const Graph::DotSubgraph *subgraph : std::as_const(subgraphs)) {
        double sum = 0.0;
        for (const Graph::DotNode *node : subgraph->nodes) {
            const double weight = graph.nodeAttribute(node, u"area"_s).toDouble();
            weights.insert(u"Node "_s + node->id, weight);
            sum += weight;
        }
        for (const Graph::DotSubgraph *child : subgraph->subgraphs)
            sum += weights.value(u"Cluster "_s + child->id);
        weights.insert(u"Cluster "_s + subgraph->id, sum);
    }
    return weights;
}

// The bounds of a rectangle's area whose edges are rounded each, for a unit of weight.
Weighed byArea(const QString &id, const Figure &figure, double weight)
{
    const QSizeF size = figure.box.size();
    const double least = std::max(0.0, size.width() - 1) * std::max(0.0, size.height() - 1);
    return {id, least / weight, (size.width() + 1) * (size.height() + 1) / weight};
}

// A slice's angle is rounded at its sixth digit.
Weighed byAngle(const QString &id, const Figure &figure, double weight)
{
    constexpr double rounding = 1e-4;
    return {id, figure.slice.sweep * (1 - rounding) / weight,
            figure.slice.sweep * (1 + rounding) / weight};
}

// All circles are packed 1 larger than they are drawn, and lose what is below a whole point.
Weighed byRadius(const QString &id, const Figure &figure, double weight)
{
    constexpr double divisor = 3.14; // of the area to the square of the radius
    const double packed = std::sqrt(weight / divisor) + 1;
    const double radius = figure.box.width() / 2 + 1;
    constexpr double rounding = 1e-5; // the packed radius is stored with six digits
    return {id, radius / packed * (1 - rounding), (radius + 1) / packed * (1 + rounding)};
}

// The weight of an object, or 0 for one that has none.
double weightOf(const DrawnObject &object, const QHash<QString, double> &weights)
{
    return weights.value(object.kind + u' ' + object.id);
}

bool areOfOneWidth(const QList<Figure> &figures)
{
    return std::ranges::all_of(figures, [&](const Figure &figure) {
        return std::abs(figure.box.width() - figures.constFirst().box.width()) <= 1;
    });
}

// All bars are of one thickness, so that the other one of their sides is their length.
QList<Weighed> byLength(const Drawn &drawn, const QHash<QString, double> &weights)
{
    QList<Figure> bars;
    QList<const DrawnObject *> objects;
    for (const DrawnObject &object : drawn.objects) {
        const std::optional<Figure> figure = figureOf(object);
        if (figure && weightOf(object, weights) > 0) {
            bars += *figure;
            objects += &object;
        }
    }
    const bool upright = areOfOneWidth(bars);
    QList<Weighed> family;
    for (qsizetype i = 0; i < bars.size(); ++i) {
        const QSizeF size = bars.at(i).box.size();
        const double length = upright ? size.height() : size.width();
        const double weight = weightOf(*objects.at(i), weights);
        family += Weighed{objects.at(i)->id, (length - 1) / weight, (length + 1) / weight};
    }
    return family;
}

} // namespace

QList<QList<Weighed>> weighedFamilies(Drawing::LayoutIndex layout, const Drawn &drawn,
                                      const Graph::DotGraph &graph)
{
    const QHash<QString, double> weights = weightsOf(graph);
    if (layout == Drawing::LayoutIndex::Bar)
        return {byLength(drawn, weights)};
    std::map<qsizetype, QList<Weighed>> families; // one for each parent, or one for all
    for (const DrawnObject &object : drawn.objects) {
        const double weight = weightOf(object, weights);
        const std::optional<Figure> figure = figureOf(object);
        if (!figure || !(weight > 0))
            continue;
        if (layout == Drawing::LayoutIndex::Treemap)
            families[object.parent] += byArea(object.id, *figure, weight);
        else if (layout == Drawing::LayoutIndex::Sunburst)
            families[object.parent] += byAngle(object.id, *figure, weight);
        else if (layout == Drawing::LayoutIndex::FlatBubble && object.kind == "Node"_L1)
            families[0] += byRadius(object.id, *figure, weight);
    }
    QList<QList<Weighed>> all;
    for (const auto &[parent, family] : families)
        all += family;
    return all;
}

QStringList outOfProportion(const QList<Weighed> &family)
{
    double least = 0.0;
    double most = std::numeric_limits<double>::infinity();
    QStringList ids;
    for (const Weighed &one : family) {
        if (one.least > most || one.most < least) {
            ids += one.id;
            continue;
        }
        least = std::max(least, one.least);
        most = std::min(most, one.most);
    }
    return ids;
}
