#pragma once

#include "device/graph_style.h"
#include "layout/graflib/node_labels.h"
#include "layout/graflib/page_axes.h"
#include "layout/graflib/tree_columns.h"
#include "layout/graflib/tree_edges.h"
#include "layout/graflib/tree_nodes.h"
#include "layout/layout_context.h"

#include <QSizeF>
#include <QString>

#include <optional>
#include <vector>

namespace ORR::Graph::Layout {

// The engine of trees and of graphs without cycles that have one root. The root stands in the first
// level, and each level one step further along `rankdir`; a node with several parents stands in the
// deepest level in which it can be reached.
//
// Its attributes: see gftree_attributes.h. Two asymmetries are meant: the room for an expander is
// kept free at every tail, whether it has one or not; and `headsegment` belongs to the end at the
// tail.
class GraflibTree
{
public:
    // Lays the graph out and draws it. Empty on success, otherwise a message for the user, with
    // nothing drawn: the graph has subgraphs, or not exactly one node without parents, or a cycle
    // that its root reaches; a node that the root does not reach gives itself a level that there is
    // not; or the compact placement would take too long (see `CompactPlacement`). Or, after all is
    // drawn, that of the device.
    static QString run(const LayoutContext &context);

private:
    explicit GraflibTree(const LayoutContext &context);

    QString draw();
    Successors successors() const;
    void measure();
    bool assignLevels();
    TreeNode treeNode(const DotNode *node, int level) const;
    std::vector<QString> sortKeys() const;
    std::vector<int> placingOrder() const;
    QSizeF placeByLevels();
    std::optional<QSizeF> placeCompact();
    void writePlace(int node, const AxisPair &place);
    EdgeRuns edgeRuns(bool isCompact) const;
    PlacedNode placed(const DotNode *node) const;
    void writePolylines(const EdgeRuns &runs);

    DotGraph *graph;
    Device *device;
    const QList<DotNode *> &nodes; // of the graph; the numbers of nodes count in this list
    GraphStyle style;
    NodeLabels labels;
    PageAxes axes;
    TreeSpacing spacing;
    bool isSorted;
    ReachedNodes reached; // what the root reaches
    TreeLevels levels; // of those
    std::vector<TreeNode> treeNodes; // of all nodes
};

// Sorts numbers from `first` on to before `behind` by the keys that they have, without regard to
// case. Equal ones keep their order.
void sortByKey(std::vector<int>::iterator first, std::vector<int>::iterator behind,
               const std::vector<QString> &keys, bool ascending);

} // namespace ORR::Graph::Layout
