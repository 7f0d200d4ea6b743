#include "layout/graflib/stored_number.h"

#include "graflib_support.h"
#include "graph/attribute_values.h"
#include "graph/numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

using namespace ORR::Graph;

namespace {

double storedNumber(double value)
{
    return Layout::StoredNumber()(value);
}

quint64 bits(double value)
{
    return std::bit_cast<quint64>(value);
}

quint64 bitsThroughText(double value)
{
    return bits(numberFrom(numberText(value)));
}

} // namespace

TEST(StoredNumber, keeps_six_digits)
{
    EXPECT_EQ(storedNumber(123.4567891), 123.457);
    EXPECT_EQ(storedNumber(-0.00123456789), -0.00123457);
    EXPECT_EQ(storedNumber(1234567.0), 1234570.0);
    EXPECT_EQ(storedNumber(999999.6), 1000000.0);
}

TEST(StoredNumber, has_the_bits_of_the_text_for_random_numbers_of_all_sizes)
{
    RandomNumbers random(1);
    for (int i = 0; i < 200'000; ++i) {
        const double digits = random.below(1 << 24) + random.below(1 << 24) / double(1 << 24);
        const double value = digits * std::pow(10.0, random.below(30) - 15) * (i % 2 ? 1 : -1);
        ASSERT_EQ(bits(storedNumber(value)), bitsThroughText(value)) << value;
    }
}

TEST(StoredNumber, has_the_bits_of_the_text_in_the_middle_between_two_texts)
{
    RandomNumbers random(2);
    for (int i = 0; i < 100'000; ++i) {
        const double middle =
            (100'000 + random.below(900'000) + 0.5) * std::pow(10.0, random.below(12) - 6);
        for (const double value :
             {middle, std::nextafter(middle, 0.0), std::nextafter(middle, 1e300)})
            ASSERT_EQ(bits(storedNumber(value)), bitsThroughText(value)) << value;
    }
}

TEST(StoredNumber, has_the_bits_of_the_text_for_halves_and_quarters)
{
    for (int i = 0; i < 4'000'000; i += 37) {
        ASSERT_EQ(bits(storedNumber(i / 8.0)), bitsThroughText(i / 8.0)) << i / 8.0;
        ASSERT_EQ(bits(storedNumber(-i / 4.0)), bitsThroughText(-i / 4.0)) << -i / 4.0;
    }
}

TEST(StoredNumber, goes_from_one_size_to_another)
{
    Layout::StoredNumber stored;
    RandomNumbers random(4);
    for (int i = 0; i < 10'000; ++i) {
        const double value = random.below(1 << 24) * std::pow(10.0, random.below(30) - 20);
        ASSERT_EQ(bits(stored(value)), bitsThroughText(value)) << value;
    }
}

TEST(StoredNumber, passes_on_what_is_no_ordinary_number)
{
    for (const double value :
         {0.0, -0.0, 1e308, -1e308, std::numeric_limits<double>::denorm_min(),
          std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()})
        EXPECT_EQ(bits(storedNumber(value)), bitsThroughText(value)) << value;
    EXPECT_TRUE(std::isnan(storedNumber(std::nan(""))));
}
