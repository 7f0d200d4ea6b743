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

// One of those that have one scale.
struct Member
{
    QString id;
    Figure figure;
    double weight; // above 0
};

// The bounds of a rectangle's area whose edges are rounded each, for a unit of weight.
Weighed byArea(const Member &member)
{
    const QSizeF size = member.figure.box.size();
    const double least = std::max(0.0, size.width() - 1) * std::max(0.0, size.height() - 1);
    return {member.id, least / member.weight,
            (size.width() + 1) * (size.height() + 1) / member.weight};
}

// A slice's angle is rounded at its sixth digit.
Weighed byAngle(const Member &member)
{
    constexpr double rounding = 1e-4;
    const double sweep = member.figure.slice.sweep;
    return {member.id, sweep * (1 - rounding) / member.weight,
            sweep * (1 + rounding) / member.weight};
}

// All circles are packed 1 larger than they are drawn, and lose what is below a whole point.
Weighed byRadius(const Member &member)
{
    constexpr double divisor = 3.14; // of the area to the square of the radius
    const double packed = std::sqrt(member.weight / divisor) + 1;
    const double radius = member.figure.box.width() / 2 + 1;
    constexpr double rounding = 1e-5; // the packed radius is stored with six digits
    return {member.id, radius / packed * (1 - rounding), (radius + 1) / packed * (1 + rounding)};
}

template <Weighed (*measure)(const Member &)>
QList<Weighed> eachOf(const QList<Member> &members)
{
    QList<Weighed> family;
    for (const Member &member : members)
        family += measure(member);
    return family;
}

bool areOfOneWidth(const QList<Member> &members)
{
    return std::ranges::all_of(members, [&](const Member &member) {
        return std::abs(member.figure.box.width() - members.constFirst().figure.box.width()) <= 1;
    });
}

// All bars are of one thickness, so that the other one of their sides is their length.
QList<Weighed> byLength(const QList<Member> &members)
{
    const bool upright = areOfOneWidth(members);
    QList<Weighed> family;
    for (const Member &member : members) {
        const QSizeF size = member.figure.box.size();
        const double length = upright ? size.height() : size.width();
        family += Weighed{member.id, (length - 1) / member.weight, (length + 1) / member.weight};
    }
    return family;
}

// How an engine shows weights.
struct WeightRow
{
    Drawing::LayoutIndex layout;
    QList<Weighed> (*measure)(const QList<Member> &members); // null if it shows none
    enum Scale { OfSiblings, OfAll } scale; // who has one
    const char *kind; // of the objects that show them; empty for all
};

using enum Drawing::LayoutIndex;
const QList<WeightRow> weightRows{
    {GfTree, nullptr, WeightRow::OfAll, ""},
    {GfDecl, nullptr, WeightRow::OfAll, ""},
    {UmlSeq, nullptr, WeightRow::OfAll, ""},
    {Matrix, nullptr, WeightRow::OfAll, ""},
    {FlatBubble, eachOf<byRadius>, WeightRow::OfAll, "Node"},
    {Sunburst, eachOf<byAngle>, WeightRow::OfSiblings, ""},
    {Treemap, eachOf<byArea>, WeightRow::OfSiblings, ""},
    {Bar, byLength, WeightRow::OfAll, ""},
};

// The members of each family.
std::map<qsizetype, QList<Member>> membersOf(const WeightRow &row, const Drawn &drawn,
                                             const QHash<QString, double> &weights)
{
    std::map<qsizetype, QList<Member>> families; // one for each parent, or one for all
    for (const DrawnObject &object : drawn.objects) {
        const double weight = weights.value(object.kind + u' ' + object.id);
        const std::optional<Figure> figure = figureOf(object);
        if (!figure || !(weight > 0) || (*row.kind && object.kind != QLatin1StringView(row.kind)))
            continue;
        families[row.scale == WeightRow::OfSiblings ? object.parent : 0] +=
            Member{object.id, *figure, weight};
    }
    return families;
}

} // namespace

qsizetype weightRowCount(Drawing::LayoutIndex layout)
{
    return std::ranges::count(weightRows, layout, &WeightRow::layout);
}

QList<QList<Weighed>> weighedFamilies(Drawing::LayoutIndex layout, const Drawn &drawn,
                                      const Graph::DotGraph &graph)
{
    const auto row = std::ranges::find(weightRows, layout, &WeightRow::layout);
    if (row == weightRows.end() || !row->measure)
        return {};
    QList<QList<Weighed>> all;
    for (const auto &[parent, members] : membersOf(*row, drawn, weightsOf(graph)))
        all += row->measure(members);
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
