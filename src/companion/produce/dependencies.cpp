#include "companion/produce/dependencies.h"

#include <QStringList>

#include <algorithm>
#include <limits>

namespace ORR::Companion {

void Dependencies::mark(Item item)
{
    if (isThing(item))
        return;
    tree.setKind(item, 0);
    ++things;
}

Dependencies::Item Dependencies::thing(QByteArrayView path, char separator)
{
    const Item item = tree.at(path, separator);
    mark(item);
    return item;
}

Dependencies::Item Dependencies::thingIn(Item group, QByteArrayView name)
{
    const Item item = tree.child(group, name);
    mark(item);
    return item;
}

void Dependencies::need(Item tail, Item head, double weight)
{
    const quint64 key = linkKey(tail, head);
    const auto found = linkOf.constFind(key);
    if (found == linkOf.cend()) {
        linkOf.insert(key, links.size());
        links.append({tail, head, weight});
        return;
    }
    double &sum = links[*found].weight;
    sum = std::min(std::numeric_limits<double>::max(), sum + weight);
}

void Dependencies::setLinkLook(Item tail, Item head, const LinkLook &look)
{
    const quint64 key = linkKey(tail, head);
    if (!linkLooks.contains(key))
        linkLooks.insert(key, look);
}

QString Dependencies::label(Item item) const
{
    const auto found = labels.constFind(item);
    return found == labels.cend() ? QString::fromUtf8(tree.name(item)) : *found;
}

QString Dependencies::path(Item item) const
{
    QStringList names;
    for (; item > WeightTree::root; item = tree.parent(item))
        names.prepend(QString::fromUtf8(tree.name(item)));
    return names.join(u'/');
}

} // namespace ORR::Companion
