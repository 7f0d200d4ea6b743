#include "layout/graflib/graflib_tree.h"

#include "graph/attribute_values.h"
#include "graph/numbers.h"
#include "layout/graflib/compact_placement.h"
#include "layout/graflib/graflib_names.h"
#include "layout/graflib/graflib_painter.h"
#include "layout/graflib/polyline_text.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;

GraflibTree::GraflibTree(DotGraph *dotGraph, Device *drawingDevice)
    : graph(dotGraph), device(drawingDevice)
{
    const QString rankDir = graph->graphAttribute(graph->root(), Names::rankDir);
    horizontal = rankDir == "LR"_L1 || rankDir == "RL"_L1;
    flipped = rankDir == "RL"_L1 || rankDir == "BT"_L1;
    rankExtentAttr = horizontal ? Names::width : Names::height;
    siblingExtentAttr = horizontal ? Names::height : Names::width;
}

// A text with one length or two, x and y of the page.
GraflibTree::AxisPair GraflibTree::attrPair(const QString &name, AttrKind kind) const
{
    const DotSubgraph *root = graph->root();
    const QString text = kind == AttrKind::Graph ? graph->graphAttribute(root, name)
                                                 : graph->nodeDefault(root, name);
    const NumberPair xy = pointPairFromInches(text);
    if (horizontal)
        return {xy.first, xy.last};
    return {xy.last, xy.first};
}

double GraflibTree::rootInches(const QString &name) const
{
    return pointsFromInches(graph->graphAttribute(graph->root(), name));
}

double GraflibTree::nodeNumber(const DotNode *node, const QString &name) const
{
    return numberFrom(graph->nodeAttribute(node, name));
}

bool GraflibTree::isSorted() const
{
    return graph->graphAttribute(graph->root(), Names::sort) == "true"_L1;
}

// The only node that no edge leads to; null if there is none or more than one.
DotNode *GraflibTree::findRoot() const
{
    QSet<const DotNode *> heads;
    for (const DotNode *node : std::as_const(graph->root()->nodes)) {
        const QList<DotNode *> successors = graph->successors(node);
        for (const DotNode *head : successors)
            heads.insert(head);
    }
    DotNode *found = nullptr;
    for (DotNode *node : std::as_const(graph->root()->nodes)) {
        if (heads.contains(node))
            continue;
        if (found)
            return nullptr;
        found = node;
    }
    return found;
}

// Also numbers what the root reaches. The compact placement takes the kids of a node from the last
// to the first, so for ascending labels they are sorted downward.
bool GraflibTree::hasCycle(DotNode *root)
{
    const bool sorted = isSorted();
    reached = reachedFrom(root, [&](const DotNode *node) {
        QList<DotNode *> kids = graph->successors(node);
        if (sorted)
            sortByLabel(kids, false);
        return kids;
    });
    return reached.hasCycle;
}

// Writes `level` on all that the root reaches: the length of the longest way to it. Returns the
// number of levels.
int GraflibTree::assignLevels()
{
    levels.assign(reached.size(), 0);
    int deepest = 0;
    for (auto it = reached.finished.crbegin(); it != reached.finished.crend(); ++it) {
        const int node = *it;
        deepest = std::max(deepest, levels[node]);
        for (int i = reached.firstKid[node]; i < reached.firstKid[node + 1]; ++i) {
            int &level = levels[reached.kids[i]];
            level = std::max(level, levels[node] + 1);
        }
    }
    for (int node = 0; node < reached.size(); ++node)
        graph->setNodeAttribute(reached.nodes.at(node), Names::level,
                                QString::number(levels[node]));
    return deepest + 1;
}

// None for a node that has no level: the root does not reach it, and it stands in no level.
std::optional<int> GraflibTree::levelOf(const DotNode *node) const
{
    bool valid = false;
    const int level = graph->nodeAttribute(node, Names::level).toInt(&valid);
    return valid ? std::optional(level) : std::nullopt;
}

// Only nodes that the root does not reach can fail this: they keep the level that the input gives
// them.
bool GraflibTree::levelsAreValid(int levelCount) const
{
    const QList<DotNode *> &nodes = graph->root()->nodes;
    if (nodes.size() == reached.size())
        return true;
    return std::all_of(nodes.cbegin(), nodes.cend(), [&](const DotNode *node) {
        const auto level = levelOf(node);
        return !level || (*level >= 0 && *level < levelCount);
    });
}

