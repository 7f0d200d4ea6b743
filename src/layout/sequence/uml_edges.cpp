#include "layout/sequence/uml_edges.h"

#include "layout/sequence/arrow_shapes.h"

namespace ORR::Graph::Layout {

namespace {

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
int besideSource(const GridObject *source, bool right, int labelWidth)
{
    return offsetBeside(source->xOffset(), source->width(), right, labelWidth);
}

} // namespace

UmlLifeLine::UmlLifeLine(const GridObject *tail, const GridObject *head, DotEdge *edge)
    : GridObject(tail->row(), tail->col(), edge), from(tail), to(head)
{
}

void UmlLifeLine::paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
                        const GraphStyle &style) const
{
    device->beginEdge(edgeOf(*this));
    const QRect start = from->bounds(colPos, rowPos);
    const QRect end = to->bounds(colPos, rowPos);
    const bool downward = from->row() < to->row();
    device->drawPolyline(lifeLine(start, end, colPos.value(col()), downward),
                         style.edgePen(edgeOf(*this), false));
    device->endEdge();
    connectEnds(device, *this, from, to);
}

UmlMessage::UmlMessage(const GridObject *tail, const GridObject *head, DotEdge *edge)
    : GridObject(head->row(), tail->col(), edge), source(tail), target(head)
{
}

void UmlMessage::paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
                       const GraphStyle &style) const
{
    DotEdge *edge = edgeOf(*this);
    const QRect box = bounds(colPos, rowPos);
    device->beginEdge(edge);
    drawLabel(label(), box.left(), box.top(), device);

    const QRect to = target->bounds(colPos, rowPos);
    const QRect from = source->bounds(colPos, rowPos);
    Device::Pen *pen = style.edgePen(edge, false);
    const bool rightward = source->col() < target->col();
    const Shaft shaft = levelShaft(from, to, to.top(), rightward);
    if (isSelfMessage()) {
        const Hook hook = hookBeside(box, from, to, !label().isEmpty());
        device->drawPolyline(hook.out, pen);
        device->drawPolyline(hook.back, pen);
    } else {
        device->drawPolyline({shaft.tip, shaft.start}, pen);
    }
    const ArrowHead head = arrowHead(shaft.tip, rightward);
    device->drawPolygon({shaft.tip, head.lower, head.upper, shaft.tip}, pen,
                        style.edgeFill(edge, nullptr));
    device->endEdge();
    connectEnds(device, *this, source, target);
}

int UmlMessage::height() const
{
    return messageSize(GridObject::height(), isSelfMessage());
}

int UmlMessage::width() const
{
    return messageSize(GridObject::width(), isSelfMessage());
}

int UmlMessage::xOffset() const
{
    return besideSource(source, source->col() <= target->col(), width());
}

int UmlMessage::yOffset() const
{
    return -height();
}

UmlReturn::UmlReturn(int row, const UmlActivation *tail, const GridObject *head, bool isVisible,
                     DotEdge *edge)
    : GridObject(row, tail->col(), edge), source(tail), target(head), visible(isVisible)
{
}

void UmlReturn::paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
                      const GraphStyle &style) const
{
    if (!visible)
        return;
    DotEdge *edge = edgeOf(*this);
    const QRect box = bounds(colPos, rowPos);
    device->beginEdge(edge);
    drawLabel(label(), box.left(), box.top(), device);

    const QRect to = target->bounds(colPos, rowPos);
    const QRect from = source->bounds(colPos, rowPos);
    const bool rightward = source->col() < target->col();
    const Shaft shaft = levelShaft(from, to, rowPos.value(row()), rightward);
    const ArrowHead head = arrowHead(shaft.tip, rightward);
    device->drawPolyline({head.lower, shaft.tip, head.upper}, style.edgePen(edge, true));
    device->drawPolyline({shaft.tip, shaft.start}, style.edgePen(edge, false));
    device->endEdge();
    connectEnds(device, *this, source, target);
}

int UmlReturn::xOffset() const
{
    return besideSource(source, source->col() < target->col(), width());
}

int UmlReturn::yOffset() const
{
    return returnOffset(!label().isEmpty(), height());
}

} // namespace ORR::Graph::Layout
