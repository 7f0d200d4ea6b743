#include "layout/graflib/node_outline.h"

#include "layout/graflib/edge_painter.h"
#include "layout/graflib/expander.h"
#include "layout/graflib/node_size.h"

#include <gtest/gtest.h>

using namespace ORR::Graph::Layout;

namespace {

constexpr NodeBox box40x20{10, 20, 50, 40};

std::optional<Outline> outline(NodeShape shape, bool isDouble = false, bool isRounded = false)
{
    return outlineOf({.shape = shape, .isDouble = isDouble, .rounded = isRounded, .fontSize = 12},
                     box40x20);
}

double widthOf(NodeShape shape, bool isRounded = false)
{
    return outlineAllowance({.shape = shape, .rounded = isRounded, .fontSize = 12});
}

} // namespace

TEST(NodeOutline, none_has_no_figure)
{
    EXPECT_FALSE(outline(NodeShape::None));
    EXPECT_FALSE(outline(NodeShape::None, true));
}

TEST(NodeOutline, an_inner_figure_belongs_to_a_double_one)
{
    for (const NodeShape shape : {NodeShape::Hexagon, NodeShape::Octagon, NodeShape::Oval,
                                  NodeShape::Parallelogram, NodeShape::Rectangle}) {
        EXPECT_FALSE(outline(shape)->inner);
        EXPECT_TRUE(outline(shape, true)->inner);
    }
}

TEST(NodeOutline, polygons_are_closed)
{
    for (const NodeShape shape :
         {NodeShape::Hexagon, NodeShape::Octagon, NodeShape::Parallelogram}) {
        const auto drawn = outline(shape, true);
        const Polygon outer = std::get<Polygon>(drawn->outer);
        EXPECT_EQ(outer.constFirst(), outer.constLast());
        const Polygon inner = std::get<Polygon>(*drawn->inner);
        EXPECT_EQ(inner.constFirst(), inner.constLast());
        EXPECT_EQ(inner.size(), outer.size());
    }
}

TEST(NodeOutline, round_corners_are_three_quarters_of_the_font_size)
{
    const auto drawn = outline(NodeShape::Rectangle, true, true);
    const RoundedRect outer = std::get<RoundedRect>(drawn->outer);
    EXPECT_EQ(outer.topLeft, QPoint(10, 20));
    EXPECT_EQ(outer.bottomRight, QPoint(50, 40));
    EXPECT_EQ(outer.radius, 9);
    const RoundedRect inner = std::get<RoundedRect>(*drawn->inner);
    EXPECT_EQ(inner.topLeft, QPoint(12, 22));
    EXPECT_EQ(inner.radius, 7);
}

TEST(NodeOutline, allowance_goes_by_the_shape)
{
    EXPECT_EQ(widthOf(NodeShape::Hexagon), 10);
    EXPECT_EQ(widthOf(NodeShape::Octagon), 16);
    EXPECT_EQ(widthOf(NodeShape::Oval), 18);
    EXPECT_EQ(widthOf(NodeShape::Parallelogram), 10);
    EXPECT_EQ(widthOf(NodeShape::Rectangle), 0);
    EXPECT_EQ(widthOf(NodeShape::Rectangle, true), 18);
    EXPECT_EQ(widthOf(NodeShape::None, true), 0);
}

TEST(NodeSize, is_the_label_the_margins_and_the_outline)
{
    EXPECT_EQ(nodeSize({30, 15}, {3, 5}, {}), QSizeF(36, 25));
    EXPECT_EQ(nodeSize({30, 15}, {3, 5}, {.shape = NodeShape::Hexagon}), QSizeF(46, 25));
    EXPECT_EQ(nodeSize({30, 15}, {3, 5}, {.isDouble = true}), QSizeF(40, 29));
}

TEST(ExpanderPlace, is_the_side_where_the_edges_leave)
{
    const QSize glyph(8, 6);
    EXPECT_EQ(expanderPlace(box40x20, glyph, 0), QPointF(47, 26.5));
    EXPECT_EQ(expanderPlace(box40x20, glyph, 1), QPointF(5, 26.5));
    EXPECT_EQ(expanderPlace(box40x20, glyph, 2), QPointF(25.5, 17));
    EXPECT_EQ(expanderPlace(box40x20, glyph, -1), QPointF(25.5, 37));
}

TEST(ArrowHead, points_away_from_the_point_before_and_saturates)
{
    EXPECT_EQ(arrowTriangle({20, 9}, {5, 9}), (QList<QPoint>{{20, 9}, {14, 6}, {14, 12}, {20, 9}}));
    EXPECT_EQ(arrowTriangle({20, 9}, {20, 0}),
              (QList<QPoint>{{20, 9}, {26, 6}, {26, 12}, {20, 9}}));
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_EQ(arrowTriangle({most, most}, {most, 0}).at(2), QPoint(most, most));
}