// How much of its level a node takes.
double GraflibTree::levelExtent(const DotNode *node, double expanderSize) const
{
    const double extent = nodeNumber(node, rankExtentAttr);
    const bool expands = graph->nodeAttribute(node, Names::expander) == "true"_L1;
    return expands ? extent + expanderSize : extent;
}

// Every level by itself is centred across the drawing, so that edges between levels may cross.
QSizeF GraflibTree::placeColumns(int levelCount, double expanderSize)
{
    const double nodeSep = rootInches(Names::nodeSep);
    const double rankSep = rootInches(Names::rankSep);
    const AxisPair pad = attrPair(Names::pad, AttrKind::Graph);

    struct Level
    {
        QList<DotNode *> nodes;
        double extent = 0.0; // the largest along the levels
        double length = 0.0; // of all nodes across, with a gap behind each
    };
    std::vector<Level> columns(levelCount);
    for (DotNode *node : std::as_const(graph->root()->nodes)) {
        const auto number = levelOf(node);
        if (!number)
            continue;
        Level &level = columns[*number];
        level.nodes.append(node);
        level.extent = std::max(level.extent, levelExtent(node, expanderSize));
        // A node of size 0 counts without a gap, although placing it leaves one.
        const double sibling = nodeNumber(node, siblingExtentAttr);
        if (sibling != 0.0)
            level.length += sibling + nodeSep;
    }

    double rankTotal = 0.0;
    double longest = 0.0;
    for (const Level &level : columns) {
        rankTotal += level.extent;
        longest = std::max(longest, level.length);
    }
    rankTotal = rankTotal + (levelCount - 1) * rankSep + 2 * pad.along;
    const double siblingTotal = longest + 2 * pad.across;

    const bool sorted = isSorted();
    double rankPosition = pad.along;
    for (Level &level : columns) {
        double sibling = (siblingTotal - level.length) * 0.5;
        if (sorted)
            sortByLabel(level.nodes, true);
        for (DotNode *node : std::as_const(level.nodes)) {
            const double position = flipped
                ? rankTotal - rankPosition - nodeNumber(node, rankExtentAttr)
                : rankPosition;
            graph->setNodeAttribute(node, Names::d1, numberText(position));
            graph->setNodeAttribute(node, Names::d2, numberText(sibling));
            sibling += nodeNumber(node, siblingExtentAttr) + nodeSep;
        }
        rankPosition += rankSep + level.extent;
    }
    return {rankTotal, siblingTotal};
}

// Parents centred over their children. None if the graph is too much for it.
std::optional<QSizeF> GraflibTree::placeCompact(int levelCount, double rankSep, double expanderSize)
{
    const AxisPair pad = attrPair(Names::pad, AttrKind::Graph);
    LevelNumbers levelExtents(levelCount + 1, 0.0);
    for (const DotNode *node : std::as_const(graph->root()->nodes)) {
        if (const auto level = levelOf(node)) {
            double &extent = levelExtents[*level];
            extent = std::max(extent, levelExtent(node, expanderSize));
        }
    }
    LevelNumbers levelPositions(levelCount + 1, 0.0);
    double position = pad.along;
    for (int i = 0; i < levelCount; ++i) {
        levelPositions[i] = position;
        position += rankSep + levelExtents[i];
    }
    levelPositions.back() = position - rankSep + pad.along;

    std::vector<double> siblingExtents;
    siblingExtents.reserve(reached.size());
    for (const DotNode *node : std::as_const(reached.nodes))
        siblingExtents.push_back(nodeNumber(node, siblingExtentAttr));
    CompactPlacement placement(reached, std::move(siblingExtents), levels, levelCount,
                               {.nodeSep = rootInches(Names::nodeSep), .start = pad.across});
    if (!placement.place())
        return {};

    for (int i = 0; i < reached.size(); ++i) {
        DotNode *node = reached.nodes.at(i);
        double d1 = levelPositions[levels[i]];
        if (flipped)
            d1 = levelPositions.back() - d1 - nodeNumber(node, rankExtentAttr);
        graph->setNodeAttribute(node, Names::d1, numberText(d1));
        graph->setNodeAttribute(node, Names::d2, numberText(placement.placed()[i]));
    }
    return QSizeF(levelPositions.back(), placement.end() + pad.across);
}

