#include "output/link_address.h"

#include "support/golden.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QByteArray linkOf(const QString &url)
{
    DotObject object;
    object.attributes.insert(u"url"_s, url);
    return linkAddress(&object);
}

} // namespace

TEST(LinkAddress, leads_into_the_web_or_is_relative)
{
    for (const QString &url : {u"http://a.example/b?c=d&e#f"_s, u"HTTPS://a.example"_s,
                               u"a/b.html"_s, u"../c"_s, u"#part"_s, u"?q=1:2"_s, u"/a:b"_s,
                               u"./a:b"_s, u"//host/path"_s, u"100%25"_s, u"&#106;s:a"_s})
        EXPECT_EQ(linkOf(url), url.toLatin1());
}

TEST(LinkAddress, has_no_other_scheme)
{
    for (const QString &url :
         {u"javascript:alert(1)"_s, u"JavaScript:alert(1)"_s, u"  javascript:alert(1)"_s,
          u"java\nscript:alert(1)"_s, u"java\tscript:alert(1)"_s, u"\u0001javascript:a"_s,
          u"data:text/html,x"_s, u"file:///etc/passwd"_s, u"mailto:a@b"_s, u"vbscript:x"_s,
          u"http:a"_s, u"https:/a"_s, u":"_s, u"a:b"_s, u"javascript\u00a0:a"_s,

          u"\uff4aavascript:a"_s, u"view-source:http://a"_s, u""_s, u" "_s})
        EXPECT_EQ(linkOf(url), "") << url.toStdString();
}

TEST(LinkAddress, is_ascii_without_what_could_end_it)
{
    EXPECT_EQ(linkOf(u"a b\"<>\\^`{|}\u00e4"_s), "a%20b%22%3C%3E%5C%5E%60%7B%7C%7D%C3%A4");
    EXPECT_EQ(linkOf(u"a"_s.repeated(32767)).size(), 32767);
    EXPECT_EQ(linkOf(u"a"_s.repeated(32768)), "");
}

TEST(LinkAddress, is_that_of_the_object_itself)
{
    EXPECT_EQ(linkAddress(nullptr), "");
    DotObject object;
    EXPECT_EQ(linkAddress(&object), "");
    object.attributes.insert(u"URL"_s, u"b"_s);
    EXPECT_EQ(linkAddress(&object), "b");
    object.attributes.insert(u"url"_s, u"a"_s);
    EXPECT_EQ(linkAddress(&object), "a");
}
