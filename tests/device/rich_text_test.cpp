#include "device/rich_text.h"
#include "device/rich_text_images.h"
#include "graph/limits.h"
#include "support/golden.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QImage>

#include <ctime>
#include <random>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

const QFont font(u"Arial"_s, 12);

QByteArray encoded(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes;
}

QString address(const QByteArray &bytes, const QString &type)
{
    return u"data:%1;base64,"_s.arg(type) + QString::fromLatin1(bytes.toBase64());
}

QString picture(int width, int height, const QString &type = u"image/png"_s)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    return address(encoded(image, type.endsWith("png"_L1) ? "png" : "jpg"), type);
}

QSizeF sizeOf(const QString &html)
{
    const std::unique_ptr<QTextDocument> document = richTextDocument(html, font);
    return document ? document->documentLayout()->documentSize() : QSizeF();
}

} // namespace

TEST(RichText, is_laid_out_as_the_toolkit_does)
{
    for (const QString &html :
         {u"a <b>b</b><br>c"_s, u"<ul><li>a<li>b</ul><hr>"_s, u""_s, u"<p style='margin:9px'>a"_s,
          u"<table border=2><tr><td colspan=2>a<tr><td>b<td>c</table>"_s}) {
        QTextDocument plain;
        plain.setDocumentMargin(0);
        plain.setDefaultFont(font);
        plain.setHtml(html);
        EXPECT_EQ(sizeOf(html), plain.documentLayout()->documentSize()) << html.toStdString();
        EXPECT_EQ(richTextDocument(html, font)->toHtml(), plain.toHtml());
        EXPECT_EQ(plainTextOf(html), plain.toPlainText());
    }
}

TEST(RichText, pictures_come_out_of_the_text)
{
    EXPECT_EQ(picturePixels(picture(20, 10)), 200);
    EXPECT_EQ(pictureFrom(picture(20, 10)).size(), QSize(20, 10));
    EXPECT_EQ(pictureFrom(picture(20, 10, u"image/jpeg"_s)).size(), QSize(20, 10));
    EXPECT_EQ(pictureFrom(picture(20, 10).replace(u"data:image/png"_s, u"DATA:Image/PNG"_s)).size(),
              QSize(20, 10));
    EXPECT_EQ(sizeOf(u"<img src='%1'>"_s.arg(picture(20, 100))).height(),
              sizeOf(u"<img src='x' width=20 height=100>"_s).height());
}

TEST(RichText, pictures_of_other_formats_do_not_exist)
{
    const QByteArray bmp = encoded(QImage(20, 10, QImage::Format_RGB32), "bmp");
    for (const QString &other :
         {address(bmp, u"image/bmp"_s), address(bmp, u"image/png"_s), address(bmp, u"image/jpeg"_s),
          picture(20, 10).replace(u"png"_s, u"jpeg"_s), u"data:image/png;base64,"_s,
          u"data:image/svg+xml,<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"_s,
          u"data:,"_s, u"data:"_s, u"image/png"_s, u":/qt-project.org/logo.png"_s, u""_s}) {
        EXPECT_TRUE(pictureFrom(other).isNull()) << other.toStdString();
        EXPECT_EQ(picturePixels(other), 0);
    }
}

TEST(RichText, a_picture_that_does_not_exist_is_a_box_of_the_size_of_its_tag)
{
    const double line = sizeOf(u"x"_s).height();
    EXPECT_EQ(sizeOf(u"<img src='x' width=70 height=90>"_s).width(), 70.0);
    EXPECT_GE(sizeOf(u"<img src='x' width=70 height=90>"_s).height(), 90.0);
    EXPECT_EQ(sizeOf(u"<img src='x' width=70>"_s).width(), 70.0);
    EXPECT_EQ(sizeOf(u"<img src='x'>"_s).width(), 0.0);
    EXPECT_LE(sizeOf(u"<img src='x'>"_s).height(), line);
}

TEST(RichText, one_side_of_a_picture_follows_the_other)
{
    const QString own = picture(40, 20);
    EXPECT_EQ(sizeOf(u"<img src='%1' height=100>"_s.arg(own)).width(), 200.0);
    EXPECT_EQ(sizeOf(u"<img src='%1' width=100 height=9>"_s.arg(own)).width(), 100.0);
    EXPECT_EQ(sizeOf(u"<img src='%1'>"_s.arg(own)).width(), 40.0);
}

TEST(RichText, pictures_beyond_the_limits_do_not_exist)
{
    EXPECT_EQ(pictureFrom(picture(1600, 1200)).size(), QSize(1600, 1200));
    EXPECT_TRUE(pictureFrom(picture(1600, 1201)).isNull());

    QByteArray scans = encoded(QImage(20, 10, QImage::Format_RGB32), "jpg");
    EXPECT_FALSE(pictureFrom(address(scans, u"image/jpeg"_s)).isNull());
    for (int i = 0; i < Limits::mostPictureScans; ++i)
        scans.append("\xFF\xDA");
    EXPECT_TRUE(pictureFrom(address(scans, u"image/jpeg"_s)).isNull());

    QByteArray large = encoded(QImage(20, 10, QImage::Format_RGB32), "png");
    large.append(Limits::largestPicture, '\0');
    EXPECT_TRUE(pictureFrom(address(large, u"image/png"_s)).isNull());
}

