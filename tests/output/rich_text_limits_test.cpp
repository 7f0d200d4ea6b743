// Where the limits of rich text lie, in counts that docs/security.md gives too: at each count a
// text is drawn rich, and with one more as its plain text. What the rich texts of a drawing cost
// together.
#include "device/rich_text.h"
#include "drawn.h"
#include "graph/limits.h"
#include "support/golden.h"

#include <QBuffer>
#include <QImage>

#include <ctime>
#include <functional>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// What a count counts, the most of it, and the text with so many.
struct Counted
{
    const char *what;
    int most;
    std::function<QString(int)> text;
};

std::function<QString(int)> repeated(const QString &unit, const QString &before = {},
                                     const QString &behind = {})
{
    return [=](int count) { return before + unit.repeated(count) + behind; };
}

QString largePicture()
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    QImage image(1000, 1000, QImage::Format_RGB32);
    image.fill(Qt::red);
    EXPECT_TRUE(image.save(&buffer, "png"));
    return u"<img src='data:image/png;base64,%1' width=9 height=9>"_s.arg(
        QString::fromLatin1(png.toBase64()));
}

QString textWithSheet(int characters)
{
    return u"<style>"_s + u"x"_s.repeated(characters) + u"</style>"_s + u"<p>a"_s.repeated(1000);
}

QString textOfLength(int characters)
{
    const QString before = u"<img width=9 height=9 src='data:image/png;base64,"_s;
    const QString behind = u"'>b"_s;
    const qsizetype rest = characters - before.size() - behind.size();
    return before + u"A"_s.repeated(rest) + behind;
}

