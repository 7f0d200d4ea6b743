#include "graph/dot_graph.h"

#include "graph/palette.h"

#include <algorithm>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// A power of two. Trees of ordinary depth never reach the first checkpoint and pay nothing.
constexpr int checkpointDistance = 64;

bool isCheckpoint(const DotSubgraph *subgraph)
{
    return subgraph->depth % checkpointDistance == checkpointDistance - 1;
}

QString copyOf(const QString *text)
{
    return text ? *text : QString();
}

} // namespace

DotGraph::DotGraph()
{
    rootSubgraph->id = u"name"_s;

    const Palette &palette = Palette::instance();
    const QString all;
    declareAttribute(rootSubgraph, "bgcolor"_attribute, u"none"_s, u"graph"_s);
    declareAttribute(rootSubgraph, "fillcolor"_attribute, palette.background(), u"node,graph"_s);
    declareAttribute(rootSubgraph, "fontcolor"_attribute, palette.foreground(), all);
    declareAttribute(rootSubgraph, "color"_attribute, palette.foreground(), u"node,edge"_s);
    declareAttribute(rootSubgraph, "fontname"_attribute, palette.fontName(), all);
    declareAttribute(rootSubgraph, "fontsize"_attribute, palette.fontSize(), all);
    declareAttribute(rootSubgraph, "label"_attribute, palette.none(), u"node,graph,edge"_s);
    declareAttribute(rootSubgraph, "style"_attribute, u"filled"_s, u"node"_s);
}

DotGraph::~DotGraph() = default;

// Gives a record its id, or the next automatic one, under which it is found from then on.
template <typename Record>
void DotGraph::enter(Record *record, const QString &id, QLatin1StringView prefix,
                     IdIndex<Record> &records)
{
    record->id = id.isEmpty() ? prefix + QString::number(++idCounter) : id;
    records.insert(record);
}

// Two strides of the same length behind each other become one of twice the length and one step.
DotSubgraph *DotGraph::shortcutBelow(DotSubgraph *parent)
{
    DotSubgraph *first = parent->shortcut;
    DotSubgraph *second = first ? first->shortcut : nullptr;
    if (second && parent->depth - first->depth == first->depth - second->depth)
        return second;
    return parent;
}

DotSubgraph *DotGraph::addSubgraph(DotSubgraph *parent, const QString &id, QLatin1StringView prefix)
{
    DotSubgraph *subgraph = &subgraphs.emplace_back();
    subgraph->parent = parent;
    subgraph->depth = parent->depth + 1;
    subgraph->shortcut = shortcutBelow(parent);
    enter(subgraph, id, prefix, subgraphsById);
    parent->subgraphs.append(subgraph);
    return subgraph;
}

DotSubgraph *DotGraph::createSubgraph(DotSubgraph *parent, const QString &id)
{
    return addSubgraph(parent, id, "__G"_L1);
}

DotSubgraph *DotGraph::createCluster(DotSubgraph *parent, const QString &label, const QString &id)
{
    DotSubgraph *cluster = addSubgraph(parent, id, "cluster_"_L1);
    if (!label.isEmpty())
        setGraphAttribute(cluster, "label"_attribute, label);
    return cluster;
}

DotNode *DotGraph::createNode(DotSubgraph *owner, const QString &label, const QString &id)
{
    DotNode *node = &nodes.emplace_back();
    node->owner = owner;
    enter(node, id, "__N"_L1, nodesById);
    owner->nodes.append(node);
    if (!label.isEmpty())
        setNodeAttribute(node, "label"_attribute, label);
    return node;
}

DotNode *DotGraph::findOrCreateNode(DotSubgraph *owner, QStringView id, bool *created)
{
    *created = id.isEmpty();
    if (id.isEmpty())
        return createNode(owner, {}, {});
    DotNode *&place = nodesById.placeFor(id);
    if (place)
        return place;
    *created = true;
    DotNode *node = &nodes.emplace_back();
    place = node;
    node->owner = owner;
    node->id = QString(id.data(), id.size());
    owner->nodes.append(node);
    return node;
}

