#include "layout/graflib/graflib_tree.h"

#include "layout/graflib/compact_placement.h"
#include "layout/graflib/expander.h"
#include "layout/graflib/gftree_attributes.h"
#include "layout/graflib/graph_drawing.h"
#include "layout/graflib/node_size.h"

#include <QHash>

#include <algorithm>
#include <numeric>
#include <utility>

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;
namespace Rows = GftreeAttributes;

namespace {

constexpr int noLevel = -1;

// x and y of the page along and across the levels.
AxisPair onAxes(const NumberPair &page, const PageAxes &axes)
{
    if (axes.horizontal)
        return {page.first, page.last};
    return {page.last, page.first};
}

TreeSpacing treeSpacing(const DotGraph *graph, const PageAxes &axes)
{
    const DotSubgraph *root = graph->root();
    return {.nodeSep = Rows::nodeSep.of(graph, root),
            .rankSep = Rows::rankSep.of(graph, root),
            .pad = onAxes(Rows::pad.of(graph, root), axes),
            .flipped = axes.flipped};
}

} // namespace

GraflibTree::GraflibTree(const LayoutContext &context)
    : graph(context.graph), device(context.device), nodes(graph->root()->nodes),
      style(graph, device), labels(style), axes(graph), spacing(treeSpacing(graph, axes)),
      isSorted(Rows::sort.of(graph, graph->root()) == Rows::ByLabel)
{
}

std::vector<QString> GraflibTree::sortKeys() const
{
    std::vector<QString> keys;
    keys.reserve(nodes.size());
    for (const DotNode *node : nodes)
        keys.push_back(Rows::sortKey.of(graph, node));
    return keys;
}

// The compact placement takes the children of a node from the last to the first, so for ascending
// labels they are sorted downward.
Successors GraflibTree::successors() const
{
    QHash<const DotNode *, int> numbers;
    numbers.reserve(nodes.size());
    for (int i = 0; i < nodes.size(); ++i)
        numbers.insert(nodes.at(i), i);
    const std::vector<QString> keys = isSorted ? sortKeys() : std::vector<QString>();
    Successors successors;
    successors.children.reserve(graph->root()->edges.size());
    for (const DotNode *node : nodes) {
        const QList<DotNode *> heads = graph->successors(node);
        for (const DotNode *head : heads)
            successors.children.push_back(numbers.value(head));
        if (isSorted)
            sortByKey(successors.children.begin() + successors.firstChild.back(),
                      successors.children.end(), keys, false);
        successors.firstChild.push_back(static_cast<int>(successors.children.size()));
    }
    return successors;
}

// Labels have their margins along the axes of the page, under every `rankdir`.
void GraflibTree::measure()
{
    const NumberPair margin = Rows::margin.defaultOf(graph, graph->root());
    measureNodes(graph, graph->root(), labels, {margin.first, margin.last});
}

TreeNode GraflibTree::treeNode(const DotNode *node, int level) const
{
    const double along = axes.along().inheritedNumber(graph, node);
    const bool expands = Rows::expander.of(graph, node) == GraflibAttributes::On;
    return {.level = level,
            .size = {along, axes.across().inheritedNumber(graph, node)},
            .room = expands ? along + expanderExtent(graph) : along};
}

// Writes `level` on all that the root reaches. Any other node keeps the level that the input gives
// it, and stands on none without one. False if there is no such level.
bool GraflibTree::assignLevels()
{
    levels = levelsOf(reached);
    std::vector<int> levelOf(nodes.size(), noLevel);
    for (int i = 0; i < reached.size(); ++i) {
        levelOf[reached.nodes[i]] = levels.levels[i];
        Rows::level.setInteger(graph, nodes.at(reached.nodes[i]), levels.levels[i]);
    }
    treeNodes.reserve(nodes.size());
    for (int i = 0; i < nodes.size(); ++i) {
        const DotNode *node = nodes.at(i);
        int level = levelOf[i];
        if (level == noLevel) {
            const std::optional<int> given = Rows::givenLevel.given(graph, node);
            if (given && (*given < 0 || *given >= levels.count))
                return false;
            level = given.value_or(noLevel);
        }
        treeNodes.push_back(treeNode(node, level));
    }
    return true;
}

