// The drawing within a page that tells of its objects: groups, boxes, and the primitives of SVG.
#include "output/page_svg.h"

#include "drawn.h"
#include "reference_drawing.h"
#include "support/golden.h"
#include "support/page_rects.h"

#include <QRegularExpression>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

class PageSvgTest : public testing::Test
{
protected:
    DotNode *node(const QString &id) { return graph.createNode(graph.root(), {}, id); }

    // What `draw(device)` gives on a page of 100 by 50; without the element around it.
    template <typename Draw>
    QByteArray paged(Draw draw)
    {
        device.begin(100, 50);
        draw();
        EXPECT_EQ(device.end(), QString());
        EXPECT_TRUE(isWellFormed(bytes));
        const QByteArray inner = bytes.mid(bytes.indexOf('\n') + 1);
        return inner.chopped(QByteArray("</svg>\n").size());
    }

    void line(QPoint from, QPoint to) { device.drawPolyline({from, to}, nullptr); }

    // Left, top, right and bottom.
    QList<int> box(size_t i) const
    {
        const CoveredBox &covered = device.objects().at(i).box;
        return {covered.left, covered.top, covered.right, covered.bottom};
    }

    DotGraph graph;
    QByteArray bytes;
    PageSvg device{&bytes, u"A \"title\" <b>"_s, u"whole"_s};
};

} // namespace

TEST_F(PageSvgTest, is_an_element_with_a_size_and_a_name)
{
    EXPECT_EQ(paged([] {}), "");
    EXPECT_EQ(bytes,
              "<svg id=\"drawing\" xmlns=\"http://www.w3.org/2000/svg\" width=\"100\" "
              "height=\"50\" viewBox=\"0 0 100 50\" role=\"group\" "
              "aria-label=\"A &quot;title&quot; &lt;b&gt;\">\n</svg>\n");
    EXPECT_EQ(device.size(), QSize(100, 50));
}

TEST_F(PageSvgTest, has_no_size_below_zero)
{
    device.begin(-3, 7);
    EXPECT_EQ(device.end(), QString());
    EXPECT_TRUE(bytes.contains("width=\"0\" height=\"7\" viewBox=\"0 0 0 7\"")) << bytes.data();
}

TEST_F(PageSvgTest, nests_a_group_for_each_object_as_drawn)
{
    DotNode *a = node(u"a\"<"_s);
    DotNode *b = node(u"b"_s);
    DotEdge *edge = graph.createEdge(a, b, {});
    DotSubgraph *cluster = graph.createSubgraph(graph.root(), u"c"_s);
    EXPECT_EQ(paged([&] {
                  device.beginCluster(graph.root(), true);
                  device.beginCluster(cluster, true);
                  device.beginNode(a);
                  line({1, 2}, {3, 4});
                  device.endNode();
                  device.endCluster();
                  device.beginEdge(edge);
                  device.endEdge();
                  device.connect(edge, a, b);
                  device.endCluster();
              }),
              "<g data-kind=\"cluster\" data-id=\"whole\">\n"
              "<g data-kind=\"cluster\" data-id=\"c\">\n"
              "<g data-kind=\"node\" data-id=\"a&quot;&lt;\">\n"
              " <polyline points=\"1,2 3,4\" stroke=\"none\" fill=\"none\"/>\n</g>\n</g>\n"
              "<g data-kind=\"edge\" data-id=\"a&quot;&lt;-&gt;b\">\n</g>\n</g>\n");
    ASSERT_EQ(device.objects().size(), 4U);
    EXPECT_EQ(device.objects()[0].object, graph.root());
    EXPECT_EQ(device.objects()[2].id, u"a\"<"_s);
    EXPECT_EQ(device.objects()[3].object, edge);
}

TEST_F(PageSvgTest, hears_what_an_object_and_those_within_it_cover)
{
    (void)paged([&] {
        device.beginCluster(graph.root(), true);
        device.drawRect({10, 10}, {20, 30}, 0, nullptr, nullptr);
        device.beginNode(node(u"a"_s));
        device.drawEllipse({40, 20}, 5, 7, nullptr, nullptr);
        device.endNode();
        device.endCluster();
        device.beginNode(node(u"empty"_s));
        device.endNode();
        line({-100, -100}, {500, 500}); // of no object
    });
    EXPECT_EQ(box(0), QList({10, 10, 45, 30}));
    EXPECT_EQ(box(1), QList({35, 13, 45, 27}));
    EXPECT_TRUE(device.objects()[2].box.isNull());
}

TEST_F(PageSvgTest, box_of_a_text_is_that_which_was_measured)
{
    Device::Text *text = device.text(u"Wide\nlow"_s, nullptr, device.color({}));
    const QSize size = text->font()->sizeOf(text->text());
    (void)paged([&] {
        device.beginNode(node(u"a"_s));
        device.drawText({7, 8}, text);
        device.endNode();
    });
    EXPECT_GT(size.height(), 12);
    EXPECT_EQ(box(0), QList({7, 8, 7 + size.width(), 8 + size.height()}));
}

