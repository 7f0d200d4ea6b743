// Drawings laid out by a program that is not ours. The texts are data; `foreign/layout.sh` made
// them from the graphs beside them, and each golden was looked at beside that program's own
// picture.

#include "graph/dot_parser.h"
#include "output/svg_rich_text.h"
#include "output/xdot.h"
#include "support/golden.h"
#include "support/recording_device.h"
#include "xdot/replay_support.h"

#include <QTemporaryDir>
#include <QXmlStreamReader>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

struct Drawing
{
    const char *name;
    qsizetype nodes;
    qsizetype edges;
    qsizetype texts;
    qsizetype ports; // edges that are bound to a port, so to a node of another name: "a:port"
};

// So that a failed test shows which.
void PrintTo(const Drawing &drawing, std::ostream *out)
{
    *out << drawing.name;
}

QString pathOf(const QString &name)
{
    return QString::fromUtf8(ORR_TEST_FOLDER "/foreign/") + name;
}

class ForeignDrawing : public testing::TestWithParam<Drawing>
{
protected:
    QString name = QString::fromUtf8(GetParam().name);
    QByteArray text = readTestFile(pathOf(name + u".xdot"_s));
};

QByteArray svgOf(const QByteArray &text)
{
    QByteArray svg;
    SvgRichText device(&svg);
    EXPECT_EQ(replayOn(text, device), u""_s);
    return svg;
}

// The number of elements that draw something.
int shapesIn(const QByteArray &svg)
{
    QXmlStreamReader reader(svg);
    int shapes = 0;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() != u"svg"_s)
            ++shapes;
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return shapes;
}

} // namespace

TEST_P(ForeignDrawing, replays_to_svg_as_it_was_seen)
{
    const QByteArray svg = svgOf(text);
    EXPECT_GT(shapesIn(svg), 0);
    EXPECT_TRUE(matchesGolden(svg, pathOf(name + u".svg"_s)));
}

TEST_P(ForeignDrawing, has_all_its_objects)
{
    RecordingDevice device;
    EXPECT_EQ(replayOn(text, device), u""_s);
    EXPECT_EQ(device.callsOf(u"beginNode"_s).size(), GetParam().nodes);
    EXPECT_EQ(device.callsOf(u"beginEdge"_s).size(), GetParam().edges);
    EXPECT_EQ(device.callsOf(u"text"_s).size(), GetParam().texts);
    EXPECT_EQ(device.callsOf(u"begin"_s).size(), 1);
}

// An edge that runs to a port finds no node to be connected to.
TEST_P(ForeignDrawing, keeps_its_objects_on_the_way_through_our_own_xdot)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"again.xdot"_s);
    XDot xdot(file);
    ASSERT_EQ(replayOn(text, xdot), u""_s);
    const std::unique_ptr<DotGraph> again = parseDot(readTestFile(file));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->allNodes().size(), GetParam().nodes);
    RecordingDevice device;
    EXPECT_EQ(replayOn(readTestFile(file), device), u""_s);
    EXPECT_EQ(device.callsOf(u"beginEdge"_s).size(), GetParam().edges - GetParam().ports);
}

INSTANTIATE_TEST_SUITE_P(
    Replay, ForeignDrawing,
    testing::Values(Drawing{"arrows", 50, 25, 50, 0}, Drawing{"circles", 10, 12, 10, 0},
                    Drawing{"clusters", 9, 12, 12, 0}, Drawing{"colours", 6, 6, 7, 0},
                    Drawing{"converted/fonts", 7, 6, 17, 0}, Drawing{"converted/html", 2, 1, 11, 0},
                    Drawing{"converted/ranks", 10, 9, 10, 0},
                    Drawing{"converted/undirected", 8, 9, 10, 0},
                    Drawing{"converted/records", 3, 3, 13, 0}, Drawing{"curves", 6, 13, 0, 0},
                    Drawing{"fonts", 7, 6, 15, 0}, Drawing{"forces", 7, 9, 9, 0},
                    Drawing{"gradients", 6, 3, 7, 0}, Drawing{"gradients_later", 6, 3, 7, 0},
                    Drawing{"large", 60, 74, 119, 0}, Drawing{"loops", 3, 9, 8, 1},
                    Drawing{"polygons", 25, 20, 25, 0}, Drawing{"records", 3, 3, 13, 2},
                    Drawing{"springs", 8, 15, 8, 0}, Drawing{"styles", 8, 7, 7, 0},
                    Drawing{"utf8", 6, 5, 8, 0}),
    [](const auto &test) {
        std::string name = test.param.name;
        std::replace(name.begin(), name.end(), '/', '_');
        return name;
    });

// What the dialect has no form for.
TEST(Foreign, html_strings_with_blanks_are_refused)
{
    EXPECT_FALSE(parseDot(readTestFile(pathOf(u"html.xdot"_s))));
}

TEST(Foreign, subgraphs_without_a_keyword_are_refused)
{
    EXPECT_FALSE(parseDot(readTestFile(pathOf(u"ranks.xdot"_s))));
}

TEST(Foreign, graphs_without_direction_are_refused)
{
    EXPECT_FALSE(parseDot(readTestFile(pathOf(u"undirected.xdot"_s))));
}
