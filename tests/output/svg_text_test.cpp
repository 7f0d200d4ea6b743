#include "drawn.h"
#include "support/golden.h"

#include <limits>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QByteArray textAt(QPoint topLeft, const QString &string, const QString &color = u"#000000"_s,
                  int style = 0, const QString &family = u"Arial"_s)
{
    return drawn([&](Svg &device) {
        device.drawText(topLeft,
                        device.text(string, device.font(family, 10, style), device.color(color)));
    });
}

QByteArray oneLine(const QByteArray &content)
{
    return " <text x=\"3\" y=\"14\" fill=\"#000000\" font-family=\"Arial\" font-size=\"10\""
        + content + "</text>\n";
}

// The text that plain SVG draws for the HTML, with the backslashes and all.
QString reduced(const QString &html)
{
    const QByteArray bytes = document<Svg>([&](Svg &device) {
        device.drawRichText({0, 0}, device.text(html, nullptr, device.color(u"red"_s)));
    });
    QXmlStreamReader reader(bytes);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == "text"_L1)
            return reader.readElementText(QXmlStreamReader::IncludeChildElements);
    }
    return u"no text"_s;
}

} // namespace

TEST(SvgText, the_baseline_lies_a_font_size_below_the_top)
{
    EXPECT_EQ(textAt({3, 4}, u"label"_s), oneLine(">label"));
}

TEST(SvgText, markup_is_escaped)
{
    EXPECT_EQ(textAt({3, 4}, u"a<b> & \"c\" 'd'"_s),
              oneLine(">a&lt;b&gt; &amp; &quot;c&quot; 'd'"));
}

TEST(SvgText, beyond_ascii_it_is_utf_8)
{
    EXPECT_EQ(textAt({3, 4}, u"\u00e9 \U0001F600"_s), oneLine(">\xC3\xA9 \xF0\x9F\x98\x80"));
}

TEST(SvgText, the_empty_text_is_an_element)
{
    EXPECT_EQ(textAt({3, 4}, QString()), oneLine(">"));
}

TEST(SvgText, leading_blanks_are_preserved)
{
    EXPECT_EQ(textAt({3, 4}, u"  a"_s), oneLine(" xml:space='preserve'>  a"));
    EXPECT_EQ(textAt({3, 4}, u"\ta"_s), oneLine(" xml:space='preserve'>\ta"));
    EXPECT_EQ(textAt({3, 4}, u"a  "_s), oneLine(">a  "));
}

TEST(SvgText, a_carriage_return_is_text)
{
    EXPECT_EQ(textAt({3, 4}, u"a\rb"_s), oneLine(">a\rb"));
}

TEST(SvgText, lines_are_spans_a_font_size_apart)
{
    EXPECT_EQ(textAt({3, 4}, u"a\nb"_s),
              QByteArray(" <text fill=\"#000000\" font-family=\"Arial\" font-size=\"10\">\n"
                         "  <tspan x=\"3\" y=\"14\">a</tspan>\n"
                         "  <tspan x=\"3\" y=\"24\">b</tspan></text>\n"));
}

TEST(SvgText, empty_lines_are_kept_and_blanks_preserved_for_each_line)
{
    EXPECT_EQ(textAt({3, 4}, u" a\n\n\tb\n"_s),
              QByteArray(" <text fill=\"#000000\" font-family=\"Arial\" font-size=\"10\">\n"
                         "  <tspan x=\"3\" y=\"14\" xml:space='preserve'> a</tspan>\n"
                         "  <tspan x=\"3\" y=\"24\"></tspan>\n"
                         "  <tspan x=\"3\" y=\"34\" xml:space='preserve'>\tb</tspan>\n"
                         "  <tspan x=\"3\" y=\"44\"></tspan></text>\n"));
}

TEST(SvgText, no_opacity_is_written)
{
    EXPECT_EQ(textAt({0, 0}, u"a"_s, u"#FF000080"_s),
              QByteArray(" <text x=\"0\" y=\"10\" fill=\"#ff0000\" font-family=\"Arial\""
                         " font-size=\"10\">a</text>\n"));
}