// A quarter of a circle, not all of it.
TEST_F(PageSvgTest, box_of_a_path_is_that_of_its_arcs)
{
    (void)paged([&] {
        device.beginNode(node(u"a"_s));
        Device::Path *path = device.createPath();
        path->moveTo({100, 50});
        path->arcTo({0, 0}, {100, 100}, 0, 90);
        device.drawPath(path, nullptr, nullptr);
        device.endNode();
    });
    EXPECT_GE(box(0).at(0), 49);
    EXPECT_LE(box(0).at(3), 51);
    EXPECT_NEAR(box(0).at(2), 100, 1);
    EXPECT_NEAR(box(0).at(1), 0, 1);
}

TEST_F(PageSvgTest, boxes_end_where_numbers_do)
{
    constexpr int largest = std::numeric_limits<int>::max();
    (void)paged([&] {
        device.beginNode(node(u"a"_s));
        device.drawEllipse({largest, -largest}, 100, 100, nullptr, nullptr);
        line({-largest, -largest}, {largest, largest});
        device.endNode();
    });
    EXPECT_EQ(box(0).at(2), largest);
    EXPECT_EQ(device.objects()[0].box.width(), largest);
}

// All of what a device can draw, once the groups are taken away.
TEST_F(PageSvgTest, has_the_primitives_of_svg)
{
    const auto whole = [](auto &drawing) {
        drawReference(drawing);
        drawing.end();
    };
    whole(device);
    QByteArray plain;
    SvgRichText svg(&plain);
    whole(svg);
    static const QRegularExpression groups(u"<g data-kind=[^>]*>\\n|</g>\\n"_s);
    static const QRegularExpression prefix(u"text-\\d+-"_s);
    const auto inner = [](const QByteArray &text) {
        QString primitives = QString::fromUtf8(text.mid(text.indexOf("<svg")));
        return primitives.mid(primitives.indexOf(u'\n')).remove(groups).remove(prefix);
    };
    EXPECT_GT(inner(plain).size(), 1000);
    EXPECT_EQ(inner(bytes), inner(withRectsOfPages(plain)));
}

TEST_F(PageSvgTest, has_corners_of_rectangles_and_no_side_below_zero)
{
    EXPECT_EQ(
        paged([&] {
            device.drawRect({10, 20}, {13, 25}, 0, nullptr, nullptr);
            device.drawRect({10, 20}, {13, 25}, 2, nullptr, nullptr);
            device.drawRect({10, 20}, {13, 19}, 0, nullptr, nullptr);
            device.drawRect({10, 20}, {9, 25}, 2, nullptr, nullptr);
            device.drawRect({10, 20}, {10, 25}, 0, nullptr, nullptr);
        }),
        " <path d=\"M10,20h3v5h-3z\" stroke=\"none\" fill=\"none\"/>\n"
        " <rect x=\"10\" y=\"20\" width=\"3\" height=\"5\" rx=\"2\" stroke=\"none\" "
        "fill=\"none\"/>\n"
        " <rect x=\"10\" y=\"20\" width=\"3\" height=\"0\" stroke=\"none\" fill=\"none\"/>\n"
        " <rect x=\"10\" y=\"20\" width=\"0\" height=\"5\" rx=\"2\" stroke=\"none\" "
        "fill=\"none\"/>\n"
        " <rect x=\"10\" y=\"20\" width=\"0\" height=\"5\" stroke=\"none\" fill=\"none\"/>\n");
}

// Groups go down to a depth that browsers take; below it objects lie in the last of them.
TEST_F(PageSvgTest, deep_objects_have_no_group)
{
    constexpr int depth = 100'000;
    DotSubgraph *cluster = graph.createSubgraph(graph.root(), u"c"_s);
    const QByteArray inner = paged([&] {
        for (int i = 0; i < depth; ++i)
            device.beginCluster(cluster, true);
        line({1, 2}, {3, 4});
        for (int i = 0; i < depth; ++i)
            device.endCluster();
        device.beginNode(node(u"a"_s));
        device.endNode();
    });
    EXPECT_EQ(device.objects().size(), 401U);
    EXPECT_EQ(inner.count("<g "), 401);
    EXPECT_EQ(inner.count("</g>"), 401);
    EXPECT_EQ(box(0), QList({1, 2, 3, 4}));
}

TEST_F(PageSvgTest, what_is_left_open_is_closed_and_what_is_not_open_stays)
{
    EXPECT_EQ(paged([&] {
                  device.endNode();
                  device.beginNode(node(u"a"_s));
                  device.beginNode(node(u"b"_s));
                  line({1, 2}, {3, 4});
              }).count("</g>"),
              2);
    EXPECT_EQ(box(0), QList({1, 2, 3, 4}));
}
