// A drawing that goes to xdot and comes back is the same drawing, moved by the margin; and what may
// differ differs as it is told to.

#include "device/xdot_render.h"
#include "graph/dot_parser.h"
#include "output/xdot.h"
#include "support/golden.h"
#include "support/recording_device.h"
#include "xdot/replay_support.h"
#include "xdot/round_trip.h"

#include <QTemporaryDir>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// Two nodes in nested clusters and two edges between them.
const QByteArray twoNodes = "digraph { subgraph cluster_o { subgraph cluster_i { a; } b; }"
                            " a -> b; a -> b; }";

const QString goldens = QString::fromUtf8(ORR_TEST_FOLDER "/round_trip");

using DrawNode = std::function<void(Device *)>;

// An engine that draws the node "a" and nothing else.
Engine nodeEngine(const DrawNode &draw)
{
    return [draw](DotGraph *graph, Device *device) {
        device->begin(120, 80);
        device->beginNode(graph->findNode(u"a"_s));
        draw(device);
        device->endNode();
        return device->end();
    };
}

// The calls of the replay of what the engine drew, between those that begin and end the node.
QStringList replayedCalls(const DrawNode &draw)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"drawing.xdot"_s);
    XDot xdot(file);
    const std::unique_ptr<DotGraph> graph = parseDot("digraph { a; }");
    EXPECT_EQ(nodeEngine(draw)(graph.get(), &xdot), u""_s);
    QStringList calls = replayCalls(readTestFile(file));
    EXPECT_EQ(calls.takeFirst(), u"begin 128 88"_s);
    EXPECT_EQ(calls.takeFirst(), u"beginNode a"_s);
    EXPECT_EQ(calls.takeLast(), u"endNode"_s);
    return calls;
}

Device::Pen *black(Device *device)
{
    return device->pen(device->color(u"#000000"_s), Device::Pen::Solid, 1);
}

// Everything that a device can draw, in one node each so that pens and corners keep apart.
QString drawReference(DotGraph *graph, Device *device)
{
    const auto pen = [&](const QString &color, int style, int width) {
        return device->pen(device->color(color), style, width);
    };
    const auto node = [&](const QString &id, const DrawNode &draw) {
        device->beginNode(graph->createNode(graph->root(), {}, id));
        draw(device);
        device->endNode();
    };
    device->begin(240, 160);
    node(u"shapes"_s, [&](Device *d) {
        d->drawPolygon({{10, 10}, {50, 10}, {30, 40}}, pen(u"#0000aa"_s, 0, 1),
                       d->color(u"#ffeecc"_s));
        d->drawEllipse({80, 25}, 20, 15, pen(u"red"_s, 1, 1), d->color(u"#80ff80"_s));
        d->drawPolyline({{110, 10}, {120, 40}, {130, 10}, {140, 40}}, pen(u"green"_s, 2, 1));
        d->drawBezier({{150, 40}, {160, 0}, {180, 80}, {190, 10}}, black(d), nullptr);
        d->drawBezier({{200, 10}, {230, 10}, {230, 40}, {200, 40}}, black(d),
                      d->color(u"#ccccff"_s));
    });
    node(u"wide"_s, [&](Device *d) {
        d->drawRect({10, 50}, {50, 80}, 0, pen(u"#aa0000"_s, 0, 3), d->color(u"#ffff80"_s));
    });
    node(u"rounded"_s, [&](Device *d) {
        d->drawRect({60, 50}, {100, 80}, 8, pen(u"#aa0000"_s, 1, 2), d->color(u"#80ffff"_s));
    });
    node(u"linear"_s, [&](Device *d) {
        d->drawRect({110, 50}, {150, 80}, 0, black(d),
                    d->linearGradient({110, 65}, {150, 65}, {u"#ff0000"_s, u"#0000ff"_s}, {0, 1}));
    });
    node(u"radial"_s, [&](Device *d) {
        d->drawEllipse(
            {180, 65}, 20, 15, black(d),
            d->radialGradient({180, 65}, 1, {180, 65}, 20, {u"#ffff00"_s, u"#00aa00"_s}, {0, 1}));
    });
    node(u"path"_s, [&](Device *d) {
        Device::Path *path = d->createPath();
        path->moveTo({10.5, 100});
        path->lineTo({40, 90});
        path->quadTo({60, 110}, {40, 130});
        path->cubicTo({30, 140}, {20, 120}, {10, 130});
        path->closeSubpath();
        d->drawPath(path, black(d), d->color(u"#eeaaee"_s));
        Device::Path *arc = d->createPath();
        arc->moveTo({110, 110});
        arc->arcTo({70, 90}, {110, 130}, 0, 270);
        arc->closeSubpath();
        d->drawPath(arc, black(d), d->color(u"#aaeeee"_s));
    });
    node(u"text"_s, [&](Device *d) {
        Device::Color *blue = d->color(u"#0000ff"_s);
        d->drawText({120, 90}, d->text(u"one line"_s, d->font(u"Arial"_s, 12, 0), blue));
        d->drawText({120, 110}, d->text(u"two\nlines, ü"_s, d->font(u"Arial"_s, 13, 0), blue));
    });
    return device->end();
}

} // namespace