DotEdge *DotGraph::createEdge(DotNode *tail, DotNode *head, const QString &label)
{
    DotEdge *edge = &edges.emplace_back();
    edge->tail = tail;
    edge->head = head;
    edge->common = commonSubgraph(tail->owner, head->owner);
    edge->common->edges.append(edge);
    linkAsNewest(edge);
    if (!rings.isEmpty())
        addToRing(edge);
    if (!label.isEmpty())
        setEdgeAttribute(edge, "label"_attribute, label);
    return edge;
}

void DotGraph::linkAsNewest(DotEdge *edge)
{
    DotNode *tail = edge->tail;
    edge->newer = nullptr;
    edge->older = tail->newestOut;
    if (tail->newestOut)
        tail->newestOut->newer = edge;
    else
        tail->oldestOut = edge;
    tail->newestOut = edge;
}

void DotGraph::unlink(DotEdge *edge)
{
    DotNode *tail = edge->tail;
    if (edge->newer)
        edge->newer->older = edge->older;
    else
        tail->newestOut = edge->older;
    if (edge->older)
        edge->older->newer = edge->newer;
    else
        tail->oldestOut = edge->newer;
}

void DotGraph::addToRing(DotEdge *edge)
{
    EdgeRing &ring = rings[{edge->tail, edge->head}];
    // The newest place of the ring is the one just before its oldest edge.
    if (ring.oldest == 0)
        ring.edges.append(edge);
    else
        ring.edges.insert(ring.oldest++, edge);
}

void DotGraph::setGraphAttribute(DotSubgraph *subgraph, const AttributeName &name,
                                 const QString &value)
{
    subgraph->attributes.insert(name, value);
    graphMemo.remove(name);
}

void DotGraph::setNodeAttribute(DotNode *node, const AttributeName &name, const QString &value)
{
    node->attributes.insert(name, value);
}

void DotGraph::setEdgeAttribute(DotEdge *edge, const AttributeName &name, const QString &value)
{
    edge->attributes.insert(name, value);
}

void DotGraph::declareAttribute(DotSubgraph *subgraph, const AttributeName &name,
                                const QString &value, const QString &kinds)
{
    QString reached = kinds;
    if (kinds.isNull()) {
        if (name == "htmllabels"_attribute)
            htmlLabelsOn = value == "on"_L1;
        else
            reached = u"graph,node,edge"_s;
    }
    if (reached.contains("edge"_L1)) {
        subgraph->edgeDefaults.insert(name, value);
        edgeMemo.remove(name);
    }
    if (reached.contains("graph"_L1))
        setGraphAttribute(subgraph, name, value);
    if (reached.contains("node"_L1)) {
        subgraph->nodeDefaults.insert(name, value);
        nodeMemo.remove(name);
    }
}

void DotGraph::setUserData(DotObject *object, const QVariant &data)
{
    object->userData = std::make_unique<QVariant>(data);
}

QVariant DotGraph::userData(const DotObject *object)
{
    return object && object->userData ? *object->userData : QVariant();
}

const QString *DotGraph::inherited(const DotSubgraph *start, const AttributeName &name,
                                   AttributeMap DotSubgraph::*map, InheritanceMemo &memo) const
{
    QList<const DotSubgraph *> passed; // checkpoints that knew nothing yet
    const DotSubgraph *holder = start;
    for (; holder; holder = holder->parent) {
        if ((holder->*map).contains(name))
            break;
        if (!isCheckpoint(holder))
            continue;
        const auto known = std::as_const(memo).constFind(name);
        if (known != memo.cend()) {
            const auto entry = known->constFind(holder);
            if (entry != known->cend()) {
                holder = *entry;
                break;
            }
        }
        passed.append(holder);
    }
    for (const DotSubgraph *checkpoint : std::as_const(passed))
        memo[name].insert(checkpoint, holder);
    return holder ? (holder->*map).find(name) : nullptr;
}

