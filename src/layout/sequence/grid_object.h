#pragma once

#include "device/device.h"
#include "device/graph_style.h"
#include "device/text_block.h"
#include "graph/dot_graph.h"
#include "layout/sequence/object_extents.h"

#include <QList>
#include <QRect>

namespace ORR::Graph::Layout {

// One thing on a sequence diagram. It stands on a cell of an integer grid and knows how large it
// is, how far it lies from the anchor point of its cell and, once all anchors are solved, how to
// paint itself. There is no floating point in the family: the sums are those of object_extents.h,
// and the classes say what goes into them.
//
// Objects are made while a diagram is built and measured afterwards, once.
class GridObject
{
public:
    // Which of the graph's elements carries an object's attributes.
    enum Kind { NodeKind = 0, ClusterKind = 1, EdgeKind = 2 };

    virtual ~GridObject() = default;
    GridObject(const GridObject &) = delete;
    GridObject &operator=(const GridObject &) = delete;

    // Lays out the label. To be called once, before anything below is asked of the object or of
    // one that hangs on it.
    virtual void measure(const GraphStyle &style);

    // Draws the object. `colPos` and `rowPos` are the solved anchors; an index beyond them reads 0.
    virtual void paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
                       const GraphStyle &style) const = 0;

    // The size; that of the label with its padding unless a class says otherwise, 0 without one.
    virtual int height() const;
    virtual int width() const;

    // The distance from the anchor to the left and to the top edge. The base centres the object.
    virtual int xOffset() const;
    virtual int yOffset() const;

    // Whether the object lies across several bands of an axis, so that it does not widen the band
    // of its own index: asked once for the columns and once for the rows.
    virtual bool spansAxis(bool columns) const;

    // The rectangle on the page.
    virtual QRect bounds(const QList<int> &colPos, const QList<int> &rowPos) const;

    virtual int objectKind() const = 0;

    int row() const { return gridRow; }
    int col() const { return gridCol; }

    // A DotNode, DotSubgraph or DotEdge, as `objectKind` says; not owned. Null only for the spacer
    // that closes a fragment.
    DotObject *element() const { return graphElement; }

protected:
    GridObject(int row, int col, DotObject *element)
        : gridRow(row), gridCol(col), graphElement(element)
    {
    }

    void setCol(int col) { gridCol = col; }

    // The element's label; empty until the object is measured, and for a class that shows none.
    const TextBlock &label() const { return elementText; }

private:
    int gridRow;
    int gridCol;
    DotObject *graphElement;
    TextBlock elementText;
};

// The label of an element of that kind; an empty block for a null element and an unknown kind.
TextBlock elementLabel(DotObject *element, int kind, const GraphStyle &style);

// The rectangle of a label with its padding, at (0, 0). Width and height are 0 if there are no
// lines.
QRect labelRectangle(const TextBlock &label);

// Draws a label's lines, if it has any, within the padding of a box with that corner.
void drawLabel(const TextBlock &label, int left, int top, Device *device);

} // namespace ORR::Graph::Layout