TEST(RoundTrip, the_reference_drawing_comes_back_to_the_pixel)
{
    EXPECT_TRUE(roundTripHolds(goldens, u"reference"_s, "digraph { }", drawReference));
}

TEST(RoundTrip, shapes_come_back_moved_by_the_margin)
{
    EXPECT_EQ(replayedCalls([](Device *d) {
                  d->drawPolygon({{0, 0}, {10, 0}, {10, 10}}, black(d), d->color(u"red"_s));
                  d->drawEllipse({50, 60}, 7, 8, black(d), nullptr);
                  d->drawPolyline({{1, 2}, {3, 4}}, d->pen(d->color(u"blue"_s), 2, 1));
                  d->drawBezier({{0, 0}, {1, 1}, {2, 2}, {3, 3}}, black(d), nullptr);
              }),
              (QStringList{
                  u"polygon 4,4 14,4 14,14 4,4 pen #000000 solid 1 fill red"_s,
                  u"ellipse 54,64 radii 7,8 pen #000000 solid 1 fill none"_s,
                  u"polyline 5,6 7,8 pen blue dotted 1"_s,
                  u"bezier 4,4 5,5 6,6 7,7 pen #000000 solid 1 fill none"_s,
              }));
}

TEST(RoundTrip, gradients_come_back)
{
    EXPECT_EQ(replayedCalls([](Device *d) {
                  const QStringList names{u"red"_s, u"#00ff00"_s};
                  d->drawPolygon({{0, 0}}, black(d),
                                 d->linearGradient({1.5, 2}, {30, 40}, names, {0, 1}));
                  d->drawPolygon({{0, 0}}, black(d),
                                 d->radialGradient({1, 2}, 3, {4, 5}, 6, names, {0.25, 1}));
              }),
              (QStringList{u"polygon 4,4 pen #000000 solid 1"
                           " fill linear(5.5,6 34,44 red@0 #00ff00@1)"_s,
                           u"polygon 4,4 pen #000000 solid 1"
                           " fill radial(5,6 8,9 red@0.25 #00ff00@1)"_s}));
}

TEST(RoundTrip, paths_come_back)
{
    EXPECT_EQ(replayedCalls([](Device *d) {
                  Device::Path *path = d->createPath();
                  path->moveTo({0, 0});
                  path->arcTo({0, 0}, {20, 10}, 90, -180);
                  path->cubicTo({1, 2}, {3, 4}, {5.25, 6});
                  path->closeSubpath();
                  d->drawPath(path, black(d), nullptr);
              }),
              QStringList{u"path M 4,4 A 4,4 24,14 90 -180 C 5,6 7,8 9.25,10 Z"
                          " pen #000000 solid 1 fill none"_s});
}

