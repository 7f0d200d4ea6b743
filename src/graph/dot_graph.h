#pragma once

#include "graph/attribute_map.h"
#include "graph/id_index.h"

#include <QHash>
#include <QList>
#include <QMultiHash>
#include <QString>
#include <QVariant>

#include <deque>
#include <memory>
#include <utility>

namespace ORR::Graph {

struct DotEdge;
struct DotNode;
struct DotSubgraph;

// What nodes, edges and subgraphs have in common.
struct DotObject
{
    AttributeMap attributes; // its own ones, without defaults

private:
    friend class DotGraph;
    std::unique_ptr<QVariant> userData; // hardly any object has one
};

// A subgraph; a cluster is told from a plain subgraph only by its id. Once attributes have been
// looked up through the graph, change the maps of a subgraph only through `DotGraph`.
struct DotSubgraph : DotObject
{
    DotSubgraph *parent = nullptr; // null for the root
    QString id;
    bool plainLabels = false; // a switch of the DOT writer
    QList<DotEdge *> edges; // those whose lowest common subgraph this is, in creation order
    QList<DotSubgraph *> subgraphs; // direct children, in creation order
    QList<DotNode *> nodes; // the nodes it owns, in creation order
    AttributeMap edgeDefaults;
    AttributeMap nodeDefaults;
    int depth = 0; // number of ancestors

private:
    friend class DotGraph;
    DotSubgraph *shortcut = nullptr; // an ancestor some levels up, see `commonSubgraph`
};

struct DotNode : DotObject
{
    DotSubgraph *owner = nullptr; // the subgraph of its first mention; never changes
    QString id;

private:
    friend class DotGraph;
    DotEdge *newestOut = nullptr; // its out edges, linked by age
    DotEdge *oldestOut = nullptr;
};

struct DotEdge : DotObject
{
    DotNode *tail = nullptr; // start
    DotNode *head = nullptr; // end

private:
    friend class DotGraph;
    DotSubgraph *common = nullptr; // lowest common subgraph of its ends, which never changes
    DotEdge *newer = nullptr; // neighbours among the out edges of the tail
    DotEdge *older = nullptr;
};

// The one model of a graph: named objects with string attributes, all of them directed and none of
// them with any geometry. The graph owns its objects; they are made by its operations only,
// pointers to them stay valid as long as it lives, and nothing is ever removed.
//
// Every attribute is a text until its reader interprets it. A null QString from a lookup means that
// the attribute is defined nowhere; an empty one that is not null is a value like any other and
// ends the search for it.
class DotGraph
{
public:
    // Makes the root and declares the eight attributes that every graph starts with.
    DotGraph();
    ~DotGraph();
    DotGraph(const DotGraph &) = delete;
    DotGraph &operator=(const DotGraph &) = delete;

    // The root subgraph, with the id "name". It is found by no lookup and is in nobody's list.
    DotSubgraph *root() const { return rootSubgraph; }

    // What the text calls the graph, behind "digraph"; empty for nothing. No drawing has it but as
    // its title.
    const QString &name() const { return graphName; }
    void setName(const QString &name) { graphName = name; }

    // True when "htmllabels" was declared "on": plain texts are to be read as HTML.
    bool htmlLabels() const { return htmlLabelsOn; }

    // The last object created under an id, or null.
    DotNode *findNode(QStringView id) const { return nodesById.find(id); }
    DotSubgraph *findSubgraph(QStringView id) const { return subgraphsById.find(id); }

    // Creation. An empty id becomes an automatic one ("__G1", "cluster_1", "__N1"; one counter for
    // all kinds); a label that isn't empty is stored as "label". An id that exists already is not
    // refused: both objects stay, lookups find the newer. Callers look up first.
    DotSubgraph *createSubgraph(DotSubgraph *parent, const QString &id);
    DotSubgraph *createCluster(DotSubgraph *parent, const QString &label, const QString &id);
    DotNode *createNode(DotSubgraph *owner, const QString &label, const QString &id);
    // The node with this id; if there is none, a new one without a label, which is `created`. An
    // empty id is never found.
    DotNode *findOrCreateNode(DotSubgraph *owner, QStringView id, bool *created);
    // The edge is listed in the lowest common subgraph of its ends. Parallel edges and loops are
    // allowed.
    DotEdge *createEdge(DotNode *tail, DotNode *head, const QString &label);

    // Insert or replace an object's own attribute.
    void setGraphAttribute(DotSubgraph *subgraph, const AttributeName &name, const QString &value);
    void setNodeAttribute(DotNode *node, const AttributeName &name, const QString &value);
    void setEdgeAttribute(DotEdge *edge, const AttributeName &name, const QString &value);

    // Declares a default for the kinds of object named in `kinds` ("graph", "node", "edge", in any
    // mixture; a null text means all). With null kinds "htmllabels" only sets the flag.
    void declareAttribute(DotSubgraph *subgraph, const AttributeName &name, const QString &value,
                          const QString &kinds);