const QString *DotGraph::findAttribute(const DotSubgraph *subgraph, const AttributeName &name) const
{
    return inherited(subgraph, name, &DotSubgraph::attributes, graphMemo);
}

const QString *DotGraph::findAttribute(const DotNode *node, const AttributeName &name) const
{
    const QString *own = node->attributes.find(name);
    return own ? own : inherited(node->owner, name, &DotSubgraph::nodeDefaults, nodeMemo);
}

const QString *DotGraph::findAttribute(const DotEdge *edge, const AttributeName &name) const
{
    const QString *own = edge->attributes.find(name);
    return own ? own : inherited(edge->common, name, &DotSubgraph::edgeDefaults, edgeMemo);
}

QString DotGraph::graphAttribute(const DotSubgraph *subgraph, const AttributeName &name) const
{
    return copyOf(findAttribute(subgraph, name));
}

QString DotGraph::nodeAttribute(const DotNode *node, const AttributeName &name) const
{
    return copyOf(findAttribute(node, name));
}

QString DotGraph::edgeAttribute(const DotEdge *edge, const AttributeName &name) const
{
    return copyOf(findAttribute(edge, name));
}

QString DotGraph::nodeDefault(const DotSubgraph *subgraph, const AttributeName &name) const
{
    return copyOf(inherited(subgraph, name, &DotSubgraph::nodeDefaults, nodeMemo));
}

QString DotGraph::edgeDefault(const DotSubgraph *subgraph, const AttributeName &name) const
{
    return copyOf(inherited(subgraph, name, &DotSubgraph::edgeDefaults, edgeMemo));
}

DotSubgraph *DotGraph::commonSubgraph(DotSubgraph *a, DotSubgraph *b)
{
    if (!a || !b)
        return a ? a : b;
    while (a->depth != b->depth) {
        DotSubgraph *&deeper = a->depth > b->depth ? a : b;
        const int level = std::min(a->depth, b->depth);
        deeper = deeper->shortcut->depth >= level ? deeper->shortcut : deeper->parent;
    }
    // On one level shortcuts are equally long: where they differ, the common ancestor lies above.
    while (a != b && a->parent) {
        const bool far = a->shortcut != b->shortcut;
        a = far ? a->shortcut : a->parent;
        b = far ? b->shortcut : b->parent;
    }
    return a == b ? a : nullptr;
}

QList<DotNode *> DotGraph::successors(const DotNode *node) const
{
    QList<DotNode *> heads;
    for (const DotEdge *edge = node->newestOut; edge; edge = edge->older)
        heads.append(edge->head);
    return heads;
}

DotNode *DotGraph::predecessor(const DotNode *node)
{
    if (inNeighbours.isEmpty()) {
        for (const DotEdge &edge : edges)
            inNeighbours.insert(edge.head, edge.tail);
    }
    const auto [first, last] = std::as_const(inNeighbours).equal_range(node);
    return first != last && std::next(first) == last ? *first : nullptr;
}

DotEdge *DotGraph::takeEdge(DotNode *tail, DotNode *head)
{
    if (rings.isEmpty()) {
        // By age, tail by tail: creation order is the order of age until the first edge is taken.
        for (DotEdge &edge : edges)
            addToRing(&edge);
    }
    const auto found = rings.find({tail, head});
    if (found == rings.end())
        return nullptr;
    EdgeRing &ring = *found;
    DotEdge *edge = ring.edges.at(ring.oldest);
    ring.oldest = (ring.oldest + 1) % ring.edges.size();
    unlink(edge);
    linkAsNewest(edge);
    return edge;
}

QList<DotNode *> DotGraph::allNodes() const
{
    return nodesById.records();
}

QList<DotSubgraph *> DotGraph::allSubgraphs() const
{
    return subgraphsById.records();
}

} // namespace ORR::Graph