TEST(RoundTrip, a_text_comes_back_to_its_place)
{
    for (const QString &string : {u"label"_s, u"x"_s, u"wide enough to be odd or even"_s}) {
        EXPECT_EQ(
            replayedCalls([&](Device *d) {
                d->drawText({10, 20}, d->text(string, d->font(u"Arial"_s, 9, 0), d->color({})));
            }),
            QStringList{u"text 14,24 \"%1\" Arial 9 black"_s.arg(string)});
    }
}

TEST(RoundTrip, names_of_any_characters_come_back_with_what_follows_them)
{
    for (const QString &name : {u"Déjà Vu"_s, u"新細明體"_s, u"x\"y"_s, u"a - 3 -b"_s, u"🎈"_s,
                                u"\\n"_s, u"\\\"n"_s, u"tab\tand <b> & ]"_s}) {
        EXPECT_EQ(replayedCalls([&](Device *d) {
                      d->drawPolygon({{0, 0}, {9, 0}, {9, 9}}, black(d), d->color(name));
                      d->drawPolygon({{0, 0}}, black(d),
                                     d->linearGradient({1, 2}, {3, 4}, {name, name}, {0, 1}));
                      d->drawText({10, 20}, d->text(name, d->font(name, 9, 0), d->color(name)));
                  }),
                  (QStringList{
                      u"polygon 4,4 13,4 13,13 4,4 pen #000000 solid 1 fill %1"_s.arg(name),
                      u"polygon 4,4 pen #000000 solid 1 fill linear(5,6 7,8 %1@0 %1@1)"_s.arg(name),
                      u"text 14,24 \"%1\" %1 9 %1"_s.arg(name)}));
    }
}

TEST(RoundTrip, a_text_of_several_lines_comes_back_as_several_texts)
{
    const QStringList calls = replayedCalls([](Device *d) {
        d->drawText({10, 20}, d->text(u"a\nb"_s, d->font(u"Arial"_s, 9, 0), d->color({})));
    });
    ASSERT_EQ(calls.size(), 2);
    EXPECT_EQ(calls.first(), u"text 14,24 \"a\" Arial 9 black"_s);
}

TEST(RoundTrip, rich_text_stays_rich)
{
    EXPECT_EQ(replayedCalls([](Device *d) {
                  d->drawRichText(
                      {10, 20},
                      d->text(u"<b>\"x\"</b>"_s, d->font(u"Arial"_s, 9, 0), d->color({})));
              }),
              QStringList{u"richtext 14,24 \"<b>\"x\"</b>\" Arial 9 black"_s});
}

TEST(RoundTrip, texts_come_back_behind_all_shapes_of_their_object)
{
    const QStringList calls = replayedCalls([](Device *d) {
        d->drawText({0, 0}, d->text(u"a"_s, nullptr, d->color({})));
        d->drawPolyline({{0, 0}}, black(d));
    });
    EXPECT_TRUE(calls.first().startsWith(u"polyline"_s));
    EXPECT_TRUE(calls.last().startsWith(u"text"_s));
}

TEST(RoundTrip, the_style_of_a_font_is_lost)
{
    EXPECT_EQ(replayedCalls([](Device *d) {
                  Device::Font *bold = d->font(u"Arial"_s, 9, Device::Font::Bold);
                  d->drawText({0, 0}, d->text(u"a"_s, bold, d->color({})));
              }),
              QStringList{u"text 4,4 \"a\" Arial 9 black"_s});
}

TEST(RoundTrip, pen_width_and_corner_radius_become_those_of_the_whole_object)
{
    EXPECT_EQ(replayedCalls([](Device *d) {
                  d->drawRect({0, 0}, {20, 10}, 0, black(d), nullptr);
                  d->drawRect({0, 0}, {20, 10}, 3, d->pen(d->color({}), 0, 2), nullptr);
              }),
              (QStringList{u"rect 4,4 24,14 radius 3 pen #000000 solid 2 fill none"_s,
                           u"rect 4,4 24,14 radius 3 pen black solid 2 fill none"_s}));
}

