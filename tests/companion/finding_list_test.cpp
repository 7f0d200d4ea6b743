#include "companion/findings/finding_list.h"

#include "companion/sample_findings.h"
#include "support/golden.h"

#include <algorithm>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

QList<qsizetype> offsets(const QList<Finding> &findings)
{
    QList<qsizetype> result;
    for (const Finding &finding : findings)
        result += finding.offset;
    return result;
}

} // namespace

TEST(FindingList, sorts_by_place_and_those_without_one_first)
{
    FindingList list;
    for (const qsizetype offset : {7, 3, -1, 12})
        list.add(findingAt(offset));
    EXPECT_EQ(offsets(list.take()), (QList<qsizetype>{-1, 3, 7, 12}));
    EXPECT_TRUE(list.take().isEmpty());
}

TEST(FindingList, sorts_by_rule_at_one_place)
{
    FindingList list;
    list.add(findingAt(3, -1, misspelt));
    list.add(findingAt(3, -1, broken));
    const QList<Finding> taken = list.take();
    ASSERT_EQ(taken.size(), 2);
    EXPECT_EQ(taken[0].rule, &broken);
    EXPECT_EQ(taken[1].rule, &misspelt);
}

TEST(FindingList, tells_twins_once_and_all_others)
{
    FindingList list;
    Finding other = findingAt(3);
    other.sentence = u"another"_s;
    for (const Finding &finding : {findingAt(3), other, findingAt(3), findingAt(4), findingAt(3)})
        list.add(finding);
    EXPECT_EQ(offsets(list.take()), (QList<qsizetype>{3, 3, 4}));
}

TEST(FindingList, tells_a_hundred_of_a_rule_without_a_rest)
{
    FindingList list;
    for (qsizetype i = 0; i < 100; ++i)
        list.add(findingAt(i));
    EXPECT_EQ(list.take().size(), 100);
}

TEST(FindingList, counts_the_rest_of_each_rule_at_the_end)
{
    FindingList list;
    for (qsizetype i = 0; i < 101; ++i)
        list.add(findingAt(i, -1, misspelt));
    for (qsizetype i = 0; i < 1234; ++i)
        list.add(findingAt(i, -1, broken));
    const QList<Finding> taken = list.take();
    ASSERT_EQ(taken.size(), 100 + 100 + 2);
    EXPECT_EQ(std::count_if(taken.begin(), taken.end(),
                            [](const Finding &finding) { return finding.more > 0; }),
              2);
    EXPECT_EQ(taken[200].rule, &broken);
    EXPECT_EQ(taken[200].more, 1134);
    EXPECT_EQ(taken[200].sentence, u"... and 1134 more"_s);
    EXPECT_EQ(taken[201].rule, &misspelt);
    EXPECT_EQ(taken[201].more, 1);
    EXPECT_EQ(taken[201].offset, -1);
}

TEST(FindingList, keeps_the_first_by_place_whatever_the_order)
{
    FindingList list;
    for (qsizetype i = 999; i >= 0; --i)
        list.add(findingAt(i));
    const QList<Finding> taken = list.take();
    ASSERT_EQ(taken.size(), 101);
    for (qsizetype i = 0; i < 100; ++i)
        EXPECT_EQ(taken[i].offset, i);
    EXPECT_EQ(taken[100].more, 900);
}
