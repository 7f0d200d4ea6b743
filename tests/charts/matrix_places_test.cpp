#include "layout/charts/matrix_places.h"

#include <gtest/gtest.h>

#include <climits>

using namespace ORR::Graph::Layout;

namespace {

// Squares of 10, labels of rows 30 wide, of columns 14 high: cells of 14, column 0 at 38, row 0 at
// 22.
const MatrixGrid grid({10, 30, 14});

} // namespace

TEST(MatrixExtents, of_column_headers_lie)
{
    MatrixExtents extents;
    extents.includeHeader(MatrixAxis::Columns, {30, 14});
    EXPECT_EQ(extents.cell, 30);
    EXPECT_EQ(extents.x, 0);
    EXPECT_EQ(extents.y, 14);
}

TEST(MatrixExtents, of_row_headers_and_of_both_stand_at_the_left)
{
    for (const MatrixAxis axis : {MatrixAxis::Rows, MatrixAxis::Both}) {
        MatrixExtents extents;
        extents.includeHeader(axis, {30, 14});
        EXPECT_EQ(extents.cell, 14);
        EXPECT_EQ(extents.x, 30);
        EXPECT_EQ(extents.y, 0);
    }
}

TEST(MatrixExtents, take_the_larger_of_everything)
{
    MatrixExtents extents{5, 60, 7};
    extents.include({6, 50, 8});
    extents.includeEdge({4, 9});
    EXPECT_EQ(extents.cell, 9);
    EXPECT_EQ(extents.x, 60);
    EXPECT_EQ(extents.y, 8);
}

TEST(MatrixGroupLabel, fits_over_its_columns_and_lies_beyond_what_is_in_it)
{
    MatrixExtents extents{10, 30, 14};
    const MatrixShift shift = addGroupLabel(extents, MatrixAxis::Columns, 3, 0, {50, 12});
    EXPECT_EQ(shift.side, MatrixShift::AboveColumns);
    EXPECT_EQ(shift.distance, 18);
    EXPECT_EQ(extents.cell, 17); // 50 / 3 + 1
    EXPECT_EQ(extents.y, 30);
    EXPECT_EQ(extents.x, 30);
}

TEST(MatrixGroupLabel, fits_beside_its_rows)
{
    MatrixExtents extents;
    const MatrixShift shift = addGroupLabel(extents, MatrixAxis::Both, 2, 2, {50, 12});
    EXPECT_EQ(shift.side, MatrixShift::LeftOfRows);
    EXPECT_EQ(shift.distance, 0); // no gap where there are no labels
    EXPECT_EQ(extents.cell, 7);
    EXPECT_EQ(extents.x, 50);
}

TEST(MatrixGroupLabel, without_headers_takes_no_room)
{
    MatrixExtents extents{1, 2, 3};
    EXPECT_EQ(addGroupLabel(extents, MatrixAxis::Columns, 0, 5, {50, 12}).side, MatrixShift::None);
    EXPECT_EQ(addGroupLabel(extents, MatrixAxis::Rows, 5, 0, {50, 12}).side, MatrixShift::None);
    EXPECT_EQ(extents.cell, 1);
    EXPECT_EQ(extents.x, 2);
    EXPECT_EQ(extents.y, 3);
}

TEST(MatrixGrid, of_no_labels_is_a_margin)
{
    EXPECT_EQ(MatrixGrid({}).page(0, 0), QSize(8, 8));
    EXPECT_EQ(MatrixGrid({}).page(2, 3), QSize(16, 20));
}

TEST(MatrixGrid, puts_squares_into_their_cells)
{
    EXPECT_EQ(grid.page(2, 1), QSize(2 * 14 + 4 + 38, 14 + 4 + 22));
    const MatrixArea square = grid.square(1, 2);
    EXPECT_EQ(square.topLeft, QPoint(38 + 14 + 2, 22 + 28 + 2));
    EXPECT_EQ(square.bottomRight, QPoint(64, 62));
    EXPECT_EQ(grid.labelInSquare(1, 2, {4, 6}), QPoint(54 + 3, 52 + 2));
}

TEST(MatrixGrid, puts_headers_beside_their_cells)
{
    EXPECT_EQ(grid.rowHeader(2, {20, 8}), QPoint(38 - 20 - 4, 22 + 28 + 3));
    EXPECT_EQ(grid.columnHeader(1, {10, 14}), QPoint(38 + 14 + 2, 22 - 14 - 4));
}

TEST(MatrixGrid, has_brackets_at_both_ends_of_a_group)
{
    const MatrixSpan span{0, 2, 1, 3};
    const MatrixBracket rows = grid.rowBracket(span, 10, {20, 8});
    EXPECT_EQ(rows.label, QPoint(38 - 20 - 10 - 4, 36 + 10));
    EXPECT_EQ(rows.first.topLeft, QPoint(4, 36));
    EXPECT_EQ(rows.first.bottomRight, QPoint(24, 36));
    EXPECT_EQ(rows.last.topLeft, QPoint(4, 64));
    const MatrixBracket columns = grid.columnBracket(span, 5, {20, 8});
    EXPECT_EQ(columns.label, QPoint(38 + 4, 22 - 8 - 5 - 4));
    EXPECT_EQ(columns.first.bottomRight, QPoint(38, 13));
    EXPECT_EQ(columns.last.topLeft, QPoint(66, 5));
}

TEST(MatrixGrid, ends_at_the_largest_int)
{
    EXPECT_EQ(grid.square(INT_MAX, 0).topLeft.x(), INT_MAX);
    EXPECT_EQ(grid.page(INT_MAX, INT_MIN), QSize(INT_MAX, INT_MIN));
}

TEST(MatrixSpan, has_an_area_with_columns_and_rows)
{
    EXPECT_TRUE((MatrixSpan{0, 1, 0, 1}.hasArea()));
    EXPECT_FALSE((MatrixSpan{0, 0, 0, 1}.hasArea()));
    EXPECT_FALSE((MatrixSpan{0, 1, 2, 1}.hasArea()));
}
