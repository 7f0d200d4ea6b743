#include "charts/packing_reference.h"
#include "layout/charts/circle_packing.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <functional>
#include <limits>
#include <random>

using namespace ORR::Graph::Layout;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double mostOverlap = 1e-4; // in parts of the smaller circle's radius

using Random = std::mt19937_64;

QList<PackCircle> circlesOf(const QList<double> &radii)
{
    QList<PackCircle> circles(radii.size());
    for (qsizetype i = 0; i < radii.size(); ++i)
        circles[i].r = radii.at(i);
    return circles;
}

// Radii from 1 to `largest`, spread evenly over the powers of ten.
QList<double> randomRadii(Random &random, qsizetype count, double largest)
{
    std::uniform_real_distribution<double> exponent(0.0, std::log10(largest));
    QList<double> radii;
    for (qsizetype i = 0; i < count; ++i)
        radii.append(std::pow(10.0, exponent(random)));
    return radii;
}

// Whole numbers: many of them equal, many circles touching more than two others.
QList<double> randomWholeRadii(Random &random, qsizetype count, int largest)
{
    std::uniform_int_distribution<int> radius(1, largest);
    QList<double> radii;
    for (qsizetype i = 0; i < count; ++i)
        radii.append(radius(random));
    return radii;
}

double gap(const Circle &a, const Circle &b)
{
    return std::hypot(a.x - b.x, a.y - b.y) - a.r - b.r;
}

// The deepest overlap of two of the circles.
double deepestOverlap(const QList<PackCircle> &circles)
{
    double deepest = 0.0;
    for (qsizetype i = 0; i < circles.size(); ++i) {
        for (qsizetype j = 0; j < i; ++j)
            deepest = std::max(deepest, -gap(circles.at(i), circles.at(j)));
    }
    return deepest;
}

// The same in parts of the smaller circle's radius.
double deepestRelativeOverlap(const QList<PackCircle> &circles)
{
    double deepest = 0.0;
    for (qsizetype i = 0; i < circles.size(); ++i) {
        for (qsizetype j = 0; j < i; ++j)
            deepest = std::max(deepest,
                               -gap(circles.at(i), circles.at(j))
                                   / std::min(circles.at(i).r, circles.at(j).r));
    }
    return deepest;
}

// How far a circle reaches out of the one with the given radius around (0, 0).
double farthestOut(const QList<PackCircle> &circles, double radius)
{
    double farthest = 0.0;
    for (const PackCircle &circle : circles)
        farthest = std::max(farthest, std::hypot(circle.x, circle.y) + circle.r - radius);
    return farthest;
}

bool areFinite(const QList<PackCircle> &circles)
{
    return std::all_of(circles.cbegin(), circles.cend(), [](const PackCircle &circle) {
        return std::isfinite(circle.x) && std::isfinite(circle.y) && std::isfinite(circle.r);
    });
}

bool sameBits(double a, double b)
{
    return std::bit_cast<quint64>(a) == std::bit_cast<quint64>(b);
}

bool sameBits(const QList<PackCircle> &a, const QList<PackCircle> &b)
{
    return std::equal(a.cbegin(), a.cend(), b.cbegin(), b.cend(),
                      [](const PackCircle &p, const PackCircle &q) {
                          return sameBits(p.x, q.x) && sameBits(p.y, q.y) && sameBits(p.r, q.r);
                      });
}

struct Agreement
{
    int good = 0;
    int overlapping = 0; // as they are defined
    int unended = 0;
    int different = 0; // of the good ones
};

// Packs lists as they are defined and as they are built.
Agreement compare(int lists, const std::function<QList<double>(Random &, int)> &radiiOf)
{
    Agreement agreement;
    Random random(1);
    for (int i = 0; i < lists; ++i) {
        const QList<double> radii = radiiOf(random, i);
        QList<PackCircle> defined = circlesOf(radii);
        QList<PackCircle> built = circlesOf(radii);
        const std::optional<double> definedRadius = packAsDefined(defined);
        const double radius = packSiblings(built);
        if (!definedRadius) {
            ++agreement.unended;
            continue;
        }
        if (deepestRelativeOverlap(defined) > mostOverlap) {
            ++agreement.overlapping;
            continue;
        }
        ++agreement.good;
        agreement.different += !sameBits(*definedRadius, radius) || !sameBits(defined, built);
    }
    return agreement;
}

} // namespace

TEST(CirclePacking, no_circle_has_no_radius)
{
    QList<PackCircle> none;
    EXPECT_EQ(packSiblings(none), 0.0);
}

TEST(CirclePacking, one_circle_stays_in_the_middle)
{
    QList<PackCircle> one = circlesOf({7});
    EXPECT_EQ(packSiblings(one), 7.0);
    EXPECT_EQ(one.at(0).x, 0.0);
    EXPECT_EQ(one.at(0).y, 0.0);
}