TEST(RoundTrip, a_square_rectangle_comes_back_as_a_polygon)
{
    EXPECT_EQ(replayedCalls([](Device *d) {
                  d->drawRect({0, 0}, {20, 10}, 0, black(d), nullptr);
              }),
              QStringList{u"polygon 4,4 24,4 24,14 4,14 4,4 pen #000000 solid 1 fill none"_s});
}

TEST(RoundTrip, objects_come_back_with_their_nesting_and_their_edges)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"drawing.xdot"_s);
    const std::unique_ptr<DotGraph> graph = parseDot(twoNodes);
    XDot xdot(file);
    xdot.begin(10, 10);
    DotSubgraph *outer = graph->findSubgraph(u"cluster_o"_s);
    DotSubgraph *inner = graph->findSubgraph(u"cluster_i"_s);
    DotNode *a = graph->findNode(u"a"_s);
    DotNode *b = graph->findNode(u"b"_s);
    xdot.beginCluster(outer, true);
    xdot.beginCluster(inner, true);
    xdot.beginNode(a);
    xdot.drawPolyline({{1, 1}}, black(&xdot));
    xdot.endNode();
    xdot.endCluster();
    xdot.beginNode(b);
    xdot.endNode();
    xdot.endCluster();
    for (int x : {7, 8}) {
        DotEdge *edge = graph->takeEdge(a, b);
        xdot.beginEdge(edge);
        xdot.drawPolyline({{x, 1}}, black(&xdot));
        xdot.connect(edge, a, b);
        xdot.endEdge();
    }
    EXPECT_EQ(xdot.end(), u""_s);
    // The second node has no attributes, so that no statement begins it again.
    EXPECT_EQ(
        replayCalls(readTestFile(file)),
        (QStringList{u"begin 18 18"_s, u"beginCluster cluster_o"_s, u"beginCluster cluster_i"_s,
                     u"beginNode a"_s, u"polyline 5,5 pen #000000 solid 1"_s, u"endNode"_s,
                     u"endCluster"_s, u"beginEdge a->b"_s, u"polyline 11,5 pen #000000 solid 1"_s,
                     u"endEdge"_s, u"connect a->b a (none)"_s, u"beginEdge a->b"_s,
                     u"polyline 12,5 pen #000000 solid 1"_s, u"endEdge"_s,
                     u"connect a->b a (none)"_s, u"endCluster"_s}));
}

// The same drawing through xdot any number of times only moves.
TEST(RoundTrip, a_second_round_changes_nothing_but_the_margin)
{
    const QTemporaryDir folder;
    const QString first = folder.filePath(u"1.xdot"_s);
    const QString second = folder.filePath(u"2.xdot"_s);
    const std::unique_ptr<DotGraph> graph = parseDot("digraph { }");
    XDot device(first);
    EXPECT_EQ(drawReference(graph.get(), &device), u""_s);
    XDot again(second);
    EXPECT_EQ(replayOn(readTestFile(first), again), u""_s);
    const QStringList once = replayCalls(readTestFile(first));
    const QStringList twice = replayCalls(readTestFile(second));
    ASSERT_EQ(twice.size(), once.size());
    for (qsizetype i = 0; i < once.size(); ++i)
        EXPECT_EQ(twice.at(i).section(u' ', 0, 0), once.at(i).section(u' ', 0, 0));
}

// What the text form cannot carry.
TEST(RoundTrip, a_text_that_ends_in_a_backslash_does_not_read_back)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"drawing.xdot"_s);
    XDot xdot(file);
    const std::unique_ptr<DotGraph> graph = parseDot("digraph { a; }");
    const DrawNode draw = [](Device *d) {
        d->drawText({0, 0}, d->text(u"C:\\"_s, nullptr, d->color({})));
    };
    EXPECT_EQ(nodeEngine(draw)(graph.get(), &xdot), u""_s);
    EXPECT_FALSE(parseDot(readTestFile(file)));
}
