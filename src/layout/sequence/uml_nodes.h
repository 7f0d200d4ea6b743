#pragma once

#include "layout/sequence/grid_object.h"

#include <memory>

namespace ORR::Graph::Layout {

// A box with a label: one of the participants.
class UmlObject : public GridObject
{
public:
    UmlObject(int row, int col, DotNode *node) : GridObject(row, col, node) { }

    void paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
               const GraphStyle &style) const override;
    int objectKind() const override { return NodeKind; }
};

// The bar on a lifeline that lasts as long as a call: from the anchor of its own row to that of the
// row where it ends. Bars that are nested stand 4 points further right a level.
class UmlActivation : public GridObject
{
public:
    UmlActivation(int row, int col, int nesting, DotNode *node);

    void measure(const GraphStyle &) override { } // shows no label
    void paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
               const GraphStyle &style) const override;
    // 10 by 10: what the grid is solved with. The bar that is painted has its rows' distance as
    // height, 0 without a return and negative if that comes before the call.
    int height() const override;
    int width() const override;
    int xOffset() const override;
    int yOffset() const override;
    QRect bounds(const QList<int> &colPos, const QList<int> &rowPos) const override;
    int objectKind() const override { return NodeKind; }

    // The row of the bar's end; its own row until it is set.
    int endRow() const { return lastRow; }
    void setEndRow(int row) { lastRow = row; }

private:
    int lastRow;
    int nesting;
};

// Takes room on the grid and draws nothing: spacers, the markers of a fragment's sections, and the
// spacers that close fragments.
class InvisibleGridObject : public GridObject
{
public:
    using Align = CellAlign;
    using enum CellAlign;

    // As a width or height: that of the element's label.
    static constexpr int ofLabel = -1;

    struct Size
    {
        int width;
        int height;
    };

    InvisibleGridObject(int row, int col, Size size, Align xAlign, Align yAlign, DotNode *node);

    // The marker of a section. It is told to the device and measured as if the subgraph were a node
    // of its parent: a label (or font) of its own counts, otherwise the node defaults around it.
    InvisibleGridObject(int row, int col, Size size, Align xAlign, Align yAlign,
                        const DotSubgraph *section);

    void measure(const GraphStyle &style) override;
    // A device that records objects gets to know the element; nothing is drawn.
    void paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
               const GraphStyle &style) const override;
    int height() const override;
    int width() const override;
    int xOffset() const override;
    int yOffset() const override;
    int objectKind() const override { return NodeKind; }

private:
    InvisibleGridObject(int row, int col, Size size, Align xAlign, Align yAlign,
                        std::unique_ptr<DotNode> section);

    std::unique_ptr<DotNode> sectionNode; // null unless it stands for a section
    Size size;
    Align xAlign;
    Align yAlign;
};

// The dot where a message comes from whose sender is not on the diagram.
class UmlFoundMessage : public GridObject
{
public:
    UmlFoundMessage(int row, int col, DotNode *node) : GridObject(row, col, node) { }

    void measure(const GraphStyle &) override { } // shows no label
    void paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
               const GraphStyle &style) const override;
    int height() const override;
    int width() const override;
    int objectKind() const override { return NodeKind; }
};

} // namespace ORR::Graph::Layout
