#include "companion/findings/locate.h"

#include "companion/sample_findings.h"
#include "support/golden.h"

using namespace ORR::Companion;

namespace {

QList<Finding> locatedIn(const QByteArray &bytes, const QList<Finding> &findings)
{
    ORR::Graph::SourceText text(bytes);
    return located(findings, &text);
}

Finding locatedIn(const QByteArray &bytes, qsizetype offset, qsizetype end = -1)
{
    return locatedIn(bytes, {findingAt(offset, end)}).first();
}

} // namespace

TEST(Located, counts_lines_and_characters_from_1)
{
    const Finding finding = locatedIn("ab\n\xc3\xa4\xf0\x9f\x8e\x88xyz\n", 9, 12);
    EXPECT_EQ(finding.line, 2);
    EXPECT_EQ(finding.column, 3);
    EXPECT_EQ(finding.endLine, 2);
    EXPECT_EQ(finding.endColumn, 6);
}

TEST(Located, takes_offsets_behind_normalised_line_ends)
{
    const Finding finding = locatedIn("a\r\nb\rc", 4);
    EXPECT_EQ(finding.line, 3);
    EXPECT_EQ(finding.column, 1);
    EXPECT_EQ(finding.endLine, 0);
}

TEST(Located, leaves_what_has_no_place)
{
    const Finding finding = locatedIn("abc", -1);
    EXPECT_EQ(finding.line, 0);
    EXPECT_EQ(finding.column, 0);
    EXPECT_EQ(finding.excerpt.bytes, "");
}

TEST(Located, finds_overlapping_places_in_one_go)
{
    const QList<Finding> found =
        locatedIn("a\nb\nc\nd", {findingAt(0, 7), findingAt(2, 3), findingAt(4, 7)});
    EXPECT_EQ(found[0].endLine, 4);
    EXPECT_EQ(found[1].line, 2);
    EXPECT_EQ(found[1].endColumn, 2);
    EXPECT_EQ(found[2].line, 3);
    EXPECT_EQ(found[2].endLine, 4);
}

TEST(Located, takes_the_line_along)
{
    const SourceExcerpt excerpt = locatedIn("one\ntwo three\nfour", 8).excerpt;
    EXPECT_EQ(excerpt.bytes, "two three");
    EXPECT_EQ(excerpt.place, 4);
    EXPECT_FALSE(excerpt.cutBefore);
    EXPECT_FALSE(excerpt.cutBehind);
}

TEST(Located, has_a_place_at_the_end_of_the_text)
{
    const Finding finding = locatedIn("ab\ncd", 5, 5);
    EXPECT_EQ(finding.line, 2);
    EXPECT_EQ(finding.column, 3);
    EXPECT_EQ(finding.excerpt.bytes, "cd");
    EXPECT_EQ(finding.excerpt.place, 2);
    EXPECT_EQ(locatedIn("", 0, 0).line, 1);
}

TEST(Located, cuts_a_long_line_between_characters)
{
    // Four bytes a character, and a place that is 60 bytes behind the middle of one.
    const QByteArray balloons = QByteArray("\xf0\x9f\x8e\x88").repeated(40);
    const SourceExcerpt excerpt = locatedIn(balloons + "ab" + balloons, 161).excerpt;
    EXPECT_TRUE(excerpt.cutBefore);
    EXPECT_TRUE(excerpt.cutBehind);
    EXPECT_EQ(excerpt.bytes,
              QByteArray("\xf0\x9f\x8e\x88").repeated(14) + "ab"
                  + QByteArray("\xf0\x9f\x8e\x88").repeated(14));
    EXPECT_EQ(excerpt.bytes.sliced(excerpt.place, 1), "b");
}

TEST(Located, cuts_a_line_of_no_characters)
{
    const SourceExcerpt excerpt = locatedIn(QByteArray(1000, '\x80'), 500).excerpt;
    EXPECT_LE(excerpt.bytes.size(), 120);
    EXPECT_LE(excerpt.place, excerpt.bytes.size());
}
