#include "layout/sequence/uml_edges.h"

#include "sequence_fixture.h"
#include "support/golden.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

// Anchors at 100, 200 across and 50, 80, 120 down.
const QList<int> colPos{100, 200};
const QList<int> rowPos{50, 80, 120};

// Two nodes with an edge between them, each node to be made into an object by the test.
struct Ends : Fixture
{
    DotNode *a = node(u"a"_s);
    DotNode *b = node(u"b"_s);

    DotEdge *edgeAB(const QString &label = {}) { return edge(a, b, label); }
    QSize labelSize(const QString &line) { return textSize(line) + QSize(6, 6); }
    QStringList paint(GridObject &&object) { return paint(object); }
    QStringList paint(GridObject &object)
    {
        object.measure(style);
        object.paint(&device, colPos, rowPos, style);
        return device.calls();
    }
};

QString textCall(int left, int top, const QString &text)
{
    return u"text %1,%2 \"%3\" Arial 12 #000000"_s.arg(left).arg(top).arg(text);
}

} // namespace

TEST(UmlLifeLine, stands_on_the_cell_of_its_tail_and_measures_its_label)
{
    Ends ends;
    UmlActivation from(1, 1, 0, ends.a);
    UmlActivation to(2, 0, 0, ends.b);
    UmlLifeLine line(&from, &to, ends.edgeAB(u"life"_s));
    line.measure(ends.style);
    EXPECT_EQ(line.row(), 1);
    EXPECT_EQ(line.col(), 1);
    const QSize size = ends.labelSize(u"life"_s);
    EXPECT_EQ(line.width(), size.width());
    EXPECT_EQ(line.height(), size.height());
    EXPECT_EQ(line.xOffset(), -(size.width() / 2));
    EXPECT_EQ(line.yOffset(), -(size.height() / 2));
    EXPECT_FALSE(line.spansAxis(true));
    EXPECT_FALSE(line.spansAxis(false));
    EXPECT_EQ(line.objectKind(), 2);
}

TEST(UmlLifeLine, runs_down_from_the_bottom_of_the_tail_to_the_top_of_the_head)
{
    Ends ends;
    UmlActivation from(0, 0, 0, ends.a);
    from.setEndRow(1);
    UmlActivation to(2, 1, 0, ends.b);
    UmlLifeLine line(&from, &to, ends.edgeAB(u"not drawn"_s));
    line.measure(ends.style);
    const QStringList expected{
        u"beginEdge a->b"_s,
        u"polyline 100,79 100,120 pen #000000 solid 1"_s,
        u"endEdge"_s,
        u"connect a->b (none) (none)"_s,
    };
    EXPECT_EQ(ends.paint(line), expected);
}

TEST(UmlLifeLine, runs_up_from_the_top_of_the_tail_to_the_bottom_of_the_head)
{
    Ends ends;
    UmlActivation from(2, 0, 0, ends.a);
    UmlActivation to(0, 0, 0, ends.b);
    to.setEndRow(1);
    EXPECT_EQ(ends.paint(UmlLifeLine(&from, &to, ends.edgeAB())).at(1),
              u"polyline 100,120 100,79 pen #000000 solid 1"_s);
}

TEST(UmlLifeLine, within_one_row_counts_as_running_up)
{
    Ends ends;
    UmlActivation from(0, 0, 0, ends.a);
    UmlActivation to(0, 1, 0, ends.b);
    to.setEndRow(2);
    EXPECT_EQ(ends.paint(UmlLifeLine(&from, &to, ends.edgeAB())).at(1),
              u"polyline 100,50 100,119 pen #000000 solid 1"_s);
}

TEST(UmlLifeLine, is_dashed_by_its_style)
{
    Ends ends;
    UmlActivation from(0, 0, 0, ends.a);
    UmlActivation to(2, 0, 0, ends.b);
    DotEdge *edge = ends.edgeAB();
    edge->attributes.insert(u"style"_s, u"dashed"_s);
    EXPECT_EQ(ends.paint(UmlLifeLine(&from, &to, edge)).at(1),
              u"polyline 100,49 100,120 pen #000000 dashed 1"_s);
}