    static void setUserData(DotObject *object, const QVariant &data);
    static QVariant userData(const DotObject *object);

    // Lookups with inheritance, over the maps as they are now: own attributes first, then for a
    // subgraph the attributes of its ancestors, for a node the node defaults of its owner and
    // upward, for an edge the edge defaults of the common subgraph of its ends and upward.
    QString graphAttribute(const DotSubgraph *subgraph, const AttributeName &name) const;
    QString nodeAttribute(const DotNode *node, const AttributeName &name) const;
    QString edgeAttribute(const DotEdge *edge, const AttributeName &name) const;
    QString nodeDefault(const DotSubgraph *subgraph, const AttributeName &name) const;
    QString edgeDefault(const DotSubgraph *subgraph, const AttributeName &name) const;

    // The same lookups by the kind of the object, without a copy: null where the attribute is
    // defined nowhere, otherwise valid until a map changes.
    const QString *findAttribute(const DotSubgraph *subgraph, const AttributeName &name) const;
    const QString *findAttribute(const DotNode *node, const AttributeName &name) const;
    const QString *findAttribute(const DotEdge *edge, const AttributeName &name) const;

    // Inserts or replaces an own attribute of the object, of whatever kind.
    void setAttribute(DotSubgraph *subgraph, const AttributeName &name, const QString &value)
    {
        setGraphAttribute(subgraph, name, value);
    }
    void setAttribute(DotNode *node, const AttributeName &name, const QString &value)
    {
        setNodeAttribute(node, name, value);
    }
    void setAttribute(DotEdge *edge, const AttributeName &name, const QString &value)
    {
        setEdgeAttribute(edge, name, value);
    }

    // The lowest common ancestor; the other one if one is null; null if there is none. The number
    // of steps grows with the logarithm of the depth: each subgraph has a shortcut besides its
    // parent, to an ancestor so chosen that a walk by both takes strides of powers of two (Myers,
    // "An applicative random-access stack", 1983).
    static DotSubgraph *commonSubgraph(DotSubgraph *a, DotSubgraph *b);

    // The heads of the node's out edges, newest edge first, with duplicates.
    QList<DotNode *> successors(const DotNode *node) const;

    // The tail of the only edge to the node; null when there is none or more than one. Edges
    // created after the first call are not seen.
    DotNode *predecessor(const DotNode *node);

    // The edges from tail to head in turn, oldest first, one a call, round and round; null if there
    // is none. The edge that comes back counts as the newest out edge of its tail from then on.
    DotEdge *takeEdge(DotNode *tail, DotNode *head);

    // All nodes, all subgraphs but the root, in no promised order.
    QList<DotNode *> allNodes() const;
    QList<DotSubgraph *> allSubgraphs() const;

private:
    // The edges of one pair of nodes in order of age, `oldest` first and round to the start.
    struct EdgeRing
    {
        QList<DotEdge *> edges;
        qsizetype oldest = 0;
    };
    // Where an inherited attribute was found, for one subgraph in `checkpointDistance` levels: a
    // lookup from any depth then ends after that many steps.
    using InheritanceMemo = QHash<AttributeName, QHash<const DotSubgraph *, const DotSubgraph *>>;

    template <typename Record>
    void enter(Record *record, const QString &id, QLatin1StringView prefix,
               IdIndex<Record> &records);
    static DotSubgraph *shortcutBelow(DotSubgraph *parent);
    DotSubgraph *addSubgraph(DotSubgraph *parent, const QString &id, QLatin1StringView prefix);
    void linkAsNewest(DotEdge *edge);
    static void unlink(DotEdge *edge);
    void addToRing(DotEdge *edge);
    const QString *inherited(const DotSubgraph *start, const AttributeName &name,
                             AttributeMap DotSubgraph::*map, InheritanceMemo &memo) const;

    // Freed from the last to the first: edges, nodes, subgraphs, the root.
    DotSubgraph rootRecord;
    std::deque<DotSubgraph> subgraphs;
    std::deque<DotNode> nodes;
    std::deque<DotEdge> edges;

    DotSubgraph *rootSubgraph = &rootRecord;
    int idCounter = 0;
    IdIndex<DotSubgraph> subgraphsById;
    QMultiHash<const DotNode *, DotNode *> inNeighbours; // empty until `predecessor` is asked
    IdIndex<DotNode> nodesById;
    QHash<std::pair<DotNode *, DotNode *>, EdgeRing> rings; // empty until `takeEdge` is asked
    QString graphName;
    bool htmlLabelsOn = false;
    mutable InheritanceMemo graphMemo;
    mutable InheritanceMemo nodeMemo;
    mutable InheritanceMemo edgeMemo;
};

} // namespace ORR::Graph
