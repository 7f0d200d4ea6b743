#include "layout/charts/matrix_places.h"

#include "graph/numbers.h"

#include <algorithm>

namespace ORR::Graph::Layout {

namespace {

constexpr int cellGap = 4; // between squares, labels and the edges of the page
constexpr int inset = 2; // of a square in its cell

qint64 originBehind(qint64 extent)
{
    return extent + (extent != 0 ? cellGap : 0) + cellGap;
}

} // namespace

void MatrixExtents::include(const MatrixExtents &other)
{
    cell = std::max(cell, other.cell);
    x = std::max(x, other.x);
    y = std::max(y, other.y);
}

void MatrixExtents::includeHeader(MatrixAxis axis, QSize label)
{
    if (axis == MatrixAxis::Columns)
        include({label.width(), 0, label.height()});
    else
        include({label.height(), label.width(), 0});
}

void MatrixExtents::includeEdge(QSize label)
{
    include({std::max(label.width(), label.height()), 0, 0});
}

MatrixShift addGroupLabel(MatrixExtents &extents, MatrixAxis axis, qint64 columns, qint64 rows,
                          QSize label)
{
    const bool above = axis == MatrixAxis::Columns;
    const qint64 headers = above ? columns : rows;
    if (headers <= 0)
        return {};
    const qint64 along = above ? label.width() : label.height();
    extents.cell = std::max(extents.cell, along / headers + 1);
    qint64 &extent = above ? extents.y : extents.x;
    if (extent != 0)
        extent += cellGap;
    const MatrixShift shift{above ? MatrixShift::AboveColumns : MatrixShift::LeftOfRows, extent};
    extent += above ? label.height() : label.width();
    return shift;
}

MatrixGrid::MatrixGrid(const MatrixExtents &extents)
    : cell(extents.cell + cellGap), xOrigin(originBehind(extents.x)),
      yOrigin(originBehind(extents.y))
{
}

QSize MatrixGrid::page(qint64 columns, qint64 rows) const
{
    return {saturated(cell * columns + cellGap + xOrigin),
            saturated(cell * rows + cellGap + yOrigin)};
}

MatrixArea MatrixGrid::area(const MatrixSpan &span) const
{
    return {saturatedPoint(columnX(span.x0), rowY(span.y0)),
            saturatedPoint(columnX(span.x1), rowY(span.y1))};
}

MatrixArea MatrixGrid::square(int column, int row) const
{
    const qint64 left = columnX(column) + inset;
    const qint64 top = rowY(row) + inset;
    const qint64 side = cell - cellGap;
    return {saturatedPoint(left, top), saturatedPoint(left + side, top + side)};
}

QPoint MatrixGrid::rowHeader(int row, QSize label) const
{
    return saturatedPoint(xOrigin - label.width() - cellGap,
                          (cell - label.height()) / 2 + rowY(row));
}

QPoint MatrixGrid::columnHeader(int column, QSize label) const
{
    return saturatedPoint((cell - label.width()) / 2 + columnX(column),
                          yOrigin - label.height() - cellGap);
}

QPoint MatrixGrid::labelInSquare(int column, int row, QSize label) const
{
    const qint64 side = cell - cellGap;
    return saturatedPoint((side - label.width()) / 2 + columnX(column) + inset,
                          (side - label.height()) / 2 + rowY(row) + inset);
}

MatrixBracket MatrixGrid::rowBracket(const MatrixSpan &span, int shift, QSize label) const
{
    const qint64 w = label.width();
    const qint64 x = xOrigin - w - shift - cellGap;
    const qint64 y0 = rowY(span.y0);
    const qint64 y1 = rowY(span.y1);
    return {saturatedPoint(x, (y1 - label.height() - y0) / 2 + y0),
            {saturatedPoint(x, y0), saturatedPoint(x + w, y0)},
            {saturatedPoint(x, y1), saturatedPoint(x + w, y1)}};
}

MatrixBracket MatrixGrid::columnBracket(const MatrixSpan &span, int shift, QSize label) const
{
    const qint64 h = label.height();
    const qint64 y = yOrigin - h - shift - cellGap;
    const qint64 x0 = columnX(span.x0);
    const qint64 x1 = columnX(span.x1);
    return {saturatedPoint((x1 - label.width() - x0) / 2 + x0, y),
            {saturatedPoint(x0, y), saturatedPoint(x0, y + h)},
            {saturatedPoint(x1, y), saturatedPoint(x1, y + h)}};
}

} // namespace ORR::Graph::Layout
