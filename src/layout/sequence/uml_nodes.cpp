#include "layout/sequence/uml_nodes.h"

#include <utility>

namespace ORR::Graph::Layout {

namespace {

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
    const QRect box = bounds(colPos, rowPos);
    device->beginNode(nodeOf(*this));
    drawBox(box, nodeOf(*this), device, style);
    drawLabel(label(), box.left(), box.top(), device);
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
    drawBox(bounds(colPos, rowPos), nodeOf(*this), device, style);
    device->endNode();
}

int UmlActivation::height() const
{
    return activationSize;
}

int UmlActivation::width() const
{
    return activationSize;
}

int UmlActivation::xOffset() const
{
    return activationOffset(nesting);
}

int UmlActivation::yOffset() const
{
    return 0;
}

QRect UmlActivation::bounds(const QList<int> &colPos, const QList<int> &rowPos) const
{
    return activationBar({colPos.value(col()), rowPos.value(row())}, rowPos.value(lastRow),
                         nesting);
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

void InvisibleGridObject::measure(const GraphStyle &style)
{
    if (size.width == ofLabel || size.height == ofLabel)
        GridObject::measure(style);
}

void InvisibleGridObject::paint(Device *device, const QList<int> &, const QList<int> &,
                                const GraphStyle &) const
{
    if (!element())
        return;
    device->beginNode(nodeOf(*this));
    device->endNode();
}

int InvisibleGridObject::height() const
{
    return size.height == ofLabel ? GridObject::height() : size.height;
}

int InvisibleGridObject::width() const
{
    return size.width == ofLabel ? GridObject::width() : size.width;
}

int InvisibleGridObject::xOffset() const
{
    return alignedOffset(width(), xAlign);
}

int InvisibleGridObject::yOffset() const
{
    return alignedOffset(height(), yAlign);
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

int UmlFoundMessage::height() const
{
    return dotSize;
}

int UmlFoundMessage::width() const
{
    return dotSize;
}

} // namespace ORR::Graph::Layout
