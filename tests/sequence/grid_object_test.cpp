#include "layout/sequence/grid_object.h"

#include "sheet.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <limits>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

// What the base does when a class says nothing.
class PlainObject : public GridObject
{
public:
    PlainObject(int row, int col, DotNode *node) : GridObject(row, col, node) { }
    void paint(Device *, const QList<int> &, const QList<int> &, const GraphStyle &) const override
    {
    }
    int objectKind() const override { return NodeKind; }
};

} // namespace

TEST(GridObject, is_as_large_as_its_label_with_a_padding_of_three_on_every_side)
{
    Sheet sheet;
    PlainObject object(0, 0, sheet.node(u"a"_s, u"Till"_s));
    object.measure(sheet.style);
    EXPECT_EQ(object.width(), sheet.textSize(u"Till"_s).width() + 6);
    EXPECT_EQ(object.height(), sheet.textSize(u"Till"_s).height() + 6);
}

TEST(GridObject, without_a_label_has_no_size)
{
    Sheet sheet;
    PlainObject object(0, 0, sheet.node(u"a"_s));
    object.measure(sheet.style);
    EXPECT_EQ(object.width(), 0);
    EXPECT_EQ(object.height(), 0);
}

TEST(GridObject, keeps_the_label_that_it_was_measured_with)
{
    Sheet sheet;
    DotNode *node = sheet.node(u"a"_s, u"Till"_s);
    PlainObject object(0, 0, node);
    EXPECT_EQ(object.width(), 0);
    object.measure(sheet.style);
    sheet.graph.setNodeAttribute(node, u"label"_s, u"a longer one"_s);
    EXPECT_EQ(object.width(), sheet.textSize(u"Till"_s).width() + 6);
}

TEST(GridObject, is_centred_on_its_anchor_with_halves_truncated)
{
    Sheet sheet;
    PlainObject object(0, 0, sheet.node(u"a"_s, u"Till"_s));
    object.measure(sheet.style);
    EXPECT_EQ(object.xOffset(), -((sheet.textSize(u"Till"_s).width() + 6) / 2));
    EXPECT_EQ(object.yOffset(), -((sheet.textSize(u"Till"_s).height() + 6) / 2));
}

TEST(GridObject, spans_no_axis)
{
    Sheet sheet;
    PlainObject object(0, 0, sheet.node(u"a"_s));
    object.measure(sheet.style);
    EXPECT_FALSE(object.spansAxis(true));
    EXPECT_FALSE(object.spansAxis(false));
}

TEST(GridObject, lies_at_its_offset_from_the_anchor_of_its_cell)
{
    Sheet sheet;
    PlainObject object(1, 2, sheet.node(u"a"_s, u"Till"_s));
    object.measure(sheet.style);
    const int width = object.width();
    const int height = object.height();
    const QRect bounds = object.bounds({10, 20, 300}, {7, 400});
    EXPECT_EQ(bounds, QRect(300 - width / 2, 400 - height / 2, width, height));
}

TEST(GridObject, bounds_without_a_size_end_one_unit_before_they_begin)
{
    Sheet sheet;
    PlainObject object(0, 0, sheet.node(u"a"_s));
    object.measure(sheet.style);
    const QRect bounds = object.bounds({50}, {60});
    EXPECT_EQ(bounds.topLeft(), QPoint(50, 60));
    EXPECT_EQ(bounds.bottomRight(), QPoint(49, 59));
}

TEST(GridObject, reads_anchors_beyond_the_grid_as_zero)
{
    Sheet sheet;
    PlainObject object(5, -3, sheet.node(u"a"_s));
    object.measure(sheet.style);
    EXPECT_EQ(object.bounds({50}, {60}).topLeft(), QPoint(0, 0));
}

TEST(ElementLabel, is_the_label_of_each_kind)
{
    Sheet sheet;
    DotNode *a = sheet.node(u"a"_s, u"node"_s);
    DotSubgraph *s = sheet.subgraph(u"s"_s, u"the cluster"_s);
    DotEdge *e = sheet.edge(a, a, u"an edge"_s);
    const QSize padding(6, 6);
    EXPECT_EQ(labelRectangle(elementLabel(a, 0, sheet.style)),
              QRect({}, sheet.textSize(u"node"_s) + padding));
    EXPECT_EQ(labelRectangle(elementLabel(s, 1, sheet.style)),
              QRect({}, sheet.textSize(u"the cluster"_s) + padding));
    EXPECT_EQ(labelRectangle(elementLabel(e, 2, sheet.style)),
              QRect({}, sheet.textSize(u"an edge"_s) + padding));
}

TEST(ElementLabel, is_empty_for_no_element_an_unknown_kind_and_no_label)
{
    Sheet sheet;
    DotNode *labelled = sheet.node(u"a"_s, u"node"_s);
    EXPECT_EQ(labelRectangle(elementLabel(nullptr, 0, sheet.style)), QRect());
    EXPECT_EQ(labelRectangle(elementLabel(labelled, 3, sheet.style)), QRect());
    EXPECT_EQ(labelRectangle(elementLabel(sheet.node(u"b"_s), 0, sheet.style)), QRect());
}

TEST(LabelRectangle, covers_all_lines)
{
    Sheet sheet;
    const TextBlock block = sheet.style.nodeLabel(sheet.node(u"a"_s, u"one\\nlonger line"_s));
    const QRect rectangle = labelRectangle(block);
    EXPECT_EQ(rectangle.width(), sheet.textSize(u"longer line"_s).width() + 6);
    EXPECT_EQ(rectangle.height(), block.height + 6);
    EXPECT_GT(block.height, sheet.textSize(u"one"_s).height());
}

TEST(GridRect, is_inclusive_and_saturates)
{
    EXPECT_EQ(gridRect(10, 20, 30, 40), QRect(10, 20, 30, 40));
    EXPECT_EQ(gridRect(highest, lowest, 10, -10).topLeft(), QPoint(highest, lowest));
    EXPECT_EQ(gridRect(highest, lowest, 10, -10).bottomRight(), QPoint(highest, lowest));
}
