// The SVG for a place within a page: its size, its groups, its ids and its links.
#include "output/embedded_svg.h"

#include "drawn.h"
#include "support/golden.h"

#include <QRegularExpression>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

class EmbeddedSvgTest : public testing::Test
{
protected:
    DotNode *node(const QString &id, const QString &url = {})
    {
        DotNode *made = graph.createNode(graph.root(), {}, id);
        if (!url.isEmpty())
            graph.setNodeAttribute(made, u"url"_s, url);
        return made;
    }

    // What `draw(device)` gives on a page of 100 by 50; without the lines of the frame.
    template <typename Draw>
    QByteArray embedded(Draw draw)
    {
        QByteArray bytes;
        EmbeddedSvg device(&bytes, {}, &graph);
        device.begin(100, 50);
        const auto frame = QByteArray("</desc>\n");
        draw(device);
        EXPECT_EQ(device.end(), QString());
        EXPECT_TRUE(isWellFormed(bytes));
        bytes.remove(0, bytes.indexOf(frame) + frame.size());
        return bytes.chopped(QByteArray("</svg>\n").size());
    }

    static void line(EmbeddedSvg &device) { device.drawPolyline({{0, 0}, {1, 1}}, nullptr); }

    DotGraph graph;
    static constexpr char drawnLine[] =
        " <polyline points=\"0,0 1,1\" stroke=\"none\" fill=\"none\"/>\n";
};

} // namespace

TEST_F(EmbeddedSvgTest, has_a_view_box_a_title_and_a_description)
{
    graph.setGraphAttribute(graph.root(), u"label"_s, u"</title><script>\\nx"_s);
    DotNode *one = node(u"a"_s);
    graph.createEdge(one, node(u"b"_s), {});
    graph.createSubgraph(graph.root(), {});
    graph.createSubgraph(graph.root(), {});
    QByteArray bytes;
    EmbeddedSvg device(&bytes, {.background = u"#ff000080"_s}, &graph);
    device.begin(100, 50);
    EXPECT_EQ(device.end(), QString());
    EXPECT_EQ(bytes,
              "<svg width=\"100\" height=\"50\" viewBox=\"0 0 100 50\" "
              "xmlns=\"http://www.w3.org/2000/svg\" "
              "xmlns:xlink=\"http://www.w3.org/1999/xlink\" version=\"1.1\">\n"
              "<title>&lt;/title&gt;&lt;script&gt; x</title>\n"
              "<desc>2 nodes, 1 edge, 2 clusters</desc>\n"
              " <rect x=\"0\" y=\"0\" width=\"100\" height=\"50\" fill-opacity=\"0.501961\" "
              "fill=\"#ff0000\"/>\n"
              "</svg>\n");
}

TEST_F(EmbeddedSvgTest, has_the_name_of_the_graph_for_a_title_where_there_is_no_label)
{
    const auto titleOf = [&](const QString &name) {
        graph.setName(name);
        QByteArray bytes;
        EmbeddedSvg device(&bytes, {}, &graph);
        device.begin(100, 50);
        EXPECT_EQ(device.end(), QString());
        const qsizetype start = bytes.indexOf("<title>");
        return start < 0 ? QByteArray() : bytes.mid(start, bytes.indexOf('\n', start) - start);
    };
    EXPECT_EQ(titleOf(u"calls of\n<main>"_s), "<title>calls of &lt;main&gt;</title>");
    EXPECT_EQ(titleOf(u"name"_s), "") << "all texts that we write have that";
    EXPECT_EQ(titleOf({}), "");
    graph.setGraphAttribute(graph.root(), u"label"_s, u"Calls"_s);
    EXPECT_EQ(titleOf(u"calls"_s), "<title>Calls</title>");
}

TEST_F(EmbeddedSvgTest, has_a_group_for_each_object)
{
    DotNode *a = node(u"a"_s);
    DotNode *b = node(u"b-c_d"_s);
    DotEdge *edge = graph.createEdge(a, b, {});
    DotSubgraph *cluster = graph.createSubgraph(graph.root(), u"c"_s);
    EXPECT_EQ(embedded([&](EmbeddedSvg &device) {
                  device.beginCluster(cluster, true);
                  device.beginNode(b);
                  line(device);
                  device.endNode();
                  device.endCluster();
                  device.beginEdge(edge);
                  device.endEdge();
                  device.connect(edge, a, b);
              }),
              QByteArray("<g id=\"cluster-c\" class=\"cluster\">\n"
                         "<g id=\"node-b-c_d\" class=\"node\">\n")
                  + drawnLine + "</g>\n</g>\n<g id=\"edge-a--b-c_d\" class=\"edge\">\n</g>\n");
}

TEST_F(EmbeddedSvgTest, has_ids_that_are_valid_and_unique)
{
    const QStringList names{u"a"_s,      u"a"_s,      u"a"_s,      u"a.2"_s,
                            u"a b"_s,    u"\"><g "_s, u"\u00e4"_s, QString(QChar(0xD800)),
                            u"a.2e.2"_s, u"A"_s};
    const QByteArray svg = embedded([&](EmbeddedSvg &device) {
        for (const QString &name : names) {
            device.beginNode(node(name));
            device.endNode();
        }
    });
    QStringList ids;
    auto matches = QRegularExpression(u" id=\"([^\"]*)\""_s).globalMatch(QString::fromUtf8(svg));
    while (matches.hasNext())
        ids += matches.next().captured(1);
    ASSERT_EQ(ids.size(), names.size());
    EXPECT_EQ(ids.first(6),
              QStringList({u"node-a"_s, u"node-a.2"_s, u"node-a.3"_s, u"node-a.2e.2"_s,
                           u"node-a.20.b"_s, u"node-.22..3e..3c.g.20."_s}));
    EXPECT_EQ(ids.at(6), u"node-.c3..a4."_s);
    for (const QString &id : std::as_const(ids))
        EXPECT_TRUE(QRegularExpression(u"^[A-Za-z][-_.A-Za-z0-9]*$"_s).match(id).hasMatch())
            << id.toStdString();
    EXPECT_EQ(QSet<QString>(ids.begin(), ids.end()).size(), names.size());
}

