#include "layout/sequence/grid_solver.h"

#include "sheet.h"

#include <gtest/gtest.h>

#include <limits>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;

namespace {

constexpr int highest = std::numeric_limits<int>::max();
constexpr int lowest = std::numeric_limits<int>::min();

// An object of given measures on one index of both axes. One that spans does so in the columns, as
// all of them do.
class Block : public GridObject
{
public:
    Block(int index, int itsOffset, int itsSize, bool itSpans = false)
        : GridObject(index, index, nullptr), offset(itsOffset), size(itsSize), spans(itSpans)
    {
    }
    void paint(Device *, const QList<int> &, const QList<int> &, const GraphStyle &) const override
    {
    }
    int height(const GraphStyle &) const override { return size; }
    int width(const GraphStyle &) const override { return size; }
    int xOffset(const GraphStyle &) const override { return offset; }
    int yOffset(const GraphStyle &) const override { return offset; }
    bool spansAxis(bool columns) const override { return spans && columns; }
    int objectKind() const override { return NodeKind; }

private:
    int offset;
    int size;
    bool spans;
};

constexpr bool spanning = true;

QList<int> solve(int count, std::initializer_list<const GridObject *> objects, bool columns = true)
{
    Sheet sheet;
    return solveGrid(count, objects, columns, sheet.style);
}

} // namespace

TEST(GridSolver, an_empty_grid_is_one_gap_wide)
{
    EXPECT_EQ(solve(0, {}), (QList<int>{5}));
}

TEST(GridSolver, an_anchor_stands_behind_a_gap_and_what_lies_before_it)
{
    const Block block(0, -10, 30);
    EXPECT_EQ(solve(1, {&block}), (QList<int>{15, 40}));
}

TEST(GridSolver, neighbouring_bands_keep_a_gap_of_five)
{
    const Block first(0, -10, 30);
    const Block second(1, -7, 10);
    EXPECT_EQ(solve(2, {&first, &second}), (QList<int>{15, 15 + 20 + 5 + 7, 47 + 3 + 5}));
}

TEST(GridSolver, a_band_holds_the_farthest_reach_of_its_objects_on_each_side)
{
    const Block left(0, -40, 41);
    const Block right(0, -1, 31);
    EXPECT_EQ(solve(1, {&left, &right}), (QList<int>{45, 80}));
}

TEST(GridSolver, an_object_off_its_anchor_never_narrows_a_band)
{
    const Block beyond(0, 20, 10);
    const Block before(0, -30, 10);
    EXPECT_EQ(solve(1, {&beyond}), (QList<int>{5, 40}));
    EXPECT_EQ(solve(1, {&before}), (QList<int>{35, 40}));
}

TEST(GridSolver, an_empty_index_adds_a_gap)
{
    const Block first(0, -10, 20);
    const Block third(2, -10, 20);
    EXPECT_EQ(solve(3, {&first, &third}), (QList<int>{15, 30, 45, 60}));
}

TEST(GridSolver, a_spanning_object_needs_room_only_beyond_its_own_band_on_the_left)
{
    const Block box(0, -10, 20);
    const Block inside(0, -8, 8, spanning);
    const Block outside(0, -25, 25, spanning);
    EXPECT_EQ(solve(1, {&box, &inside}), (QList<int>{15, 30}));
    EXPECT_EQ(solve(1, {&box, &outside}), (QList<int>{30, 45}));
}

TEST(GridSolver, what_a_span_claims_on_the_right_is_carried_into_the_next_gap)
{
    const Block box(0, -10, 20);
    const Block message(0, 10, 50, spanning);
    const Block next(1, -10, 20);
    // 60 beyond the anchor, of which the band holds 10.
    EXPECT_EQ(solve(2, {&box, &message, &next}), (QList<int>{15, 15 + 10 + 5 + 10 + 50, 105}));
}

TEST(GridSolver, a_carry_competes_with_the_need_of_the_next_span_and_does_not_add_to_it)
{
    const Block message(0, 0, 50, spanning);
    const Block smaller(1, -30, 30, spanning);
    const Block larger(1, -70, 70, spanning);
    EXPECT_EQ(solve(2, {&message, &smaller}), (QList<int>{5, 60, 65}));
    EXPECT_EQ(solve(2, {&message, &larger}), (QList<int>{5, 80, 85}));
}

TEST(GridSolver, a_carry_beyond_the_last_index_widens_the_page)
{
    const Block message(0, 0, 50, spanning);
    EXPECT_EQ(solve(1, {&message}), (QList<int>{5, 60}));
}

TEST(GridSolver, a_carry_crosses_an_empty_index_only_once)
{
    const Block message(0, 0, 50, spanning);
    EXPECT_EQ(solve(3, {&message}), (QList<int>{5, 60, 65, 70}));
}

TEST(GridSolver, a_span_within_its_band_carries_nothing)
{
    const Block box(0, 0, 60);
    const Block message(0, 0, 50, spanning);
    EXPECT_EQ(solve(2, {&box, &message}), (QList<int>{5, 70, 75}));
}

TEST(GridSolver, nothing_spans_in_the_rows)
{
    const Block message(0, -50, 50, spanning);
    const Block next(1, -10, 20);
    EXPECT_EQ(solve(2, {&message, &next}, false), (QList<int>{55, 70, 85}));
}

TEST(GridSolver, leaves_out_what_stands_off_the_grid)
{
    const Block before(-1, -10, 20);
    const Block beyond(1, -10, 20);
    EXPECT_EQ(solve(1, {&before, &beyond}), (QList<int>{5, 10}));
}

TEST(GridSolver, positions_stay_within_an_int)
{
    const Block huge(0, lowest, highest);
    const Block next(1, 0, highest);
    EXPECT_EQ(solve(2, {&huge, &next}), (QList<int>{highest, highest, highest}));
    const Block hugeSpan(0, -highest, highest, spanning);
    EXPECT_EQ(solve(2, {&hugeSpan, &next}), (QList<int>{highest, highest, highest}));
}
