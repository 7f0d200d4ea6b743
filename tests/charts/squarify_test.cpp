#include "layout/charts/squarify.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>

using namespace ORR::Graph::Layout;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double denormal = std::numeric_limits<double>::denorm_min();

// The method as it is written down: each row is laid out anew for each value that it might take.
QList<QRectF> squarifyAnew(const QList<double> &values, QRectF rect)
{
    QList<QRectF> cells;
    for (qsizetype start = 0; start < values.size();) {
        const qsizetype count = values.size() - start;
        qsizetype k = 1;
        while (k < count
               && !(worstRatio(values, rect, start, k) < worstRatio(values, rect, start, k + 1)))
            ++k;
        cells += rowCells(values, rect, start, k);
        rect = remainingRect(values, rect, start, k);
        start += k;
    }
    return cells;
}

bool sameBits(double a, double b)
{
    return std::bit_cast<quint64>(a) == std::bit_cast<quint64>(b)
        || (std::isnan(a) && std::isnan(b));
}

bool sameBits(const QRectF &a, const QRectF &b)
{
    return sameBits(a.x(), b.x()) && sameBits(a.y(), b.y()) && sameBits(a.width(), b.width())
        && sameBits(a.height(), b.height());
}

testing::AssertionResult sameBits(const QList<QRectF> &a, const QList<QRectF> &b)
{
    if (a.size() != b.size())
        return testing::AssertionFailure() << a.size() << " cells and " << b.size();
    for (qsizetype i = 0; i < a.size(); ++i) {
        if (!sameBits(a.at(i), b.at(i)))
            return testing::AssertionFailure() << "cell " << i << " differs";
    }
    return testing::AssertionSuccess();
}

class Values
{
public:
    // One of several kinds of list, `kind` from 0 to `kinds` - 1.
    static constexpr int kinds = 7;
    QList<double> list(int kind, qsizetype size)
    {
        QList<double> values;
        for (qsizetype i = 0; i < size; ++i)
            values.append(value(kind));
        if (chance() < 0.5)
            std::sort(values.begin(), values.end(), std::greater());
        return values;
    }

    double chance() { return std::uniform_real_distribution(0.0, 1.0)(generator); }
    double powerOf(double base, double lowest, double highest)
    {
        return std::pow(base, std::uniform_real_distribution(lowest, highest)(generator));
    }

private:
    double value(int kind)
    {
        switch (kind) {
        case 0:
            return chance() * 100.0;
        case 1: // many equal ones, and zeros
            return std::floor(chance() * 4.0);
        case 2:
            return powerOf(10.0, -6.0, 6.0);
        case 3:
            return powerOf(10.0, -320.0, 300.0);
        case 4: // around zero
            return chance() * 100.0 - 40.0;
        case 5: // lengths that underflow
            return chance() < 0.3 ? powerOf(10.0, 0.0, 200.0)
                                  : denormal * std::floor(powerOf(10.0, 0.0, 12.0));
        default: {
            const double bad[]{0.0,  -0.0,     infinity, -infinity, notANumber,
                               -1.0, denormal, 1e308,    -1e308,    1e-308};
            return chance() < 0.8 ? chance() * 100.0 : bad[generator() % std::size(bad)];
        }
        }
    }

    std::mt19937 generator{1};
};

} // namespace

TEST(LayoutRow, stands_along_the_left_of_a_wide_rectangle)
{
    EXPECT_EQ(rowCells({6, 2}, {10, 20, 8, 4}), (QList<QRectF>{{10, 20, 2, 3}, {10, 23, 2, 1}}));
}

TEST(LayoutRow, lies_across_the_top_of_a_high_rectangle)
{
    EXPECT_EQ(rowCells({6, 2}, {10, 20, 4, 8}), (QList<QRectF>{{10, 20, 3, 2}, {13, 20, 1, 2}}));
}

TEST(LayoutRow, stands_along_the_left_of_a_square)
{
    EXPECT_EQ(rowCells({4, 4}, {0, 0, 4, 4}), (QList<QRectF>{{0, 0, 2, 2}, {0, 2, 2, 2}}));
}

TEST(LayoutRow, takes_the_values_asked_for)
{
    EXPECT_EQ(rowCells({99, 6, 2, 99}, {0, 0, 8, 4}, 1, 2),
              (QList<QRectF>{{0, 0, 2, 3}, {0, 3, 2, 1}}));
    EXPECT_EQ(rowCells({99, 6, 2}, {0, 0, 8, 4}, 1, -1).size(), 2);
}

TEST(LayoutRow, gives_default_rectangles_where_there_is_no_room)
{
    EXPECT_EQ(rowCells({1, 2, 3}, {5, 5, 0, 10}), QList<QRectF>(3));
}

TEST(WorstRatio, is_that_of_the_longest_or_the_shortest)
{
    EXPECT_EQ(worstRatio({6, 2}, {0, 0, 8, 4}), 2.0); // 2 by 3 and 2 by 1
    EXPECT_EQ(worstRatio({1}, {0, 0, 8, 4}), 16.0); // 1/4 by 4
}

TEST(WorstRatio, passes_over_what_has_no_area)
{
    EXPECT_EQ(worstRatio({4, 0, 4}, {0, 0, 4, 4}), 1.0);
    EXPECT_EQ(worstRatio({0, 0}, {0, 0, 4, 4}), 0.0);
    EXPECT_EQ(worstRatio({4, 4}, {0, 0, 0, 4}), 0.0);
}

TEST(RemainingRect, loses_the_left_of_a_wide_rectangle)
{
    EXPECT_EQ(remainingRect({6, 2}, {10, 20, 8, 4}), QRectF(12, 20, 6, 4));
}

