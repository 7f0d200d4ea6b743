#include "device/graph_style.h"

#include "graph/dot_parser.h"
#include "support/golden.h"
#include "support/recording_device.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

class GraphStyleTest : public testing::Test
{
protected:
    RecordingDevice device;
    std::unique_ptr<DotGraph> graph = std::make_unique<DotGraph>();
    GraphStyle style{graph.get(), &device};
    const QRectF wide{0, 0, 100, 50};

    void read(const QByteArray &text)
    {
        graph = parseDot(text);
        ASSERT_TRUE(graph);
        style = GraphStyle(graph.get(), &device);
    }
    DotNode *node(const QString &id) const { return graph->findNode(id); }
    DotEdge *edge() const { return graph->root()->edges.at(0); }
    Device::Color *paint(const QString &spec, const QRectF *bounds, double angle = 0.0,
                         const QString &kind = {})
    {
        return style.paint(spec, kind, angle, bounds);
    }
};

} // namespace

TEST_F(GraphStyleTest, no_spec_is_no_paint)
{
    EXPECT_EQ(paint(u""_s, &wide), nullptr);
}

TEST_F(GraphStyleTest, several_colours_without_room_are_the_first_of_them)
{
    const QRectF narrow(0, 0, 1.5, 50);
    const QRectF low(0, 0, 50, 1.5);
    for (const QRectF *bounds : {static_cast<const QRectF *>(nullptr), &narrow, &low})
        EXPECT_EQ(paint(u"red;blue"_s, bounds), device.color(u"red"_s));
    EXPECT_EQ(paint(u";blue"_s, nullptr), device.color(u"black"_s));
    EXPECT_EQ(paint(u"red"_s, &wide), device.color(u"red"_s));
}

TEST_F(GraphStyleTest, stops_are_spread_evenly)
{
    const Device::Color *color = paint(u"red;blue;white"_s, &wide);
    ASSERT_EQ(color->stopCount(), 3);
    EXPECT_EQ(color->offset(0), 0.0);
    EXPECT_EQ(color->offset(1), 0.5);
    EXPECT_EQ(color->offset(2), 1.0);
    EXPECT_EQ(color->name(2), "white");
    EXPECT_EQ(paint(u";blue"_s, &wide)->name(0), "");
}

TEST_F(GraphStyleTest, a_linear_gradient_runs_from_left_to_right_and_turns_with_the_angle)
{
    const Device::Color *flat = paint(u"red;blue"_s, &wide);
    EXPECT_EQ(flat->type(), Device::Color::Linear);
    EXPECT_NEAR(flat->start().x(), 0, 1e-6);
    EXPECT_NEAR(flat->start().y(), 25, 1e-6);
    EXPECT_NEAR(flat->stop().x(), 100, 1e-6);
    EXPECT_NEAR(flat->stop().y(), 25, 1e-6);
    const Device::Color *up = paint(u"red;blue"_s, &wide, 90.0);
    EXPECT_EQ(up->start(), QPointF(50, 50));
    EXPECT_EQ(up->stop(), QPointF(50, 0));
    read("digraph { a [fillcolor=\"red;blue\" gradientAngle=none] }");
    EXPECT_EQ(style.nodeFill(node(u"a"_s), &wide), flat);
}

TEST_F(GraphStyleTest, a_radial_gradient_reaches_the_corners_and_moves_its_focus)
{
    const QRectF bounds(0, 0, 30, 40);
    const Device::Color *centred = paint(u"red;blue"_s, &bounds, 0.0, u"filled,radial"_s);
    EXPECT_EQ(centred->type(), Device::Color::Radial);
    EXPECT_EQ(centred->start(), QPointF(15, 20));
    EXPECT_EQ(centred->stop(), QPointF(15, 20));
    EXPECT_EQ(centred->focalRadius(), 1.0);
    EXPECT_EQ(centred->radius(), 25.0);
    const Device::Color *moved = paint(u"red;blue"_s, &bounds, 90.0, u"radial"_s);
    EXPECT_EQ(moved->start(), QPointF(15, 20 - 18.75));
    EXPECT_EQ(paint(u"red;blue"_s, &bounds, 0.0, u"Radial"_s)->type(), Device::Color::Linear);
}

