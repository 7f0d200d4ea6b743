#include "companion/check/watched_drawing.h"

#include "support/golden.h"

using namespace ORR;
using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

// A drawing of 100 x 50 points, of a graph with two labelled nodes and a legend.
class WatchedDrawingTest : public testing::Test
{
protected:
    WatchedDrawingTest() { device.begin(100, 50); }

    void drawRect(int left, int top, int right, int bottom)
    {
        device.drawRect({left, top}, {right, bottom}, 0, pen, nullptr);
    }
    Graph::Device::Text *text(const QString &string)
    {
        return device.text(string, nullptr, nullptr);
    }

    Graph::DotGraph graph;
    Graph::DotSubgraph *legend = graph.createCluster(graph.root(), u"Legend"_s, u"legend"_s);
    Graph::DotNode *a = graph.createNode(graph.root(), u"Alpha"_s, u"a"_s);
    Graph::DotNode *b = graph.createNode(graph.root(), u"Beta"_s, u"b"_s);
    Graph::DotNode *bare = graph.createNode(graph.root(), {}, u"bare"_s);
    WatchedDrawing device{&graph, legend};
    Graph::Device::Pen *pen = device.pen(device.color({}), 0, 1);
};

} // namespace

TEST_F(WatchedDrawingTest, knows_the_page_once_it_is_begun)
{
    EXPECT_EQ(device.page(), QSize(100, 50));
    EXPECT_EQ(WatchedDrawing(&graph, nullptr).page(), std::nullopt);
    EXPECT_EQ(device.end(), QString());
}

TEST_F(WatchedDrawingTest, sees_every_primitive_that_has_a_size)
{
    const auto sees = [&](const auto &draw) {
        WatchedDrawing watched(&graph, nullptr);
        watched.begin(100, 50);
        draw(&watched);
        return watched.drawsSomething();
    };
    const auto seesPath = [&](const auto &build) {
        return sees([&](WatchedDrawing *watched) {
            Graph::Device::Path *path = watched->createPath();
            build(path);
            watched->drawPath(path, pen, nullptr);
        });
    };
    const QList<QPoint> line{{0, 0}, {5, 0}};
    const QList<QPoint> point{{5, 5}, {5, 5}};
    EXPECT_FALSE(sees([](WatchedDrawing *) {}));
    EXPECT_TRUE(sees([&](WatchedDrawing *w) { w->drawRect({0, 0}, {0, 5}, 0, pen, nullptr); }));
    EXPECT_TRUE(sees([&](WatchedDrawing *w) { w->drawRect({9, 0}, {0, 5}, 0, pen, nullptr); }));
    EXPECT_FALSE(sees([&](WatchedDrawing *w) { w->drawRect({5, 5}, {4, 4}, 0, pen, nullptr); }));
    EXPECT_FALSE(sees([&](WatchedDrawing *w) { w->drawRect({5, 5}, {4, 5}, 0, pen, nullptr); }));
    EXPECT_FALSE(sees([&](WatchedDrawing *w) { w->drawRect({5, 5}, {5, 5}, 0, pen, nullptr); }));
    EXPECT_TRUE(sees([&](WatchedDrawing *w) { w->drawEllipse({5, 5}, 1, 1, pen, nullptr); }));
    EXPECT_FALSE(sees([&](WatchedDrawing *w) { w->drawEllipse({5, 5}, 0, 0, pen, nullptr); }));
    EXPECT_FALSE(sees([&](WatchedDrawing *w) { w->drawEllipse({5, 5}, -3, -3, pen, nullptr); }));
    EXPECT_TRUE(sees([&](WatchedDrawing *w) { w->drawPolyline(line, pen); }));
    EXPECT_FALSE(sees([&](WatchedDrawing *w) { w->drawPolyline(point, pen); }));
    EXPECT_FALSE(sees([&](WatchedDrawing *w) { w->drawPolyline({}, pen); }));
    EXPECT_TRUE(sees([&](WatchedDrawing *w) { w->drawPolygon(line, pen, nullptr); }));
    EXPECT_TRUE(sees([&](WatchedDrawing *w) { w->drawBezier(line, pen, nullptr); }));
    EXPECT_TRUE(sees([&](WatchedDrawing *w) { w->drawText({5, 5}, text(u"x"_s)); }));
    EXPECT_FALSE(sees([&](WatchedDrawing *w) { w->drawText({5, 5}, text(u" \n"_s)); }));
    EXPECT_FALSE(sees([&](WatchedDrawing *w) { w->drawText({5, 5}, nullptr); }));
    EXPECT_TRUE(sees([&](WatchedDrawing *w) { w->drawRichText({5, 5}, text(u"<b>x"_s)); }));
    EXPECT_FALSE(seesPath([](Graph::Device::Path *path) { path->moveTo({5, 5}); }));
    EXPECT_TRUE(seesPath([](Graph::Device::Path *path) {
        path->moveTo({5, 5});
        path->lineTo({8, 8});
    }));
    EXPECT_TRUE(seesPath([](Graph::Device::Path *path) { path->arcTo({0, 0}, {9, 9}, 0, 90); }));
    EXPECT_TRUE(seesPath([](Graph::Device::Path *path) { path->quadTo({0, 0}, {9, 9}); }));
    EXPECT_TRUE(seesPath([](Graph::Device::Path *path) { path->cubicTo({0, 0}, {9, 9}, {0, 0}); }));
}