TEST(CirclePacking, two_circles_lie_on_the_x_axis_and_touch)
{
    QList<PackCircle> two = circlesOf({5, 2});
    EXPECT_EQ(packSiblings(two), 7.0);
    EXPECT_EQ(two.at(0).x, -2.0);
    EXPECT_EQ(two.at(1).x, 5.0);
    EXPECT_EQ(two.at(0).x + two.at(0).r, 5.0 - 2.0);
}

TEST(CirclePacking, three_equal_circles_touch_each_other)
{
    QList<PackCircle> three = circlesOf({1, 1, 1});
    EXPECT_NEAR(packSiblings(three), 1 + 2 / std::sqrt(3.0), 1e-12);
    EXPECT_NEAR(gap(three.at(0), three.at(1)), 0.0, 1e-12);
    EXPECT_NEAR(gap(three.at(1), three.at(2)), 0.0, 1e-12);
    EXPECT_NEAR(gap(three.at(2), three.at(0)), 0.0, 1e-12);
}

TEST(CirclePacking, seven_equal_circles_are_a_flower)
{
    QList<PackCircle> seven = circlesOf({1, 1, 1, 1, 1, 1, 1});
    EXPECT_NEAR(packSiblings(seven), 3.0, 1e-9);
}

TEST(CirclePacking, thousands_of_lists_neither_overlap_nor_leave_their_circle)
{
    Random random(2);
    double overlap = 0.0;
    double out = 0.0;
    for (int i = 0; i < 4000; ++i) {
        QList<PackCircle> circles = circlesOf(i % 2 ? randomRadii(random, 1 + i % 90, 1000.0)
                                                    : randomWholeRadii(random, 1 + i % 90, 30));
        const double radius = packSiblings(circles);
        overlap = std::max(overlap, deepestOverlap(circles));
        out = std::max(out, farthestOut(circles, radius));
    }
    EXPECT_LE(overlap, 1e-6);
    EXPECT_LE(out, 1e-5); // 1e-9 of the radius
}

TEST(CirclePacking, comes_out_as_defined_to_the_last_bit)
{
    const Agreement spread =
        compare(3000, [](Random &random, int i) { return randomRadii(random, 3 + i % 60, 500.0); });
    EXPECT_EQ(spread.different, 0);
    EXPECT_EQ(spread.good, 3000);
    const Agreement whole = compare(3000, [](Random &random, int i) {
        return randomWholeRadii(random, 3 + i % 60, 1 + i % 12);
    });
    EXPECT_EQ(whole.different, 0);
    EXPECT_EQ(whole.good, 3000);
}

// A large circle has room for thousands of small ones around it before any of them is hidden.
TEST(CirclePacking, long_chains_come_out_as_defined_to_the_last_bit)
{
    const Agreement around = compare(2, [](Random &random, int i) {
        QList<double> radii = i ? randomRadii(random, 5000, 2.0) : QList<double>(5000, 1.0);
        radii.prepend(2000.0);
        return radii;
    });
    EXPECT_EQ(around.different, 0);
    EXPECT_EQ(around.good, 2);
    const Agreement falling = compare(2, [](Random &, int i) {
        QList<double> radii;
        for (int k = 0; k < 5000; ++k)
            radii.append(i ? 1.0 + 10000.0 / (1 + k) : 1.0 + 5000.0 / (1 + k % 1000));
        return radii;
    });
    EXPECT_EQ(falling.different, 0);
    EXPECT_EQ(falling.good, 2);
}

TEST(CirclePacking, large_circles_come_out_as_defined_wherever_that_is_good)
{
    const Agreement large =
        compare(3000, [](Random &random, int i) { return randomRadii(random, 3 + i % 20, 1e6); });
    EXPECT_EQ(large.different, 0);
    EXPECT_GT(large.good, 100);
    EXPECT_GT(large.overlapping, 100);
    EXPECT_GT(large.unended, 100);
}

// Next to the larger of two circles the smaller one adds nothing, and a chain of the two is cut
// nowhere and is not left either.
TEST(CirclePacking, circles_of_all_magnitudes_come_out_as_defined_wherever_that_is_good)
{
    const Agreement agreement =
        compare(3000, [](Random &random, int i) { return randomRadii(random, 3 + i % 20, 1e40); });
    EXPECT_EQ(agreement.different, 0);
    EXPECT_GT(agreement.good, 50);
    EXPECT_GT(agreement.overlapping, 100);
    EXPECT_GT(agreement.unended, 100);
}

