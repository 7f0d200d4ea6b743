#include "layout/graflib/decl_grid.h"

#include "graflib_support.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace ORR::Graph::Layout;

namespace {

using Table = QList<QList<double>>;

// The tables as they are defined, entry for entry: one list a line, with every entry of it.

void alignedTable(Table &lists, double start, double end, int count, double gap, double extra)
{
    double pos = start;
    for (QList<double> &list : lists) {
        double m = 0.0;
        for (int k = 0; k < list.size(); ++k)
            m = k == 0 ? list[k] : std::max(m, list[k]);
        for (int j = 0; j < count; ++j) {
            if (j < list.size())
                list[j] = pos;
            else
                list.append(pos);
        }
        if (m != 0.0) {
            pos += m + gap + extra;
            extra = 0.0;
        }
    }
    lists.append(QList<double>(count, end + gap));
}

void flowTable(Table &lists, double start, double end, int count, double gap, double extra)
{
    for (int j = 0; j < count; ++j) {
        double pos = start;
        for (QList<double> &list : lists) {
            while (list.size() <= j)
                list.append(0.0);
            const double v = list[j];
            list[j] = pos;
            if (v != 0.0) {
                pos += v + gap + extra;
                extra = 0.0;
            }
        }
    }
    lists.append(QList<double>(count, end + gap));
}

void store(Table &table, int line, int cross, double size)
{
    while (table.size() <= line)
        table.append(QList<double>());
    while (table[line].size() <= cross)
        table[line].append(0.0);
    table[line][cross] = size;
}

QList<GridCell> randomCells(RandomNumbers &random)
{
    static constexpr double sizes[] = {10.0, 20.5, 0.0, 33.0, -7.0, 5.25};
    QList<GridCell> cells;
    const int count = 1 + random.below(7);
    for (int i = 0; i < count; ++i)
        cells.append({random.below(5), random.below(5), sizes[random.below(6)]});
    return cells;
}

} // namespace

TEST(DeclGrid, gives_what_full_tables_give)
{
    RandomNumbers random(3);
    for (int round = 0; round < 20'000; ++round) {
        const QList<GridCell> cells = randomCells(random);
        const double gap = random.below(3) * 4.0;
        const double extra = random.below(2) * 16.0;
        Table aligned;
        int count = 0;
        for (const GridCell &cell : cells) {
            store(aligned, cell.line, cell.cross, cell.size);
            count = std::max(count, cell.cross + 1);
        }
        Table flow = aligned;
        alignedTable(aligned, 3.0, 200.0, count, gap, extra);
        flowTable(flow, 3.0, 200.0, count, gap, extra);

        QList<GridCell> alignedCells = cells;
        alignedPositions(alignedCells, 3.0, 200.0, gap, extra);
        QList<GridCell> flowCells = cells;
        flowPositions(flowCells, 3.0, 200.0, gap, extra);
        for (int i = 0; i < cells.size(); ++i) {
            const int line = cells[i].line;
            const int cross = cells[i].cross;
            ASSERT_EQ(alignedCells[i].from, aligned[line][cross]) << round;
            ASSERT_EQ(alignedCells[i].to, aligned[line + 1][cross]) << round;
            ASSERT_EQ(flowCells[i].from, flow[line][cross]) << round;
            ASSERT_EQ(flowCells[i].to, flow[line + 1][cross]) << round;
        }
    }
}

TEST(DeclGrid, takes_no_memory_for_the_lines_between)
{
    QList<GridCell> cells{{0, 0, 10.0}, {2'000'000'000, 2'147'483'647, 20.0}};
    alignedPositions(cells, 0.0, 100.0, 4.0, 0.0);
    EXPECT_EQ(cells[0].to, 14.0);
    EXPECT_EQ(cells[1].from, 14.0);
    EXPECT_EQ(cells[1].to, 104.0);
    flowPositions(cells, 0.0, 100.0, 4.0, 0.0);
    EXPECT_EQ(cells[1].from, 0.0);
    EXPECT_EQ(cells[1].to, 104.0);
}

TEST(DeclGrid, aligned_passes_over_a_line_without_size)
{
    QList<GridCell> cells{{0, 0, 10.0}, {1, 0, 0.0}, {2, 0, 30.0}};
    alignedPositions(cells, 0.0, 100.0, 4.0, 0.0);
    EXPECT_EQ(cells[1].from, 14.0);
    EXPECT_EQ(cells[2].from, 14.0);
}

TEST(DeclGrid, aligned_gives_extra_room_behind_the_first_line_that_has_a_size)
{
    QList<GridCell> cells{{0, 0, 0.0}, {1, 0, 10.0}, {2, 0, 10.0}};
    alignedPositions(cells, 0.0, 100.0, 4.0, 16.0);
    EXPECT_EQ(cells[1].from, 0.0);
    EXPECT_EQ(cells[2].from, 30.0);
}

TEST(DeclGrid, flow_gives_extra_room_once_and_not_once_a_row)
{
    QList<GridCell> cells{{0, 0, 10.0}, {1, 0, 10.0}, {0, 1, 10.0}, {1, 1, 10.0}};
    flowPositions(cells, 0.0, 100.0, 4.0, 16.0);
    EXPECT_EQ(cells[1].from, 30.0);
    EXPECT_EQ(cells[3].from, 14.0);
}

TEST(DeclGrid, last_line_ends_exactly_at_the_end)
{
    QList<GridCell> cells{{0, 0, 10.0}, {1, 0, 10.0}};
    alignedPositions(cells, 0.0, 100.0, 4.0, 0.0);
    EXPECT_EQ(cells[1].to - 4.0, 100.0);
    flowPositions(cells, 0.0, 100.0, 4.0, 0.0);
    EXPECT_EQ(cells[1].to - 4.0, 100.0);
}
