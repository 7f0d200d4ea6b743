#include "device/rich_text_price.h"

#include "device/markup_reader.h"
#include "graph/limits.h"
#include "support/golden.h"

#include <QBuffer>
#include <QImage>

#include <ctime>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QString repeated(const QString &text, int count)
{
    return text.repeated(count);
}

// The parts of a text, one a line: "b(x=1)", "/b", "'text'".
QStringList piecesOf(const QString &html)
{
    QStringList pieces;
    MarkupReader reader(html);
    while (reader.next()) {
        const MarkupPiece &piece = reader.piece();
        QStringList attributes;
        for (const auto &[name, value] : piece.attributes)
            attributes += name + u'=' + value;
        switch (piece.kind) {
        case MarkupPiece::Text:
            pieces += u"'%1'"_s.arg(piece.text);
            break;
        case MarkupPiece::Open:
            pieces += piece.name + u'(' + attributes.join(u',') + u')'
                + (piece.isClosed ? u"/"_s : QString());
            break;
        case MarkupPiece::Close:
            pieces += u'/' + piece.name;
            break;
        case MarkupPiece::Declaration:
            pieces += u"!"_s;
            break;
        }
    }
    return pieces;
}

} // namespace

TEST(MarkupReader, takes_what_the_toolkit_takes)
{
    EXPECT_EQ(piecesOf(u"a<b>c</B >d"_s),
              QStringList({u"'a'"_s, u"b()"_s, u"'c'"_s, u"/b"_s, u"'d'"_s}));
    EXPECT_EQ(piecesOf(u"< \n TaBle Border = 1 x>"_s), QStringList({u"table(border=1,x=1)"_s}));
    EXPECT_EQ(piecesOf(u"<\"t&#97;ble\" a='>' b=\">&lt;\" c=d&#x41;>"_s),
              QStringList({u"table(a=>,b=><,c=dA)"_s}));
    EXPECT_EQ(piecesOf(u"<a b='it\\'s' c>"_s), QStringList({u"a(b=it\\'s,c=1)"_s}));
    EXPECT_EQ(piecesOf(u"<a b='&amp;'>"_s), QStringList({u"a(b=&amp;)"_s}));
    EXPECT_EQ(piecesOf(u"<br/><br /><x / y=1>"_s),
              QStringList({u"br()/"_s, u"br()/"_s, u"x()/"_s}));
    EXPECT_EQ(piecesOf(u"<!-- <b> --><!doctype <b>c"_s), QStringList({u"!"_s, u"!"_s, u"'c'"_s}));
    EXPECT_EQ(piecesOf(u"<<b"_s), QStringList({u"()"_s, u"b()"_s}).mid(0, 1));
    EXPECT_EQ(piecesOf(u"<b a=\""_s), QStringList({u"b()"_s}));
    EXPECT_EQ(piecesOf(u"<!--"_s), QStringList({u"!"_s}));
    EXPECT_EQ(piecesOf(u""_s), QStringList());
}

TEST(MarkupReader, entities_are_resolved_where_they_can_be_markup)
{
    EXPECT_EQ(withResolvedEntities(
                  u"&lt;&#60;&#x3C;&#X3c;&amp;lt;&quot;&eacute;&; & &#xx;&#99999999;&#0;&#x00;"_s),
              "<<<<&lt;\"&eacute;&; & &#xx;&#99999999;&#0;&#x00;");
}

