#pragma once

#include <QPoint>
#include <QSize>
#include <QtGlobal>

namespace ORR::Graph::Layout {

// What the nodes of a subgraph are headers of.
enum class MatrixAxis { Both, Columns, Rows };

// What labels ask for, in points. Numbers have 64 bits, and places that no int can hold become the
// nearest.
struct MatrixExtents
{
    qint64 cell = 0; // the size of a square
    qint64 x = 0; // the width of all labels left of the rows
    qint64 y = 0; // the height of all labels above the columns

    void include(const MatrixExtents &other);

    // The label of a header in a subgraph with this axis; one that is both is a row.
    void includeHeader(MatrixAxis axis, QSize label);
    // The label of an edge, which lies in a square.
    void includeEdge(QSize label);
};

// Where the bracket of a group stands.
struct MatrixShift
{
    enum Side { None, LeftOfRows, AboveColumns };
    Side side = None;
    qint64 distance = 0; // from the headers, points
};

// Makes room for the label of a group, which must fit along its headers and lies beyond all labels
// in it, in the extents of all that is in the group. Without headers it has no bracket.
MatrixShift addGroupLabel(MatrixExtents &extents, MatrixAxis axis, qint64 columns, qint64 rows,
                          QSize label);

// The top left and the bottom right corner of a square or of a group's rectangle.
struct MatrixArea
{
    QPoint topLeft;
    QPoint bottomRight;
};

// The columns and rows of a group, the ends behind the last ones.
struct MatrixSpan
{
    int x0 = 0;
    int x1 = 0;
    int y0 = 0;
    int y1 = 0;

    bool hasArea() const { return x1 > x0 && y1 > y0; }
};

// A label with a line at each end of the headers that it stands beside.
struct MatrixBracket
{
    QPoint label; // the top left corner
    MatrixArea first; // from the start to the end of the line
    MatrixArea last;
};

// The grid of squares and the places around it, once the extents of all labels are known.
class MatrixGrid
{
public:
    explicit MatrixGrid(const MatrixExtents &extents);

    QSize page(qint64 columns, qint64 rows) const;
    MatrixArea area(const MatrixSpan &span) const;
    MatrixArea square(int column, int row) const;

    // The top left corners of labels.
    QPoint rowHeader(int row, QSize label) const;
    QPoint columnHeader(int column, QSize label) const;
    QPoint labelInSquare(int column, int row, QSize label) const;

    // The brackets of groups, `shift` being the distance from the headers.
    MatrixBracket rowBracket(const MatrixSpan &span, int shift, QSize label) const;
    MatrixBracket columnBracket(const MatrixSpan &span, int shift, QSize label) const;

private:
    qint64 columnX(int column) const { return column * cell + xOrigin; }
    qint64 rowY(int row) const { return row * cell + yOrigin; }

    qint64 cell; // the pitch of the grid
    qint64 xOrigin; // where column 0 starts
    qint64 yOrigin; // where row 0 starts
};

} // namespace ORR::Graph::Layout
