#include "companion/page/given_attributes.h"

#include "graph/subgraph_walk.h"
#include "layout/attribute_tables.h"

#include <QSet>

#include <algorithm>

namespace ORR::Companion {

using namespace Graph;
using namespace Qt::StringLiterals;

namespace {

// The drawing operations of xdot, and what its writers say of places and sizes.
QSet<QString> wordsOfXDot()
{
    return {u"_draw_"_s, u"_ldraw_"_s,     u"_hdraw_"_s, u"_tdraw_"_s, u"_hldraw_"_s, u"_tldraw_"_s,
            u"bb"_s,     u"xdotversion"_s, u"pos"_s,     u"lp"_s,      u"lwidth"_s,   u"lheight"_s,
            u"width"_s,  u"height"_s,      u"head_lp"_s, u"tail_lp"_s, u"xlp"_s};
}

// What an author may mean as well as what engines write, such as "area", counts as the author's.
QSet<QString> wordsOfReplays()
{
    QSet<QString> words = wordsOfXDot();
    QSet<QString> read;
    for (const AttributeTable *table : Layout::attributeTables()) {
        for (const WorkingRow *row : table->working)
            words.insert(row->name.text());
        for (const AttributeRow *row : table->rows)
            read.insert(row->name.text());
    }
    return words.subtract(read.subtract(wordsOfXDot()));
}

template <typename Leaves>
AttributeMap without(const AttributeMap &attributes, Leaves leaves)
{
    if (std::none_of(attributes.begin(), attributes.end(), leaves))
        return attributes;
    AttributeMap kept;
    for (const AttributeMap::Entry &entry : attributes) {
        if (!leaves(entry))
            kept.insert(entry.name, entry.value);
    }
    return kept;
}

} // namespace

GivenAttributes::GivenAttributes(const DotGraph &graph)
{
    const DotGraph fresh;
    const AttributeMap &defaults = fresh.root()->attributes;
    const bool isReplayed = graph.root()->attributes.contains("xdotversion"_attribute);
    const QSet<QString> words = isReplayed ? wordsOfReplays() : QSet<QString>();
    const auto isReplays = [&](const AttributeMap::Entry &entry) {
        return words.contains(entry.name.text());
    };
    const auto isDefault = [&](const AttributeMap::Entry &entry) {
        const QString *value = defaults.find(entry.name);
        return value && *value == entry.value;
    };
    const auto keepOf = [&](const DotObject *object) {
        keep(object, isReplayed ? without(object->attributes, isReplays) : object->attributes);
    };
    for (const DotSubgraph *subgraph : subgraphsInPreorder(graph.root())) {
        keepOf(subgraph);
        std::for_each(subgraph->nodes.cbegin(), subgraph->nodes.cend(), keepOf);
        std::for_each(subgraph->edges.cbegin(), subgraph->edges.cend(), keepOf);
    }
    keep(graph.root(), without(of(graph.root()), isDefault));
}

void GivenAttributes::keep(const DotObject *object, const AttributeMap &attributes)
{
    if (attributes.isEmpty())
        given.remove(object);
    else
        given.insert(object, attributes);
}

} // namespace ORR::Companion