TEST(UmlMessage, stands_on_the_row_of_its_target_and_the_column_of_its_source)
{
    Ends ends;
    UmlActivation source(0, 0, 0, ends.a);
    UmlActivation target(1, 1, 0, ends.b);
    UmlMessage message(&source, &target, ends.edgeAB());
    message.measure(ends.style);
    EXPECT_EQ(message.row(), 1);
    EXPECT_EQ(message.col(), 0);
    EXPECT_TRUE(message.spansAxis(true));
    EXPECT_FALSE(message.spansAxis(false));
    EXPECT_EQ(message.objectKind(), 2);
}

TEST(UmlMessage, measures_its_label_and_hangs_above_its_row)
{
    Ends ends;
    UmlActivation source(0, 0, 0, ends.a);
    UmlActivation target(1, 1, 0, ends.b);
    UmlMessage message(&source, &target, ends.edgeAB(u"call"_s));
    message.measure(ends.style);
    const QSize size = ends.labelSize(u"call"_s);
    EXPECT_EQ(message.width(), size.width());
    EXPECT_EQ(message.height(), size.height());
    EXPECT_EQ(message.yOffset(), -size.height());
    UmlMessage bare(&source, &target, ends.edgeAB());
    bare.measure(ends.style);
    EXPECT_EQ(bare.width(), 0);
    EXPECT_EQ(bare.height(), 0);
    EXPECT_EQ(bare.yOffset(), 0);
}

TEST(UmlMessage, within_a_column_is_at_least_ten_by_ten)
{
    Ends ends;
    UmlActivation source(0, 0, 0, ends.a);
    UmlActivation target(1, 0, 1, ends.b);
    UmlMessage bare(&source, &target, ends.edgeAB());
    bare.measure(ends.style);
    EXPECT_EQ(bare.width(), 10);
    EXPECT_EQ(bare.height(), 10);
    EXPECT_EQ(bare.yOffset(), -10);
    UmlMessage labelled(&source, &target, ends.edgeAB(u"call"_s));
    labelled.measure(ends.style);
    EXPECT_EQ(labelled.width(), ends.labelSize(u"call"_s).width());
    EXPECT_EQ(labelled.height(), ends.labelSize(u"call"_s).height());
}

TEST(UmlMessage, label_starts_at_the_right_edge_of_a_source_left_of_the_target)
{
    Ends ends;
    UmlActivation source(0, 0, 1, ends.a);
    UmlActivation target(1, 1, 0, ends.b);
    EXPECT_EQ(measured(UmlMessage(&source, &target, ends.edgeAB(u"call"_s)), ends.style).xOffset(),
              -1 + 10);
}

TEST(UmlMessage, label_ends_at_the_left_edge_of_a_source_right_of_the_target)
{
    Ends ends;
    UmlActivation source(0, 1, 1, ends.a);
    UmlActivation target(1, 0, 0, ends.b);
    EXPECT_EQ(measured(UmlMessage(&source, &target, ends.edgeAB(u"call"_s)), ends.style).xOffset(),
              -1 - ends.labelSize(u"call"_s).width());
}

TEST(UmlMessage, to_the_right_is_an_arrow_from_the_source_to_the_left_edge_of_the_target)
{
    Ends ends;
    UmlActivation source(0, 0, 0, ends.a);
    UmlActivation target(1, 1, 0, ends.b);
    UmlMessage message(&source, &target, ends.edgeAB(u"call"_s));
    message.measure(ends.style);
    const QStringList expected{
        u"beginEdge a->b"_s,
        textCall(105 + 3, 80 - ends.labelSize(u"call"_s).height() + 3, u"call"_s),
        u"polyline 195,80 104,80 pen #000000 solid 1"_s,
        u"polygon 195,80 189,83 189,77 195,80 pen #000000 solid 1 fill #000000"_s,
        u"endEdge"_s,
        u"connect a->b (none) (none)"_s,
    };
    EXPECT_EQ(ends.paint(message), expected);
}

TEST(UmlMessage, to_the_left_is_an_arrow_from_the_source_to_the_right_edge_of_the_target)
{
    Ends ends;
    UmlActivation source(0, 1, 0, ends.a);
    UmlActivation target(1, 0, 0, ends.b);
    const QStringList expected{
        u"beginEdge a->b"_s,
        u"polyline 104,80 195,80 pen #000000 solid 1"_s,
        u"polygon 104,80 110,83 110,77 104,80 pen #000000 solid 1 fill #000000"_s,
        u"endEdge"_s,
        u"connect a->b (none) (none)"_s,
    };
    EXPECT_EQ(ends.paint(UmlMessage(&source, &target, ends.edgeAB())), expected);
}

