#pragma once

#include "layout/sequence/grid_object.h"
#include "layout/sequence/uml_nodes.h"

namespace ORR::Graph::Layout {

// The line that hangs from an object, on the column of its tail. Its label takes room and is not
// drawn.
class UmlLifeLine : public GridObject
{
public:
    UmlLifeLine(const GridObject *from, const GridObject *to, DotEdge *edge);

    void paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
               const GraphStyle &style) const override;
    int objectKind() const override { return EdgeKind; }

private:
    const GridObject *from;
    const GridObject *to;
};

// A call: an arrow with a filled head, on the row of the thing called. Between two things of one
// column it is a hook on their right.
class UmlMessage : public GridObject
{
public:
    UmlMessage(const GridObject *source, const GridObject *target, DotEdge *edge);

    void paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
               const GraphStyle &style) const override;
    int height() const override;
    int width() const override;
    // The label starts at the right edge of the source, or ends at its left edge. Within one column
    // it stands on the right; a return in that place stands on the left, and that is meant.
    int xOffset() const override;
    int yOffset() const override;
    bool spansAxis(bool columns) const override { return columns; }
    int objectKind() const override { return EdgeKind; }

private:
    bool isSelfMessage() const { return source->col() == target->col(); }

    const GridObject *source;
    const GridObject *target;
};

// The way back from a call: an arrow with an open head, on a row of its own, where the activation
// that it comes from ends. One that is not visible takes the room of its label all the same.
class UmlReturn : public GridObject
{
public:
    UmlReturn(int row, const UmlActivation *source, const GridObject *target, bool visible,
              DotEdge *edge);

    void paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
               const GraphStyle &style) const override;
    int xOffset() const override;
    // The label stands on the line, a little into it; a return without one keeps 10 free above it.
    int yOffset() const override;
    bool spansAxis(bool columns) const override { return columns; }
    int objectKind() const override { return EdgeKind; }

private:
    const UmlActivation *source;
    const GridObject *target;
    bool visible;
};

} // namespace ORR::Graph::Layout
