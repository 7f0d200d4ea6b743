#include "layout/charts/circle_overlap.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <limits>
#include <random>

using namespace ORR::Graph::Layout;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double part = 1e-4;

using Random = std::mt19937_64;

bool overlapOfAllPairs(const QList<Circle> &circles)
{
    for (qsizetype i = 0; i < circles.size(); ++i) {
        for (qsizetype j = 0; j < i; ++j) {
            const Circle &a = circles.at(i);
            const Circle &b = circles.at(j);
            const double depth = a.r + b.r - std::hypot(a.x - b.x, a.y - b.y);
            if (depth > part * std::min(a.r, b.r))
                return true;
        }
    }
    return false;
}

// Circles strewn over a square, their radii spread evenly over the given powers of ten.
QList<Circle> strewn(Random &random, int count, double side, double powers)
{
    std::uniform_real_distribution<double> coordinate(0.0, side);
    std::uniform_real_distribution<double> exponent(0.0, powers);
    QList<Circle> circles;
    for (int i = 0; i < count; ++i)
        circles.append({coordinate(random), coordinate(random), std::pow(10.0, exponent(random))});
    return circles;
}

// A row of circles that touch, each overlapping the next by `depth` parts of the smaller radius.
QList<Circle> row(int count, double depth)
{
    QList<Circle> circles{{0.0, 5.0, 1.0}};
    for (int i = 1; i < count; ++i) {
        const Circle &last = circles.constLast();
        const double r = 1.0 + i % 7;
        circles.append({last.x + last.r + r - depth * std::min(last.r, r), 5.0, r});
    }
    return circles;
}

} // namespace

TEST(CircleOverlap, none_and_one_overlap_nothing)
{
    EXPECT_FALSE(overlap({}, part));
    EXPECT_FALSE(overlap({{1, 2, 3}}, part));
}

TEST(CircleOverlap, circles_that_touch_do_not_overlap)
{
    EXPECT_FALSE(overlap({{0, 0, 2}, {5, 0, 3}}, part));
    EXPECT_FALSE(overlap({{0, 0, 2}, {3, 4, 3}}, part));
}

TEST(CircleOverlap, the_part_is_one_of_the_smaller_radius)
{
    EXPECT_FALSE(overlap({{0, 0, 1000}, {1000.99991, 0, 1}}, part));
    EXPECT_TRUE(overlap({{0, 0, 1000}, {1000.99989, 0, 1}}, part));
    EXPECT_FALSE(overlap({{0, 0, 1000}, {1000.6, 0, 1}}, 0.5));
    EXPECT_TRUE(overlap({{0, 0, 1000}, {1000.4, 0, 1}}, 0.5));
}

TEST(CircleOverlap, a_circle_within_another_overlaps_it)
{
    EXPECT_TRUE(overlap({{0, 0, 1e6}, {-3e5, 4e5, 1}}, part));
    EXPECT_TRUE(overlap({{-3e5, 4e5, 1}, {0, 0, 1e6}}, part));
    EXPECT_TRUE(overlap({{7, 7, 2}, {7, 7, 2}}, part));
}

TEST(CircleOverlap, boxes_that_overlap_are_not_enough)
{
    EXPECT_FALSE(overlap({{0, 0, 10}, {9, 9, 2}}, part));
}

TEST(CircleOverlap, is_that_of_all_pairs)
{
    Random random(1);
    int overlaps = 0;
    for (int i = 0; i < 6000; ++i) {
        const double powers = i % 7;
        const int count = 1 + i % 60;
        // About as many lists with an overlap as without.
        const double side = std::pow(10.0, powers) * std::sqrt(count) * (0.5 + i % 11);
        const QList<Circle> circles = strewn(random, count, side, powers);
        const bool expected = overlapOfAllPairs(circles);
        overlaps += expected;
        EXPECT_EQ(overlap(circles, part), expected) << i;
    }
    EXPECT_GT(overlaps, 1500);
    EXPECT_LT(overlaps, 4500);
}

TEST(CircleOverlap, finds_one_pair_in_a_long_row)
{
    constexpr int count = 3000;
    EXPECT_FALSE(overlap(row(count, 0.9e-4), part));
    for (const int place : {0, 1, 1499, 1500, 2998}) {
        QList<Circle> circles = row(count, 0.0);
        circles[place].x += 2e-4 * 7; // towards the next one
        EXPECT_TRUE(overlap(circles, part)) << place;
    }
}

TEST(CircleOverlap, does_not_depend_on_the_unit)
{
    for (const double unit : {1e-300, 1e-150, 1e150, 1e300}) {
        EXPECT_FALSE(overlap({{0, 0, 2 * unit}, {3 * unit, 4 * unit, 3 * unit}}, part)) << unit;
        EXPECT_TRUE(overlap({{0, 0, 2 * unit}, {3 * unit, 3 * unit, 3 * unit}}, part)) << unit;
    }
    EXPECT_TRUE(overlap({{1e308, 0, 1e308}, {-1e308, 0, 1.5e308}}, part));
    EXPECT_TRUE(overlap({{0, 0, 1e300}, {5e299, 0, 1}}, part));
}

TEST(CircleOverlap, what_is_no_circle_overlaps_nothing)
{
    for (const double bad : {notANumber, infinity, -infinity, -1.0, 0.0})
        EXPECT_FALSE(overlap({{0, 0, 4}, {0, 0, bad}, {1, 0, bad}, {9, 0, 4}}, part)) << bad;
    for (const double bad : {notANumber, infinity, -infinity})
        EXPECT_FALSE(overlap({{0, 0, 4}, {bad, 0, 4}, {0, bad, 4}, {bad, bad, bad}}, part)) << bad;
    EXPECT_TRUE(overlap({{0, 0, 4}, {notANumber, 0, 4}, {1, 0, 4}}, part));
    EXPECT_FALSE(overlap(QList<Circle>(50, {notANumber, notANumber, notANumber}), part));
}

// All of them take some tenths of a second of the processor's time; the five thousand million pairs
// of one of them would take ten seconds and more.
TEST(CircleOverlap, looks_at_few_pairs_of_very_many_circles)
{
    constexpr int count = 100000;
    const std::clock_t start = std::clock();
    EXPECT_FALSE(overlap(row(count, 0.0), part));

    QList<Circle> sameCorner(count / 2, {9.9e5, 9.9e5, 1e3}); // all in one corner of a large box
    sameCorner.append({0, 0, 1e6});
    for (int i = 0; i < count / 2; ++i)
        sameCorner.append({-1e6 + i, 3e6, 0.4});
    EXPECT_TRUE(overlap(sameCorner, part));

    QList<Circle> aroundOne{{0, 0, 1e6}};
    for (int i = 0; i < count; ++i) {
        const double angle = 2 * std::acos(-1.0) * i / count;
        aroundOne.append({1000020 * std::cos(angle), 1000020 * std::sin(angle), 20});
    }
    EXPECT_FALSE(overlap(aroundOne, part));

    // Small circles in a corner of the boxes of large ones that lie over each other.
    QList<Circle> largeInOnePlace(count / 2, {0, 0, 1e6});
    for (int x = 0; x < 250; ++x) {
        for (int y = 0; y < 200; ++y)
            largeInOnePlace.append({9e5 + 3.0 * x, 9e5 + 3.0 * y, 1});
    }
    EXPECT_TRUE(overlap(largeInOnePlace, part));

    EXPECT_LT(std::clock() - start, 5 * CLOCKS_PER_SEC);
}
