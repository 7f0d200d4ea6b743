#pragma once

#include "graph/dot_graph.h"
#include "output/visio/visio_shape.h"

#include <QByteArray>
#include <QHash>
#include <QList>

#include <functional>

namespace ORR::Graph {

// The formula that glues an end to a connection point, counted from 0. The second half is in
// capitals on purpose.
QByteArray glueFormula(const QByteArray &sheet, int connection);

// The shapes made for subgraphs. One that is drawn twice is held by its last shape alone.
class VisioClusters
{
public:
    void add(const DotSubgraph *subgraph, VisioShape *shape);
    // In the order in which they were made.
    QList<VisioShape *> shapes() const;

private:
    QList<VisioShape *> all;
    QHash<const DotSubgraph *, VisioShape *> last;
};

// Walks all clusters from the top-level ones down and ties them and their members together: a
// cluster to the containers around it and to its members, a member to all the containers around it.
// `subclusters` and `members` give the shapes of a cluster.
using VisioShapesOf = std::function<QList<VisioShape *>(VisioShape *cluster)>;
void tieContainers(const QList<VisioShape *> &clusters, const VisioShapesOf &subclusters,
                   const VisioShapesOf &members);

} // namespace ORR::Graph
