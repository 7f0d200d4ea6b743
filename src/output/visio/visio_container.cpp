#include "output/visio/visio_container.h"

#include "graph/limits.h"

#include <QSet>

namespace ORR::Graph {

namespace {

// The two entries of a relationship formula: the shape as a container, the shape as a member.
QByteArray containerEntry(const VisioShape *shape)
{
    return "DEPENDSON(4,Sheet." + shape->idText() + "!SheetRef())";
}

QByteArray memberEntry(const VisioShape *shape)
{
    return "DEPENDSON(1,Sheet." + shape->idText() + "!SheetRef())";
}

void addEntry(QByteArray &entries, const QByteArray &entry)
{
    if (!entries.isEmpty())
        entries.append(',');
    entries.append(entry);
}

} // namespace

QByteArray glueFormula(const QByteArray &sheet, int connection)
{
    const QByteArray number = QByteArray::number(connection + 1);
    return "PAR(PNT(Sheet." + sheet + "!Connections.X" + number + ",SHEET." + sheet
        + "!Connections.Y" + number + "))";
}

void VisioClusters::add(const DotSubgraph *subgraph, VisioShape *shape)
{
    all.append(shape);
    last.insert(subgraph, shape);
}

QList<VisioShape *> VisioClusters::shapes() const
{
    const QSet<VisioShape *> wanted(last.cbegin(), last.cend());
    QList<VisioShape *> found;
    for (VisioShape *shape : all) {
        if (wanted.contains(shape))
            found.append(shape);
    }
    return found;
}

void tieContainers(const QList<VisioShape *> &clusters, const VisioShapesOf &subclusters,
                   const VisioShapesOf &members)
{
    struct Visit
    {
        VisioShape *cluster;
        QByteArray containers; // the entries of those around it
        int level;
    };
    QSet<VisioShape *> inner;
    for (VisioShape *cluster : clusters) {
        for (VisioShape *subcluster : subclusters(cluster))
            inner.insert(subcluster);
    }
    QList<Visit> open;
    for (VisioShape *cluster : clusters) {
        if (!inner.contains(cluster))
            open.append({cluster, QByteArray(), 1});
    }
    while (!open.isEmpty()) {
        const Visit visit = open.takeLast();
        QByteArray own = visit.containers;
        QByteArray within = visit.containers;
        addEntry(within, containerEntry(visit.cluster));
        for (VisioShape *subcluster : subclusters(visit.cluster)) {
            if (visit.level == Limits::deepestShapes) {
                open.append({subcluster, QByteArray(), 1});
                continue;
            }
            addEntry(own, memberEntry(subcluster));
            open.append({subcluster, within, visit.level + 1});
        }
        for (VisioShape *member : members(visit.cluster)) {
            addEntry(own, memberEntry(member));
            member->tie(within, false);
        }
        visit.cluster->tie(own, true);
    }
}

} // namespace ORR::Graph