// The table of docs/security.md.
const QList<Counted> counts{
    {"printable ASCII characters", 100'000, repeated(u"x"_s)},
    {"other characters and entities", 20'000, repeated(u"\u00e9"_s)},
    {"lines of one letter", 11'111, repeated(u"a<br>"_s)},
    {"bold words of four letters", 4761, repeated(u"<b>word</b> "_s)},
    {"words with a colour", 3448, repeated(u"<font color=red>word</font> "_s)},
    {"words with a style", 1052, repeated(u"<span style='color:red'>word</span> "_s)},
    {"words with a font", 1111, repeated(u"<font face=Arial>word</font> "_s)},
    {"cells in one row", 3029, repeated(u"<td>a"_s, u"<table><tr>"_s)},
    {"rows of four cells", 555,
     repeated(u"<tr><td>1</td><td>2</td><td>3</td><td>4</td></tr>"_s, u"<table>"_s, u"</table>"_s)},
    {"columns that a cell spans", 12'492,
     [](int count) { return u"<table><tr><td colspan=%1>a</table>"_s.arg(count); }},
    {"tables within one another", 11, repeated(u"<table><tr><td>"_s, {}, u"a"_s)},
    {"elements within one another", Limits::deepestRichText, repeated(u"<div>"_s, {}, u"a"_s)},
    {"list items", 3466, repeated(u"<li>item"_s, u"<ul>"_s)},
    {"pictures without pixels", 3466, repeated(u"<img src=x>"_s, u"a"_s)},
    {"pictures at a side", 352, repeated(u"<img align=left src=x>a"_s)},
    {"tables at a side", 334, repeated(u"<table align=left><tr><td>a</table>"_s)},
    {"pictures of 1000 by 1000 pixels", 4, repeated(largePicture(), u"a"_s)},
    {"characters of a sheet before 1,000 paragraphs", 5180, textWithSheet},
    {"characters, nearly all of a picture", Limits::longestRichText, textOfLength},
};

QByteArray drawnAs(const QString &text, bool rich)
{
    return drawn<SvgRichText>([&](Svg &device) {
        Device::Text *const content =
            device.text(text, device.font(u"Arial"_s, 10, 0), device.color(u"blue"_s));
        if (rich)
            device.drawRichText({7, 8}, content);
        else
            device.drawText({7, 8}, content);
    });
}

// How many of 2,000 drawings of the text the budget of one drawing takes; it is used up for all
// texts of that price.
int takenOf(const QString &text)
{
    RichTextBudget budget;
    int taken = 0;
    while (taken < 2000 && budget.take(text))
        ++taken;
    EXPECT_FALSE(budget.take(text));
    return taken;
}

#ifdef __SANITIZE_ADDRESS__
constexpr std::clock_t slowest = 20 * CLOCKS_PER_SEC; // beside others on a busy machine
#else
constexpr std::clock_t slowest = 5 * CLOCKS_PER_SEC;
#endif

} // namespace

// A step is meant to be five microseconds: a text with a hundred thousand of them may take some
// times half a second on a slow machine, and no more.
TEST(RichTextLimits, the_most_of_each_thing_is_drawn_rich_and_soon)
{
    for (const auto &[what, most, text] : counts) {
        const QString html = text(most);
        const std::clock_t start = std::clock();
        const QByteArray bytes = drawnAs(html, true);
        EXPECT_LT(std::clock() - start, slowest) << most << ' ' << what;
        EXPECT_TRUE(bytes.startsWith(" <g transform=\"translate(7,8)\">\n")) << most << ' ' << what;
    }
}

TEST(RichTextLimits, one_more_of_each_thing_is_drawn_as_plain_text)
{
    for (const auto &[what, most, text] : counts) {
        const QString beyond = text(most + 1);
        EXPECT_TRUE(drawnAs(beyond, true) == drawnAs(withoutMarkup(beyond), false))
            << most + 1 << ' ' << what;
    }
}

TEST(RichTextLimits, many_texts_that_are_cheap_by_themselves_share_the_budget)
{
    // 300 columns in 31 characters are 2,400 steps and some; 124 of them are free.
    const int tables = takenOf(u"<table><tr><td colspan=300></td>"_s);
    EXPECT_GE(tables, 240);
    EXPECT_LE(tables, 260);
    // Pictures have no share that is free.
    const int pictures = takenOf(largePicture());
    EXPECT_EQ(pictures, Limits::dearestRichTexts / (1000 * 1000 / Limits::pixelsPerStep));
}

TEST(RichTextLimits, what_one_drawing_may_cost_ends_between_two_texts)
{
    const QString nearlyAll = u"<table><tr><td colspan=12000>a</table>"_s;
    RichTextBudget budget;
    for (int i = 0; i < 6; ++i)
        EXPECT_TRUE(budget.take(nearlyAll)) << i;
    EXPECT_FALSE(budget.take(nearlyAll)) << "600,000 steps are six such texts";
    EXPECT_TRUE(budget.take(u"<table><tr><td colspan=1000>a</table>"_s)) << "and some room";
    EXPECT_TRUE(budget.take(u"<b>what is cheap always goes</b>"_s));
}

// 3 seconds for what is dear and 20 microseconds for each character, here 2 seconds, on a machine a
// third as fast.
TEST(RichTextLimits, no_drawing_of_hostile_texts_takes_long)
{
    const QStringList hostile{
        u"<table><tr><td colspan=12000>a</table>"_s,
        u"<table><tr><td>"_s.repeated(9) + u"a"_s,
        u"<table><tr><td>"_s.repeated(400) + u"a"_s,
        u"<b style='font-family:\"%1\"'>a</b>"_s.repeated(20),
        u"<style>"_s + u"b,"_s.repeated(400) + u"b{color:red}</style>"_s
            + u"<b>a</b>"_s.repeated(40),
        u"<li>a"_s.repeated(100),
        u"<table><div><p></div><thead><div><b><td>"_s.repeated(20),
        largePicture(),
    };
    for (const QString &html : hostile) {
        const int count = int(std::min<qsizetype>(2000, 100'000 / html.size()));
        const std::clock_t start = std::clock();
        drawn<SvgRichText>([&](Svg &device) {
            Device::Text *const text =
                device.text(html, device.font(u"Arial"_s, 10, 0), device.color(u"blue"_s));
            for (int i = 0; i < count; ++i)
                device.drawRichText({0, 0}, text);
        });
        EXPECT_LT(std::clock() - start, 15 * CLOCKS_PER_SEC)
            << count << " of " << html.left(60).toStdString();
    }
}
