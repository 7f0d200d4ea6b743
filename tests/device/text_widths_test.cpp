// Sums of pairs against the toolkit, which is what they stand in for.
#include "device/text_widths.h"

#include "device/made_font.h"
#include "device/point_resolution.h"

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QRawFont>

#include <random>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

constexpr int textCount = 1500;

// Made-up words, names with numbers and plain noise.
QString someText(std::mt19937 &random)
{
    const auto below = [&random](int count) { return int(random() % unsigned(count)); };
    QString text;
    const int length = 1 + below(24);
    const int kind = below(4);
    for (int i = 0; i < length; ++i) {
        if (kind == 0)
            text += QChar(u' ' + below(95));
        else if (kind == 1)
            text += u"AVTWLYfilj,. 'rvw"_s.at(below(17));
        else
            text += QChar((kind == 2 ? u'a' : u'A') + below(26));
    }
    if (kind == 3)
        text += u'_' + QString::number(below(100000));
    return text;
}

QFont pointFont(const QString &family, int size, int style)
{
    QFont font(family, size);
    font.setBold(style & 1);
    font.setItalic(style & 2);
    return atPointResolution(font);
}

void expectSameSizes(const QFont &font, const std::string &what)
{
    const QFontMetrics metrics(font, pointDevice());
    TextWidths widths(font, metrics);
    std::mt19937 random(7);
    for (int i = 0; i < textCount; ++i) {
        const QString text = someText(random);
        ASSERT_EQ(widths.sizeOf(text), metrics.size(0, text)) << what << ": " << text.toStdString();
    }
}

constexpr int firstTexts = 200; // which the toolkit measures

// Liberation Sans by another name, where each "www" becomes a stop.
QByteArray fontThatJoins()
{
    const auto wide = [](const QString &name) {
        QByteArray bytes;
        for (const QChar c : name)
            bytes += shorts({c.unicode()});
        return bytes;
    };
    const int glyph = glyphOf(u'w');
    const QByteArray ligature = shorts({1, 8, 1, 14}) + listed(glyph) + shorts({1, 4}) // one set
        + shorts({glyphOf(u'.'), 3, glyph, glyph});
    FontTables tables = tablesOfSans();
    tables["name"].replace(wide(u"Liberation"_s), wide(u"Fabricated"_s));
    tables["name"].replace("Liberation", "Fabricated");
    tables["GSUB"] = lookupTable(4, 0, ligature);
    return fontFile(tables);
}

// Tells of every character that it hangs on its neighbours alone.
PairwiseFont lyingTables(const QRawFont & /*font*/)
{
    PairwiseFont font;
    for (size_t c = ' '; c <= '~'; ++c)
        font.characters.set(c);
    return font;
}

class FontThatJoins : public testing::Test
{
protected:
    FontThatJoins() : id(QFontDatabase::addApplicationFontFromData(fontThatJoins())) { }
    ~FontThatJoins() override { QFontDatabase::removeApplicationFont(id); }

    QFont font() const
    {
        const QString family = QFontDatabase::applicationFontFamilies(id).value(0);
        EXPECT_EQ(family, u"Fabricated Sans"_s);
        return pointFont(family, 12, 0);
    }

private:
    int id;
};

} // namespace

// The sums, which know of no three letters.
TEST_F(FontThatJoins, is_measured_otherwise_by_tables_that_lie)
{
    const QFontMetrics metrics(font(), pointDevice());
    TextWidths widths(font(), metrics, lyingTables);
    for (int i = 0; i < firstTexts; ++i)
        widths.sizeOf(u"plain"_s);
    EXPECT_EQ(widths.sizeOf(u"plan"_s), metrics.size(0, u"plan"_s));
    EXPECT_NE(widths.sizeOf(u"awwwa"_s), metrics.size(0, u"awwwa"_s));
}

TEST_F(FontThatJoins, is_given_up_where_a_sum_is_not_what_the_toolkit_measured)
{
    const QFontMetrics metrics(font(), pointDevice());
    for (const int place : {0, 70, firstTexts - 1}) {
        TextWidths widths(font(), metrics, lyingTables);
        for (int i = 0; i < firstTexts; ++i) {
            const QString text = i == place ? u"swwws"_s : u"plain"_s;
            ASSERT_EQ(widths.sizeOf(text), metrics.size(0, text)) << i;
        }
        EXPECT_EQ(widths.sizeOf(u"awwwa"_s), metrics.size(0, u"awwwa"_s)) << place;
    }
}

TEST_F(FontThatJoins, has_the_widths_of_the_toolkit_by_tables_that_tell_the_truth)
{
    const QFontMetrics metrics(font(), pointDevice());
    TextWidths widths(font(), metrics);
    for (int i = 0; i < firstTexts; ++i)
        widths.sizeOf(u"plain"_s);
    EXPECT_EQ(widths.sizeOf(u"awwwa"_s), metrics.size(0, u"awwwa"_s));
}