TEST(UmlMessage, is_connected_to_the_nodes_of_its_ends_after_it_has_ended)
{
    Ends ends;
    ends.device.beginNode(ends.a);
    ends.device.beginNode(ends.b);
    UmlActivation source(0, 0, 0, ends.a);
    UmlActivation target(1, 1, 0, ends.b);
    EXPECT_EQ(ends.paint(UmlMessage(&source, &target, ends.edgeAB())).mid(5),
              (QStringList{u"endEdge"_s, u"connect a->b a b"_s}));
}

TEST(UmlMessage, dashes_and_colours_its_head_like_its_shaft)
{
    Ends ends;
    UmlActivation source(0, 0, 0, ends.a);
    UmlActivation target(1, 1, 0, ends.b);
    DotEdge *edge = ends.edgeAB();
    edge->attributes.insert(u"style"_s, u"dashed"_s);
    edge->attributes.insert(u"color"_s, u"navy"_s);
    const QStringList calls = ends.paint(UmlMessage(&source, &target, edge));
    EXPECT_EQ(calls.at(1), u"polyline 195,80 104,80 pen navy dashed 1"_s);
    EXPECT_EQ(calls.at(2), u"polygon 195,80 189,83 189,77 195,80 pen navy dashed 1 fill navy"_s);
}

TEST(UmlMessage, to_its_own_column_without_a_label_is_a_hook_whose_halves_meet)
{
    Ends ends;
    UmlActivation source(0, 0, 0, ends.a);
    UmlActivation target(1, 0, 1, ends.b);
    // Its box is 10 high and ends at 79: 70 + (79 - 70) / 2 is 74.
    const QStringList expected{
        u"beginEdge a->b"_s,
        u"polyline 104,70 118,70 118,74 pen #000000 solid 1"_s,
        u"polyline 108,80 118,80 118,74 pen #000000 solid 1"_s,
        u"polygon 108,80 114,83 114,77 108,80 pen #000000 solid 1 fill #000000"_s,
        u"endEdge"_s,
        u"connect a->b (none) (none)"_s,
    };
    EXPECT_EQ(ends.paint(UmlMessage(&source, &target, ends.edgeAB())), expected);
}

TEST(UmlMessage, to_its_own_column_with_a_label_leaves_the_stretch_beside_it_open)
{
    Ends ends;
    UmlActivation source(0, 0, 0, ends.a);
    UmlActivation target(1, 0, 1, ends.b);
    UmlMessage message(&source, &target, ends.edgeAB(u"check"_s));
    message.measure(ends.style);
    const int top = 80 - ends.labelSize(u"check"_s).height();
    const QStringList calls = ends.paint(message);
    EXPECT_EQ(calls.at(1), textCall(105 + 3, top + 3, u"check"_s));
    EXPECT_EQ(calls.at(2),
              u"polyline 104,%1 118,%1 118,%2 pen #000000 solid 1"_s.arg(top).arg(top + 3));
    EXPECT_EQ(calls.at(3), u"polyline 108,80 118,80 118,77 pen #000000 solid 1"_s);
}

TEST(UmlReturn, stands_on_its_own_row_and_the_column_of_its_source)
{
    Ends ends;
    UmlActivation source(0, 1, 0, ends.a);
    UmlActivation target(0, 0, 0, ends.b);
    UmlReturn back(2, &source, &target, true, ends.edgeAB());
    back.measure(ends.style);
    EXPECT_EQ(back.row(), 2);
    EXPECT_EQ(back.col(), 1);
    EXPECT_TRUE(back.spansAxis(true));
    EXPECT_FALSE(back.spansAxis(false));
    EXPECT_EQ(back.objectKind(), 2);
}

TEST(UmlReturn, leaves_its_activation_as_it_is)
{
    Ends ends;
    UmlActivation source(0, 1, 0, ends.a);
    UmlActivation target(0, 0, 0, ends.b);
    const UmlReturn back(9, &source, &target, true, ends.edgeAB());
    EXPECT_EQ(source.endRow(), 0);
}

