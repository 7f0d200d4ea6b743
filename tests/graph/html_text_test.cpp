#include "graph/html_text.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

TEST(WithoutTags, leaves_the_text_between_them)
{
    EXPECT_EQ(withoutTags(u"<b>a</b> &lt; <font size=\"3\">b</font>"_s), u"a &lt; b"_s);
    EXPECT_EQ(withoutTags(u"a < b"_s), u"a < b"_s);
    EXPECT_EQ(withoutTags(u"a > b <\n>"_s), u"a > b "_s);
}

TEST(WithoutTags, writes_a_break_as_a_backslash_and_an_n)
{
    EXPECT_EQ(withoutTags(u"a<br>b<br/>c<BR>d"_s), u"a\\nbcd"_s);
}

TEST(WithResolvedEntities, resolves_those_four)
{
    EXPECT_EQ(withResolvedEntities(u"&lt;a&gt; &quot;b&quot; &amp; &apos;&#65;&nbsp;"_s),
              u"<a> \"b\" & &apos;&#65;&nbsp;"_s);
}

TEST(WithResolvedEntities, resolves_what_an_ampersand_forms)
{
    EXPECT_EQ(withResolvedEntities(u"&amp;lt;"_s), u"<"_s);
    EXPECT_EQ(withResolvedEntities(u"&amp;amp;"_s), u"&amp;"_s);
}
