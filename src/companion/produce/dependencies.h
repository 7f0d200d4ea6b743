#pragma once

#include "companion/produce/dependency_looks.h"
#include "companion/produce/weight_tree.h"

#include <QHash>
#include <QString>

namespace ORR::Companion {

// Things with paths that need each other: files that include files, targets that link targets,
// packages. What things have in front of their names are the groups that they are in. An edge runs
// from what needs to what is needed; several between the same two are one of their weights' sum.
class Dependencies
{
public:
    using Item = WeightTree::Item;

    struct Edge
    {
        Item tail;
        Item head;
        double weight;
    };

    // The thing of a path, made if there is none. Names are bytes of any kind.
    Item thing(QByteArrayView path, char separator = '/');
    // That of a name in a group of `group()`, which may hold separators.
    Item thingIn(Item group, QByteArrayView name);
    Item group(QByteArrayView path, char separator = '/') { return tree.at(path, separator); }
    Item groupIn(Item parent, QByteArrayView name) { return tree.child(parent, name); }
    void setLabel(Item item, const QString &label) { labels.insert(item, label); }
    void setLook(Item item, const ThingLook &look) { looks.insert(item, look); }
    // The weight is above or equal to 0 and finite.
    void need(Item tail, Item head, double weight = 1);
    // Of several between the same two the first one that has a look.
    void setLinkLook(Item tail, Item head, const LinkLook &look);

    // Things and groups, by their names.
    const WeightTree &items() const { return tree; }
    bool isThing(Item item) const { return tree.kind(item) == 0; }
    qsizetype thingCount() const { return things; }
    const QList<Edge> &edges() const { return links; }
    QString label(Item item) const; // its name if none was set
    bool hasLabel(Item item) const { return labels.contains(item); }
    ThingLook look(Item item) const { return looks.value(item); }
    LinkLook linkLook(Item tail, Item head) const { return linkLooks.value(linkKey(tail, head)); }
    // With "/" between the names.
    QString path(Item item) const;

private:
    void mark(Item item);
    static quint64 linkKey(Item tail, Item head)
    {
        return quint64(quint32(tail)) << 32 | quint32(head);
    }

    WeightTree tree;
    QList<Edge> links;
    QHash<quint64, qsizetype> linkOf; // by both ends
    QHash<Item, QString> labels;
    QHash<Item, ThingLook> looks;
    QHash<quint64, LinkLook> linkLooks; // by both ends
    qsizetype things = 0;
};

} // namespace ORR::Companion
