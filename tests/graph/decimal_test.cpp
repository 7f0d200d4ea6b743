#include "graph/decimal.h"

#include "graph/numbers.h"
#include "support/golden.h"

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <random>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QByteArray written(double value)
{
    QByteArray bytes;
    appendNumber(bytes, value);
    return bytes;
}

QByteArray expected(double value)
{
    return QByteArray::number(value, 'g', 6);
}

quint64 bits(double value)
{
    return std::bit_cast<quint64>(value);
}

// At the edges of every rule.
constexpr std::array edges{
    0.0,
    -0.0,
    1.0,
    -1.0,
    0.5,
    1e-4,
    9.999995e-5,
    9.99999e-5,
    1e-5,
    999999.0,
    999999.4,
    999999.5,
    999999.6,
    1e6,
    1234567.0,
    1e11,
    999999.5e6,
    1e12,
    1e15,
    1e16,
    1e22,
    1e23,
    1e300,
    -1e300,
    5e-324,
    1e-300,
    2.2250738585072014e-308,
    1.7976931348623157e308,
    1.0 / 3,
    2.0 / 3,
    infinity,
    -infinity,
};

} // namespace

TEST(Decimal, integers_are_decimal)
{
    QByteArray bytes;
    for (const int value :
         {0, -7, 42, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        std::array<char, longestNumber> text;
        bytes.append(text.data(), writeNumber(text.data(), value) - text.data()).append(' ');
    }
    EXPECT_EQ(bytes, QByteArray("0 -7 42 2147483647 -2147483648 "));
}

TEST(Decimal, whole_doubles_have_no_point)
{
    EXPECT_EQ(written(3.0), QByteArray("3"));
    EXPECT_EQ(written(-120.0), QByteArray("-120"));
    EXPECT_EQ(written(999999.0), QByteArray("999999"));
}

TEST(Decimal, doubles_have_six_digits_at_most)
{
    EXPECT_EQ(written(128 / 255.0), QByteArray("0.501961"));
    EXPECT_EQ(written(12.5), QByteArray("12.5"));
    EXPECT_EQ(written(-0.05), QByteArray("-0.05"));
    EXPECT_EQ(written(1234.5678), QByteArray("1234.57"));
}

TEST(Decimal, large_and_small_ones_have_an_exponent)
{
    EXPECT_EQ(written(1e6), QByteArray("1e+06"));
    EXPECT_EQ(written(999999.5), QByteArray("1e+06"));
    EXPECT_EQ(written(-2.5e-5), QByteArray("-2.5e-05"));
}

TEST(Decimal, minus_zero_and_no_numbers_are_as_the_slow_way_writes_them)
{
    EXPECT_EQ(written(-0.0), QByteArray("0"));
    EXPECT_EQ(written(std::nan("")), QByteArray("nan"));
    EXPECT_EQ(written(infinity), QByteArray("inf"));
    EXPECT_EQ(written(-infinity), QByteArray("-inf"));
}

TEST(Decimal, agrees_with_the_slow_way_in_the_middle_between_two_texts)
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

TEST(Decimal, agrees_with_the_slow_way_at_every_magnitude)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
    std::uniform_int_distribution<int> exponent(-7, 8);
    for (int i = 0; i < 100000; ++i) {
        const double value = mantissa(random) * std::pow(10.0, exponent(random));
        ASSERT_EQ(written(value), expected(value));
    }
}

TEST(Decimal, agrees_with_the_slow_way_on_binary_fractions)
{
    for (int i = 1; i < 50000; ++i) {
        const double value = i * 7 / 64.0;
        ASSERT_EQ(written(value), expected(value));
    }
}

TEST(Decimal, agrees_with_the_slow_way_at_the_edges)
{
    for (const double value : edges) {
        EXPECT_EQ(written(value), expected(value));
        EXPECT_EQ(numberText(value).toLatin1(), expected(value));
        EXPECT_LE(written(value).size(), longestNumber);
    }
}