TEST(CirclePacking, sizes_of_files_that_never_ended_are_packed_without_overlap)
{
    const QList<double> radii{172164, 17159, 166489, 78414};
    QList<PackCircle> defined = circlesOf(radii);
    ASSERT_FALSE(packAsDefined(defined));
    QList<PackCircle> circles = circlesOf(radii);
    const double radius = packSiblings(circles);
    EXPECT_LE(deepestRelativeOverlap(circles), 1e-6);
    EXPECT_LE(farthestOut(circles, radius), 1e-3);
    EXPECT_LE(radius, 2 * 172164 + 17159);
}

TEST(CirclePacking, what_does_not_end_as_defined_does_not_visibly_overlap)
{
    Random random(3);
    int unended = 0;
    double overlap = 0.0;
    double out = 0.0;
    for (int i = 0; i < 3000; ++i) {
        const QList<double> radii = randomRadii(random, 3 + i % 40, i % 2 ? 1e6 : 1e9);
        QList<PackCircle> defined = circlesOf(radii);
        if (packAsDefined(defined))
            continue;
        ++unended;
        QList<PackCircle> circles = circlesOf(radii);
        const double radius = packSiblings(circles);
        overlap = std::max(overlap, deepestOverlap(circles) / radius);
        out = std::max(out, farthestOut(circles, radius) / radius);
    }
    EXPECT_GT(unended, 100);
    EXPECT_LE(overlap, 1e-7);
    EXPECT_LE(out, 1e-8);
}

TEST(CirclePacking, radii_from_one_to_a_million_do_not_overlap)
{
    Random random(5);
    int packedAnew = 0;
    double overlap = 0.0;
    double overlapAnew = 0.0;
    double out = 0.0;
    for (int i = 0; i < 300; ++i) {
        const QList<double> radii = randomRadii(random, 3 + i * 7 % 298, 1e6);
        QList<PackCircle> defined = circlesOf(radii);
        const bool ends = packAsDefined(defined).has_value();
        QList<PackCircle> circles = circlesOf(radii);
        const double radius = packSiblings(circles);
        const double deepest = deepestRelativeOverlap(circles);
        overlap = std::max(overlap, deepest);
        if (!ends || deepestRelativeOverlap(defined) > mostOverlap) {
            ++packedAnew;
            overlapAnew = std::max(overlapAnew, deepest);
        }
        out = std::max(out, farthestOut(circles, radius) / radius);
    }
    EXPECT_GT(packedAnew, 20);
    EXPECT_LE(overlap, mostOverlap);
    EXPECT_LE(overlapAnew, 1e-6);
    EXPECT_LE(out, 1e-8);
}

TEST(CirclePacking, the_order_of_sizes_makes_no_overlap)
{
    Random random(6);
    for (int i = 0; i < 200; ++i) {
        QList<double> radii = randomRadii(random, 3 + i % 120, 1e6);
        std::sort(radii.begin(), radii.end());
        if (i % 2)
            std::reverse(radii.begin(), radii.end());
        QList<PackCircle> circles = circlesOf(radii);
        packSiblings(circles);
        EXPECT_LE(deepestRelativeOverlap(circles), mostOverlap) << i;
    }
}

// Here the shorter way from a new circle to the one that it intersects goes around the outside.
TEST(CirclePacking, the_chain_is_cut_where_the_pocket_is)
{
    const QList<QList<double>> lists{
        {744.04410931073426, 71.533520610846693, 626269.40019003442, 539.18557416961664,
         186.88263426399561, 91.066438913124315, 247426.56080153227},
        {4.0629938952989937, 34.639326896005507, 6.2428319263358683, 11893.492836389118,
         44.034928446318403, 90971.631360889936},
    };
    for (const QList<double> &radii : lists) {
        QList<PackCircle> circles = circlesOf(radii);
        packSiblings(circles);
        EXPECT_LE(deepestRelativeOverlap(circles), 1e-6) << radii.size();
    }
}

// Here a circle lies so deep in the others that a ring of centres tells nothing about pockets.
TEST(CirclePacking, the_chain_is_cut_only_where_that_leaves_nothing_outside)
{
    QList<PackCircle> circles =
        circlesOf({23.843292173501482, 1.6876757867170546, 1278.0363550427335, 370.38325244948783,
                   4969257.8264236366, 763.77740408475881, 16841.195167718161, 1415.4793735009712,
                   31931960.849607032});
    packSiblings(circles);
    EXPECT_LE(deepestRelativeOverlap(circles), 1e-6);
}

// The tolerance of the packing as it is defined is larger than these.
TEST(CirclePacking, tiny_circles_do_not_overlap)
{
    QList<PackCircle> circles = circlesOf(QList<double>(40, 1e-4));
    packSiblings(circles);
    EXPECT_LE(deepestRelativeOverlap(circles), 1e-6);
}

