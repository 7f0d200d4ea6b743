// Texts that are broken, cut off or lie. Every one must come to its end on every device, with the
// message that it deserves and in memory that its length accounts for.

#include "device/xdot_render.h"
#include "graph/dot_parser.h"
#include "output/file.h"
#include "output/svg_rich_text.h"
#include "output/xdot.h"
#include "support/golden.h"
#include "support/recording_device.h"
#include "xdot/replay_support.h"

#include <QTemporaryDir>

#include <random>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

const QString parseFault = u"Unable to parse input xdot"_s;

// The message of the replay to a raster. Where there is no image, for want of a page or of room,
// that is what the device says, and as good as none.
QString rasterMessage(const QByteArray &text)
{
    const QTemporaryDir folder;
    File device(folder.filePath(u"out.png"_s));
    const QString message = replayOn(text, device);
    const bool noImage =
        message == u"Draw too large\n"_s || message == u"Could not save image to file\n"_s;
    return noImage ? QString() : message;
}

// The messages of the replay on all devices; one if they agree.
QStringList messagesOf(const QByteArray &text)
{
    const QTemporaryDir folder;
    QByteArray svg;
    RecordingDevice recording;
    SvgRichText svgDevice(&svg);
    XDot xdot(folder.filePath(u"out.xdot"_s));
    QStringList messages{replayOn(text, recording), replayOn(text, svgDevice), replayOn(text, xdot),
                         rasterMessage(text)};
    messages.removeDuplicates();
    EXPECT_TRUE(svg.endsWith("</svg>\n"));
    EXPECT_FALSE(readTestFile(folder.filePath(u"out.xdot"_s)).isEmpty());
    return messages;
}

const QStringList accepted{u""_s};
const QStringList refused{parseFault};

// A drawing with all ops and attributes.
const QByteArray complete =
    "digraph g { graph [bb=\"0,0,100,50\", xdotversion=\"1.2\"];"
    " node [color=red]; edge [fontname=Arial];"
    " subgraph cluster_a { graph [_draw_=\"C 33 -[0 50 100 0 2 0 4 -blue 1 3 -red] P 4 0 0 9 0 9 9 "
    "0 9\"];"
    " n [rounded=3, pos=\"50,25\", width=\"0.5\", style=bold, penwidth=2,"
    " _draw_=\"S 6 -dashed c 3 -red C 4 -blue E 1 2 3 4 e 1 2 3 4 P 4 0 0 9 0 9 9 0 9"
    " B 4 0 0 1 1 2 2 3 3 b 4 0 0 1 1 2 2 3 3 L 2 0 0 5 5 p 3 0 0 1 1 2 2"
    " D 46 -M 0 50 L 1.25 0 C 1 2 3 4 5 6 Q 7 8 9 10.5 Z x d 19 -E 0 50 20 0 90 -180 I 1 2 3 4 2 "
    "-xy\","
    " _ldraw_=\"F 12 5 -Arial c 3 -red T 1 2 -1 30 2 -ab H 1 2 0 30 8 -<b>x</b>\"];"
    " } m; n -> m [_hdraw_=\"P 3 0 0 1 1 2 2\", _hldraw_=\"T 1 2 0 3 1 -x\"]; }";

} // namespace

TEST(Hostile, counts_that_lie)
{
    for (const QByteArray ops :
         {"P 4000000000 1 2", "P 2147483647 1 2", "p -1 1 2", "B 2147483647",
          "b 99999999 1 2 3 4 5", "L 2147483647 1 2,P 2147483647 ,B 2147483647 ,",
          "c 2147483647 -red", "C 99999999999 -red", "S 2147483647 -dashed", "D 2147483647 -M 0 0",
          "F 9 2147483647 -Arial", "C 30 -[0 0 1 1 2147483647 0 3 -red]",
          "c 30 -(0 0 1 1 1 1 2147483647 0 3 -red)", "C 30 -[0 0 1 1 -2147483648 0 3 -red]",
          "T 1 2 0 2147483647 2147483647 -ab", "H 1 2 1 -2147483648 -5 -ab",
          "I 1 2 3 4 2147483647 -x"}) {
        EXPECT_EQ(messagesOf(page("n [_draw_=\"" + ops + "\", _ldraw_=\"" + ops + "\"];")),
                  accepted)
            << ops.toStdString();
    }
}