TEST(RemainingRect, loses_the_top_of_a_high_rectangle)
{
    EXPECT_EQ(remainingRect({6, 2}, {10, 20, 4, 8}), QRectF(10, 22, 4, 6));
}

TEST(RemainingRect, stays_as_it_is_without_room_or_without_a_total)
{
    EXPECT_EQ(remainingRect({6, 2}, {10, 20, 0, 4}), QRectF(10, 20, 0, 4));
    EXPECT_EQ(remainingRect({0, 0}, {10, 20, 8, 4}), QRectF(10, 20, 8, 4));
    EXPECT_EQ(remainingRect({-6, 2}, {10, 20, 8, 4}), QRectF(10, 20, 8, 4));
}

// The example of the paper: 6, 6, 4, 3, 2, 2, 1 in a rectangle of 6 by 4.
TEST(Squarify, tiles_the_example_of_the_paper)
{
    const QList<QRectF> cells = squarify({6, 6, 4, 3, 2, 2, 1}, {0, 0, 6, 4});
    ASSERT_EQ(cells.size(), 7);
    EXPECT_EQ(cells.at(0), QRectF(0, 0, 3, 2));
    EXPECT_EQ(cells.at(1), QRectF(0, 2, 3, 2));
    EXPECT_EQ(cells.at(2).topLeft(), QPointF(3, 0)); // 4 and 3 lie across what is left
    EXPECT_EQ(cells.at(3).top(), 0.0);
    EXPECT_DOUBLE_EQ(cells.at(2).height(), 7.0 / 3);
    EXPECT_DOUBLE_EQ(cells.at(3).right(), 6.0);
    for (qsizetype i = 4; i < 7; ++i)
        EXPECT_DOUBLE_EQ(cells.at(i).top(), 7.0 / 3);
}

TEST(Squarify, row_takes_the_next_value_on_equal_ratios)
{
    // One value of 8 in 4 by 4 has a ratio of 2 (2 by 4), and so have two of them (4 by 2).
    EXPECT_EQ(squarify({8, 8}, {0, 0, 4, 4}), (QList<QRectF>{{0, 0, 4, 2}, {0, 2, 4, 2}}));
}

TEST(Squarify, gives_nothing_for_no_values)
{
    EXPECT_EQ(squarify({}, {0, 0, 4, 4}), QList<QRectF>());
    EXPECT_EQ(squarify({1, 2}, {0, 0, 4, 4}, 2, -1), QList<QRectF>());
    EXPECT_EQ(squarify({1, 2}, {0, 0, 4, 4}, 0, 0), QList<QRectF>());
}

TEST(Squarify, takes_the_values_asked_for)
{
    EXPECT_EQ(squarify({99, 8, 8, 99}, {0, 0, 4, 4}, 1, 2), squarify({8, 8}, {0, 0, 4, 4}));
    EXPECT_EQ(squarify({99, 8, 8}, {0, 0, 4, 4}, 1), squarify({8, 8}, {0, 0, 4, 4}));
}

TEST(Squarify, gives_the_cells_of_the_method_to_the_last_bit)
{
    Values values;
    for (int round = 0; round < 4000; ++round) {
        const int kind = round % Values::kinds;
        const QList<double> list = values.list(kind, round % 40);
        const QRectF rect(values.chance() * 10.0, values.chance() * 10.0,
                          values.powerOf(10.0, -2.0, 4.0), values.powerOf(10.0, -2.0, 4.0));
        EXPECT_TRUE(sameBits(squarify(list, rect), squarifyAnew(list, rect)))
            << "round " << round << ", kind " << kind;
    }
}

// Areas that fill their rectangle, as in a drawing.
TEST(Squarify, gives_the_cells_of_the_method_to_the_last_bit_in_a_full_rectangle)
{
    Values values;
    for (int round = 0; round < 300; ++round) {
        const QRectF rect(0, 0, 640, 480);
        QList<double> list = values.list(round % 3, 1 + round);
        std::sort(list.begin(), list.end(), std::greater());
        const double total = std::accumulate(list.cbegin(), list.cend(), 0.0);
        for (double &value : list)
            value = rect.width() * rect.height() * value / total;
        EXPECT_TRUE(sameBits(squarify(list, rect), squarifyAnew(list, rect))) << "round " << round;
    }
}

TEST(Squarify, gives_the_cells_of_the_method_for_rectangles_of_any_kind)
{
    Values values;
    const double sides[]{0.0, -1.0, 1e-300, 1e300, infinity, -infinity, notANumber, denormal, 10.0};
    for (const double width : sides) {
        for (const double height : sides) {
            for (int kind = 0; kind < Values::kinds; ++kind) {
                const QList<double> list = values.list(kind, 12);
                const QRectF rect(0, 0, width, height);
                EXPECT_TRUE(sameBits(squarify(list, rect), squarifyAnew(list, rect)))
                    << width << " by " << height << ", kind " << kind;
            }
        }
    }
}

// Every row of these takes all values, so that a row laid out anew for each would never end.
TEST(Squarify, takes_a_long_row_in_one_pass)
{
    const qsizetype size = 1'000'000;
    EXPECT_EQ(squarify(QList<double>(size, 0.0), {0, 0, 640, 480}).size(), size);
    EXPECT_EQ(squarify(QList<double>(size, -1.0), {0, 0, 640, 480}).size(), size);
    EXPECT_EQ(squarify(QList<double>(size, 1.0), {0, 0, 1e6, 1.0}).size(), size);
    QList<double> tiny;
    for (qsizetype i = 0; i < size; ++i)
        tiny.append(denormal * double(i));
    EXPECT_EQ(squarify(tiny, {0, 0, 640, 480}).size(), size);
}
