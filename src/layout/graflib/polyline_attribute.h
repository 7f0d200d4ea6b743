#pragma once

#include "attributes/working_attributes.h"
#include "layout/graflib/polyline_text.h"

namespace ORR::Graph::Layout {

// The four numbers of an edge's polyline along one axis, as passes hand them on.
class PolylineAttribute : public WorkingAttribute<AttributeElement::Edge>
{
public:
    consteval PolylineAttribute(KnownAttribute attribute, std::string_view measure,
                                std::string_view sentence)
        : WorkingAttribute(attribute, measure, sentence)
    {
    }

    void set(DotGraph *graph, DotEdge *edge, const FourNumbers &numbers) const
    {
        setText(graph, edge, polylineText(numbers));
    }

    // With the lookup that inherits; none where the text has not four parts.
    std::optional<FourNumbers> inherited(const DotGraph *graph, const DotEdge *edge) const
    {
        const QString *text = findInherited(graph, edge);
        return text ? polylineNumbers(*text) : std::nullopt;
    }
};

} // namespace ORR::Graph::Layout
