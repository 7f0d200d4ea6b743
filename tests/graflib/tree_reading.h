#pragma once

#include "graph/dot_graph.h"

#include <QSizeF>

// The two placements of trees in their plainest form: recursive, without any bookkeeping, every
// number through its attribute. What the engine does faster must come to the same.
class TreeReading
{
public:
    // The nodes must have been measured.
    explicit TreeReading(ORR::Graph::DotGraph *graph);

    ORR::Graph::DotNode *findRoot() const;
    bool hasCycle(ORR::Graph::DotNode *node, QList<ORR::Graph::DotNode *> path = {}) const;
    int assignLevels(ORR::Graph::DotNode *root) const;
    QSizeF placeColumns(int levels, double expanderSize) const;
    QSizeF placeCompact(ORR::Graph::DotNode *root, int levels, double ranksep,
                        double expanderSize) const;

private:
    double placeSubtree(ORR::Graph::DotNode *node, const QList<double> &levelPos,
                        QList<double> &levelEnd, double start, double base, bool first) const;
    void shiftSubtree(ORR::Graph::DotNode *node, double delta, QList<double> &levelEnd) const;
    double number(const ORR::Graph::DotNode *node, const QString &name) const;
    double inches(const QString &name) const;
    QString ofRoot(const QString &name) const;
    double padAlong() const;
    double padAcross() const;
    double grown(const ORR::Graph::DotNode *node, double expanderSize) const;

    ORR::Graph::DotGraph *graph;
    QString rankExtentAttr;
    QString siblingExtentAttr;
    bool flipped;
    bool horizontal;
};
