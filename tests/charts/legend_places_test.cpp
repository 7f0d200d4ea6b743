#include "layout/charts/legend_places.h"

#include <gtest/gtest.h>

#include <climits>

using namespace ORR::Graph::Layout;

namespace {

// Three entries of 25, 32 and 36 by 14.
LegendParts parts(LegendSide side, std::optional<QSize> title = {})
{
    return {side, title, {{25, 14}, {32, 14}, {36, 14}}};
}

const QRect chart(4, 5, 100, 80);

} // namespace

TEST(LegendPlaces, above_the_chart_run_along_it_and_push_it_down)
{
    const LegendPlaces places = legendPlaces(parts(LegendSide::Top), chart);
    // Two cells of 36 + 4 fit into 100; (100 - 76) / 2 is left before them.
    EXPECT_EQ(places.entries, (QList<QPoint>{{16, 5}, {56, 5}, {16, 23}}));
    EXPECT_EQ(places.chart, QRect(4, 5 + 32 + 5 + 12, 100, 80));
    EXPECT_EQ(places.page, QSize(100 + 8, 54 + 80 + 54));
}

TEST(LegendPlaces, below_the_chart_start_behind_its_extent_alone)
{
    const LegendPlaces places = legendPlaces(parts(LegendSide::Bottom, QSize(50, 14)), chart);
    EXPECT_EQ(places.title, QPoint(4 + 25, 80 + 12));
    EXPECT_EQ(places.entries, (QList<QPoint>{{16, 110}, {56, 110}, {16, 128}}));
    EXPECT_EQ(places.chart, chart);
    EXPECT_EQ(places.page, QSize(108, 128 + 14 + 5));
}

TEST(LegendPlaces, beside_the_chart_run_down_and_leave_a_place_to_the_title)
{
    const QRect low(0, 0, 100, 40); // room for two entries a column
    EXPECT_EQ(legendPlaces(parts(LegendSide::Right), low).entries,
              (QList<QPoint>{{112, 4}, {112, 22}, {148, 4}}));
    const LegendPlaces titled = legendPlaces(parts(LegendSide::Right, QSize(20, 14)), low);
    // One entry a column now: 25 + 4 and 32 + 4 and 36, a full last column with its gap.
    EXPECT_EQ(titled.entries, (QList<QPoint>{{112, 22}, {141, 22}, {177, 22}}));
    EXPECT_EQ(titled.title, QPoint(112 + (105 - 20) / 2, 0));
    EXPECT_EQ(titled.page, QSize(112 + 105, 40));
}

TEST(LegendPlaces, narrower_than_their_title_are_centred_below_it)
{
    const LegendPlaces places = legendPlaces({LegendSide::Left, QSize(60, 14), {{25, 14}}}, chart);
    EXPECT_EQ(places.title, QPoint(4, 5));
    EXPECT_EQ(places.entries.constFirst().x(), 4 + (60 - 29) / 2);
    EXPECT_EQ(places.chart.topLeft(), QPoint(4 + 60 + 4 + 12, 5));
}

TEST(LegendPlaces, longer_than_the_chart_move_it_to_their_middle)
{
    const LegendPlaces places =
        legendPlaces({LegendSide::Bottom, {}, {{150, 14}}}, QRect(0, 0, 100, 80));
    EXPECT_EQ(places.entries.constFirst(), QPoint(0, 92));
    EXPECT_EQ(places.chart, QRect(25, 0, 100, 80));
    EXPECT_EQ(places.page.width(), 150 + 2 * 25);
}

TEST(LegendPlaces, without_parts_still_push_the_chart)
{
    const LegendPlaces places = legendPlaces({LegendSide::Top, {}, {}}, QRect(0, 0, 100, 80));
    EXPECT_EQ(places.entries, QList<QPoint>());
    EXPECT_EQ(places.chart, QRect(0, 12, 100, 80));
}

TEST(LegendPlaces, of_huge_charts_end_at_the_largest_int)
{
    const QRect huge(QPoint(0, 0), QPoint(INT_MAX - 1, 79));
    EXPECT_EQ(legendPlaces(parts(LegendSide::Right), huge).entries.constFirst().x(), INT_MAX);
    EXPECT_EQ(legendPlaces(parts(LegendSide::Left), huge).chart.right(), INT_MAX);
}

TEST(PageWithoutLegend, doubles_the_margin)
{
    EXPECT_EQ(pageWithoutLegend(chart), QSize(108, 90));
    EXPECT_EQ(pageWithoutLegend(QRect(QPoint(4, 4), QPoint(INT_MAX, 4))), QSize(INT_MAX, 9));
}
