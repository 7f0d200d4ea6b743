#include "layout/sequence/uml_fragment.h"

#include "graph/numbers.h"

#include <algorithm>
#include <utility>

namespace ORR::Graph::Layout {

namespace {

constexpr int tagDistance = 8; // of the tag from its column
constexpr int nestingStep = 7; // between the frames of nested fragments, on either side
constexpr int frameDistance = 12; // of the innermost frame from its last column
constexpr int closingHeight = 5;
constexpr int cutCorner = 3;

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
    : GridObject(row, col, subgraph), endRow(row), endCol(col)
{
}

void UmlCombinedFragment::paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
                                const GraphStyle &style) const
{
    const QRect title = labelRectangle(label(style));
    const QRect tag =
        gridRect(qint64(colPos.value(col())) + xOffset(style),
                 qint64(rowPos.value(row())) + yOffset(style), title.width(), title.height());
    paintSections(device, tag, rightEdge(colPos, style), rowPos, style);
    paintTag(device, tag, style);
}

// From the last section to the first, so that each ends where the next one starts.
void UmlCombinedFragment::paintSections(Device *device, const QRect &tag, int right,
                                        const QList<int> &rowPos, const GraphStyle &style) const
{
    int bottom = rowPos.value(endRow);
    for (qsizetype i = sections.size() - 1; i >= 0; --i) {
        const Section &section = sections.at(i);
        const int top = i == 0 ? tag.top() : rowPos.value(section.row);
        const int labelTop = i == 0 ? tag.bottom() : top;
        beginFragment(device, section.subgraph);
        device->drawRect({tag.left(), top}, {right, bottom}, 0, style.clusterPen(section.subgraph),
                         style.clusterFill(section.subgraph, nullptr));
        drawLabel(sectionLabel(i, style), tag.left(), labelTop, device);
        bottom = top;
        device->endCluster();
    }
}

void UmlCombinedFragment::paintTag(Device *device, const QRect &tag, const GraphStyle &style) const
{
    DotSubgraph *subgraph = subgraphOf(*this);
    beginFragment(device, subgraph);
    device->drawPolygon(
        {tag.topLeft(), tag.topRight(), gridPoint(tag.right(), qint64(tag.bottom()) - cutCorner),
         gridPoint(qint64(tag.right()) - cutCorner, tag.bottom()), tag.bottomLeft(), tag.topLeft()},
        style.clusterPen(subgraph), style.clusterFill(subgraph, nullptr));
    drawLabel(label(style), tag.left(), tag.top(), device);
    device->endCluster();
}

int UmlCombinedFragment::height(const GraphStyle &style) const
{
    const qint64 title = GridObject::height(style);
    return sections.isEmpty() ? int(title) : saturated(title + sectionRectangle(0, style).height());
}

int UmlCombinedFragment::width(const GraphStyle &style) const
{
    if (!cachedWidth) {
        int widest = GridObject::width(style);
        for (qsizetype i = 0; i < sections.size(); ++i)
            widest = std::max(widest, sectionRectangle(i, style).width());
        cachedWidth = widest;
    }
    return *cachedWidth;
}

int UmlCombinedFragment::xOffset(const GraphStyle &style) const
{
    if (cachedXOffset)
        return *cachedXOffset;
    // Inner fragments before outer ones: a fragment stays open while there is one within it on the
    // same column that has no offset yet.
    struct Level
    {
        const UmlCombinedFragment *fragment;
        qsizetype next;
    };
    QList<Level> open{{this, 0}};
    while (!open.isEmpty()) {
        Level &level = open.last();
        const UmlCombinedFragment *fragment = level.fragment;
        if (level.next < fragment->childFragments.size()) {
            const UmlCombinedFragment *child = fragment->childFragments.at(level.next++);
            if (child->col() == fragment->col() && !child->cachedXOffset)
                open.append({child, 0});
        } else {
            fragment->cachedXOffset = fragment->ownXOffset(style);
            open.removeLast();
        }
    }
    return *cachedXOffset;
}

// The offset when those of the fragments within are known.
int UmlCombinedFragment::ownXOffset(const GraphStyle &style) const
{
    qint64 offset = -qint64(tagDistance) - width(style);
    for (const UmlCombinedFragment *child : childFragments) {
        if (child->col() == col())
            offset = std::min(offset, qint64(*child->cachedXOffset) - nestingStep);
    }
    return saturated(offset);
}

int UmlCombinedFragment::yOffset(const GraphStyle &style) const
{
    return -height(style);
}

void UmlCombinedFragment::addChild(GridObject *object)
{
    endRow = std::max(endRow, object->row());
    endCol = std::max(endCol, object->col());
    setCol(std::min(col(), object->col()));
    allChildren.append(object);
    if (auto *fragment = dynamic_cast<UmlCombinedFragment *>(object))
        childFragments.append(fragment);
}

std::unique_ptr<GridObject> UmlCombinedFragment::addSection(int row, DotSubgraph *subgraph)
{
    sections.append({row, subgraph});
    endRow = std::max(endRow, row);
    const InvisibleGridObject::Size size{0, InvisibleGridObject::ofLabel};
    return std::make_unique<InvisibleGridObject>(row, col(), size, InvisibleGridObject::Centre,
                                                 InvisibleGridObject::After, subgraph);
}

std::unique_ptr<GridObject> UmlCombinedFragment::close()
{
    for (const UmlCombinedFragment *child : std::as_const(childFragments)) {
        depth = std::max(depth, child->depth + 1);
        endRow = std::max(endRow, child->endRow);
        endCol = std::max(endCol, child->endCol);
    }
    endRow = saturated(qint64(endRow) + 1);
    const InvisibleGridObject::Size size{frameExtent(), closingHeight};
    return std::make_unique<InvisibleGridObject>(endRow, endCol, size, InvisibleGridObject::After,
                                                 InvisibleGridObject::Centre,
                                                 static_cast<DotNode *>(nullptr));
}

// How far the frame reaches beyond the last column, to lie around the frames within.
int UmlCombinedFragment::frameExtent() const
{
    return saturated(qint64(nestingStep) * depth + frameDistance);
}

int UmlCombinedFragment::rightEdge(const QList<int> &colPos, const GraphStyle &style) const
{
    const qint64 anchor = colPos.value(endCol);
    if (endCol != col())
        return saturated(anchor + frameExtent());
    qint64 reach = 0;
    for (const GridObject *child : allChildren)
        reach = std::max(reach, qint64(child->width(style)) + child->xOffset(style));
    return saturated(anchor + reach);
}

const TextBlock &UmlCombinedFragment::sectionLabel(qsizetype index, const GraphStyle &style) const
{
    if (sectionLabels.isEmpty()) {
        sectionLabels.reserve(sections.size());
        for (const Section &section : sections)
            sectionLabels.append(style.clusterLabel(section.subgraph));
    }
    return sectionLabels.at(index);
}

QRect UmlCombinedFragment::sectionRectangle(qsizetype index, const GraphStyle &style) const
{
    return labelRectangle(sectionLabel(index, style));
}

} // namespace ORR::Graph::Layout
