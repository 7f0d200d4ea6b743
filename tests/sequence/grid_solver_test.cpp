#include "layout/sequence/grid_solver.h"

#include <gtest/gtest.h>

#include <limits>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;

namespace {

constexpr int highest = std::numeric_limits<int>::max();
constexpr int lowest = std::numeric_limits<int>::min();

constexpr bool spanning = true;

GridClaim claim(int index, int offset, int size, bool spans = false)
{
    return {index, offset, size, spans};
}

} // namespace

TEST(GridSolver, an_empty_grid_is_one_gap_wide)
{
    EXPECT_EQ(solveGrid(0, {}), (QList<int>{5}));
}

TEST(GridSolver, an_anchor_stands_behind_a_gap_and_what_lies_before_it)
{
    const GridClaim block = claim(0, -10, 30);
    EXPECT_EQ(solveGrid(1, {block}), (QList<int>{15, 40}));
}

TEST(GridSolver, neighbouring_bands_keep_a_gap_of_five)
{
    const GridClaim first = claim(0, -10, 30);
    const GridClaim second = claim(1, -7, 10);
    EXPECT_EQ(solveGrid(2, {first, second}), (QList<int>{15, 15 + 20 + 5 + 7, 47 + 3 + 5}));
}

TEST(GridSolver, a_band_holds_the_farthest_reach_of_its_objects_on_each_side)
{
    const GridClaim left = claim(0, -40, 41);
    const GridClaim right = claim(0, -1, 31);
    EXPECT_EQ(solveGrid(1, {left, right}), (QList<int>{45, 80}));
}

TEST(GridSolver, an_object_off_its_anchor_never_narrows_a_band)
{
    const GridClaim beyond = claim(0, 20, 10);
    const GridClaim before = claim(0, -30, 10);
    EXPECT_EQ(solveGrid(1, {beyond}), (QList<int>{5, 40}));
    EXPECT_EQ(solveGrid(1, {before}), (QList<int>{35, 40}));
}

TEST(GridSolver, an_empty_index_adds_a_gap)
{
    const GridClaim first = claim(0, -10, 20);
    const GridClaim third = claim(2, -10, 20);
    EXPECT_EQ(solveGrid(3, {first, third}), (QList<int>{15, 30, 45, 60}));
}

TEST(GridSolver, a_spanning_object_needs_room_only_beyond_its_own_band_on_the_left)
{
    const GridClaim box = claim(0, -10, 20);
    const GridClaim inside = claim(0, -8, 8, spanning);
    const GridClaim outside = claim(0, -25, 25, spanning);
    EXPECT_EQ(solveGrid(1, {box, inside}), (QList<int>{15, 30}));
    EXPECT_EQ(solveGrid(1, {box, outside}), (QList<int>{30, 45}));
}

TEST(GridSolver, what_a_span_claims_on_the_right_is_carried_into_the_next_gap)
{
    const GridClaim box = claim(0, -10, 20);
    const GridClaim message = claim(0, 10, 50, spanning);
    const GridClaim next = claim(1, -10, 20);
    // 60 beyond the anchor, of which the band holds 10.
    EXPECT_EQ(solveGrid(2, {box, message, next}), (QList<int>{15, 15 + 10 + 5 + 10 + 50, 105}));
}

TEST(GridSolver, a_carry_competes_with_the_need_of_the_next_span_and_does_not_add_to_it)
{
    const GridClaim message = claim(0, 0, 50, spanning);
    const GridClaim smaller = claim(1, -30, 30, spanning);
    const GridClaim larger = claim(1, -70, 70, spanning);
    EXPECT_EQ(solveGrid(2, {message, smaller}), (QList<int>{5, 60, 65}));
    EXPECT_EQ(solveGrid(2, {message, larger}), (QList<int>{5, 80, 85}));
}

TEST(GridSolver, a_carry_beyond_the_last_index_widens_the_page)
{
    const GridClaim message = claim(0, 0, 50, spanning);
    EXPECT_EQ(solveGrid(1, {message}), (QList<int>{5, 60}));
}

TEST(GridSolver, a_carry_crosses_an_empty_index_only_once)
{
    const GridClaim message = claim(0, 0, 50, spanning);
    EXPECT_EQ(solveGrid(3, {message}), (QList<int>{5, 60, 65, 70}));
}

TEST(GridSolver, a_span_within_its_band_carries_nothing)
{
    const GridClaim box = claim(0, 0, 60);
    const GridClaim message = claim(0, 0, 50, spanning);
    EXPECT_EQ(solveGrid(2, {box, message}), (QList<int>{5, 70, 75}));
}

TEST(GridSolver, leaves_out_what_stands_off_the_grid)
{
    const GridClaim before = claim(-1, -10, 20);
    const GridClaim beyond = claim(1, -10, 20);
    EXPECT_EQ(solveGrid(1, {before, beyond}), (QList<int>{5, 10}));
}

TEST(GridSolver, positions_stay_within_an_int)
{
    const GridClaim huge = claim(0, lowest, highest);
    const GridClaim next = claim(1, 0, highest);
    EXPECT_EQ(solveGrid(2, {huge, next}), (QList<int>{highest, highest, highest}));
    const GridClaim hugeSpan = claim(0, -highest, highest, spanning);
    EXPECT_EQ(solveGrid(2, {hugeSpan, next}), (QList<int>{highest, highest, highest}));
}
