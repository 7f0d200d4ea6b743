#include "graph/attribute_values.h"

#include "support/golden.h"

#include <bit>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

TEST(AttributeValues, what_does_not_parse_is_zero)
{
    EXPECT_EQ(numberFrom(u"1.5"_s), 1.5);
    EXPECT_EQ(numberFrom(u"1,5"_s), 0.0);
    EXPECT_EQ(numberFrom(u""_s), 0.0);
    EXPECT_EQ(integerFrom(u"7"_s), 7);
    EXPECT_EQ(integerFrom(u"7.0"_s), 0);
    EXPECT_EQ(integerFrom(u"99999999999"_s), 0);
}

TEST(AttributeValues, inches_become_points)
{
    EXPECT_EQ(pointsFromInches(u"0.25"_s), 18.0);
}

TEST(AttributeValues, a_list_counts_by_its_first_and_last_number)
{
    const auto expectPair = [](const QString &text, double first, double last) {
        const NumberPair pair = numberPairFrom(text);
        EXPECT_EQ(pair.first, first) << text.toStdString();
        EXPECT_EQ(pair.last, last) << text.toStdString();
    };
    expectPair(u"3"_s, 3, 3);
    expectPair(u"3,8"_s, 3, 8);
    expectPair(u"3,5,8"_s, 3, 8);
    expectPair(u",8"_s, 0, 8);
    expectPair(u"3,"_s, 3, 0);
    expectPair(u""_s, 0, 0);
    expectPair(u" 3 , 8 "_s, 3, 8);
    EXPECT_EQ(pointPairFromInches(u"0.5,1"_s).first, 36.0);
    EXPECT_EQ(pointPairFromInches(u"0.5,1"_s).last, 72.0);
}

TEST(AttributeValues, a_number_has_the_bits_that_the_toolkit_reads)
{
    const auto bits = [](double value) { return std::bit_cast<quint64>(value); };
    const auto same = [&](const QString &text) {
        return bits(numberFrom(text)) == bits(text.toDouble());
    };
    for (const char *odd : {"",
                            "-",
                            ".",
                            "-.",
                            ".5",
                            "5.",
                            "-.5",
                            "+5",
                            "--5",
                            "0",
                            "-0",
                            "-0.0",
                            "00012.50",
                            "1.2.3",
                            " 1",
                            "1 ",
                            "1,5",
                            "1e5",
                            "1E-5",
                            "-1e+06",
                            "nan",
                            "inf",
                            "-inf",
                            "0x10",
                            "1_0",
                            "99999999999999",
                            "999999999999999",
                            "9999999999999999",
                            "0.00000000000001",
                            "0.000000000000001",
                            "123456789.123456789",
                            "4503599627370497.5"})
        EXPECT_TRUE(same(QString::fromLatin1(odd))) << odd;

    quint32 state = 1;
    for (int i = 0; i < 100'000; ++i) {
        state = state * 1664525u + 1013904223u;
        const double value = (state / 4294967296.0 - 0.5) * (i % 3 ? 2e3 : 2e9);
        const int digits = 1 + i % 17;
        ASSERT_TRUE(same(QString::number(value, 'g', digits))) << value << ' ' << digits;
        ASSERT_TRUE(same(QString::number(value, 'f', digits % 8))) << value << ' ' << digits;
    }
}