TEST_F(WatchedDrawingTest, tells_what_lies_beside_the_page)
{
    drawRect(101, 0, 120, 50);
    drawRect(-20, 0, -1, 50);
    drawRect(0, 51, 100, 60);
    drawRect(0, -9, 100, -1);
    EXPECT_TRUE(device.drawsSomething());
    EXPECT_FALSE(device.showsSomething());
    drawRect(90, 40, 200, 200);
    EXPECT_TRUE(device.showsSomething());
}

TEST_F(WatchedDrawingTest, sees_a_text_that_reaches_into_the_page)
{
    device.drawText({-200, 10}, text(u"x"_s));
    EXPECT_FALSE(device.showsSomething());
    device.drawText({-200, 10}, text(QString(300, u'x')));
    EXPECT_TRUE(device.showsSomething());
}

TEST_F(WatchedDrawingTest, takes_a_legend_for_no_drawing)
{
    device.beginCluster(legend, true);
    device.drawText({5, 5}, text(u"Legend"_s));
    device.beginNode(a);
    drawRect(0, 0, 9, 9);
    device.endNode();
    device.endCluster();
    EXPECT_FALSE(device.drawsSomething());
    drawRect(0, 0, 9, 9);
    EXPECT_TRUE(device.drawsSomething());
    device.end();
    EXPECT_TRUE(device.draws(a));
}

TEST_F(WatchedDrawingTest, takes_a_legend_that_is_a_cell_for_one)
{
    device.beginCluster(legend, true);
    drawRect(0, 0, 9, 9);
    device.endCluster();
    EXPECT_TRUE(device.drawsSomething());
}

TEST_F(WatchedDrawingTest, knows_which_nodes_are_drawn)
{
    device.beginNode(a);
    drawRect(200, 200, 209, 209);
    device.endNode();
    device.beginNode(b);
    device.drawEllipse({5, 5}, 0, 0, pen, nullptr);
    device.endNode();
    drawRect(0, 0, 9, 9);
    device.end();
    EXPECT_TRUE(device.draws(a));
    EXPECT_FALSE(device.draws(b));
    EXPECT_FALSE(device.draws(bare));
}

TEST_F(WatchedDrawingTest, knows_which_labels_are_missing)
{
    device.beginCluster(legend, true);
    for (Graph::DotNode *node : {a, b, bare}) {
        device.beginNode(node);
        drawRect(0, 0, 9, 9);
        if (node == a)
            device.drawText({5, 5}, text(u"Alpha"_s));
        device.endNode();
    }
    device.endCluster();
    device.end();
    EXPECT_FALSE(device.isUnlabelled(a));
    EXPECT_TRUE(device.isUnlabelled(b));
    EXPECT_FALSE(device.isUnlabelled(bare));
    EXPECT_TRUE(device.isUnlabelled(legend));
}

TEST_F(WatchedDrawingTest, counts_rich_texts_that_are_too_dear)
{
    device.beginNode(b);
    device.drawRichText({5, 5}, text(u"<b>bold</b>"_s));
    EXPECT_EQ(device.tooDearTexts().count, 0);
    device.drawRichText({5, 5}, text(u"<table><tr><td colspan=60000>x</td></tr></table>"_s));
    device.endNode();
    device.drawRichText({5, 5}, text(u"<table><tr><td colspan=60001>x</td></tr></table>"_s));
    EXPECT_EQ(device.tooDearTexts().count, 2);
    EXPECT_EQ(device.tooDearTexts().first, b);
}

TEST_F(WatchedDrawingTest, counts_pictures_that_are_not_in_their_text)
{
    const QString inText =
        u"<img "
        u"src=\"data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAIAAACQd1PeAAAADElEQVR4nGP4"
        "z8AAAAMBAQDJ/pLvAAAAAElFTkSuQmCC\"/>"_s;
    device.beginNode(a);
    device.drawRichText({5, 5}, text(inText + u"<img/> <b src='a.png'>"_s));
    EXPECT_EQ(device.missingPictures().count, 0);
    device.drawRichText({5, 5}, text(u"<img src='a.png'/> and <IMG SRC=file:///b.png>"_s));
    device.drawRichText({5, 5}, text(u"<img src='data:image/png;base64,AAAA'/>"_s));
    EXPECT_EQ(device.missingPictures().count, 3);
    EXPECT_EQ(device.missingPictures().first, a);
}
