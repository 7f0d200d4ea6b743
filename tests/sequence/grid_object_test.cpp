#include "layout/sequence/grid_object.h"

#include "sequence_fixture.h"
#include "support/golden.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

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
    Fixture fixture;
    PlainObject object(0, 0, fixture.node(u"a"_s, u"Till"_s));
    object.measure(fixture.style);
    EXPECT_EQ(object.width(), fixture.textSize(u"Till"_s).width() + 6);
    EXPECT_EQ(object.height(), fixture.textSize(u"Till"_s).height() + 6);
}

TEST(GridObject, without_a_label_has_no_size)
{
    Fixture fixture;
    PlainObject object(0, 0, fixture.node(u"a"_s));
    object.measure(fixture.style);
    EXPECT_EQ(object.width(), 0);
    EXPECT_EQ(object.height(), 0);
}

TEST(GridObject, keeps_the_label_that_it_was_measured_with)
{
    Fixture fixture;
    DotNode *node = fixture.node(u"a"_s, u"Till"_s);
    PlainObject object(0, 0, node);
    EXPECT_EQ(object.width(), 0);
    object.measure(fixture.style);
    fixture.graph.setNodeAttribute(node, u"label"_s, u"a longer one"_s);
    EXPECT_EQ(object.width(), fixture.textSize(u"Till"_s).width() + 6);
}

TEST(GridObject, is_centred_on_its_anchor_with_halves_truncated)
{
    Fixture fixture;
    PlainObject object(0, 0, fixture.node(u"a"_s, u"Till"_s));
    object.measure(fixture.style);
    EXPECT_EQ(object.xOffset(), -((fixture.textSize(u"Till"_s).width() + 6) / 2));
    EXPECT_EQ(object.yOffset(), -((fixture.textSize(u"Till"_s).height() + 6) / 2));
}

TEST(GridObject, spans_no_axis)
{
    Fixture fixture;
    PlainObject object(0, 0, fixture.node(u"a"_s));
    object.measure(fixture.style);
    EXPECT_FALSE(object.spansAxis(true));
    EXPECT_FALSE(object.spansAxis(false));
}

TEST(GridObject, lies_at_its_offset_from_the_anchor_of_its_cell)
{
    Fixture fixture;
    PlainObject object(1, 2, fixture.node(u"a"_s, u"Till"_s));
    object.measure(fixture.style);
    const int width = object.width();
    const int height = object.height();
    const QRect bounds = object.bounds({10, 20, 300}, {7, 400});
    EXPECT_EQ(bounds, QRect(300 - width / 2, 400 - height / 2, width, height));
}

TEST(GridObject, bounds_without_a_size_end_one_unit_before_they_begin)
{
    Fixture fixture;
    PlainObject object(0, 0, fixture.node(u"a"_s));
    object.measure(fixture.style);
    const QRect bounds = object.bounds({50}, {60});
    EXPECT_EQ(bounds.topLeft(), QPoint(50, 60));
    EXPECT_EQ(bounds.bottomRight(), QPoint(49, 59));
}

TEST(GridObject, reads_anchors_beyond_the_grid_as_zero)
{
    Fixture fixture;
    PlainObject object(5, -3, fixture.node(u"a"_s));
    object.measure(fixture.style);
    EXPECT_EQ(object.bounds({50}, {60}).topLeft(), QPoint(0, 0));
}

TEST(ElementLabel, is_the_label_of_each_kind)
{
    Fixture fixture;
    DotNode *a = fixture.node(u"a"_s, u"node"_s);
    DotSubgraph *s = fixture.subgraph(u"s"_s, u"the cluster"_s);
    DotEdge *e = fixture.edge(a, a, u"an edge"_s);
    const QSize padding(6, 6);
    EXPECT_EQ(labelRectangle(elementLabel(a, 0, fixture.style)),
              QRect({}, fixture.textSize(u"node"_s) + padding));
    EXPECT_EQ(labelRectangle(elementLabel(s, 1, fixture.style)),
              QRect({}, fixture.textSize(u"the cluster"_s) + padding));
    EXPECT_EQ(labelRectangle(elementLabel(e, 2, fixture.style)),
              QRect({}, fixture.textSize(u"an edge"_s) + padding));
}

TEST(ElementLabel, is_empty_for_no_element_an_unknown_kind_and_no_label)
{
    Fixture fixture;
    DotNode *labelled = fixture.node(u"a"_s, u"node"_s);
    EXPECT_EQ(labelRectangle(elementLabel(nullptr, 0, fixture.style)), QRect());
    EXPECT_EQ(labelRectangle(elementLabel(labelled, 3, fixture.style)), QRect());
    EXPECT_EQ(labelRectangle(elementLabel(fixture.node(u"b"_s), 0, fixture.style)), QRect());
}

TEST(LabelRectangle, covers_all_lines)
{
    Fixture fixture;
    const TextBlock block = fixture.style.nodeLabel(fixture.node(u"a"_s, u"one\\nlonger line"_s));
    const QRect rectangle = labelRectangle(block);
    EXPECT_EQ(rectangle.width(), fixture.textSize(u"longer line"_s).width() + 6);
    EXPECT_EQ(rectangle.height(), block.height + 6);
    EXPECT_GT(block.height, fixture.textSize(u"one"_s).height());
}
