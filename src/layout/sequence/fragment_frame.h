#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

namespace ORR::Graph::Layout {

// The cells of the grid that a combined fragment covers. While a diagram is built they follow what
// is put into the fragment.
struct FragmentCells
{
    int col; // the leftmost column
    int lastRow;
    int lastCol;
    int nesting = 0; // how deep fragments are nested within this one, 0 for none

    // Reaches out to an object on that cell.
    void include(int row, int column);
    // Reaches down to a section that starts on that row; its column is that of the fragment.
    void includeRow(int row);
    // Lies around a fragment within, which is closed.
    void enclose(const FragmentCells &inner);
    // Ends one row below the contents.
    void close();

    // How far the frame reaches beyond the last column, to lie around the frames within.
    int frameReach() const;
};

// What a fragment takes: one label below the other, its own and that of its first section, and as
// wide as the widest of them all.
QSize fragmentSize(QSize title, const QList<QSize> &sectionLabels);

// The right side of the frame: as far right of the last column as the farthest reach, and never
// left of it. On one column the reaches are those of what is within, otherwise `frameReach`.
int frameRight(int anchor, const QList<qint64> &reaches);

// The distance from the column of a fragment to the left side of its frame: by the width of its
// labels and 8, and at least 7 further left than the nearest of the fragments within that stand on
// the same column, whose offsets these are.
int fragmentOffset(int width, const QList<int> &offsetsWithin);

// From where to where a section reaches, downward.
struct SectionBand
{
    int top;
    int bottom;
};

// Those of all sections: the first begins where the fragment does, and each ends where the next one
// begins, the last one where the fragment ends. `anchors` are those of the sections' rows.
QList<SectionBand> sectionBands(int fragmentTop, const QList<int> &anchors, int fragmentBottom);

// The outline of the title tag: a rectangle whose lower right corner is cut, closed.
QList<QPoint> tagOutline(const QRect &tag);

} // namespace ORR::Graph::Layout
