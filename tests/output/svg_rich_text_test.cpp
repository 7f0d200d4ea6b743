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

// The text elements of the group, each with its paint and font.
QStringList textsOf(const QByteArray &group)
{
    QStringList texts;
    QXmlStreamReader reader(group);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement || reader.name() != "text"_L1)
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        texts +=
            u"%1 %2 %3: %4"_s.arg(attributes.value(u"fill"_s), attributes.value("font-weight"_L1),
                                  attributes.value("font-style"_L1), reader.readElementText());
    }
    return texts;
}

QList<double> attributesOf(const QByteArray &group, const QString &name)
{
    QList<double> values;
    QXmlStreamReader reader(group);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == "text"_L1)
            values += reader.attributes().value(name).toDouble();
    }
    return values;
}

} // namespace

TEST(SvgRichText, the_document_becomes_a_group_at_its_place)
{
    const QByteArray bytes = richAt({7, -8}, u"plain <b>bold</b><i>slanted</i>"_s, u"blue"_s);
    EXPECT_TRUE(bytes.startsWith(" <g transform=\"translate(7,-8)\">\n")) << bytes.toStdString();
    EXPECT_EQ(textsOf(bytes),
              QStringList({u"#0000ff 400 normal: plain "_s, u"#0000ff 700 normal: bold"_s,
                           u"#0000ff 400 italic: slanted"_s}));
}

TEST(SvgRichText, lines_lie_below_each_other)
{
    const QByteArray bytes = richAt({0, 0}, u"one<br>two"_s, u"blue"_s);
    const QList<double> baselines = attributesOf(bytes, u"y"_s);
    ASSERT_EQ(baselines.size(), 2);
    EXPECT_GT(baselines.at(0), 5.0);
    EXPECT_GT(baselines.at(1), baselines.at(0) + 9.0);
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
    EXPECT_TRUE(bytes.contains(">behind</text>"));
    EXPECT_TRUE(isWellFormed(bytes));
}

TEST(SvgRichText, a_text_beyond_the_limits_is_drawn_as_its_plain_text)
{
    const QString nested = u"<table><tr><td>"_s.repeated(22) + u"deep<br>and &lt;deeper&gt;"_s;
    EXPECT_EQ(richAt({7, 8}, nested, u"blue"_s), drawn([](Svg &device) {
                  device.drawText({7, 8},
                                  device.text(u"deep\nand <deeper>"_s,
                                              device.font(u"Arial"_s, 10, 0),
                                              device.color(u"blue"_s)));
              }));
}

TEST(SvgRichText, the_rich_texts_of_a_drawing_share_a_budget)
{
    const QString dear = u"<table><tr><td colspan=5000>a</table>"_s;
    const QByteArray bytes = drawn<SvgRichText>([&](Svg &device) {
        Device::Text *text =
            device.text(dear, device.font(u"Arial"_s, 10, 0), device.color(u"blue"_s));
        for (int i = 0; i < 100; ++i)
            device.drawRichText({0, 0}, text);
    });
    const qsizetype rich = bytes.count("<g transform=\"translate(");
    EXPECT_GT(rich, 5);
    EXPECT_LT(rich, 30);
    EXPECT_EQ(bytes.count("<text x=\"0\""), 100 - rich);
}