TEST(SvgText, a_text_without_colour_has_no_fill)
{
    const QByteArray bytes = drawn([](Svg &device) {
        device.drawText({0, 0}, device.text(u"a"_s, nullptr, nullptr));
    });
    EXPECT_EQ(bytes,
              QByteArray(" <text x=\"0\" y=\"12\" fill=\"none\" font-family=\"Arial\""
                         " font-size=\"12\">a</text>\n"));
}

TEST(SvgText, a_text_without_font_takes_the_default_one)
{
    const QByteArray bytes = drawn([](Svg &device) {
        Device::Text text(u"a"_s, nullptr, nullptr);
        device.drawText({0, 0}, &text);
        device.drawText({0, 0}, nullptr);
    });
    EXPECT_EQ(bytes,
              QByteArray(" <text x=\"0\" y=\"12\" fill=\"none\" font-family=\"Arial\""
                         " font-size=\"12\">a</text>\n"));
}

TEST(SvgText, bold_and_italic_follow_the_size)
{
    const QByteArray start =
        " <text x=\"0\" y=\"10\" fill=\"#000000\" font-family=\"Arial\" font-size=\"10\"";
    EXPECT_EQ(textAt({0, 0}, u"a"_s, u"black"_s, Device::Font::Bold),
              start + " font-weight=\"bold\">a</text>\n");
    EXPECT_EQ(textAt({0, 0}, u"a"_s, u"black"_s, Device::Font::Italic),
              start + " font-style=\"italic\">a</text>\n");
    EXPECT_EQ(textAt({0, 0}, u" a"_s, u"black"_s, 3),
              start
                  + " font-weight=\"bold\" font-style=\"italic\" xml:space='preserve'> a</text>\n");
}

TEST(SvgText, a_font_family_is_escaped)
{
    EXPECT_EQ(textAt({0, 0}, u"a"_s, u"black"_s, 0, u"A\"><B & C\u0001"_s),
              QByteArray(" <text x=\"0\" y=\"10\" fill=\"#000000\""
                         " font-family=\"A&quot;&gt;&lt;B &amp; C\" font-size=\"10\">a</text>\n"));
}

TEST(SvgText, what_xml_forbids_is_left_out_before_anything_is_decided)
{
    EXPECT_EQ(textAt({3, 4}, u"a\u0001b\uFFFEc\u001F"_s), oneLine(">abc"));
    EXPECT_EQ(textAt({3, 4}, u"\u0002 a"_s), oneLine(" xml:space='preserve'> a"));
    EXPECT_EQ(textAt({3, 4}, u"x"_s + QChar(0xD800) + u"y"_s), oneLine(">xy"));
}

TEST(SvgText, baselines_that_no_int_holds_become_the_nearest)
{
    constexpr int highest = std::numeric_limits<int>::max();
    const QByteArray bytes = textAt({0, highest - 5}, u"a\nb"_s);
    EXPECT_EQ(bytes.count("y=\"2147483647\""), 2);
}

TEST(SvgText, html_is_reduced_to_its_text)
{
    EXPECT_EQ(reduced(u" <b>bold</b> <font color='red'>and</font> red "_s), u"bold and red"_s);
}

TEST(SvgText, a_break_becomes_a_backslash_and_an_n)
{
    EXPECT_EQ(reduced(u"a<br>b<br/>c"_s), u"a\\nbc"_s);
}

TEST(SvgText, entities_are_resolved_after_the_tags_are_gone)
{
    EXPECT_EQ(reduced(u"&lt;i&gt; &quot;x&quot; &amp;lt; &amp;amp;gt;"_s), u"<i> \"x\" < >"_s);
}

TEST(SvgText, numeric_references_are_16_bit_characters)
{
    EXPECT_EQ(reduced(u"&#65;&#8364; &#65; &#65601; &#x41;"_s), u"A\u20AC A A &#x41;"_s);
}

TEST(SvgText, a_reference_that_another_forms_stays_unless_it_was_there)
{
    EXPECT_EQ(reduced(u"&#38;#66;"_s), u"&#66;"_s);
    EXPECT_EQ(reduced(u"&#38;#66; &#66;"_s), u"B B"_s);
}