// An edge leaves the far side of its tail, runs along the levels for `headRoom`, goes across, and
// comes to the head over the last `tailRoom`. Where the levels leave no room for both (`straight`)
// it goes across where the last run begins.
void GraflibTree::writePolylines(double headRoom, double tailRoom, bool straight)
{
    for (DotEdge *edge : std::as_const(graph->root()->edges)) {
        const DotNode *tail = edge->tail;
        const DotNode *head = edge->head;
        double start = nodeNumber(tail, Names::d1);
        double end = nodeNumber(head, Names::d1);
        double out = headRoom;
        double in = tailRoom;
        if (flipped) {
            end += nodeNumber(head, rankExtentAttr);
            out = -out;
        } else {
            start += nodeNumber(tail, rankExtentAttr);
            in = -in;
        }
        const double second = end + in;
        const double first = straight ? second : start + out;
        const double from = nodeNumber(tail, Names::d2) + nodeNumber(tail, siblingExtentAttr) * 0.5;
        const double to = nodeNumber(head, Names::d2) + nodeNumber(head, siblingExtentAttr) * 0.5;
        graph->setEdgeAttribute(edge, Names::d1, polylineText({start, first, second, end}));
        graph->setEdgeAttribute(edge, Names::d2, polylineText({from, from, to, to}));
    }
}

QString GraflibTree::run()
{
    DotSubgraph *top = graph->root();
    if (!top->subgraphs.isEmpty())
        return u"GraflibTree does not support subgraphs\n"_s;
    DotNode *root = findRoot();
    if (!root)
        return u"Could not find root node\n"_s;
    if (hasCycle(root))
        return u"Cycle detected. Graflib Tree layout does not support cycles\n"_s;

    const GraflibPainter painter(graph, device);
    const double expanderSize = painter.expanderSize();
    // Labels have their margins along the axes of the page, under every `rankdir`.
    const AxisPair margin = attrPair(Names::margin, AttrKind::Nodes);
    if (horizontal)
        painter.measureNodes(top->nodes, margin.along, margin.across);
    else
        painter.measureNodes(top->nodes, margin.across, margin.along);

    const int levelCount = assignLevels();
    if (!levelsAreValid(levelCount))
        return u"A node has a level that is not in the tree\n"_s;

    QSizeF size;
    if (graph->graphAttribute(top, Names::crossing) == "false"_L1) {
        const double rankSep = rootInches(Names::rankSep);
        const double headSegment = pointsFromInches(graph->edgeDefault(top, Names::headSegment));
        const double tailSegment = pointsFromInches(graph->edgeDefault(top, Names::tailSegment));
        const auto compact = placeCompact(levelCount, rankSep, expanderSize);
        if (!compact)
            return u"Graph has too many paths for a compact tree layout\n"_s;
        size = *compact;
        writePolylines(headSegment + expanderSize, tailSegment,
                       rankSep - headSegment - tailSegment <= 0);
    } else {
        size = placeColumns(levelCount, expanderSize);
        writePolylines(expanderSize, 0.0, false);
    }

    QString result;
    painter.render(result, size);
    return result;
}

void sortByLabel(QList<DotNode *> &nodes, bool ascending)
{
    if (nodes.size() < 2)
        return;
    struct Labelled
    {
        QString label;
        DotNode *node;
    };
    QList<Labelled> labelled;
    labelled.reserve(nodes.size());
    for (DotNode *node : std::as_const(nodes))
        labelled.append({node->attributes.value(Names::label), node});
    std::stable_sort(labelled.begin(), labelled.end(),
                     [ascending](const Labelled &a, const Labelled &b) {
                         const int order = a.label.compare(b.label, Qt::CaseInsensitive);
                         return ascending ? order < 0 : order > 0;
                     });
    for (qsizetype i = 0; i < nodes.size(); ++i)
        nodes[i] = labelled.at(i).node;
}

} // namespace ORR::Graph::Layout
