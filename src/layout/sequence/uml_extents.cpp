#include "layout/sequence/uml_extents.h"

namespace ORR::Graph::Layout {

namespace {

CellExtent centred(QSize size)
{
    return {alignedOffset(size.width(), CellAlign::Centre),
            alignedOffset(size.height(), CellAlign::Centre), size.width(), size.height()};
}

CellExtent spacerExtent(const UmlNode &node)
{
    const int width = node.room.width() == sizeOfLabel ? node.label.width() : node.room.width();
    const int height = node.room.height() == sizeOfLabel ? node.label.height() : node.room.height();
    return {alignedOffset(width, node.xAlign), alignedOffset(height, node.yAlign), width, height};
}

CellExtent messageExtent(const UmlEdge &edge, int head, const CellExtent &tail)
{
    const bool withinColumn = edge.cell.col == head;
    const int width = messageSize(edge.label.width(), withinColumn);
    const int height = messageSize(edge.label.height(), withinColumn);
    return {offsetBeside(tail.xOffset, tail.width, edge.cell.col <= head, width), -height, width,
            height};
}

CellExtent returnExtent(const UmlEdge &edge, int head, const CellExtent &tail)
{
    const QSize label = edge.label;
    return {offsetBeside(tail.xOffset, tail.width, edge.cell.col < head, label.width()),
            returnOffset(!label.isEmpty(), label.height()), label.width(), label.height()};
}

// The offsets of the fragments within one that stand on the same column.
QList<int> offsetsWithin(const UmlFragment &fragment, const UmlParts &parts,
                         const UmlExtents &extents)
{
    QList<int> offsets;
    for (const UmlPart part : fragment.contents) {
        if (part.list == UmlPart::Fragment
            && parts.fragments.at(part.index).cells.col == fragment.cells.col)
            offsets.append(extents.of(part).xOffset);
    }
    return offsets;
}

// The claims of all parts, each of which `claim` makes of a cell, an extent and whether the part
// spans columns.
template <typename Claim>
QList<GridClaim> claimsOf(const UmlParts &parts, const UmlExtents &extents, Claim claim)
{
    QList<GridClaim> claims;
    claims.reserve(parts.fragments.size() + parts.nodes.size() + parts.edges.size());
    for (qsizetype i = 0; i < parts.fragments.size(); ++i)
        claims.append(claim(parts.fragments.at(i).cell(), extents.fragments.at(i), true));
    for (qsizetype i = 0; i < parts.nodes.size(); ++i)
        claims.append(claim(parts.nodes.at(i).cell, extents.nodes.at(i), false));
    for (qsizetype i = 0; i < parts.edges.size(); ++i) {
        const UmlEdge &edge = parts.edges.at(i);
        claims.append(claim(edge.cell, extents.edges.at(i), edge.kind != UmlEdge::LifeLine));
    }
    return claims;
}

} // namespace

CellExtent nodeExtent(const UmlNode &node)
{
    constexpr QSize dot(2 * dotRadius, 2 * dotRadius);
    switch (node.kind) {
    case UmlNode::Object:
        return centred(node.label);
    case UmlNode::Activation:
        return {activationOffset(node.nesting), 0, activationSize, activationSize};
    case UmlNode::FoundMessage:
        return centred(dot);
    case UmlNode::Spacer:
        break;
    }
    return spacerExtent(node);
}

CellExtent edgeExtent(const UmlEdge &edge, int head, const CellExtent &tail)
{
    switch (edge.kind) {
    case UmlEdge::Message:
        return messageExtent(edge, head, tail);
    case UmlEdge::Return:
        return returnExtent(edge, head, tail);
    case UmlEdge::LifeLine:
        break;
    }
    return centred(edge.label);
}

CellExtent fragmentExtent(const UmlFragment &fragment, const QList<int> &offsetsWithin)
{
    QList<QSize> sectionLabels;
    sectionLabels.reserve(fragment.sections.size());
    for (const UmlSection &section : fragment.sections)
        sectionLabels.append(section.label);
    const QSize size = fragmentSize(fragment.label, sectionLabels);
    return {fragmentOffset(size.width(), offsetsWithin), -size.height(), size.width(),
            size.height()};
}

const CellExtent &UmlExtents::of(UmlPart part) const
{
    switch (part.list) {
    case UmlPart::Fragment:
        return fragments.at(part.index);
    case UmlPart::Node:
        return nodes.at(part.index);
    case UmlPart::Edge:
        break;
    }
    return edges.at(part.index);
}

// The fragments from the last to the first: those within others come after them, and others hang on
// their offsets.
UmlExtents extentsOf(const UmlParts &parts)
{
    UmlExtents extents;
    extents.fragments.resize(parts.fragments.size());
    for (qsizetype i = parts.fragments.size() - 1; i >= 0; --i) {
        const UmlFragment &fragment = parts.fragments.at(i);
        extents.fragments[i] = fragmentExtent(fragment, offsetsWithin(fragment, parts, extents));
    }
    extents.nodes.reserve(parts.nodes.size());
    for (const UmlNode &node : parts.nodes)
        extents.nodes.append(nodeExtent(node));
    extents.edges.reserve(parts.edges.size());
    for (const UmlEdge &edge : parts.edges) {
        extents.edges.append(
            edgeExtent(edge, parts.nodes.at(edge.head).cell.col, extents.nodes.at(edge.tail)));
    }
    return extents;
}

QList<GridClaim> columnClaims(const UmlParts &parts, const UmlExtents &extents)
{
    return claimsOf(parts, extents, [](UmlCell cell, const CellExtent &extent, bool spans) {
        return GridClaim{cell.col, extent.xOffset, extent.width, spans};
    });
}

QList<GridClaim> rowClaims(const UmlParts &parts, const UmlExtents &extents)
{
    return claimsOf(parts, extents, [](UmlCell cell, const CellExtent &extent, bool) {
        return GridClaim{cell.row, extent.yOffset, extent.height, false};
    });
}

} // namespace ORR::Graph::Layout
