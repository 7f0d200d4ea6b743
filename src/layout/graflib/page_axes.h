#pragma once

#include "layout/graflib/graflib_attributes.h"

namespace ORR::Graph::Layout {

// How the axes of a layout lie on the page. Engines write `d1` along the direction of the layout
// and `d2` across it; which of them is the x of the page turns a layout from left to right into one
// from top to bottom.
struct PageAxes
{
    bool horizontal; // `d1` is x
    bool flipped; // the layout runs against its axis, to the left or upward

    explicit PageAxes(const DotGraph *graph)
    {
        const int direction = GraflibAttributes::rankDir.of(graph, graph->root());
        horizontal = direction == GraflibAttributes::LeftToRight
            || direction == GraflibAttributes::RightToLeft;
        flipped = direction == GraflibAttributes::RightToLeft
            || direction == GraflibAttributes::BottomToTop;
    }

    // The attributes with the places on the page.
    const GraflibAttributes::PlaceAttribute &x() const
    {
        return horizontal ? GraflibAttributes::d1 : GraflibAttributes::d2;
    }
    const GraflibAttributes::PlaceAttribute &y() const
    {
        return horizontal ? GraflibAttributes::d2 : GraflibAttributes::d1;
    }
    const PolylineAttribute &lineX() const
    {
        return horizontal ? GraflibAttributes::lineD1 : GraflibAttributes::lineD2;
    }
    const PolylineAttribute &lineY() const
    {
        return horizontal ? GraflibAttributes::lineD2 : GraflibAttributes::lineD1;
    }
    // And those with the extents along and across the layout.
    const GraflibAttributes::PlaceAttribute &along() const
    {
        return horizontal ? GraflibAttributes::width : GraflibAttributes::height;
    }
    const GraflibAttributes::PlaceAttribute &across() const
    {
        return horizontal ? GraflibAttributes::height : GraflibAttributes::width;
    }
};

} // namespace ORR::Graph::Layout
