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
AttributeMap without(const AttributeMap &attributes, const Leaves &leaves)
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

// The defaults within a subgraph, -1 for none. Its own attributes are no defaults: a url or a file
// of an outer group is not that of an inner one.
struct Inner
{
    int nodes = -1;
    int edges = -1;
};

} // namespace

GivenAttributes::GivenAttributes(const DotGraph &graph)
{
    const DotGraph fresh;
    const bool isReplayed = graph.root()->attributes.contains("xdotversion"_attribute);
    const QSet<QString> words = isReplayed ? wordsOfReplays() : QSet<QString>();
    const auto givenOf = [&](const AttributeMap &map) {
        return isReplayed
            ? without(map, [&](const auto &entry) { return words.contains(entry.name.text()); })
            : map;
    };
    // Those of the root start with what every graph has.
    const auto ownOf = [&](const DotSubgraph *subgraph, AttributeMap DotSubgraph::*map) {
        const AttributeMap &known = fresh.root()->*map;
        const auto isKnown = [&](const AttributeMap::Entry &entry) {
            const QString *value = known.find(entry.name);
            return value && *value == entry.value;
        };
        const AttributeMap own = givenOf(subgraph->*map);
        return subgraph->parent ? own : without(own, isKnown);
    };

    QHash<const DotSubgraph *, Inner> inner;
    for (const DotSubgraph *subgraph : subgraphsInPreorder(graph.root())) {
        const Inner outer = inner.value(subgraph->parent);
        keep(subgraph, ownOf(subgraph, &DotSubgraph::attributes));
        const Inner its{nested(outer.nodes, ownOf(subgraph, &DotSubgraph::nodeDefaults)),
                        nested(outer.edges, ownOf(subgraph, &DotSubgraph::edgeDefaults))};
        inner.insert(subgraph, its);
        for (const DotNode *node : subgraph->nodes) {
            keep(node, givenOf(node->attributes));
            keepDefaults(node, its.nodes);
        }
        for (const DotEdge *edge : subgraph->edges) {
            keep(edge, givenOf(edge->attributes));
            keepDefaults(edge, its.edges);
        }
    }
}

void GivenAttributes::keep(const DotObject *object, const AttributeMap &attributes)
{
    if (!attributes.isEmpty())
        given.insert(object, attributes);
}

// The defaults with these within them.
int GivenAttributes::nested(int outer, const AttributeMap &attributes)
{
    if (attributes.isEmpty())
        return outer;
    allDefaults.push_back({outer, attributes});
    return int(allDefaults.size() - 1);
}

void GivenAttributes::keepDefaults(const DotObject *object, int defaults)
{
    if (defaults >= 0)
        innermost.insert(object, defaults);
}

} // namespace ORR::Companion
