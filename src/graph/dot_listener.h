#pragma once

#include "graph/dot_graph.h"

#include <QtGlobal>

namespace ORR::Graph {

// Where something stands that may be missing.
inline constexpr qsizetype nowhere = -1;

// How a statement mentions a node.
enum class NodeMention {
    Statement, // in a statement of its own
    Tail, // before the arrow of an edge
    Head, // behind it
};

// What an attribute was given to.
enum class AttributeTarget {
    Node,
    Edge,
    Subgraph, // the subgraph's own ones, from a `graph` statement in its body
    NodeDefaults, // of the subgraph, from a `node` statement
    EdgeDefaults, // of the subgraph, from an `edge` statement
};

// An attribute as it is read. What it was given to has its value already.
struct AttributeMention
{
    AttributeTarget target = AttributeTarget::Node;
    // The one that the target names; the other two are null.
    DotNode *node = nullptr;
    DotEdge *edge = nullptr;
    DotSubgraph *subgraph = nullptr;
    AttributeName name;
    QString value;
    qsizetype nameOffset = 0;
    qsizetype valueOffset = 0;
    // Whether the text gave the target a value of this name before, which now is lost. What a graph
    // starts with does not count.
    bool replaces = false;
};

// Hears what `parseDot` reads while it reads it, in the order of the text.
//
// A place is the offset of a token's first byte (of a quoted one its opening quote) in the text
// with its line ends normalised; `SourceText` tells line and column. The objects are those of the
// graph that is being built: complete up to what was read, not to be changed, and gone if the text
// is rejected in the end.
class DotListener
{
public:
    DotListener() = default;
    virtual ~DotListener() = default;
    DotListener(const DotListener &) = delete;
    DotListener &operator=(const DotListener &) = delete;

    // A subgraph begins, or the root. `keyword` is the place of "subgraph" or "digraph", `id` that
    // of the name, or `nowhere`.
    virtual void subgraphOpened([[maybe_unused]] DotSubgraph *subgraph,
                                [[maybe_unused]] qsizetype keyword, [[maybe_unused]] qsizetype id)
    {
    }
    // Its closing brace.
    virtual void subgraphClosed([[maybe_unused]] DotSubgraph *subgraph,
                                [[maybe_unused]] qsizetype brace)
    {
    }

    // A node is mentioned; `first` if it was made by that.
    virtual void nodeMentioned([[maybe_unused]] DotNode *node, [[maybe_unused]] NodeMention mention,
                               [[maybe_unused]] bool first, [[maybe_unused]] qsizetype place)
    {
    }

    // An edge, behind the mentions of its ends and ahead of its attributes.
    virtual void edgeRead([[maybe_unused]] DotEdge *edge, [[maybe_unused]] qsizetype tail,
                          [[maybe_unused]] qsizetype head)
    {
    }

    // A statement of a keyword, "graph", "node" or "edge", ahead of its attributes: which target it
    // has, in the body of which subgraph.
    virtual void keywordRead([[maybe_unused]] AttributeTarget target,
                             [[maybe_unused]] DotSubgraph *subgraph,
                             [[maybe_unused]] qsizetype place)
    {
    }

    // An attribute of what was heard of last. The mention lives as long as the call.
    virtual void attributeRead([[maybe_unused]] const AttributeMention &attribute) { }
};

} // namespace ORR::Graph
