#include "graph/numbers.h"

#include "support/golden.h"

#include <cmath>

using namespace ORR::Graph;

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

} // namespace

TEST(Numbers, truncation_goes_toward_zero)
{
    EXPECT_EQ(truncated(2.9), 2);
    EXPECT_EQ(truncated(-2.9), -2);
    EXPECT_EQ(truncated(-0.0), 0);
}

TEST(Numbers, truncation_saturates_and_takes_no_number_for_zero)
{
    EXPECT_EQ(truncated(1e308), highest);
    EXPECT_EQ(truncated(-1e308), lowest);
    EXPECT_EQ(truncated(INFINITY), highest);
    EXPECT_EQ(truncated(-INFINITY), lowest);
    EXPECT_EQ(truncated(NAN), 0);
    EXPECT_EQ(truncated(2147483646.5), highest - 1);
    EXPECT_EQ(truncated(2147483647.5), highest);
    EXPECT_EQ(truncated(-2147483648.5), lowest);
}

TEST(Numbers, rounding_adds_a_half_and_truncates)
{
    EXPECT_EQ(rounded(2.4), 2);
    EXPECT_EQ(rounded(2.5), 3);
    EXPECT_EQ(rounded(-2.5), -2);
    EXPECT_EQ(rounded(-0.4), 0);
    EXPECT_EQ(rounded(-1.6), -1);
}

TEST(Numbers, sums_in_64_bits_saturate)
{
    EXPECT_EQ(saturated(qint64(highest) + 1), highest);
    EXPECT_EQ(saturated(qint64(lowest) - 1), lowest);
    EXPECT_EQ(saturated(-7), -7);
    EXPECT_EQ(saturatedPoint(qint64(highest) + 1, qint64(lowest) - 1), QPoint(highest, lowest));
}

TEST(Numbers, the_coordinates_of_a_point_saturate_each_by_itself)
{
    EXPECT_EQ(saturatedPoint(qint64(highest) + 7, -3), QPoint(highest, -3));
    EXPECT_EQ(saturatedPoint(12, qint64(lowest) - 7), QPoint(12, lowest));
}

TEST(Numbers, the_text_of_a_coordinate_is_that_of_the_nearest_int)
{
    EXPECT_EQ(coordinateText(-12), "-12");
    EXPECT_EQ(coordinateText(qint64(highest) + 1), "2147483647");
}