TEST(TextWidths, are_those_of_the_toolkit_in_every_size_and_style)
{
    for (const int style : {0, 1, 2, 3}) {
        for (const int size : {1, 7, 9, 12, 31, 200, 600})
            expectSameSizes(pointFont(u"Arial"_s, size, style), std::to_string(size));
    }
}

TEST(TextWidths, are_those_of_the_toolkit_under_every_hinting)
{
    for (const auto hinting : {QFont::PreferNoHinting, QFont::PreferVerticalHinting,
                               QFont::PreferFullHinting, QFont::PreferDefaultHinting}) {
        QFont font = pointFont(u"Arial"_s, 13, 0);
        font.setHintingPreference(hinting);
        expectSameSizes(font, "hinting " + std::to_string(hinting));
    }
}

TEST(TextWidths, are_those_of_the_toolkit_in_other_fonts)
{
    const QString folder = u"/usr/share/fonts/truetype/liberation/Liberation"_s;
    for (const QString &name : {u"Serif-Regular"_s, u"Mono-Regular"_s, u"Serif-BoldItalic"_s}) {
        const int id = QFontDatabase::addApplicationFont(folder + name + u".ttf"_s);
        ASSERT_GE(id, 0) << name.toStdString();
        const QString family = QFontDatabase::applicationFontFamilies(id).value(0);
        const QFont font = pointFont(family, 12, 0);
        EXPECT_EQ(QRawFont::fromFont(font).familyName(), family);
        expectSameSizes(font, name.toStdString());
        QFontDatabase::removeApplicationFont(id);
    }
}

TEST(TextWidths, of_texts_that_can_not_be_summed_up_are_those_of_the_toolkit)
{
    const QFont font = pointFont(u"Arial"_s, 12, 0);
    const QFontMetrics metrics(font, pointDevice());
    TextWidths widths(font, metrics);
    for (int i = 0; i < textCount; ++i)
        widths.sizeOf(u"enough"_s);
    for (const QString &text : {QString(),
                                u""_s,
                                u" "_s,
                                u"  a"_s,
                                u"a "_s,
                                u"a  b"_s,
                                u"12"_s,
                                u"a\nb"_s,
                                u"a\tb"_s,
                                u"\u00e9t\u00e9"_s,
                                u"a\u0301"_s,
                                u"\u05d0a"_s,
                                u"a\u2028b"_s,
                                u"A\u200dV"_s,
                                u"\u4e2da"_s,
                                u"fi\u0301"_s,
                                QString(499, u'W'),
                                QString(500, u'W'),
                                QString(501, u'W'),
                                QString(5000, u'W'),
                                u"AV"_s.repeated(250),
                                QString(QChar(0x7f)),
                                u"a\u009cb"_s})
        EXPECT_EQ(widths.sizeOf(text), metrics.size(0, text)) << text.left(20).toStdString();
}

TEST(KeptTextWidths, are_those_of_the_toolkit_from_one_drawing_to_the_next)
{
    const KeptTextWidths kept;
    for (int drawing = 0; drawing < 3; ++drawing) {
        for (int style = 0; style < 4; ++style)
            expectSameSizes(pointFont(u"Arial"_s, 11, style), std::to_string(drawing));
    }
}

TEST(KeptTextWidths, belong_to_one_font_as_long_as_they_are_kept)
{
    const QFont font = pointFont(u"Arial"_s, 11, 0);
    EXPECT_NE(KeptTextWidths::of(font), KeptTextWidths::of(font));
    const KeptTextWidths kept;
    const auto known = KeptTextWidths::of(font);
    EXPECT_EQ(KeptTextWidths::of(pointFont(u"Arial"_s, 11, 0)), known);
    EXPECT_NE(KeptTextWidths::of(pointFont(u"Arial"_s, 12, 0)), known);
    EXPECT_NE(KeptTextWidths::of(pointFont(u"Arial"_s, 11, 1)), known);
    EXPECT_NE(KeptTextWidths::of(pointFont(u"Arial"_s, 11, 2)), known);
    EXPECT_NE(KeptTextWidths::of(pointFont(u"Verdana"_s, 11, 0)), known);
}

TEST(KeptTextWidths, are_not_kept_of_any_number_of_fonts)
{
    const KeptTextWidths kept;
    const QFont font = pointFont(u"Arial"_s, 11, 0);
    const std::weak_ptr<TextWidths::Known> known = KeptTextWidths::of(font);
    EXPECT_FALSE(known.expired());
    for (int size = 1; size <= 200; ++size)
        KeptTextWidths::of(pointFont(u"Verdana"_s, size, 0));
    EXPECT_TRUE(known.expired());
}