TEST(Hostile, numbers_that_are_none_or_too_large)
{
    for (const QByteArray number :
         {"nan", "inf", "-inf", "1e308.", "-1e308.", "2147483647", "-2147483648",
          "99999999999999999999", "x", "", "--5", "0x1f"}) {
        QByteArray ops =
            "F # 5 -Arial E # # # # L 2 # # # # P 4 # # # # # # # # b 4 # # # # # # # #"
            " C 999 -[# # # # 2 # 3 -red # 4 -blue] E 1 1 5 5"
            " T # # # # 1 -x H # # 0 # 3 -<b> d 64 -M # # L # # C # # # # # # Q # # # #";
        ops.replace('#', number);
        QByteArray attributes = "pos=\"#,#\", width=\"#\", penwidth=\"#\", rounded=\"#\","
                                " fontsize=\"#\", ";
        attributes.replace('#', number);
        EXPECT_EQ(messagesOf(page("n [" + attributes + "_draw_=\"" + ops + "\", _ldraw_=\"" + ops
                                  + "\"];")),
                  accepted)
            << number.toStdString();
    }
}

TEST(Hostile, absurd_pages)
{
    for (const QByteArray bb :
         {"0,0,1,2000000000", "0,0,2000000000,1", "0,0,0,0", "0,0,-50,-50", "0,0,1e99,1e99",
          "nan,nan,nan,nan", "", ",", "1", "x,y,z,w", "0,0,1,1,1,1,1"}) {
        EXPECT_EQ(messagesOf("digraph g { graph [bb=\"" + bb + "\"]; n [_draw_=\"E 1 2 3 4\"]; }"),
                  accepted)
            << bb.toStdString();
    }
}

TEST(Hostile, drawings_without_a_page)
{
    EXPECT_EQ(messagesOf("digraph g { n [_draw_=\"E 1 2 3 4\"]; subgraph s { m []; } }"), accepted);
    EXPECT_EQ(messagesOf("digraph g { subgraph s { graph [bb=\"0,0,9,9\"]; m [_draw_=\"L 1 1 1\"];"
                         " } k [_draw_=\"L 1 1 1\"]; }"),
              accepted);
}

// Nothing set at all: neither fill nor pen colour nor font.
TEST(Hostile, paint_that_was_never_set_crashes_no_device)
{
    EXPECT_EQ(
        messagesOf(page("n [_draw_=\"E 1 2 3 4 P 3 0 0 1 1 2 2 b 4 0 0 1 1 2 2 3 3 L 2 0 0 5 5"
                        " D 7 -M 1 1 Z\", _ldraw_=\"T 1 2 0 9 3 -abc H 1 2 0 9 8 -<b>x</b>\"];")),
        accepted);
}

TEST(Hostile, a_text_cut_off_anywhere_is_refused)
{
    ASSERT_EQ(messagesOf(complete), accepted);
    for (qsizetype length = 0; length < complete.size(); length += 7)
        ASSERT_EQ(messagesOf(complete.first(length)), refused) << length;
}

TEST(Hostile, a_drawing_cut_off_anywhere_is_drawn_to_there)
{
    const qsizetype start = complete.indexOf("S 6 -dashed");
    const qsizetype end = complete.indexOf('"', start);
    for (qsizetype i = start; i < end; i += 3) {
        QByteArray text = complete;
        ASSERT_EQ(messagesOf(text.remove(i, end - i)), accepted) << i;
    }
}

TEST(Hostile, any_bytes_come_to_an_end)
{
    std::mt19937 random(11);
    const QByteArray alphabet = "{}[];=,\"-> \\\n<>0123456789.eEPpbBcCFSTHDdIMLQZ\xff\xc3\x01";
    for (int i = 0; i < 2000; ++i) {
        QByteArray text = complete;
        for (int k = 0; k < 6; ++k)
            text[qsizetype(random() % text.size())] =
                alphabet.at(qsizetype(random() % alphabet.size()));
        const QStringList messages = messagesOf(text);
        ASSERT_TRUE(messages == accepted || messages == refused) << text.toStdString();
    }
}

TEST(Hostile, a_nul_ends_the_text)
{
    EXPECT_EQ(messagesOf(QByteArray("digraph g {\0}", 13)), refused);
}

TEST(Hostile, a_hundred_thousand_nested_subgraphs)
{
    constexpr int levels = 100000;
    const QByteArray text = "digraph g { " + QByteArray("subgraph s { ").repeated(levels)
        + QByteArray("}").repeated(levels) + '}';
    RecordingDevice device;
    EXPECT_EQ(replayOn(text, device), u""_s);
    EXPECT_EQ(device.callsOf(u"endCluster"_s).size(), levels);
    QByteArray unclosed = text;
    unclosed.chop(levels);
    EXPECT_EQ(replayOn(unclosed, device), parseFault);
}

TEST(Hostile, deep_clusters_reach_the_xdot_device)
{
    QByteArray text = "digraph g { ";
    constexpr int levels = 20000;
    for (int i = 0; i < levels; ++i)
        text += "subgraph s" + QByteArray::number(i) + " { ";
    text += "n [_draw_=\"L 1 0 0\"]; " + QByteArray("}").repeated(levels + 1);
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"deep.xdot"_s);
    XDot device(file);
    EXPECT_EQ(replayOn(text, device), u""_s);
    EXPECT_EQ(readTestFile(file).count("subgraph"), levels);
}
