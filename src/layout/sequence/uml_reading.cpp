#include "layout/sequence/uml_reading.h"

#include "layout/sequence/umlseq_attributes.h"

namespace ORR::Graph::Layout {

namespace Rows = UmlseqAttributes;

std::optional<UmlNode> readNode(const DotGraph *graph, DotNode *node)
{
    const int kind = Rows::nodeKind.of(graph, node);
    if (kind < 0)
        return {};
    const UmlCell cell{Rows::row.of(graph, node), Rows::col.of(graph, node)};
    UmlNode read{UmlNode::Object, cell, node};
    switch (kind) {
    case Rows::Object:
        break;
    case Rows::Activation:
        read.kind = UmlNode::Activation;
        read.endRow = cell.row;
        read.nesting = Rows::nesting.of(graph, node);
        break;
    case Rows::FoundMessage:
        read.kind = UmlNode::FoundMessage;
        break;
    default:
        read.kind = UmlNode::Spacer;
        read.room = {Rows::width.of(graph, node), Rows::height.of(graph, node)};
        break;
    }
    return read;
}

std::optional<UmlEdge> readEdge(const DotGraph *graph, DotEdge *edge, const QList<UmlNode> &nodes,
                                qsizetype tail, qsizetype head)
{
    const UmlNode &from = nodes.at(tail);
    UmlEdge read{UmlEdge::LifeLine, from.cell, edge, tail, head};
    switch (Rows::edgeKind.of(graph, edge)) {
    case Rows::Message:
        read.kind = UmlEdge::Message;
        read.cell.row = nodes.at(head).cell.row;
        return read;
    case Rows::LifeLine:
        return read;
    case Rows::Return:
        if (from.kind != UmlNode::Activation)
            return {};
        read.kind = UmlEdge::Return;
        read.visible = Rows::visible.of(graph, edge) == Rows::True;
        read.cell.row = Rows::returnRow.of(graph, edge);
        return read;
    default:
        return {};
    }
}

UmlFragment readFragment(const DotGraph *graph, DotSubgraph *subgraph)
{
    const int row = Rows::row.of(graph, subgraph);
    const int col = Rows::col.of(graph, subgraph);
    return {row, {col, row, col}, subgraph};
}

UmlSection readSection(const DotGraph *graph, DotSubgraph *subgraph)
{
    return {Rows::row.of(graph, subgraph), subgraph};
}

std::unique_ptr<DotNode> nodeForSection(const DotSubgraph *section)
{
    auto node = std::make_unique<DotNode>();
    node->attributes = section->attributes;
    node->owner = section->parent;
    node->id = section->id;
    return node;
}

} // namespace ORR::Graph::Layout
