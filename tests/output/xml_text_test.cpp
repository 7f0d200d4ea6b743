#include "output/xml_text.h"

#include "support/golden.h"

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

TEST(XmlText, an_attribute_value_is_escaped)
{
    EXPECT_EQ(xmlAttributeValue(u"a\"<b>&'\u0001"_s), u"a&quot;&lt;b&gt;&amp;'"_s);
}