// The nodes that stand on a level, in the order in which they stand there.
std::vector<int> GraflibTree::placingOrder() const
{
    std::vector<int> order(nodes.size());
    std::iota(order.begin(), order.end(), 0);
    std::erase_if(order, [&](int node) { return treeNodes[node].level == noLevel; });
    if (isSorted)
        sortByKey(order.begin(), order.end(), sortKeys(), true);
    return order;
}

void GraflibTree::writePlace(int node, const AxisPair &place)
{
    Rows::d1.setNumber(graph, nodes.at(node), place.along);
    Rows::d2.setNumber(graph, nodes.at(node), place.across);
}

QSizeF GraflibTree::placeByLevels()
{
    const std::vector<int> order = placingOrder();
    const TreePlaces places = placeColumns(treeNodes, order, levels.count, spacing);
    for (const int node : order)
        writePlace(node, places.nodes[node]);
    return places.page;
}

// Parents centred over their children. None if the graph is too much for it.
std::optional<QSizeF> GraflibTree::placeCompact()
{
    const std::vector<double> starts = levelStarts(levelExtents(treeNodes, levels.count), spacing);
    std::vector<double> extents;
    extents.reserve(reached.size());
    for (const int node : reached.nodes)
        extents.push_back(treeNodes[node].size.across);
    CompactPlacement placement(reached, std::move(extents), levels,
                               {.nodeSep = spacing.nodeSep, .start = spacing.pad.across});
    if (!placement.place())
        return {};
    for (int i = 0; i < reached.size(); ++i) {
        const TreeNode &node = treeNodes[reached.nodes[i]];
        writePlace(reached.nodes[i],
                   {placeAlong(node, starts[node.level], starts.back(), spacing.flipped),
                    placement.placed()[i]});
    }
    return QSizeF(starts.back(), placement.end() + spacing.pad.across);
}

EdgeRuns GraflibTree::edgeRuns(bool isCompact) const
{
    const double expander = expanderExtent(graph);
    if (!isCompact)
        return {.out = expander};
    const DotSubgraph *root = graph->root();
    const double head = Rows::headSegment.defaultOf(graph, root);
    const double tail = Rows::tailSegment.defaultOf(graph, root);
    return {.out = head + expander, .in = tail, .straight = spacing.rankSep - head - tail <= 0};
}

PlacedNode GraflibTree::placed(const DotNode *node) const
{
    return {
        {Rows::d1.inheritedNumber(graph, node), Rows::d2.inheritedNumber(graph, node)},
        {axes.along().inheritedNumber(graph, node), axes.across().inheritedNumber(graph, node)}};
}

void GraflibTree::writePolylines(const EdgeRuns &runs)
{
    for (DotEdge *edge : std::as_const(graph->root()->edges)) {
        const TreeEdge line =
            treeEdge(placed(edge->tail), placed(edge->head), runs, spacing.flipped);
        Rows::lineD1.set(graph, edge, line.along);
        Rows::lineD2.set(graph, edge, line.across);
    }
}

QString GraflibTree::run(const LayoutContext &context)
{
    return GraflibTree(context).draw();
}

QString GraflibTree::draw()
{
    if (!graph->root()->subgraphs.isEmpty())
        return u"GraflibTree does not support subgraphs\n"_s;
    const Successors all = successors();
    const auto root = rootOf(all);
    if (!root)
        return u"Could not find root node\n"_s;
    reached = reachedFrom(*root, all);
    if (reached.hasCycle)
        return u"Cycle detected. Graflib Tree layout does not support cycles\n"_s;

    measure();
    if (!assignLevels())
        return u"A node has a level that is not in the tree\n"_s;
    const bool isCompact = Rows::crossing.of(graph, graph->root()) == Rows::Compact;
    const auto size = isCompact ? placeCompact() : placeByLevels();
    if (!size)
        return u"Graph has too many paths for a compact tree layout\n"_s;
    writePolylines(edgeRuns(isCompact));
    return drawGraph({graph, device}, style, labels, *size);
}

void sortByKey(std::vector<int>::iterator first, std::vector<int>::iterator behind,
               const std::vector<QString> &keys, bool ascending)
{
    std::stable_sort(first, behind, [&](int a, int b) {
        const int order = keys[a].compare(keys[b], Qt::CaseInsensitive);
        return ascending ? order < 0 : order > 0;
    });
}

} // namespace ORR::Graph::Layout
