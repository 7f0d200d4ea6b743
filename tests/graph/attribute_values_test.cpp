#include "graph/attribute_values.h"

#include "support/golden.h"

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