TEST(UmlReturn, measures_its_label_which_reaches_three_below_the_line)
{
    Ends ends;
    UmlActivation source(0, 1, 0, ends.a);
    UmlActivation target(0, 0, 0, ends.b);
    UmlReturn back(2, &source, &target, true, ends.edgeAB(u"value"_s));
    back.measure(ends.style);
    const QSize size = ends.labelSize(u"value"_s);
    EXPECT_EQ(back.width(), size.width());
    EXPECT_EQ(back.height(), size.height());
    EXPECT_EQ(back.yOffset(), 3 - size.height());
}

TEST(UmlReturn, without_a_label_keeps_ten_free_above_its_row)
{
    Ends ends;
    UmlActivation source(0, 1, 0, ends.a);
    UmlActivation target(0, 0, 0, ends.b);
    UmlReturn back(2, &source, &target, true, ends.edgeAB());
    back.measure(ends.style);
    EXPECT_EQ(back.yOffset(), -10);
    EXPECT_EQ(back.height(), 0);
}

TEST(UmlReturn, label_stands_on_the_side_of_the_target)
{
    Ends ends;
    UmlActivation left(0, 0, 0, ends.a);
    UmlActivation right(0, 1, 0, ends.b);
    const int width = ends.labelSize(u"value"_s).width();
    UmlReturn rightward(2, &left, &right, true, ends.edgeAB(u"value"_s));
    rightward.measure(ends.style);
    EXPECT_EQ(rightward.xOffset(), -5 + 10);
    UmlReturn leftward(2, &right, &left, true, ends.edgeAB(u"value"_s));
    leftward.measure(ends.style);
    EXPECT_EQ(leftward.xOffset(), -5 - width);
}

TEST(UmlReturn, within_a_column_stands_on_the_left_where_a_message_stands_on_the_right)
{
    Ends ends;
    UmlActivation outer(0, 0, 0, ends.a);
    UmlActivation inner(0, 0, 1, ends.b);
    const int width = ends.labelSize(u"value"_s).width();
    DotEdge *edge = ends.edgeAB(u"value"_s);
    EXPECT_EQ(measured(UmlReturn(2, &inner, &outer, true, edge), ends.style).xOffset(), -1 - width);
    EXPECT_EQ(measured(UmlMessage(&inner, &outer, edge), ends.style).xOffset(), -1 + 10);
}

TEST(UmlReturn, to_the_left_is_an_open_arrow_on_its_row)
{
    Ends ends;
    UmlActivation source(0, 1, 0, ends.a);
    UmlActivation target(0, 0, 0, ends.b);
    DotEdge *edge = ends.edgeAB(u"value"_s);
    edge->attributes.insert(u"style"_s, u"dashed"_s);
    UmlReturn back(2, &source, &target, true, edge);
    back.measure(ends.style);
    const QSize size = ends.labelSize(u"value"_s);
    const QStringList expected{
        u"beginEdge a->b"_s,
        textCall(195 - size.width() + 3, 120 + 3 - size.height() + 3, u"value"_s),
        u"polyline 110,123 104,120 110,117 pen #000000 solid 1"_s,
        u"polyline 104,120 195,120 pen #000000 dashed 1"_s,
        u"endEdge"_s,
        u"connect a->b (none) (none)"_s,
    };
    EXPECT_EQ(ends.paint(back), expected);
}

TEST(UmlReturn, to_the_right_is_an_open_arrow_on_its_row)
{
    Ends ends;
    UmlActivation source(0, 0, 0, ends.a);
    UmlActivation target(0, 1, 0, ends.b);
    const QStringList expected{
        u"beginEdge a->b"_s,
        u"polyline 189,123 195,120 189,117 pen #000000 solid 1"_s,
        u"polyline 195,120 104,120 pen #000000 solid 1"_s,
        u"endEdge"_s,
        u"connect a->b (none) (none)"_s,
    };
    EXPECT_EQ(ends.paint(UmlReturn(2, &source, &target, true, ends.edgeAB())), expected);
}

TEST(UmlReturn, that_is_not_visible_leaves_no_trace_on_the_device)
{
    Ends ends;
    UmlActivation source(0, 1, 0, ends.a);
    UmlActivation target(0, 0, 0, ends.b);
    UmlReturn back(2, &source, &target, false, ends.edgeAB(u"value"_s));
    back.measure(ends.style);
    EXPECT_EQ(ends.paint(back), QStringList());
    EXPECT_EQ(back.width(), ends.labelSize(u"value"_s).width());
}
