#include "layout/sequence/uml_fragment.h"

#include <utility>

namespace ORR::Graph::Layout {

namespace {

constexpr int closingHeight = 5;

DotSubgraph *subgraphOf(const GridObject &object)
{
    return static_cast<DotSubgraph *>(object.element());
}

// The device is told what a fragment and its sections hold. They are painted one after the other
// and not within each other, so it has no other way to know.
void beginFragment(Device *device, DotSubgraph *subgraph)
{
    constexpr bool withMembers = true;
    device->beginCluster(subgraph, withMembers);
}

} // namespace

UmlCombinedFragment::UmlCombinedFragment(int row, int col, DotSubgraph *subgraph)
    : GridObject(row, col, subgraph), cells{col, row, col}
{
}

void UmlCombinedFragment::measure(const GraphStyle &style)
{
    GridObject::measure(style);
    QList<QSize> sectionLabels;
    sectionLabels.reserve(sections.size());
    for (Section &section : sections) {
        section.label = style.clusterLabel(section.subgraph);
        sectionLabels.append(labelRectangle(section.label).size());
    }
    size = fragmentSize(labelRectangle(label()).size(), sectionLabels);
    QList<int> offsetsWithin;
    for (const UmlCombinedFragment *child : std::as_const(childFragments)) {
        if (child->col() == col())
            offsetsWithin.append(child->xOffset());
    }
    leftOffset = fragmentOffset(width(), offsetsWithin);
}

void UmlCombinedFragment::paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
                                const GraphStyle &style) const
{
    const QRect title = labelRectangle(label());
    const QRect tag =
        gridRect(qint64(colPos.value(col())) + xOffset(), qint64(rowPos.value(row())) + yOffset(),
                 title.width(), title.height());
    paintSections(device, tag, rightEdge(colPos), rowPos, style);
    paintTag(device, tag, style);
}

// From the last section to the first.
void UmlCombinedFragment::paintSections(Device *device, const QRect &tag, int right,
                                        const QList<int> &rowPos, const GraphStyle &style) const
{
    QList<int> anchors;
    anchors.reserve(sections.size());
    for (const Section &section : sections)
        anchors.append(rowPos.value(section.row));
    const QList<SectionBand> bands = sectionBands(tag.top(), anchors, rowPos.value(lastRow()));
    for (qsizetype i = sections.size() - 1; i >= 0; --i) {
        const Section &section = sections.at(i);
        const auto [top, bottom] = bands.at(i);
        beginFragment(device, section.subgraph);
        device->drawRect({tag.left(), top}, {right, bottom}, 0, style.clusterPen(section.subgraph),
                         style.clusterFill(section.subgraph, nullptr));
        drawLabel(section.label, tag.left(), i == 0 ? tag.bottom() : top, device);
        device->endCluster();
    }
}

void UmlCombinedFragment::paintTag(Device *device, const QRect &tag, const GraphStyle &style) const
{
    DotSubgraph *subgraph = subgraphOf(*this);
    beginFragment(device, subgraph);
    device->drawPolygon(tagOutline(tag), style.clusterPen(subgraph),
                        style.clusterFill(subgraph, nullptr));
    drawLabel(label(), tag.left(), tag.top(), device);
    device->endCluster();
}

int UmlCombinedFragment::yOffset() const
{
    return -height();
}

void UmlCombinedFragment::addChild(GridObject *object)
{
    cells.include(object->row(), object->col());
    setCol(cells.col);
    allChildren.append(object);
    if (auto *fragment = dynamic_cast<UmlCombinedFragment *>(object))
        childFragments.append(fragment);
}

std::unique_ptr<GridObject> UmlCombinedFragment::addSection(int row, DotSubgraph *subgraph)
{
    sections.append({row, subgraph, {}});
    cells.includeRow(row);
    const InvisibleGridObject::Size room{0, InvisibleGridObject::ofLabel};
    return std::make_unique<InvisibleGridObject>(row, col(), room, InvisibleGridObject::Centre,
                                                 InvisibleGridObject::After, subgraph);
}

std::unique_ptr<GridObject> UmlCombinedFragment::close()
{
    for (const UmlCombinedFragment *child : std::as_const(childFragments))
        cells.enclose(child->cells);
    cells.close();
    const InvisibleGridObject::Size room{cells.frameReach(), closingHeight};
    return std::make_unique<InvisibleGridObject>(
        lastRow(), lastCol(), room, InvisibleGridObject::After, InvisibleGridObject::Centre,
        static_cast<DotNode *>(nullptr));
}

int UmlCombinedFragment::rightEdge(const QList<int> &colPos) const
{
    const int anchor = colPos.value(lastCol());
    if (lastCol() != col())
        return frameRight(anchor, {cells.frameReach()});
    QList<qint64> reaches;
    reaches.reserve(allChildren.size());
    for (const GridObject *child : allChildren)
        reaches.append(qint64(child->width()) + child->xOffset());
    return frameRight(anchor, reaches);
}

} // namespace ORR::Graph::Layout
