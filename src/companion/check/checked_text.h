#pragma once

#include "graph/dot_listener.h"

#include <QSet>

#include <vector>

// What `orr check` knows of one text beside its graph: where everything stands.
//
// A text of 100 MB has millions of everything, so that all of it stands in plain arrays in the
// order of the text, for rules to walk along. Offsets fit 32 bits: no longer text is read.
namespace ORR::Companion {

class Misreadings;

struct CheckedSubgraph
{
    Graph::DotSubgraph *subgraph;
    qint32 keyword; // the place of "subgraph", of the root that of "digraph"
    qint32 id; // the place of its name; -1 if it has none
};

// A node where it is first mentioned.
struct CheckedNode
{
    Graph::DotNode *node;
    qint32 place;
    bool byEdge; // as an end of an edge; a statement of its own may follow
    bool isMisread; // its name is told to be none
};

struct CheckedEdge
{
    Graph::DotEdge *edge;
    qint32 tail; // the places of the names of its ends
    qint32 head;
};

struct CheckedAttribute
{
    Graph::AttributeName name;
    qint32 nameOffset;
    qint32 valueOffset;
};

// A list of attributes that is not empty. Several lists behind each other that are given to one
// target are one.
struct CheckedList
{
    Graph::AttributeTarget target;
    Graph::DotObject *object; // the node, the edge or the subgraph whose attributes or defaults
                              // they are
    qsizetype first; // its first attribute; its last one stands ahead of that of the next list
};

// Hears a text for the rules. The objects are those of the graph that is read, and are gone if the
// text is rejected.
//
// What the words of a comment are read as is left out: the comment is told, and what else could be
// said of its words follows from that.
class CheckedText : public Graph::DotListener
{
public:
    // Asks those that hear the same text ahead of it what they told of a name. They are not owned;
    // null for none.
    explicit CheckedText(const Misreadings *heardAhead = nullptr) : misreadings(heardAhead) { }

    // All in the order of the text; the first subgraph is the root. Edges are those whose ends have
    // names that are not misread.
    const std::vector<CheckedSubgraph> &subgraphs() const { return openedSubgraphs; }
    const std::vector<CheckedNode> &nodes() const { return firstMentions; }
    const std::vector<CheckedEdge> &edges() const { return readEdges; }
    const std::vector<CheckedList> &lists() const { return attributeLists; }
    const std::vector<CheckedAttribute> &attributes() const { return readAttributes; }
    // Behind the last attribute of a list.
    qsizetype endOf(const CheckedList &list) const;

    // The nodes that nothing but edges mention, sorted by their addresses; those whose names are
    // misread are among them.
    std::vector<const Graph::DotNode *> undeclaredNodes() const;
    // Whether the words of comments are all that mentions the node.
    bool isOfComments(const Graph::DotNode *node) const { return ofComments.contains(node); }

    void subgraphOpened(Graph::DotSubgraph *subgraph, qsizetype keyword, qsizetype id) override;
    void nodeMentioned(Graph::DotNode *node, Graph::NodeMention mention, bool first,
                       qsizetype place) override;
    void edgeRead(Graph::DotEdge *edge, qsizetype tail, qsizetype head) override;
    void attributeRead(const Graph::AttributeMention &attribute) override;

private:
    // What the last mention of a node was.
    enum class Declaration { None, First, Later };

    bool isInComment(qsizetype place) const;
    void undeclareLast();

    const Misreadings *misreadings;
    QSet<const Graph::DotNode *> ofComments; // hardly ever any
    bool isEdgeMisread = false; // one of its ends is
    Declaration lastDeclaration = Declaration::None;
    std::vector<CheckedSubgraph> openedSubgraphs;
    std::vector<CheckedNode> firstMentions;
    std::vector<const Graph::DotNode *> declaredLater; // first mentioned by an edge; repeats
    std::vector<CheckedEdge> readEdges;
    std::vector<CheckedList> attributeLists;
    std::vector<CheckedAttribute> readAttributes;
};

// The attributes that a list is read into, which hold the last value of each name.
const Graph::AttributeMap &attributesOf(const CheckedList &list);

} // namespace ORR::Companion
