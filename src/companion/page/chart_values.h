#pragma once

#include "graph/dot_graph.h"

#include <QHash>
#include <QString>

namespace ORR::Companion {

// What the areas of a chart stand for: the numbers of its nodes, and of a subgraph the sum of those
// in it. What is no number above 0 counts as 0.
class ChartValues
{
public:
    // engine: the name of one that has legends. The graph is not kept.
    ChartValues(const QString &engine, const Graph::DotGraph &graph,
                const Graph::DotSubgraph *legend);

    // 0 for what is no node or subgraph of the graph.
    double of(const Graph::DotObject *object) const { return values.value(object, 0.0); }
    // Of the whole chart, drawn or not, without its legend.
    double total() const { return wholeValue; }

private:
    QHash<const Graph::DotObject *, double> values;
    double wholeValue = 0.0;
};

} // namespace ORR::Companion
