#include "layout/sequence/uml_reading.h"

#include "layout/sequence/uml_edges.h"
#include "layout/sequence/uml_nodes.h"
#include "layout/sequence/umlseq_attributes.h"

namespace ORR::Graph::Layout {

namespace Rows = UmlseqAttributes;

std::unique_ptr<GridObject> makeNodeObject(const DotGraph *graph, DotNode *node)
{
    const int kind = Rows::nodeKind.of(graph, node);
    if (kind < 0)
        return nullptr;
    const int row = Rows::row.of(graph, node);
    const int col = Rows::col.of(graph, node);
    switch (kind) {
    case Rows::Object:
        return std::make_unique<UmlObject>(row, col, node);
    case Rows::Activation:
        return std::make_unique<UmlActivation>(row, col, Rows::nesting.of(graph, node), node);
    case Rows::FoundMessage:
        return std::make_unique<UmlFoundMessage>(row, col, node);
    default: {
        const InvisibleGridObject::Size size{Rows::width.of(graph, node),
                                             Rows::height.of(graph, node)};
        return std::make_unique<InvisibleGridObject>(row, col, size, InvisibleGridObject::Centre,
                                                     InvisibleGridObject::Centre, node);
    }
    }
}

std::unique_ptr<GridObject> makeEdgeObject(const DotGraph *graph, DotEdge *edge,
                                           const GridObject *tail, const GridObject *head)
{
    switch (Rows::edgeKind.of(graph, edge)) {
    case Rows::Message:
        return std::make_unique<UmlMessage>(tail, head, edge);
    case Rows::LifeLine:
        return std::make_unique<UmlLifeLine>(tail, head, edge);
    case Rows::Return:
        if (const auto *activation = dynamic_cast<const UmlActivation *>(tail)) {
            const bool visible = Rows::visible.of(graph, edge) == Rows::True;
            return std::make_unique<UmlReturn>(Rows::returnRow.of(graph, edge), activation, head,
                                               visible, edge);
        }
        return nullptr;
    default:
        return nullptr;
    }
}

std::unique_ptr<UmlCombinedFragment> makeFragment(const DotGraph *graph, DotSubgraph *subgraph)
{
    return std::make_unique<UmlCombinedFragment>(Rows::row.of(graph, subgraph),
                                                 Rows::col.of(graph, subgraph), subgraph);
}

} // namespace ORR::Graph::Layout
