#pragma once

#include "graph/dot_graph.h"
#include "graph/limits.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>

namespace ORR::Graph {

// The two entries of a relationship formula: the sheet as a container, the sheet as a member.
inline QByteArray containerEntry(const QByteArray &sheet)
{
    return "DEPENDSON(4,Sheet." + sheet + "!SheetRef())";
}
inline QByteArray memberEntry(const QByteArray &sheet)
{
    return "DEPENDSON(1,Sheet." + sheet + "!SheetRef())";
}
inline void addEntry(QByteArray &entries, const QByteArray &entry)
{
    if (!entries.isEmpty())
        entries.append(',');
    entries.append(entry);
}

// The formula that glues an end to a connection point, counted from 1. The second half is in
// capitals on purpose.
inline QByteArray glueFormula(const QByteArray &sheet, int connection)
{
    const QByteArray number = QByteArray::number(connection);
    return "PAR(PNT(Sheet." + sheet + "!Connections.X" + number + ",SHEET." + sheet
        + "!Connections.Y" + number + "))";
}

// The shapes made for subgraphs. One that is drawn twice is held by its last shape alone.
template <typename Shape>
class VisioClusters
{
public:
    void add(const DotSubgraph *subgraph, Shape *shape)
    {
        all.append(shape);
        last.insert(subgraph, shape);
    }
    // In the order in which they were made.
    QList<Shape *> shapes() const
    {
        const QSet<Shape *> wanted(last.cbegin(), last.cend());
        QList<Shape *> found;
        for (Shape *shape : all) {
            if (wanted.contains(shape))
                found.append(shape);
        }
        return found;
    }

private:
    QList<Shape *> all;
    QHash<const DotSubgraph *, Shape *> last;
};

// Those of a device's objects that are of one class of shape.
template <typename Shape, typename Objects>
QList<Shape *> visioShapesOf(const Objects &objects)
{
    QList<Shape *> found;
    for (auto *object : objects) {
        if (auto *shape = dynamic_cast<Shape *>(object))
            found.append(shape);
    }
    return found;
}

// Walks all clusters from the top-level ones down and ties them and their members together.
//
// A cluster depends on the containers around it and on its members, a member on all the containers
// around it. `subclusters` and `members` give the shapes of a cluster, `sheetOf` the number of a
// shape, `tieCluster` and `tieMember` take a shape and the entries of its formula.
template <typename Shape, typename Subclusters, typename Members, typename SheetOf,
          typename TieCluster, typename TieMember>
void tieContainers(const QList<Shape *> &clusters, Subclusters subclusters, Members members,
                   SheetOf sheetOf, TieCluster tieCluster, TieMember tieMember)
{
    struct Visit
    {
        Shape *cluster;
        QByteArray containers; // the entries of those around it
        int level;
    };
    QSet<Shape *> inner;
    for (Shape *cluster : clusters) {
        for (Shape *subcluster : subclusters(cluster))
            inner.insert(subcluster);
    }
    QList<Visit> open;
    for (Shape *cluster : clusters) {
        if (!inner.contains(cluster))
            open.append({cluster, QByteArray(), 1});
    }
    while (!open.isEmpty()) {
        const Visit visit = open.takeLast();
        QByteArray own = visit.containers;
        QByteArray within = visit.containers;
        addEntry(within, containerEntry(sheetOf(visit.cluster)));
        for (Shape *subcluster : subclusters(visit.cluster)) {
            if (visit.level == Limits::deepestShapes) {
                open.append({subcluster, QByteArray(), 1});
                continue;
            }
            addEntry(own, memberEntry(sheetOf(subcluster)));
            open.append({subcluster, within, visit.level + 1});
        }
        for (auto *member : members(visit.cluster)) {
            addEntry(own, memberEntry(sheetOf(member)));
            tieMember(member, within);
        }
        tieCluster(visit.cluster, own);
    }
}

} // namespace ORR::Graph
