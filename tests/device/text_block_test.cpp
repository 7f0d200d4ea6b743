#include "device/graph_style.h"

#include "device/text_image.h"
#include "support/golden.h"
#include "support/recording_device.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

class TextBlockTest : public testing::Test
{
protected:
    RecordingDevice device;
    DotGraph graph;
    GraphStyle style{&graph, &device};
    Device::Font *font = device.defaultFont();

    TextBlock block(const QString &text) { return style.textBlock(text, font, u"red"_s); }

    // Each line as its text with a letter for the alignment behind it.
    QStringList lines(const QString &text)
    {
        QStringList list;
        for (const TextBlockLine &line : block(text).lines)
            list += line.text->text() + u'/' + u"lrc"_s.at(line.alignment);
        return list;
    }
    int width(const QString &text) { return TextImage::textSize(text, font, false).width(); }
    int height(const QString &text) { return TextImage::textSize(text, font, false).height(); }
};

} // namespace

TEST_F(TextBlockTest, escapes_end_lines_and_align_them)
{
    EXPECT_EQ(lines(uR"(one\ntwo)"_s), (QStringList{u"one/c"_s, u"two/c"_s}));
    EXPECT_EQ(lines(uR"(one\ltwo\r)"_s), (QStringList{u"one/l"_s, u"two/r"_s}));
    EXPECT_EQ(lines(u"one"_s), QStringList{u"one/c"_s});
    EXPECT_EQ(lines(uR"(\n)"_s), QStringList{u"/c"_s});
    EXPECT_EQ(lines(uR"(\n\l)"_s), (QStringList{u"/c"_s, u"/l"_s}));
    EXPECT_EQ(lines(u""_s), QStringList());
}

TEST_F(TextBlockTest, a_doubled_backslash_escapes_nothing)
{
    EXPECT_EQ(lines(uR"(a\\nb)"_s), QStringList{uR"(a\\nb/c)"_s});
    EXPECT_EQ(lines(uR"(a\\\nb)"_s), QStringList{uR"(a\\\nb/c)"_s});
    EXPECT_EQ(lines(uR"(a\xb\)"_s), QStringList{uR"(a\xb\/c)"_s});
    EXPECT_EQ(lines(uR"(a\x\nb)"_s), (QStringList{uR"(a\x/c)"_s, u"b/c"_s}));
}

TEST_F(TextBlockTest, a_line_feed_is_an_escape)
{
    EXPECT_EQ(lines(u"a\nb"_s), (QStringList{u"a/c"_s, u"b/c"_s}));
    EXPECT_EQ(lines(u"a\\\nb"_s), QStringList{uR"(a\\nb/c)"_s});
}

TEST_F(TextBlockTest, the_size_is_the_widest_line_and_all_heights_with_leading)
{
    const TextBlock three = block(uR"(a\nlonger\nb)"_s);
    EXPECT_EQ(three.width, width(u"longer"_s));
    EXPECT_EQ(three.height,
              height(u"a"_s) * 2 + height(u"longer"_s) + 2 * TextImage::fontLeading(font));
    EXPECT_EQ(three.lines.at(0).width, width(u"a"_s));
    EXPECT_EQ(block(u"one"_s).height, height(u"one"_s));
    EXPECT_EQ(block(uR"(\n)"_s).height, height(u""_s));
}

TEST_F(TextBlockTest, a_single_line_is_drawn_where_the_block_is)
{
    TextBlock::draw(block(uR"(one\r)"_s), {3, 4}, &device);
    EXPECT_EQ(device.calls(), QStringList{u"text 3,4 \"one\" Arial 12 red"_s});
}

TEST_F(TextBlockTest, several_lines_are_aligned_in_the_width_of_the_block)
{
    const TextBlock text = block(uR"(wide wide\la\rbc\n)"_s);
    TextBlock::draw(text, {100, 50}, &device);
    const int step = height(u"a"_s) + TextImage::fontLeading(font);
    const int right = 100 + text.width - width(u"a"_s);
    const int centre = 100 + (text.width - width(u"bc"_s)) / 2;
    EXPECT_EQ(device.calls(),
              (QStringList{u"text 100,50 \"wide wide\" Arial 12 red"_s,
                           u"text %1,%2 \"a\" Arial 12 red"_s.arg(right).arg(50 + step),
                           u"text %1,%2 \"bc\" Arial 12 red"_s.arg(centre).arg(50 + 2 * step)}));
}

TEST_F(TextBlockTest, an_empty_block_draws_nothing)
{
    TextBlock::draw({}, {0, 0}, &device);
    EXPECT_TRUE(device.calls().isEmpty());
}
