#include "tools/manual/roff_page.h"

#include "support/golden.h"

using namespace ORR::Docs;
using namespace Qt::StringLiterals;

namespace {

constexpr auto head = ".TH ORR\\-NEW 1 2026-11-22 \"orrlayout 1.0\" \"User Commands\"\n";

RoffPage newPage()
{
    return RoffPage({u"orr-new"_s, 1, u"2026-11-22"_s, u"orrlayout 1.0"_s});
}

QByteArray behindHead(const RoffPage &page)
{
    EXPECT_TRUE(page.text().startsWith(head)) << page.text().toStdString();
    return page.text().sliced(qsizetype(strlen(head)));
}

} // namespace

TEST(RoffTexts, stand_for_themselves)
{
    EXPECT_EQ(plain(u"a\\b `c^ ~d - it's"_s), u"a\\(rsb \\(gac\\(ha \\(tid - it's"_s);
    EXPECT_EQ(bold(u"--max 'n'"_s), u"\\fB\\-\\-max \\(aqn\\(aq\\fR"_s);
    EXPECT_EQ(italic(u"FILE"_s), u"\\fIFILE\\fR"_s);
}

TEST(RoffTexts, have_what_is_typed_and_what_is_replaced)
{
    EXPECT_EQ(marked(u"`-o` *FILE*, or a*b"_s), u"\\fB\\-o\\fR \\fIFILE\\fR, or a*b"_s);
    EXPECT_EQ(marked(u"`a*b`"_s), u"\\fBa*b\\fR"_s);
    EXPECT_EQ(marked(u""_s), QString());
}

TEST(RoffPage, keeps_texts_from_being_requests)
{
    RoffPage page = newPage();
    page.paragraph(u".dot is a suffix"_s);
    page.paragraph(u"'a' is quoted"_s);
    page.example({u".hidden"_s, u"'quoted' -x"_s});
    EXPECT_EQ(behindHead(page),
              ".PP\n\\&.dot is a suffix\n.PP\n\\&'a' is quoted\n"
              ".PP\n.RS 4\n.nf\n\\&.hidden\n\\&\\(aqquoted\\(aq \\-x\n.fi\n.RE\n");
}

TEST(RoffPage, begins_no_paragraph_behind_a_heading)
{
    RoffPage page = newPage();
    page.heading(u"NAME"_s);
    page.paragraph(u"first"_s);
    page.subheading(u"more"_s);
    page.example({u"code"_s});
    page.paragraph(u"last"_s);
    EXPECT_EQ(behindHead(page),
              ".SH NAME\nfirst\n.SS more\n.RS 4\n.nf\ncode\n.fi\n.RE\n.PP\nlast\n");
}

TEST(RoffPage, wraps_long_lines_at_blanks)
{
    RoffPage page = newPage();
    page.paragraph(QString(u"word "_s).repeated(40) + u".end"_s);
    const QList<QByteArray> lines = behindHead(page).trimmed().split('\n');
    EXPECT_EQ(lines.size(), 4);
    for (const QByteArray &line : lines)
        EXPECT_LE(line.size(), 80);
    EXPECT_EQ(lines.join(' '), ".PP " + QByteArray("word ").repeated(40) + ".end");
}

TEST(Prose, has_paragraphs_terms_bullets_and_code_under_headings)
{
    const QList<ProseSection> sections = readProse(u"Two lines\nof text.\n\n# NOTES\n\n"
                                                   "- `a`: is a term,\n  still\n- is none: `b`\n\n"
                                                   "```\n- code\n\n  as it is\n```\nEnd.\n"_s);
    ASSERT_EQ(sections.size(), 2);
    EXPECT_EQ(sections[0].heading, QString());
    ASSERT_EQ(sections[0].blocks.size(), 1);
    EXPECT_EQ(sections[0].blocks[0].text, u"Two lines of text."_s);
    EXPECT_EQ(sections[1].heading, u"NOTES"_s);
    const QList<ProseBlock> &blocks = sections[1].blocks;
    ASSERT_EQ(blocks.size(), 4);
    EXPECT_EQ(blocks[0].kind, ProseBlock::Term);
    EXPECT_EQ(blocks[0].term, u"a"_s);
    EXPECT_EQ(blocks[0].text, u"is a term, still"_s);
    EXPECT_EQ(blocks[1].kind, ProseBlock::Bullet);
    EXPECT_EQ(blocks[1].text, u"is none: `b`"_s);
    EXPECT_EQ(blocks[2].kind, ProseBlock::Code);
    EXPECT_EQ(blocks[2].code, QStringList({u"- code"_s, u""_s, u"  as it is"_s}));
    EXPECT_EQ(blocks[3].kind, ProseBlock::Paragraph);
    EXPECT_EQ(blocks[3].text, u"End."_s);
}

TEST(RoffPage, writes_prose)
{
    RoffPage page = newPage();
    page.prose(readProse(u"Some `text`.\n\n- `a`: term\n- bullet\n"_s).constFirst().blocks);
    EXPECT_EQ(behindHead(page),
              ".PP\nSome \\fBtext\\fR.\n.TP\n\\fBa\\fR\nterm\n.IP \\(bu 2\nbullet\n");
}
