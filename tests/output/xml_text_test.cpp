#include "output/xml_text.h"

#include "support/golden.h"

#include <QXmlStreamReader>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

TEST(XmlText, a_clean_text_stays_as_it_is)
{
    EXPECT_EQ(withoutForbiddenXml(u"a \t\r\n<&>\"' \u00fc\u20ac"_s),
              u"a \t\r\n<&>\"' \u00fc\u20ac"_s);
}

TEST(XmlText, control_characters_are_left_out)
{
    EXPECT_EQ(withoutForbiddenXml(u"a\u0001\u0008b\u000b\u000c\u000e\u001fc"_s + QChar(0)),
              u"abc"_s);
    EXPECT_EQ(withoutForbiddenXml(u"\u007f\u0085"_s), u"\u007f\u0085"_s);
}

TEST(XmlText, non_characters_are_left_out)
{
    EXPECT_EQ(withoutForbiddenXml(u"a\ufffe\uffffb\ufffd"_s), u"ab\ufffd"_s);
}

TEST(XmlText, only_paired_surrogates_stay)
{
    const QChar high(0xD83D);
    const QChar low(0xDE00);
    EXPECT_EQ(withoutForbiddenXml(QString(high) + low), u"\U0001F600"_s);
    EXPECT_EQ(withoutForbiddenXml(u"a"_s + low + high + u"b"_s + high), u"ab"_s);
    EXPECT_EQ(withoutForbiddenXml(QString(high) + high + low), u"\U0001F600"_s);
}

TEST(XmlText, markup_and_quotes_become_references)
{
    EXPECT_EQ(xmlEscaped(u"a\"<b>&'\u00fc"_s, XmlForm::Text), "a&quot;&lt;b&gt;&amp;'\xc3\xbc"_ba);
    EXPECT_EQ(xmlEscaped(u"\t\n\r"_s, XmlForm::Text), "\t\n\r"_ba);
    EXPECT_EQ(xmlEscaped(u"&amp;"_s, XmlForm::Text), "&amp;amp;"_ba);
}

TEST(XmlText, an_attribute_keeps_its_white_space)
{
    EXPECT_EQ(xmlEscaped(u"a\tb\nc\rd \""_s, XmlForm::Attribute), "a&#9;b&#10;c&#13;d &quot;"_ba);
}

TEST(XmlText, a_document_escapes_only_what_would_end_something)
{
    EXPECT_EQ(xmlEscaped(u"a>b]]>c]>\"&<\t\n\r"_s, XmlForm::DocumentText),
              "a>b]]&gt;c]>\"&amp;&lt;\t\n&#xd;"_ba);
    EXPECT_EQ(xmlEscaped(u"a>b]]>c]>\"&<\t\n\r"_s, XmlForm::DocumentAttribute),
              "a>b]]&gt;c]>&quot;&amp;&lt;&#x9;&#xa;&#xd;"_ba);
    EXPECT_EQ(xmlEscaped(u">"_s, XmlForm::DocumentText), ">"_ba);
}

TEST(XmlText, what_is_forbidden_is_left_out_of_every_form)
{
    const QString text = u"a\u0001"_s + QChar(0xD800) + u"\ufffeb"_s;
    for (const XmlForm form :
         {XmlForm::Text, XmlForm::Attribute, XmlForm::DocumentText, XmlForm::DocumentAttribute})
        EXPECT_EQ(xmlEscaped(text, form), "ab"_ba);
    EXPECT_EQ(xmlEscaped(QString(), XmlForm::Text), ""_ba);
}

TEST(XmlText, a_reader_gives_every_form_back)
{
    const QString text = u"]]> <a href=\"x\"> & ' > \u20ac"_s;
    for (const XmlForm form :
         {XmlForm::Text, XmlForm::Attribute, XmlForm::DocumentText, XmlForm::DocumentAttribute}) {
        QXmlStreamReader content("<a>" + xmlEscaped(text, form) + "</a>");
        EXPECT_TRUE(content.readNextStartElement());
        EXPECT_EQ(content.readElementText(), text);
    }
    for (const XmlForm form : {XmlForm::Attribute, XmlForm::DocumentAttribute}) {
        const QString lines = text + u"\t\n\r"_s;
        QXmlStreamReader element("<a b=\"" + xmlEscaped(lines, form) + "\"/>");
        EXPECT_TRUE(element.readNextStartElement());
        EXPECT_EQ(element.attributes().value("b"_L1), lines);
    }
}