TEST_F(GraphStyleTest, fills_come_from_fillcolor_and_for_edges_from_color)
{
    read("digraph { graph [fillcolor=teal] a [fillcolor=red] b a -> b [color=blue fillcolor=lime] "
         "}");
    EXPECT_EQ(style.clusterFill(graph->root(), nullptr)->name(0), "teal");
    EXPECT_EQ(style.nodeFill(node(u"a"_s), nullptr)->name(0), "red");
    EXPECT_EQ(style.nodeFill(node(u"b"_s), nullptr)->name(0), "#FFFFFF");
    EXPECT_EQ(style.edgeFill(edge(), nullptr)->name(0), "blue");
}

TEST_F(GraphStyleTest, gradients_of_objects_read_style_and_angle)
{
    read("digraph { a [fillcolor=\"red;blue\" style=radial gradientAngle=90] }");
    const Device::Color *fill = style.nodeFill(node(u"a"_s), &wide);
    EXPECT_EQ(fill->type(), Device::Color::Radial);
    EXPECT_NE(fill->start(), fill->stop());
}

TEST_F(GraphStyleTest, a_font_needs_a_family_and_a_size)
{
    EXPECT_EQ(style.fontFor(u"Courier"_s, 9.6), device.font(u"Courier"_s, 10, 0));
    EXPECT_EQ(style.fontFor(u"Courier"_s, 0.0), device.defaultFont());
    EXPECT_EQ(style.fontFor(u""_s, 9.0), device.defaultFont());
    EXPECT_EQ(style.fontFor(u"Courier"_s, -3.0), device.font(u"Courier"_s, 12, 0));
}

TEST_F(GraphStyleTest, fonts_and_pens_are_told_apart_from_those_before)
{
    const Device::Font *font = style.fontFor(u"Courier"_s, 9.0);
    EXPECT_NE(style.fontFor(u"Times"_s, 9.0), font);
    EXPECT_EQ(style.fontFor(u"Courier"_s, 9.0), font);
    EXPECT_NE(style.fontFor(u"Courier"_s, 8.0), font);
    const Device::Pen *pen = style.penFor(u"red"_s, u""_s, 1);
    EXPECT_NE(style.penFor(u"blue"_s, u""_s, 1), pen);
    EXPECT_EQ(style.penFor(u"red"_s, u""_s, 1), pen);
    EXPECT_NE(style.penFor(u"red"_s, u"dashed"_s, 1), pen);
    EXPECT_EQ(style.penFor(u"red"_s, u""_s, 1), pen);
    EXPECT_NE(style.penFor(u"red"_s, u""_s, 2), pen);
}

TEST_F(GraphStyleTest, pens_read_style_and_width)
{
    const auto expectPen = [this](const QByteArray &kind, const QByteArray &width,
                                  int expectedStyle, int expectedWidth) {
        read("digraph { a [color=red style=\"" + kind + "\" penwidth=\"" + width + "\"] }");
        const Device::Pen *pen = style.nodePen(node(u"a"_s));
        EXPECT_EQ(pen->style(), expectedStyle) << kind.constData();
        EXPECT_EQ(pen->width(), expectedWidth) << width.constData();
        EXPECT_EQ(pen->color(), device.color(u"red"_s));
    };
    expectPen("", "", 0, 1);
    expectPen("filled,dashed", "2", 1, 2);
    expectPen("dotted", "1.5", 2, 1);
    expectPen("dotted,dashed", "0", 1, 1);
    expectPen("Dashed", "-3", 0, 1);
}

TEST_F(GraphStyleTest, a_plain_edge_pen_has_no_dashes)
{
    read("digraph { a -> b [style=dashed penwidth=3] }");
    EXPECT_EQ(style.edgePen(edge(), false)->style(), Device::Pen::Dashed);
    EXPECT_EQ(style.edgePen(edge(), true)->style(), Device::Pen::Solid);
    EXPECT_EQ(style.edgePen(edge(), true)->width(), 3);
}

TEST_F(GraphStyleTest, a_cluster_without_colour_has_a_black_pen)
{
    EXPECT_EQ(style.clusterPen(graph->root())->color(), device.color(u"black"_s));
}

TEST_F(GraphStyleTest, labels_take_font_and_colour_of_their_object)
{
    read("digraph { node [fontname=Courier fontsize=20 fontcolor=red] a [label=\"x\"] b }");
    const TextBlock label = style.nodeLabel(node(u"a"_s));
    ASSERT_EQ(label.lines.size(), 1);
    EXPECT_EQ(label.lines.at(0).text->font(), device.font(u"Courier"_s, 20, 0));
    EXPECT_EQ(label.lines.at(0).text->color(), device.color(u"red"_s));
    EXPECT_TRUE(style.nodeLabel(node(u"b"_s)).isEmpty());
    EXPECT_TRUE(style.clusterLabel(graph->root()).isEmpty());
}