TEST_F(EmbeddedSvgTest, links_what_an_object_draws_itself)
{
    DotNode *a = node(u"a"_s, u"https://a.example/?b&c=\"d"_s);
    DotSubgraph *cluster = graph.createSubgraph(graph.root(), u"c"_s);
    graph.setGraphAttribute(cluster, u"URL"_s, u"c.html"_s);
    EXPECT_EQ(embedded([&](EmbeddedSvg &device) {
                  device.beginCluster(cluster, true);
                  line(device);
                  line(device);
                  device.beginNode(a);
                  device.drawRect({0, 0}, {1, 2}, 0, nullptr, nullptr);
                  device.endNode();
                  device.beginNode(node(u"b"_s, u"javascript:alert(1)"_s));
                  line(device);
                  device.endNode();
                  device.endCluster();
              }),
              QByteArray("<g id=\"cluster-c\" class=\"cluster\">\n<a xlink:href=\"c.html\">\n")
                  + drawnLine + drawnLine
                  + "</a>\n<g id=\"node-a\" class=\"node\">\n"
                    "<a xlink:href=\"https://a.example/?b&amp;c=%22d\">\n"
                    " <rect x=\"0\" y=\"0\" width=\"1\" height=\"2\" stroke=\"none\" "
                    "fill=\"none\"/>\n"
                    "</a>\n</g>\n<g id=\"node-b\" class=\"node\">\n"
                  + drawnLine + "</g>\n</g>\n");
}

TEST_F(EmbeddedSvgTest, nests_no_deeper_than_readers_go)
{
    QList<DotSubgraph *> clusters{graph.root()};
    for (int i = 0; i < 1000; ++i)
        clusters += graph.createSubgraph(clusters.last(), u"c%1"_s.arg(i));
    graph.setGraphAttribute(clusters.at(100), u"url"_s, u"a"_s);
    const QByteArray svg = embedded([&](EmbeddedSvg &device) {
        for (DotSubgraph *cluster : clusters.sliced(1))
            device.beginCluster(cluster, true);
        line(device); // not what the last group draws
        for (int i = 0; i < 900; ++i)
            device.endCluster();
        line(device); // but this is
        for (int i = 0; i < 100; ++i)
            device.endCluster();
        device.endCluster(); // of nothing
        device.beginNode(node(u"n"_s));
        device.endNode();
    });
    EXPECT_EQ(svg.count("<g "), 101);
    EXPECT_EQ(svg.count("</g>"), 101);
    EXPECT_EQ(svg.count("<a "), 1);
    EXPECT_TRUE(svg.contains(drawnLine + QByteArray("<a xlink:href=\"a\">\n") + drawnLine));
    EXPECT_TRUE(svg.endsWith("<g id=\"node-n\" class=\"node\">\n</g>\n"));
}

TEST_F(EmbeddedSvgTest, closes_what_a_drawing_leaves_open)
{
    EXPECT_EQ(embedded([&](EmbeddedSvg &device) {
                  device.beginNode(node(u"n"_s, u"a"_s));
                  line(device);
              }),
              QByteArray("<g id=\"node-n\" class=\"node\">\n<a xlink:href=\"a\">\n") + drawnLine
                  + "</a>\n</g>\n");
}

TEST_F(EmbeddedSvgTest, defines_each_gradient_once_under_a_name_for_what_it_is)
{
    const auto draw = [](EmbeddedSvg &device, const QStringList &colors) {
        for (const QString &color : colors)
            device.drawEllipse(
                {1, 1}, 1, 1, nullptr,
                device.linearGradient({0, 0}, {1, 1}, {color, u"white"_s}, {0.0, 1.0}));
    };
    const QByteArray both = embedded([&](EmbeddedSvg &device) {
        draw(device, {u"red"_s, u"blue"_s, u"red"_s});
    });
    EXPECT_EQ(both.count("<linearGradient "), 2);
    const auto useOf = [](const QByteArray &svg, qsizetype from) {
        const qsizetype place = svg.indexOf("fill=\"url(#gradient-", from);
        return svg.sliced(place, 38);
    };
    const QByteArray red = useOf(both, 0);
    EXPECT_TRUE(red.endsWith(")\"")) << red.toStdString();
    EXPECT_EQ(both.count(red), 2);
    EXPECT_EQ(useOf(both, both.lastIndexOf("<ellipse")), red);
    EXPECT_TRUE(embedded([&](EmbeddedSvg &device) { draw(device, {u"red"_s}); }).contains(red));
}

TEST_F(EmbeddedSvgTest, opens_only_what_can_be_written)
{
    EmbeddedSvg device(u"no/where/a.svg"_s, {}, &graph);
    device.begin(100, 50);
    device.beginNode(node(u"n"_s, u"a"_s));
    line(device);
    device.endNode();
    EXPECT_EQ(device.end(), u"Unable to open file\n"_s);
}