TEST(RichText, compressed_texts_of_a_picture_are_not_read)
{
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(Qt::red);
    image.setText(u"Comment"_s, QString(100'000, u'x'));
    const QByteArray bytes = encoded(image, "png");
    ASSERT_TRUE(bytes.contains("zTXt"));
    const QImage read = pictureFrom(address(bytes, u"image/png"_s)).toImage();
    EXPECT_EQ(read.size(), QSize(20, 10));
    EXPECT_EQ(read.text(u"Comment"_s), QString());
}

TEST(RichText, beyond_its_limits_is_no_document)
{
    const QString nested = u"<table><tr><td>"_s.repeated(22) + u"deep"_s;
    EXPECT_EQ(richTextDocument(nested, font), nullptr);
    EXPECT_EQ(withoutMarkup(nested), "deep");
    EXPECT_FALSE(RichTextBudget().take(nested));
}

// What stands between the parts of a table closes them in ways that the toolkit's reader and what
// it makes of its reading do not agree on: these nest where nothing seems to.
TEST(RichText, tables_that_nest_where_nothing_seems_to_are_no_document)
{
    for (const QString &unit :
         {u"<p></div><thead><div><b><td>"_s, u"<td rowspan=3></tr><td><tbody><tr/><table><p>"_s,
          u"<caption><td colspan=3></tr><table><td colspan=3></caption></b>"_s,
          u"</td><td></caption><dl><caption><td rowspan=3><tr/>"_s}) {
        for (const int count : {22, 300}) {
            const QString html = u"<table><div>"_s + unit.repeated(count);
            EXPECT_EQ(richTextDocument(html, font), nullptr) << html.left(80).toStdString();
        }
    }
}

TEST(RichText, every_text_is_laid_out_soon_or_not_at_all)
{
    const QStringList parts{
        u"<table>"_s,
        u"</table>"_s,
        u"<tr>"_s,
        u"</tr>"_s,
        u"<td>"_s,
        u"</td>"_s,
        u"<th>"_s,
        u"</th>"_s,
        u"<tbody>"_s,
        u"</tbody>"_s,
        u"<thead>"_s,
        u"<caption>"_s,
        u"</caption>"_s,
        u"<div>"_s,
        u"</div>"_s,
        u"<p>"_s,
        u"<b>"_s,
        u"</b>"_s,
        u"a"_s,
        u"<li>"_s,
        u"<ul>"_s,
        u"<dd>"_s,
        u"<dl>"_s,
        u"</dl>"_s,
        u"<br>"_s,
        u"<table/>"_s,
        u"<td colspan=3>"_s,
        u"<td rowspan=3>"_s,
        u"< 'td'>"_s,
        u"<img src=x>"_s,
    };
    std::mt19937 random(1);
    const auto some = [&](unsigned count) {
        QString html;
        for (unsigned i = random() % count; i > 0; --i)
            html += parts.at(qsizetype(random() % size_t(parts.size())));
        return html;
    };
    int laidOut = 0;
    int refused = 0;
    for (int round = 0; round < 1000; ++round) {
        const QString html = some(4) + some(8).repeated(12);
        const std::clock_t start = std::clock();
        ++(richTextDocument(html, font) ? laidOut : refused);
        EXPECT_LT(std::clock() - start, 5 * CLOCKS_PER_SEC) << html.toStdString();
    }
    EXPECT_GT(laidOut, 100);
    EXPECT_GT(refused, 10);
}

TEST(RichText, what_is_left_of_markup_is_a_line_for_each_block)
{
    EXPECT_EQ(withoutMarkup(u"<style>p{}</style><p>a <b>b</b></p>\n<ul><li> c &lt;&#100;&gt;"
                            "<li>e<!-- f --></ul><table><tr><td>g<td>h</table>i<br>j"_s),
              "a b\nc <d>\ne\ng h\ni\nj");
    EXPECT_EQ(withoutMarkup(u"no markup & none"_s), "no markup & none");
    EXPECT_EQ(withoutMarkup(u"<<<"_s), "");
}

TEST(RichText, families_are_fenced_and_given_back)
{
    const QString family = u"A \"B\" & <C> 5%"_s;
    const QFont hostile(family, 12);
    const std::unique_ptr<QTextDocument> document = richTextDocument(u"a"_s, hostile);
    const QString fenced = document->defaultFont().family();
    for (const QChar c : u"\"&<>"_s)
        EXPECT_FALSE(fenced.contains(c)) << fenced.toStdString();
    EXPECT_EQ(familyFromFenced(fenced), family);
    EXPECT_EQ(richTextDocument(u"a"_s, font)->defaultFont().family(), font.family());
}

TEST(RichTextBudget, ends_for_dear_texts_and_not_for_cheap_ones)
{
    const QString dear = u"<table><tr><td colspan=5000>a</table>"_s;
    const QString cheap = u"<a style=\"color: red; text-decoration: none;\" href=\"16384\">x</a>"_s;
    RichTextBudget budget;
    int taken = 0;
    while (taken < 1000 && budget.take(dear))
        ++taken;
    EXPECT_GT(taken, 20);
    EXPECT_LT(taken, 100);
    EXPECT_FALSE(budget.take(dear));
    for (int i = 0; i < 100'000; ++i)
        ASSERT_TRUE(budget.take(cheap));
}
