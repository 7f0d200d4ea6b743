#include "tree_reading.h"

#include "graph/attribute_values.h"
#include "graph/numbers.h"

#include <algorithm>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

void sortByLabel(QList<DotNode *> &list, bool ascending)
{
    std::stable_sort(list.begin(), list.end(), [&](const DotNode *a, const DotNode *b) {
        const int c = QString::compare(a->attributes.value(u"label"_s),
                                       b->attributes.value(u"label"_s), Qt::CaseInsensitive);
        return ascending ? c < 0 : c > 0;
    });
}

} // namespace

TreeReading::TreeReading(DotGraph *dotGraph) : graph(dotGraph)
{
    const QString rankdir = ofRoot(u"rankdir"_s);
    flipped = rankdir == u"RL"_s || rankdir == u"BT"_s;
    horizontal = rankdir == u"LR"_s || rankdir == u"RL"_s;
    rankExtentAttr = horizontal ? u"width"_s : u"height"_s;
    siblingExtentAttr = horizontal ? u"height"_s : u"width"_s;
}

double TreeReading::number(const DotNode *node, const QString &name) const
{
    return graph->nodeAttribute(node, name).toDouble();
}

QString TreeReading::ofRoot(const QString &name) const
{
    return graph->graphAttribute(graph->root(), name);
}

double TreeReading::inches(const QString &name) const
{
    return ofRoot(name).toDouble() * 72;
}

double TreeReading::padAlong() const
{
    const NumberPair pad = pointPairFromInches(ofRoot(u"pad"_s));
    return horizontal ? pad.first : pad.last;
}

double TreeReading::padAcross() const
{
    const NumberPair pad = pointPairFromInches(ofRoot(u"pad"_s));
    return horizontal ? pad.last : pad.first;
}

double TreeReading::grown(const DotNode *node, double expanderSize) const
{
    const double e = number(node, rankExtentAttr);
    return graph->nodeAttribute(node, u"expander"_s) == u"true"_s ? e + expanderSize : e;
}

DotNode *TreeReading::findRoot() const
{
    QList<DotNode *> all = graph->allNodes();
    for (const DotNode *node : graph->allNodes()) {
        for (DotNode *head : graph->successors(node))
            all.removeAll(head);
    }
    return all.size() == 1 ? all.constFirst() : nullptr;
}

bool TreeReading::hasCycle(DotNode *node, QList<DotNode *> path) const
{
    if (path.contains(node))
        return true;
    path.append(node);
    for (DotNode *child : graph->successors(node)) {
        if (hasCycle(child, path))
            return true;
    }
    return false;
}

int TreeReading::assignLevels(DotNode *root) const
{
    QList<DotNode *> frontier{root};
    int n = 0;
    do {
        QList<DotNode *> next;
        for (DotNode *node : frontier) {
            graph->setNodeAttribute(node, u"level"_s, QString::number(n));
            next += graph->successors(node);
        }
        frontier = next;
        ++n;
    } while (!frontier.isEmpty());
    return n;
}

QSizeF TreeReading::placeColumns(int levels, double expanderSize) const
{
    const double nodesep = inches(u"nodesep"_s);
    const double ranksep = inches(u"ranksep"_s);
    QList<QList<DotNode *>> lists(levels);
    QList<double> largest(levels, 0.0);
    QList<double> sums(levels, 0.0);
    for (DotNode *node : graph->root()->nodes) {
        bool ok = false;
        const int level = graph->nodeAttribute(node, u"level"_s).toInt(&ok);
        if (!ok)
            continue;
        lists[level].append(node);
        largest[level] = std::max(largest[level], grown(node, expanderSize));
        const double s = number(node, siblingExtentAttr);
        if (s != 0)
            sums[level] += s + nodesep;
    }
    double rankTotal = 0;
    for (const double e : largest)
        rankTotal += e;
    rankTotal = rankTotal + (levels - 1) * ranksep + 2 * padAlong();
    const double sibTotal = *std::max_element(sums.begin(), sums.end()) + 2 * padAcross();
    double rankPos = padAlong();
    for (int i = 0; i < levels; ++i) {
        double sib = (sibTotal - sums[i]) * 0.5;
        if (ofRoot(u"sort"_s) == u"true"_s)
            sortByLabel(lists[i], true);
        for (DotNode *node : lists[i]) {
            const double p = flipped ? rankTotal - rankPos - number(node, rankExtentAttr) : rankPos;
            graph->setNodeAttribute(node, u"d1"_s, QString::number(p, 'g', 6));
            graph->setNodeAttribute(node, u"d2"_s, QString::number(sib, 'g', 6));
            sib += number(node, siblingExtentAttr) + nodesep;
        }
        rankPos += ranksep + largest[i];
    }
    return {rankTotal, sibTotal};
}