TEST(CirclePacking, radii_that_are_no_sizes_neither_hang_nor_spread)
{
    for (const double bad : {notANumber, infinity, -infinity, -1.0, 0.0, 1e308, 1e-308, 5e-324}) {
        for (int count = 3; count < 9; ++count) {
            for (int place = 0; place < count; ++place) {
                QList<double> radii(count, 4.0);
                radii[place] = bad;
                QList<PackCircle> circles = circlesOf(radii);
                const double radius = packSiblings(circles);
                EXPECT_TRUE(areFinite(circles)) << bad << " at " << place << " of " << count;
                EXPECT_TRUE(std::isfinite(radius)) << bad << " at " << place << " of " << count;
            }
        }
    }
}

TEST(CirclePacking, nothing_but_bad_radii_ends_too)
{
    for (const double bad : {notANumber, infinity, -infinity, -1.0, 0.0, 1e308}) {
        QList<PackCircle> circles = circlesOf(QList<double>(5, bad));
        EXPECT_TRUE(std::isfinite(packSiblings(circles))) << bad;
        EXPECT_TRUE(areFinite(circles)) << bad;
    }
}

TEST(EnclosingCircle, of_no_circles_is_a_point)
{
    EXPECT_EQ(encloseCircles({}).r, 0.0);
}

TEST(EnclosingCircle, of_one_circle_is_that_circle)
{
    const Circle e = encloseCircles({{3, 4, 5}});
    EXPECT_EQ(e.x, 3.0);
    EXPECT_EQ(e.y, 4.0);
    EXPECT_EQ(e.r, 5.0);
}

TEST(EnclosingCircle, of_two_circles_spans_both)
{
    const Circle e = encloseCircles({{0, 0, 1}, {10, 0, 3}});
    EXPECT_DOUBLE_EQ(e.x, 6.0);
    EXPECT_DOUBLE_EQ(e.y, 0.0);
    EXPECT_DOUBLE_EQ(e.r, 7.0);
}

TEST(EnclosingCircle, of_three_equal_circles_touches_them_all)
{
    const Circle e = encloseCircles({{-4, 0, 1}, {4, 0, 1}, {0, 4, 1}});
    EXPECT_NEAR(e.x, 0.0, 1e-9);
    EXPECT_NEAR(e.y, 0.0, 1e-9);
    EXPECT_NEAR(e.r, 5.0, 1e-9);
}

TEST(EnclosingCircle, a_circle_inside_another_changes_nothing)
{
    const Circle e = encloseCircles({{1, 1, 1}, {0, 0, 10}, {-2, 3, 2}});
    EXPECT_EQ(e.r, 10.0);
}

TEST(EnclosingCircle, comes_out_as_defined_wherever_that_ends)
{
    Random random(4);
    std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
    std::uniform_real_distribution<double> radius(0.0, 30.0);
    int different = 0;
    int ended = 0;
    for (int i = 0; i < 4000; ++i) {
        QList<Circle> circles;
        for (int k = 0; k <= i % 50; ++k)
            circles.append({coordinate(random), coordinate(random), radius(random)});
        const std::optional<Circle> defined = encloseAsDefined(circles);
        if (!defined)
            continue;
        ++ended;
        const Circle e = encloseCircles(circles);
        different +=
            !sameBits(e.x, defined->x) || !sameBits(e.y, defined->y) || !sameBits(e.r, defined->r);
    }
    EXPECT_EQ(different, 0);
    EXPECT_GT(ended, 3900);
}

TEST(EnclosingCircle, what_never_ended_is_enclosed_all_the_same)
{
    const QList<QList<Circle>> sets{
        {{0, 0, -1}, {10, 0, 2}, {0, 10, 2}}, // a negative radius
        {{0, 0, notANumber}, {10, 0, 2}, {0, 10, 2}},
        {{0, 0, 0}}, // a point
        {{0, 0, 0}, {6, 0, 0}, {3, 0, 0}},
        {{1e9, 0, 1}, {1e9, 3, 1}, {1e9, 1, 1}, {1e9 + 1, 0.5, 1}}, // far from everything
        {{notANumber, notANumber, notANumber}},
        {{infinity, 0, 1}, {0, 0, 1}},
    };
    for (const QList<Circle> &circles : sets) {
        const Circle e = encloseCircles(circles);
        ASSERT_TRUE(std::isfinite(e.x) && std::isfinite(e.y) && std::isfinite(e.r));
        for (const Circle &circle : circles) {
            const double reach = std::hypot(circle.x - e.x, circle.y - e.y) + circle.r;
            EXPECT_TRUE(!std::isfinite(reach) || reach <= e.r * (1 + 1e-6)) << reach;
        }
    }
}
