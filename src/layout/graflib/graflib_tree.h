#pragma once

#include "graph/dot_graph.h"
#include "layout/graflib/reached_nodes.h"

#include <QList>
#include <QSizeF>
#include <QString>

#include <optional>

namespace ORR::Graph {
class Device;
}

namespace ORR::Graph::Layout {

// The engine of trees and of graphs without cycles that have one root. The root stands in the first
// level, and each level one step further along `rankdir`; a node with several parents stands in the
// deepest level in which it can be reached.
//
//   on      attribute            read, written  unit, meaning, default
//   root    rankdir              read           "LR", "RL", "BT"; anything else: top to bottom
//   root    crossing             read           "false": compact placement; else level by level
//   root    sort                 read           "true": by label, without regard to case
//   root    nodesep, ranksep     read           inches: gaps within and between levels, 0
//   root    pad                  read           inches, x or x,y: border of the page, 0
//   root    margin of nodes      read           inches, x or x,y: around the labels, 0
//   root    headsegment of edges, tailsegment of edges
//                                read           inches: the straight run where an edge leaves its
//                                               tail, and where it comes to its head, 0; compact
//                                               placement only
//   node    expander             read           "true": its level gets room for the glyph
//   node    label                read           the node's own one is the key of `sort`
//   node    width, height        both           points
//   node    level                both           number of the level, the root's is 0
//   node    d1, d2               both           points: along the levels, and across them
//   edge    d1, d2               written        four numbers each, in points
//
// And what `GraflibPainter` reads. Two asymmetries are meant: the room for an expander is kept free
// at every tail, whether it has one or not; and `headsegment` belongs to the end at the tail.
class GraflibTree
{
public:
    // Neither is owned.
    GraflibTree(DotGraph *graph, Device *device);

    // Lays the graph out and draws it. Empty on success, otherwise a message for the user, with
    // nothing drawn: the graph has subgraphs, or not exactly one node without parents, or a cycle
    // that its root reaches; a node that the root does not reach gives itself a level that there is
    // not; or the compact placement would take too long (see `CompactPlacement`). Or, after all is
    // drawn, that of the device.
    QString run();

private:
    DotNode *findRoot() const;
    bool hasCycle(DotNode *root);
    int assignLevels();
    bool levelsAreValid(int levels) const;
    std::optional<int> levelOf(const DotNode *node) const;
    double levelExtent(const DotNode *node, double expanderSize) const;

    QSizeF placeColumns(int levels, double expanderSize);
    std::optional<QSizeF> placeCompact(int levels, double rankSep, double expanderSize);
    void writePolylines(double headRoom, double tailRoom, bool straight);

    // Lengths along and across the levels, in points.
    struct AxisPair
    {
        double along;
        double across;
    };
    // Whose attribute holds a pair of lengths: the root's own one, or its default for what is in
    // it.
    enum class AttrKind { Graph, Nodes };
    AxisPair attrPair(const QString &name, AttrKind kind) const;
    double rootInches(const QString &name) const;
    double nodeNumber(const DotNode *node, const QString &name) const;
    bool isSorted() const;

    DotGraph *graph;
    Device *device;
    QString rankExtentAttr; // the attribute with a node's size along the levels
    QString siblingExtentAttr; // and across them
    bool flipped; // the levels run against the axis
    bool horizontal;
    ReachedNodes reached; // what the root reaches
    std::vector<int> levels;
};

// Sorts by the label that each node has of its own, without regard to case. Equal ones keep their
// order.
void sortByLabel(QList<DotNode *> &nodes, bool ascending);

} // namespace ORR::Graph::Layout
