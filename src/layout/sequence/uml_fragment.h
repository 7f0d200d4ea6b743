#pragma once

#include "layout/sequence/fragment_frame.h"
#include "layout/sequence/grid_object.h"
#include "layout/sequence/uml_nodes.h"

#include <memory>

namespace ORR::Graph::Layout {

// A combined fragment: a title tag with a cut corner, and below it a frame that is nothing but the
// rectangles of its sections. Without a section there is only the tag.
//
// While the diagram is built it follows the cells of what is put into it.
class UmlCombinedFragment : public GridObject
{
public:
    UmlCombinedFragment(int row, int col, DotSubgraph *subgraph);

    // Also lays out the labels of the sections. Fragments within are measured before those around
    // them, which hang on their offsets.
    void measure(const GraphStyle &style) override;
    void paint(Device *device, const QList<int> &colPos, const QList<int> &rowPos,
               const GraphStyle &style) const override;
    // The labels of the fragment and of its first section, which stand below each other.
    int height() const override { return size.height(); }
    // The widest of the labels of the fragment and its sections.
    int width() const override { return size.width(); }
    // Left of the column by the width and 8, and at least 7 left of each fragment within it that
    // stands on the same column.
    int xOffset() const override { return leftOffset; }
    int yOffset() const override;
    bool spansAxis(bool columns) const override { return columns; }
    int objectKind() const override { return ClusterKind; }

    // Takes an object in: the fragment's last row and column reach out to it, and so does its own
    // column if the object stands left of it. Not owned.
    void addChild(GridObject *object);

    // Starts a section at `row` and returns its marker, which the caller adds as a child.
    std::unique_ptr<GridObject> addSection(int row, DotSubgraph *subgraph);

    // Called once, when everything is in. The fragment ends one row below its contents; the spacer
    // that is returned keeps room there for its frame and the caller adds it to the fragment
    // around, if there is one.
    std::unique_ptr<GridObject> close();

    const QList<GridObject *> &children() const { return allChildren; }
    qsizetype sectionCount() const { return sections.size(); }
    int lastRow() const { return cells.lastRow; }
    int lastCol() const { return cells.lastCol; }
    // How deep fragments are nested within this one, 0 for none. Known when it is closed.
    int nesting() const { return cells.nesting; }

private:
    struct Section
    {
        int row;
        DotSubgraph *subgraph;
        TextBlock label; // empty until the fragment is measured
    };

    int rightEdge(const QList<int> &colPos) const;
    void paintSections(Device *device, const QRect &tag, int right, const QList<int> &rowPos,
                       const GraphStyle &style) const;
    void paintTag(Device *device, const QRect &tag, const GraphStyle &style) const;

    QList<Section> sections;
    QList<GridObject *> allChildren;
    QList<UmlCombinedFragment *> childFragments; // those among the children, in the same order
    FragmentCells cells;
    QSize size{0, 0}; // until it is measured
    int leftOffset = 0; // until it is measured
};

} // namespace ORR::Graph::Layout
