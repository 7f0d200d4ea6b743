#include "layout/sequence/uml_places.h"

namespace ORR::Graph::Layout {

namespace {

// The right side of a fragment's frame.
int rightSide(const UmlFragment &fragment, const UmlExtents &extents, const GridAnchors &anchors)
{
    const FragmentCells &cells = fragment.cells;
    const int anchor = anchors.x(cells.lastCol);
    if (cells.lastCol != cells.col)
        return frameRight(anchor, {cells.frameReach()});
    QList<qint64> reaches;
    reaches.reserve(fragment.contents.size());
    for (const UmlPart part : fragment.contents) {
        const CellExtent &extent = extents.of(part);
        reaches.append(qint64(extent.width) + extent.xOffset);
    }
    return frameRight(anchor, reaches);
}

} // namespace

QRect boundsAt(UmlCell cell, const CellExtent &extent, const GridAnchors &anchors)
{
    const QPoint anchor = anchors.at(cell);
    return gridRect(qint64(anchor.x()) + extent.xOffset, qint64(anchor.y()) + extent.yOffset,
                    extent.width, extent.height);
}

QRect nodeBounds(const UmlNode &node, const CellExtent &extent, const GridAnchors &anchors)
{
    if (node.kind == UmlNode::Activation)
        return activationBar(anchors.at(node.cell), anchors.y(node.endRow), node.nesting);
    return boundsAt(node.cell, extent, anchors);
}

FragmentPlace fragmentPlace(const UmlFragment &fragment, const CellExtent &extent,
                            const UmlExtents &extents, const GridAnchors &anchors)
{
    const CellExtent title{extent.xOffset, extent.yOffset, fragment.label.width(),
                           fragment.label.height()};
    FragmentPlace place{boundsAt(fragment.cell(), title, anchors), {}};
    QList<int> starts;
    starts.reserve(fragment.sections.size());
    for (const UmlSection &section : fragment.sections)
        starts.append(anchors.y(section.row));
    const int right = rightSide(fragment, extents, anchors);
    const QList<SectionBand> bands =
        sectionBands(place.tag.top(), starts, anchors.y(fragment.cells.lastRow));
    place.sections.reserve(bands.size());
    for (const auto &[top, bottom] : bands)
        place.sections.append(QRect({place.tag.left(), top}, QPoint(right, bottom)));
    return place;
}

} // namespace ORR::Graph::Layout
