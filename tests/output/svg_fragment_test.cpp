#include "output/svg_fragment.h"

#include "drawn.h"
#include "support/golden.h"

using namespace ORR::Graph;

namespace {

QByteArray within(const QByteArray &content)
{
    return svgFragment("<?xml version=\"1.0\"?><svg xmlns=\"http://www.w3.org/2000/svg\" "
                       "xmlns:xlink=\"http://www.w3.org/1999/xlink\">"
                       + content + "</svg>");
}

} // namespace

TEST(SvgFragment, what_draws_is_copied_as_it_stands)
{
    for (const QByteArray content :
         {"<g fill=\"red\" stroke-width=\"2\"><rect x=\"1\" y=\"2\" width=\"3\" height=\"4\"/></g>",
          "<text xml:space=\"preserve\" x=\"1\">a &lt;b&gt; &amp; &quot;c&quot;  d</text>",
          "<defs>\n<linearGradient id=\"g1\"><stop offset=\"0\" stop-color=\"#ff0000\"/>"
          "</linearGradient>\n</defs><path fill=\"url(#g1)\" d=\"M0,0 L1,1\"/>"})
        EXPECT_EQ(within(content), content);
}

TEST(SvgFragment, what_runs_or_links_is_left_out_with_all_that_it_holds)
{
    for (const QByteArray name : {"script", "a", "foreignObject", "style", "iframe", "animate",
                                  "set", "title", "desc", "svg", "metadata", "Script", "x:script"})
        EXPECT_EQ(within("<g><" + name + " x=\"1\">text<g><rect/></g></" + name + "><rect/></g>"),
                  "<g><rect/></g>")
            << name.toStdString();
}

TEST(SvgFragment, attributes_beyond_the_list_are_left_out)
{
    EXPECT_EQ(within("<rect onload=\"e()\" onclick=\"e()\" style=\"fill:url(x)\" class=\"a\" "
                     "href=\"#a\" fill=\"red\" xml:base=\"http://a\"/>"),
              "<rect fill=\"red\"/>");
    EXPECT_EQ(within("<rect fill=\"url(http://a/b)\" mask=\" url(x)\" x=\"1\"/>"),
              "<rect x=\"1\"/>");
}

TEST(SvgFragment, links_lead_to_pictures_within_themselves)
{
    const QByteArray picture = "<image xlink:href=\"data:image/png;base64,AAAA\"/>";
    EXPECT_TRUE(within(picture).contains("xlink:href=\"data:image/png;base64,AAAA\""));
    EXPECT_TRUE(isWellFormed(within(picture)));
    for (const QByteArray address :
         {"http://a/b.png", "/etc/passwd", "file:///a.png", "data:image/svg+xml;base64,AAAA",
          "data:text/html,x", "javascript:e()", ""})
        EXPECT_EQ(within("<image xlink:href=\"" + address + "\"/>"), "<image/>");
}

TEST(SvgFragment, a_fault_ends_the_copy_and_closes_what_is_open)
{
    EXPECT_EQ(within("<g><text>a</text><g><rect x=\"1\"<>"), "<g><text>a</text><g/></g>");
    EXPECT_EQ(svgFragment(""), "");
    EXPECT_EQ(svgFragment("no xml"), "");
}

TEST(SvgFragment, a_family_comes_back_escaped)
{
    EXPECT_EQ(within("<text font-family=\"%22%26%3c\">a</text>"),
              "<text font-family=\"&quot;&amp;&lt;\">a</text>");
}