TEST(RichTextPrice, texts_that_are_meant_well_are_affordable)
{
    const QStringList texts{
        u""_s,
        u"<b>a</b>"_s,
        repeated(u"word "_s, 10'000),
        repeated(u"<b>bold</b> <i>slanted</i> "_s, 1000),
        repeated(u"<span style='color:red'>red</span> "_s, 1000),
        u"<table border=1>"_s
            + repeated(u"<tr><td>1</td><td>2</td><td>3</td><td>4</td></tr>"_s, 300),
        u"<ul>"_s + repeated(u"<li>item"_s, 1000) + u"</ul>"_s,
        repeated(u"<div>"_s, 50) + u"x"_s + repeated(u"</div>"_s, 50),
        repeated(u"<table><tr><td>"_s, 5) + repeated(u"<tr><td>a<td>b"_s, 20),
        u"<style>"_s + repeated(u"td { color: red } "_s, 40) + u"</style><table>"_s
            + repeated(u"<tr><td>1<td>2"_s, 50) + u"</table>"_s,
        repeated(u"<p>unclosed<br>"_s, 1000),
        repeated(u"<img src='data:image/png;base64,AAAA' width=16 height=16> x "_s, 200),
    };
    for (const QString &html : texts)
        EXPECT_TRUE(richTextPrice(html).isAffordable) << html.left(80).toStdString();
}

TEST(RichTextPrice, texts_that_cost_too_much_are_not)
{
    const QStringList texts{
        repeated(u"<table><tr><td>"_s, 22),
        repeated(u"<table><tr><td>"_s, 6500),
        repeated(u"<TABLE>"_s, 6500),
        repeated(u"<table style='-qt-table-type:frame'><tr><td>"_s, 1000),
        repeated(u"<\"t&#97;ble\"><tr><td>"_s, 22),
        repeated(u"< table a='>'><tr><td>"_s, 22),
        repeated(u"<b>"_s, 30'000),
        repeated(u"<div>"_s, 18'000),
        repeated(u"<ul>"_s, 1000),
        repeated(u"<ul><li>"_s, 1000),
        repeated(u"<img src=x width=9 height=9 align=left>"_s, 2900),
        repeated(u"<img align=left src=x>a"_s, 400),
        repeated(u"<table align=right><tr><td>a</table>"_s, 400),
        repeated(u"<table style='float:left'><tr><td>a</table>"_s, 400),
        repeated(u"<table style='fl\\6f at:left'><tr><td>a</table>"_s, 400),
        u"<style>table{float:left}</style>"_s + repeated(u"<table><tr><td>a</table>"_s, 400),
        u"<style>x<b>table{FLOAT:left}</style>"_s + repeated(u"<table><tr><td>a</table>"_s, 400),
        u"<style>img{fl&#111;at:left}</style>"_s + repeated(u"<img src=x>a"_s, 400),
        u"<style>"_s + repeated(u"p{color:red}"_s, 3000) + u"</style>"_s
            + repeated(u"<p>a"_s, 3000),
        u"<style>"_s + repeated(u"b,"_s, 4000) + u"b{}</style>"_s + repeated(u"<b>a</b>"_s, 1000),
        u"<table><tr><td colspan=20480>a</table>"_s,
        u"<table><tr><td c&#111;lspan=20480>a</table>"_s,
        u"<table><tr><td colspan=20480 colspan=x>a</table>"_s,
        u"<table><tr>"_s + repeated(u"<td>a"_s, 500) + repeated(u"<tr><td>a"_s, 500),
        u"<table><tr><td rowspan=2000000000 colspan=500>a"_s + repeated(u"<tr><td>a"_s, 100),
        u"x <b '<!--StartFragment-->"_s + repeated(u"<table><tr><td>"_s, 22),
        repeated(u"<font face='%1'>a</font>"_s, 3000),
        repeated(u"\t"_s, 100'000),
        repeated(u"x"_s, 5'000'000),
    };
    for (const QString &html : texts) {
        const std::clock_t start = std::clock();
        EXPECT_FALSE(richTextPrice(html).isAffordable) << html.left(80).toStdString();
        EXPECT_LT(std::clock() - start, 2 * CLOCKS_PER_SEC) << html.left(80).toStdString();
    }
}

TEST(RichTextPrice, pictures_cost_by_their_pixels)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    QImage image(1600, 1200, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(&buffer, "png"));
    const QString picture =
        u"<img src='data:image/png;base64,%1'>"_s.arg(QString::fromLatin1(png.toBase64()));
    EXPECT_GE(richTextPrice(picture).steps, 1600 * 1200 / 50);
    EXPECT_LE(richTextPrice(picture).steps, 1600 * 1200 / 50 + 500);
    EXPECT_TRUE(richTextPrice(picture).isAffordable);
    EXPECT_FALSE(richTextPrice(repeated(picture, 15)).isAffordable);
}