TEST(Decimal, texts_of_attributes_have_six_significant_digits)
{
    EXPECT_EQ(numberText(0), u"0"_s);
    EXPECT_EQ(numberText(-0.0), u"0"_s);
    EXPECT_EQ(numberText(1.0 / 3), u"0.333333"_s);
    EXPECT_EQ(numberText(123456.7), u"123457"_s);
    EXPECT_EQ(numberText(1000000), u"1e+06"_s);
    EXPECT_EQ(numberText(1234567), u"1.23457e+06"_s);
    EXPECT_EQ(numberText(0.00001), u"1e-05"_s);
    EXPECT_EQ(numberText(-1e300), u"-1e+300"_s);
    EXPECT_EQ(numberText(std::nan("")), u"nan"_s);
    EXPECT_EQ(numberText(infinity), u"inf"_s);
}

TEST(Decimal, exact_texts_are_those_of_the_toolkit)
{
    const auto expectSame = [](double value) {
        EXPECT_EQ(exactNumberText(value), QByteArray::number(value, 'g', 17));
    };
    for (const double value : edges)
        expectSame(value);
    std::mt19937_64 random(17);
    for (int i = 0; i < 100000; ++i) {
        const quint64 pattern = random();
        expectSame(std::bit_cast<double>(pattern)); // of any magnitude
        expectSame(double(qint64(pattern % 2000000) - 1000000) / 72.0);
        expectSame(double(pattern % 100000) / 1000.0);
        // Nearly all of 18 digits, the last of them 5, lie in the middle of two texts.
        expectSame(double(pattern % 1000000) / (1 << (pattern % 20)));
        expectSame(double(pattern % 134217728) / 131072.0);
    }
}

TEST(Decimal, exact_texts_tell_every_double_apart)
{
    EXPECT_EQ(exactNumberText(11 / 72.0), "0.15277777777777779"_ba);
    EXPECT_EQ(exactNumberText(1e6), "1000000"_ba);
    EXPECT_EQ(exactNumberText(0.1), "0.10000000000000001"_ba);
    for (const double value : edges) {
        if (std::isfinite(value) && value != 0.0) {
            EXPECT_EQ(bits(QByteArray(exactNumberText(value)).toDouble()), bits(value));
        }
    }
}

TEST(Decimal, what_is_no_number_reads_0_and_what_is_too_large_infinite)
{
    for (const char *text : {"", "-", ".", "a", "1,5", "1.2.3", "0x10"}) {
        EXPECT_EQ(numberFrom(QByteArrayView(text)), 0.0) << text;
        EXPECT_EQ(numberFrom(QString::fromLatin1(text)), 0.0) << text;
    }
    EXPECT_EQ(numberFrom("1e999"_ba), infinity);
    EXPECT_EQ(numberFrom("-1e999"_ba), -infinity);
    EXPECT_EQ(numberFrom(u"1e999"_s), infinity);
}

TEST(Decimal, bytes_read_as_texts_do)
{
    for (const char *text :
         {"1.5", "-0.25", "-0", " 1 ", "+5", "5.", ".5", "1e5", "nan", "inf", "123456789012345",
          "1234567890123456", "0.00000000000001", "\xc3\xbc"}) {
        EXPECT_EQ(bits(numberFrom(QByteArrayView(text))), bits(numberFrom(QString::fromUtf8(text))))
            << text;
    }
}

TEST(Decimal, a_stored_number_is_what_its_text_reads)
{
    EXPECT_EQ(numberThroughText(123.4567891), 123.457);
    EXPECT_EQ(numberThroughText(999999.6), 1000000.0);
    EXPECT_EQ(numberThroughText(1234567.0), 1234570.0);
    EXPECT_TRUE(std::isnan(numberThroughText(std::nan(""))));
    const auto same = [](double value) {
        return bits(numberThroughText(value)) == bits(expected(value).toDouble())
            && bits(numberThroughText(-value)) == bits(expected(-value).toDouble());
    };
    for (const double value : edges) {
        if (std::isfinite(value) && value != 0.0) {
            EXPECT_TRUE(same(value)) << value;
        }
    }
    std::mt19937 random(2);
    std::uniform_real_distribution<double> exponent(-6.0, 14.0);
    for (int i = 0; i < 100000; ++i) {
        const double value = std::pow(10.0, exponent(random));
        ASSERT_TRUE(same(value)) << value;
    }
}
