#include "layout/sequence/uml_parts.h"

namespace ORR::Graph::Layout {

namespace {

constexpr int closingHeight = 5;

UmlNode spacer(UmlCell cell, DotNode *node, QSize room, CellAlign xAlign, CellAlign yAlign)
{
    UmlNode made{UmlNode::Spacer, cell, node};
    made.room = room;
    made.xAlign = xAlign;
    made.yAlign = yAlign;
    return made;
}

} // namespace

UmlNode sectionMarker(int row, const UmlFragment &fragment, DotNode *node)
{
    return spacer({row, fragment.cells.col}, node, {0, sizeOfLabel}, CellAlign::Centre,
                  CellAlign::After);
}

UmlNode closingSpacer(const UmlFragment &fragment)
{
    const FragmentCells &cells = fragment.cells;
    return spacer({cells.lastRow, cells.lastCol}, nullptr, {cells.frameReach(), closingHeight},
                  CellAlign::After, CellAlign::Centre);
}

bool runsRight(const UmlParts &parts, const UmlEdge &edge)
{
    return parts.nodes.at(edge.tail).cell.col < parts.nodes.at(edge.head).cell.col;
}

bool isWithinColumn(const UmlParts &parts, const UmlEdge &edge)
{
    return parts.nodes.at(edge.tail).cell.col == parts.nodes.at(edge.head).cell.col;
}

} // namespace ORR::Graph::Layout
