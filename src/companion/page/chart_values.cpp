#include "companion/page/chart_values.h"

#include "graph/subgraph_walk.h"
#include "layout/charts/bubble_attributes.h"
#include "layout/charts/chart_attributes.h"

#include <cmath>

namespace ORR::Companion {

using namespace Graph;
using namespace Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

// By which a bubble of no radius gets one of its area.
constexpr double bubbleDivisor = 3.14;

double valueOf(const DotGraph &graph, const DotNode *node, bool isBubble)
{
    double value = ChartAttributes::area.of(&graph, node);
    if (const double radius = isBubble ? BubbleAttributes::radius.of(&graph, node) : 0.0;
        radius > 0.0)
        value = radius * radius * bubbleDivisor;
    return std::isfinite(value) && value > 0.0 ? value : 0.0;
}

} // namespace

ChartValues::ChartValues(const QString &engine, const DotGraph &graph, const DotSubgraph *legend)
{
    const bool isBubble = engine == "flatbubble"_L1;
    QList<double> sums{0.0}; // of the subgraphs that the walk is inside of
    walkSubgraphs(
        graph.root(),
        [&](const DotSubgraph *subgraph) {
            double sum = 0.0;
            for (const DotNode *node : subgraph->nodes) {
                const double value = valueOf(graph, node, isBubble);
                values.insert(node, value);
                sum += value;
            }
            sums.append(sum);
            return true;
        },
        [&](const DotSubgraph *subgraph) {
            const double sum = sums.takeLast();
            values.insert(subgraph, sum);
            if (subgraph != legend)
                sums.last() += sum;
        });
    wholeValue = sums.constFirst();
}

} // namespace ORR::Companion