QSizeF TreeReading::placeCompact(DotNode *root, int levels, double ranksep,
                                 double expanderSize) const
{
    QList<double> levelExtent(levels + 1, 0.0);
    QList<double> levelPos(levels + 1, 0.0);
    QList<double> levelEnd(levels + 1, 0.0);
    for (const DotNode *node : graph->root()->nodes) {
        bool ok = false;
        const int level = graph->nodeAttribute(node, u"level"_s).toInt(&ok);
        if (ok)
            levelExtent[level] = std::max(levelExtent[level], grown(node, expanderSize));
    }
    double pos = padAlong();
    for (int i = 0; i < levels; ++i) {
        levelPos[i] = pos;
        pos += ranksep + levelExtent[i];
    }
    levelPos[levels] = pos - ranksep + padAlong();
    placeSubtree(root, levelPos, levelEnd, padAcross(), padAcross(), false);
    levelEnd[levels] += padAcross();
    return {levelPos[levels], levelEnd[levels]};
}

double TreeReading::placeSubtree(DotNode *node, const QList<double> &levelPos,
                                 QList<double> &levelEnd, double start, double base,
                                 bool first) const
{
    const double nodesep = inches(u"nodesep"_s);
    const double s = number(node, siblingExtentAttr);
    const int level = graph->nodeAttribute(node, u"level"_s).toInt();
    double y = levelEnd[level] == 0 ? base : levelEnd[level] + nodesep * (first ? 2 : 1);
    const double p = std::max(start, y);
    const int floor = static_cast<int>(p);
    QList<DotNode *> children = graph->successors(node);
    if (children.isEmpty()) {
        y = p;
    } else {
        if (ofRoot(u"sort"_s) == u"true"_s)
            sortByLabel(children, false);
        double next = start;
        double end = 0;
        double firstY = 0;
        bool firstPlaced = true;
        for (auto child = children.crbegin(); child != children.crend(); ++child) {
            end = placeSubtree(*child, levelPos, levelEnd, next, base, firstPlaced);
            next = end + nodesep;
            if (firstPlaced) {
                firstY = number(*child, u"d2"_s);
                firstPlaced = false;
            }
        }
        y = (end - firstY - s) * 0.5 + firstY;
        if (floor > y) {
            for (DotNode *child : children)
                shiftSubtree(child, floor - y, levelEnd);
            y = floor;
        }
    }
    double d = levelPos[level];
    if (flipped)
        d = levelPos.last() - d - number(node, rankExtentAttr);
    graph->setNodeAttribute(node, u"d1"_s, QString::number(d, 'g', 6));
    graph->setNodeAttribute(node, u"d2"_s, QString::number(y, 'g', 6));
    const double end = y + s;
    levelEnd.last() = std::max(levelEnd.last(), end);
    levelEnd[level] = std::max(levelEnd[level], end);
    return end;
}

void TreeReading::shiftSubtree(DotNode *node, double delta, QList<double> &levelEnd) const
{
    const double y = number(node, u"d2"_s) + delta;
    graph->setNodeAttribute(node, u"d2"_s, QString::number(y, 'g', 6));
    const double end = y + number(node, siblingExtentAttr);
    const int level = graph->nodeAttribute(node, u"level"_s).toInt();
    levelEnd.last() = std::max(levelEnd.last(), end);
    levelEnd[level] = std::max(levelEnd[level], end);
    for (DotNode *child : graph->successors(node))
        shiftSubtree(child, delta, levelEnd);
}
