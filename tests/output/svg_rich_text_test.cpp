#include "drawn.h"
#include "support/golden.h"

#include <QColor>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QByteArray richAt(QPoint topLeft, const QString &html, const QString &color)
{
    return drawn<SvgRichText>([&](Svg &device) {
        device.drawRichText(topLeft,
                            device.text(html, device.font(u"Arial"_s, 10, 0), device.color(color)));
    });
}

} // namespace

TEST(SvgRichText, the_document_becomes_a_group_at_its_place)
{
    EXPECT_TRUE(matchesGolden(richAt({7, -8}, u"plain <b>bold</b> <i>italic</i>"_s, u"#000000"_s),
                              QStringLiteral(ORR_TEST_FOLDER "/golden/rich_text.svg.part")));
}

TEST(SvgRichText, the_group_is_balanced_and_has_nothing_of_a_second_drawing)
{
    const QByteArray bytes =
        richAt({0, 0}, u"<b>a</b><hr><table border=1><td>b</table>"_s, u"red"_s);
    EXPECT_TRUE(isWellFormed(bytes));
    EXPECT_TRUE(bytes.startsWith(" <g transform=\"translate(0,0)\">\n"));
    EXPECT_TRUE(bytes.endsWith("</g>\n"));
    for (const char *name : {"<svg", "</svg", "<title", "<desc", "<?xml"})
        EXPECT_FALSE(bytes.contains(name)) << name;
}

TEST(SvgRichText, an_empty_document_gives_no_group)
{
    EXPECT_EQ(richAt({0, 0}, QString(), u"red"_s), QByteArray());
    EXPECT_EQ(richAt({0, 0}, u"<b></b>"_s, u"red"_s), QByteArray());
}

TEST(SvgRichText, a_null_text_gives_no_group)
{
    EXPECT_EQ(drawn<SvgRichText>([](Svg &device) {
                  device.drawRichText({0, 0}, nullptr);
              }),
              QByteArray());
}

TEST(SvgRichText, colours_differ_in_paint_only)
{
    const QString html = u"some <u>text</u>"_s;
    QByteArray red = richAt({0, 0}, html, u"#FF0000"_s);
    const QByteArray black = richAt({0, 0}, html, u"#000000"_s);
    EXPECT_NE(red, black);
    EXPECT_EQ(red.replace("#ff0000", "#000000"), black);
}

TEST(SvgRichText, an_alpha_reaches_the_text)
{
    EXPECT_TRUE(richAt({0, 0}, u"a"_s, u"#FF000080"_s).contains("fill-opacity=\"0.50"));
}

TEST(SvgRichText, a_text_without_colour_is_black)
{
    const QByteArray bytes = drawn<SvgRichText>([](Svg &device) {
        device.drawRichText({0, 0}, device.text(u"a"_s, device.font(u"Arial"_s, 10, 0), nullptr));
    });
    EXPECT_EQ(bytes, richAt({0, 0}, u"a"_s, u"black"_s));
}

TEST(SvgRichText, the_same_text_gives_the_same_group)
{
    const QString html = u"<b>a</b> <span style='background:yellow'>b</span>"_s;
    EXPECT_EQ(richAt({1, 2}, html, u"blue"_s), richAt({1, 2}, html, u"blue"_s));
}

TEST(SvgRichText, an_image_declares_the_links_that_it_uses)
{
    const QByteArray bytes = richAt(
        {0, 0},
        u"<img src='data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42"
        "mNk+M9QDwADhgGAWjR9awAAAABJRU5ErkJggg=='>"_s,
        u"blue"_s);
    EXPECT_EQ(bytes.count("<image"), 1);
    EXPECT_TRUE(isWellFormed(bytes));
}

TEST(SvgRichText, characters_that_xml_forbids_do_not_end_the_text)
{
    const QByteArray bytes = richAt({0, 0}, u"before &#1;<b>behind</b>"_s, u"blue"_s);
    EXPECT_TRUE(bytes.contains("behind"));
    EXPECT_TRUE(isWellFormed(bytes));
}
