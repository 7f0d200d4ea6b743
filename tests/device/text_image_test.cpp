#include "device/text_image.h"

#include "support/golden.h"
#include "support/recording_device.h"

#include <QFontInfo>
#include <QTextDocument>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

TEST(TextImage, plain_size_is_that_of_the_font_metrics)
{
    RecordingDevice device;
    Device::Font *font = device.font(u"Arial"_s, 12, 0);
    const QFontMetrics metrics(font->qFont());
    for (const QString &text : {u"label"_s, u""_s, u"two\nlines"_s, u" x "_s, u"ä🎈"_s}) {
        EXPECT_EQ(TextImage::textSize(text, font, false), metrics.size(0, text));
        EXPECT_EQ(TextImage::textSize(device.text(text, font, nullptr), false),
                  metrics.size(0, text));
    }
    EXPECT_EQ(TextImage::fontLeading(font), metrics.leading());
    EXPECT_EQ(TextImage::fontLineSpacing(font), metrics.lineSpacing());
}

TEST(TextImage, rich_size_is_that_of_a_document_without_margin)
{
    RecordingDevice device;
    Device::Font *font = device.font(u"Arial"_s, 12, 0);
    QTextDocument document;
    document.setDocumentMargin(0);
    document.setDefaultFont(font->qFont());
    document.setHtml(u"<b>bold</b><br>x"_s);
    const QSize expected(int(document.size().width()), int(document.size().height()));
    EXPECT_EQ(TextImage::textSize(u"<b>bold</b><br>x"_s, font, true), expected);
    EXPECT_EQ(TextImage::textSize(device.text(u"<b>bold</b><br>x"_s, font, nullptr), true),
              expected);
}

TEST(TextImage, no_text_has_an_invalid_size)
{
    EXPECT_FALSE(TextImage::textSize(nullptr, false).isValid());
    EXPECT_FALSE(TextImage::textSize(nullptr, true).isValid());
}

TEST(TextImage, fonts_convert_in_one_way)
{
    RecordingDevice device;
    const QFont plain = device.font(u"Arial"_s, 11, 0)->qFont();
    EXPECT_EQ(plain.family(), "Arial");
    EXPECT_EQ(plain.pointSize(), 11);
    EXPECT_EQ(plain.weight(), 400);
    EXPECT_FALSE(plain.italic());
    EXPECT_TRUE(plain.styleStrategy() & QFont::PreferAntialias);
    EXPECT_EQ(device.font(u"Arial"_s, 11, Device::Font::Bold)->qFont().weight(), 700);
    EXPECT_EQ(device.font(u"Arial"_s, 11, Device::Font::Italic)->qFont().style(),
              QFont::StyleItalic);
}

// The pinned font, Liberation Sans, has 2,048 units to its size; a capital H takes 1,479 of them
// and ascent and descent 1,854 and 434.
TEST(TextImage, a_point_of_a_font_is_a_unit_of_the_drawing)
{
    RecordingDevice device;
    Device::Font *font = device.font(u"Arial"_s, 100, 0);
    EXPECT_NEAR(TextImage::textSize(u"HHHHHHHHHH"_s, font, false).width(), 722, 5);
    EXPECT_NEAR(TextImage::textSize(u"H"_s, font, false).height(), 91 + 21, 2);
    EXPECT_NEAR(TextImage::textSize(u"HHHHHHHHHH"_s, font, true).width(), 722, 5);
    EXPECT_EQ(QFontInfo(font->qFont()).pixelSize(), 100);
}
