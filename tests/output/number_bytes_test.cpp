#include "output/number_bytes.h"

#include "graph/numbers.h"
#include "support/golden.h"

#include <array>
#include <cmath>
#include <limits>
#include <random>

using namespace ORR::Graph;

namespace {

QByteArray written(double value)
{
    QByteArray bytes;
    appendNumber(bytes, value);
    return bytes;
}

QByteArray expected(double value)
{
    return numberText(value).toLatin1();
}

} // namespace

TEST(NumberBytes, integers_are_decimal)
{
    QByteArray bytes;
    for (const int value :
         {0, -7, 42, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        std::array<char, longestNumber> text;
        bytes.append(text.data(), writeNumber(text.data(), value) - text.data()).append(' ');
    }
    EXPECT_EQ(bytes, QByteArray("0 -7 42 2147483647 -2147483648 "));
}

TEST(NumberBytes, whole_doubles_have_no_point)
{
    EXPECT_EQ(written(3.0), QByteArray("3"));
    EXPECT_EQ(written(-120.0), QByteArray("-120"));
    EXPECT_EQ(written(999999.0), QByteArray("999999"));
}

TEST(NumberBytes, doubles_have_six_digits_at_most)
{
    EXPECT_EQ(written(128 / 255.0), QByteArray("0.501961"));
    EXPECT_EQ(written(12.5), QByteArray("12.5"));
    EXPECT_EQ(written(-0.05), QByteArray("-0.05"));
    EXPECT_EQ(written(1234.5678), QByteArray("1234.57"));
}

TEST(NumberBytes, large_and_small_ones_have_an_exponent)
{
    EXPECT_EQ(written(1e6), QByteArray("1e+06"));
    EXPECT_EQ(written(999999.5), QByteArray("1e+06"));
    EXPECT_EQ(written(-2.5e-5), QByteArray("-2.5e-05"));
}

TEST(NumberBytes, minus_zero_and_no_numbers_are_as_the_slow_way_writes_them)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(written(-0.0), QByteArray("0"));
    EXPECT_EQ(written(std::nan("")), QByteArray("nan"));
    EXPECT_EQ(written(infinity), QByteArray("inf"));
    EXPECT_EQ(written(-infinity), QByteArray("-inf"));
}

TEST(NumberBytes, agrees_with_the_slow_way_in_the_middle_between_two_texts)
{
    for (const double value :
         {100000.5, 123456.5, 10000.25, 10000.75, 1000.125, 100.0625, 10.03125, 1.015625, 99999.95,
          999999.5, 0.1, 0.01, 0.001, 0.0001, 9.9999995, 0.99999949999, 0.099999951}) {
        for (const double near : {value, std::nextafter(value, 0.0), std::nextafter(value, 1e9)}) {
            EXPECT_EQ(written(near), expected(near));
            EXPECT_EQ(written(-near), expected(-near));
        }
    }
}

TEST(NumberBytes, agrees_with_the_slow_way_at_every_magnitude)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
    std::uniform_int_distribution<int> exponent(-7, 8);
    for (int i = 0; i < 100000; ++i) {
        const double value = mantissa(random) * std::pow(10.0, exponent(random));
        ASSERT_EQ(written(value), expected(value));
    }
}

TEST(NumberBytes, agrees_with_the_slow_way_on_binary_fractions)
{
    for (int i = 1; i < 50000; ++i) {
        const double value = i * 7 / 64.0;
        ASSERT_EQ(written(value), expected(value));
    }
}
