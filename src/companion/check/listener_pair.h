#pragma once

#include "graph/dot_listener.h"

namespace ORR::Companion {

// Hands what is heard of a text on to two listeners, so that it is read once for both. They are not
// owned.
class ListenerPair : public Graph::DotListener
{
public:
    ListenerPair(Graph::DotListener &one, Graph::DotListener &other) : first(one), second(other) { }

    void subgraphOpened(Graph::DotSubgraph *subgraph, qsizetype keyword, qsizetype id) override
    {
        first.subgraphOpened(subgraph, keyword, id);
        second.subgraphOpened(subgraph, keyword, id);
    }
    void subgraphClosed(Graph::DotSubgraph *subgraph, qsizetype brace) override
    {
        first.subgraphClosed(subgraph, brace);
        second.subgraphClosed(subgraph, brace);
    }
    void nodeMentioned(Graph::DotNode *node, Graph::NodeMention mention, bool isFirst,
                       qsizetype place) override
    {
        first.nodeMentioned(node, mention, isFirst, place);
        second.nodeMentioned(node, mention, isFirst, place);
    }
    void edgeRead(Graph::DotEdge *edge, qsizetype tail, qsizetype head) override
    {
        first.edgeRead(edge, tail, head);
        second.edgeRead(edge, tail, head);
    }
    void keywordRead(Graph::AttributeTarget target, Graph::DotSubgraph *subgraph,
                     qsizetype place) override
    {
        first.keywordRead(target, subgraph, place);
        second.keywordRead(target, subgraph, place);
    }
    void attributeRead(const Graph::AttributeMention &attribute) override
    {
        first.attributeRead(attribute);
        second.attributeRead(attribute);
    }

private:
    Graph::DotListener &first;
    Graph::DotListener &second;
};

} // namespace ORR::Companion
