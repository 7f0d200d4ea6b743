#include "layout/sequence/uml_nodes.h"

#include "graph/numbers.h"

#include <utility>

namespace ORR::Graph::Layout {

namespace {

constexpr int activationSize = 10;
constexpr int activationStep = 4; // a level of nesting to the right
constexpr int dotSize = 6;
constexpr int dotRadius = 3;

DotNode *nodeOf(const GridObject &object)
{
    return static_cast<DotNode *>(object.element());
}

// The outline and fill of a box. Fills are asked for without an area to span, so of a gradient the
// first colour is taken.
void drawBox(const QRect &box, DotNode *node, Device *device, const GraphStyle &style)
{
    device->drawRect(box.topLeft(), box.bottomRight(), 0, style.nodePen(node),
                     style.nodeFill(node, nullptr));
}

int alignedOffset(int size, InvisibleGridObject::Align align)
{
    switch (align) {
    case InvisibleGridObject::Before:
        return saturated(-qint64(size));
    case InvisibleGridObject::Centre:
        return -(size / 2);
    case InvisibleGridObject::After:
        break;
    }
    return 0;
}

// What the lookups of a node see of a section: its own attributes, then the node defaults of the
// subgraph around it.
std::unique_ptr<DotNode> nodeForSection(const DotSubgraph *section)
{
    auto node = std::make_unique<DotNode>();
    node->attributes = section->attributes;
    node->owner = section->parent;
    node->id = section->id;
    return node;
}

} // namespace

void UmlObject::paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
                      const GraphStyle &style) const
{
    const QRect box = bounds(style, colPos, rowPos);
    device->beginNode(nodeOf(*this));
    drawBox(box, nodeOf(*this), device, style);
    drawLabel(label(style), box.left(), box.top(), device);
    device->endNode();
}

UmlActivation::UmlActivation(int row, int col, int nestingLevel, DotNode *node)
    : GridObject(row, col, node), lastRow(row), nesting(nestingLevel)
{
}

void UmlActivation::paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
                          const GraphStyle &style) const
{
    device->beginNode(nodeOf(*this));
    drawBox(bounds(style, colPos, rowPos), nodeOf(*this), device, style);
    device->endNode();
}

int UmlActivation::height(const GraphStyle &) const
{
    return activationSize;
}

int UmlActivation::width(const GraphStyle &) const
{
    return activationSize;
}

int UmlActivation::xOffset(const GraphStyle &) const
{
    return saturated(qint64(nesting) * activationStep - activationSize / 2);
}

int UmlActivation::yOffset(const GraphStyle &) const
{
    return 0;
}

QRect UmlActivation::bounds(const GraphStyle &style, const QList<int> &colPos,
                            const QList<int> &rowPos) const
{
    const qint64 start = rowPos.value(row());
    return gridRect(qint64(colPos.value(col())) + xOffset(style), start + yOffset(style),
                    width(style), rowPos.value(lastRow) - start);
}

InvisibleGridObject::InvisibleGridObject(int row, int col, Size ownSize, Align alignX, Align alignY,
                                         DotNode *node)
    : GridObject(row, col, node), size(ownSize), xAlign(alignX), yAlign(alignY)
{
}

InvisibleGridObject::InvisibleGridObject(int row, int col, Size ownSize, Align alignX, Align alignY,
                                         const DotSubgraph *section)
    : InvisibleGridObject(row, col, ownSize, alignX, alignY, nodeForSection(section))
{
}

InvisibleGridObject::InvisibleGridObject(int row, int col, Size ownSize, Align alignX, Align alignY,
                                         std::unique_ptr<DotNode> section)
    : GridObject(row, col, section.get()), sectionNode(std::move(section)), size(ownSize),
      xAlign(alignX), yAlign(alignY)
{
}

void InvisibleGridObject::paint(Device *device, const QList<int> &, const QList<int> &,
                                const GraphStyle &) const
{
    if (!element())
        return;
    device->beginNode(nodeOf(*this));
    device->endNode();
}

int InvisibleGridObject::height(const GraphStyle &style) const
{
    return size.height == ofLabel ? GridObject::height(style) : size.height;
}

int InvisibleGridObject::width(const GraphStyle &style) const
{
    return size.width == ofLabel ? GridObject::width(style) : size.width;
}

int InvisibleGridObject::xOffset(const GraphStyle &style) const
{
    return alignedOffset(width(style), xAlign);
}

int InvisibleGridObject::yOffset(const GraphStyle &style) const
{
    return alignedOffset(height(style), yAlign);
}

void UmlFoundMessage::paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
                            const GraphStyle &style) const
{
    DotNode *node = nodeOf(*this);
    device->beginNode(node);
    device->drawEllipse({colPos.value(col()), rowPos.value(row())}, dotRadius, dotRadius,
                        style.nodePen(node), style.nodeFill(node, nullptr));
    device->endNode();
}

int UmlFoundMessage::height(const GraphStyle &) const
{
    return dotSize;
}

int UmlFoundMessage::width(const GraphStyle &) const
{
    return dotSize;
}

} // namespace ORR::Graph::Layout
