#include "layout/sequence/uml_edges.h"

#include "graph/numbers.h"

#include <algorithm>

namespace ORR::Graph::Layout {

namespace {

constexpr int smallestHook = 10; // of a message within one column, both ways
constexpr int hookReach = 10; // beyond the target's right edge
constexpr int hookGap = 3; // what a labelled hook draws of its vertical stretch, at either end
constexpr int headLength = 6;
constexpr int headHalfWidth = 3;
constexpr int bareReturnOffset = -10;

DotEdge *edgeOf(const GridObject &object)
{
    return static_cast<DotEdge *>(object.element());
}

void connectEnds(Device *device, const GridObject &edge, const GridObject *tail,
                 const GridObject *head)
{
    device->connect(edgeOf(edge), static_cast<DotNode *>(tail->element()),
                    static_cast<DotNode *>(head->element()));
}

// The offset of a label that hangs on one side of its source.
int besideSource(const GridObject *source, bool right, int labelWidth, const GraphStyle &style)
{
    const qint64 left = source->xOffset(style);
    return saturated(right ? left + source->width(style) : left - labelWidth);
}

} // namespace

UmlLifeLine::UmlLifeLine(GridObject *tail, GridObject *head, DotEdge *edge)
    : GridObject(tail->row(), tail->col(), edge), from(tail), to(head)
{
}

void UmlLifeLine::paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
                        const GraphStyle &style) const
{
    device->beginEdge(edgeOf(*this));
    const QRect start = from->bounds(style, colPos, rowPos);
    const QRect end = to->bounds(style, colPos, rowPos);
    const bool downward = from->row() < to->row();
    const int x = colPos.value(col());
    device->drawPolyline(
        {{x, downward ? start.bottom() : start.top()}, {x, downward ? end.top() : end.bottom()}},
        style.edgePen(edgeOf(*this), false));
    device->endEdge();
    connectEnds(device, *this, from, to);
}

UmlMessage::UmlMessage(GridObject *tail, GridObject *head, DotEdge *edge)
    : GridObject(head->row(), tail->col(), edge), source(tail), target(head)
{
}

void UmlMessage::paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
                       const GraphStyle &style) const
{
    DotEdge *edge = edgeOf(*this);
    const QRect box = bounds(style, colPos, rowPos);
    device->beginEdge(edge);
    drawLabel(label(style), box.left(), box.top(), device);

    const QRect to = target->bounds(style, colPos, rowPos);
    const QRect from = source->bounds(style, colPos, rowPos);
    Device::Pen *pen = style.edgePen(edge, false);
    const bool rightward = source->col() < target->col();
    const QPoint tip(rightward ? to.left() : to.right(), to.top());
    if (isSelfMessage())
        paintHook(device, box, from, to, pen, !label(style).isEmpty());
    else
        device->drawPolyline({tip, {rightward ? from.right() : from.left(), tip.y()}}, pen);

    const qint64 back = qint64(tip.x()) + (rightward ? -headLength : headLength);
    const qint64 y = tip.y();
    device->drawPolygon(
        {tip, gridPoint(back, y + headHalfWidth), gridPoint(back, y - headHalfWidth), tip}, pen,
        style.edgeFill(edge, nullptr));
    device->endEdge();
    connectEnds(device, *this, source, target);
}

// Two lines: out from the source and down, and out from the target and up. They meet halfway, or
// leave the stretch beside the label open.
void UmlMessage::paintHook(Device *device, const QRect &box, const QRect &from, const QRect &to,
                           Device::Pen *pen, bool labelled) const
{
    const int x = saturated(qint64(to.right()) + hookReach);
    const int middle = box.center().y();
    const int outEnd = labelled ? saturated(qint64(box.top()) + hookGap) : middle;
    const int backEnd = labelled ? saturated(qint64(to.top()) - hookGap) : middle;
    device->drawPolyline({{from.right(), box.top()}, {x, box.top()}, {x, outEnd}}, pen);
    device->drawPolyline({{to.right(), to.top()}, {x, to.top()}, {x, backEnd}}, pen);
}

int UmlMessage::height(const GraphStyle &style) const
{
    const int ofLabel = GridObject::height(style);
    return isSelfMessage() ? std::max(ofLabel, smallestHook) : ofLabel;
}

int UmlMessage::width(const GraphStyle &style) const
{
    const int ofLabel = GridObject::width(style);
    return isSelfMessage() ? std::max(ofLabel, smallestHook) : ofLabel;
}

int UmlMessage::xOffset(const GraphStyle &style) const
{
    return besideSource(source, source->col() <= target->col(), width(style), style);
}

int UmlMessage::yOffset(const GraphStyle &style) const
{
    return -height(style);
}

UmlReturn::UmlReturn(int row, UmlActivation *tail, GridObject *head, bool isVisible, DotEdge *edge)
    : GridObject(row, tail->col(), edge), source(tail), target(head), visible(isVisible)
{
    source->setEndRow(row);
}

void UmlReturn::paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
                      const GraphStyle &style) const
{
    if (!visible)
        return;
    DotEdge *edge = edgeOf(*this);
    const QRect box = bounds(style, colPos, rowPos);
    device->beginEdge(edge);
    drawLabel(label(style), box.left(), box.top(), device);

    const QRect to = target->bounds(style, colPos, rowPos);
    const QRect from = source->bounds(style, colPos, rowPos);
    const bool rightward = source->col() < target->col();
    const int y = rowPos.value(row());
    const int tip = rightward ? to.left() : to.right();
    const qint64 back = qint64(tip) + (rightward ? -headLength : headLength);
    device->drawPolyline({gridPoint(back, qint64(y) + headHalfWidth),
                          {tip, y},
                          gridPoint(back, qint64(y) - headHalfWidth)},
                         style.edgePen(edge, true));
    device->drawPolyline({{tip, y}, {rightward ? from.right() : from.left(), y}},
                         style.edgePen(edge, false));
    device->endEdge();
    connectEnds(device, *this, source, target);
}

int UmlReturn::xOffset(const GraphStyle &style) const
{
    return besideSource(source, source->col() < target->col(), width(style), style);
}

int UmlReturn::yOffset(const GraphStyle &style) const
{
    return label(style).isEmpty() ? bareReturnOffset
                                  : saturated(labelPadding - qint64(height(style)));
}

} // namespace ORR::Graph::Layout
