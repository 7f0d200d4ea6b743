#include "layout/sequence/uml_painter.h"

#include "sequence_fixture.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

// Anchors at 100, 200 across and 50, 80, 120 down.
const QList<int> colPos{100, 200};
const QList<int> rowPos{50, 80, 120};

// What draws a diagram of that one node.
QStringList paintNode(DiagramFixture &fixture, const UmlNode &node)
{
    fixture.add(node);
    return fixture.paint(colPos, rowPos);
}

UmlNode activation(DotNode *node, UmlCell cell, int endRow, int nesting = 0)
{
    return {UmlNode::Activation, cell, node, endRow, nesting};
}

// Two activations with an edge between them, which is read as the graph would be.
struct Ends : DiagramFixture
{
    DotNode *a = node(u"a"_s);
    DotNode *b = node(u"b"_s);

    // Of an activation that ends where it begins.
    void stand(UmlCell atA, UmlCell atB, int nestingB = 0)
    {
        add(activation(a, atA, atA.row));
        add(activation(b, atB, atB.row, nestingB));
    }
    DotEdge *edgeAB(const QString &label = {}) { return edge(a, b, label); }

    // The calls that draw the edge, without those of its ends.
    QStringList paintEdge(UmlEdge::Kind kind, DotEdge *edge, bool visible = true)
    {
        const UmlCell tail = parts.nodes.at(0).cell;
        const UmlCell head = parts.nodes.at(1).cell;
        const int row = kind == UmlEdge::Message ? head.row : tail.row;
        parts.edges.append({kind, {row, tail.col}, edge, 0, 1, visible});
        return ownCalls();
    }
    // Of a return, which has a row of its own.
    QStringList paintReturn(int row, DotEdge *edge, bool visible = true)
    {
        parts.edges.append(
            {UmlEdge::Return, {row, parts.nodes.at(0).cell.col}, edge, 0, 1, visible});
        return ownCalls();
    }
    QStringList ownCalls()
    {
        constexpr qsizetype ofNode = 3; // begin, rect and end
        return paint(colPos, rowPos).mid(2 * ofNode);
    }
};

QString textCall(int left, int top, const QString &text)
{
    return u"text %1,%2 \"%3\" Arial 12 #000000"_s.arg(left).arg(top).arg(text);
}

} // namespace

TEST(PaintNode, draws_an_object_as_a_box_with_its_label)
{
    DiagramFixture fixture;
    const QSize size = fixture.labelSize(u"Shop"_s);
    const QPoint corner = QPoint(100, 50) - QPoint(size.width() / 2, size.height() / 2);
    const QStringList expected{
        u"beginNode a"_s,
        u"rect %1,%2 %3,%4 radius 0 pen #000000 solid 1 fill #FFFFFF"_s.arg(corner.x())
            .arg(corner.y())
            .arg(corner.x() + size.width() - 1)
            .arg(corner.y() + size.height() - 1),
        textCall(corner.x() + 3, corner.y() + 3, u"Shop"_s),
        u"endNode"_s,
    };
    EXPECT_EQ(paintNode(fixture, {UmlNode::Object, {}, fixture.node(u"a"_s, u"Shop"_s)}), expected);
}

TEST(PaintNode, draws_an_object_without_a_label_as_a_box_that_ends_before_it_begins)
{
    DiagramFixture fixture;
    const QStringList expected{
        u"beginNode a"_s,
        u"rect 100,50 99,49 radius 0 pen #000000 solid 1 fill #FFFFFF"_s,
        u"endNode"_s,
    };
    EXPECT_EQ(paintNode(fixture, {UmlNode::Object, {}, fixture.node(u"a"_s)}), expected);
}

TEST(PaintNode, takes_the_first_colour_of_a_gradient)
{
    DiagramFixture fixture;
    DotNode *node = fixture.node(u"a"_s);
    node->attributes.insert(u"fillcolor"_s, u"red;blue"_s);
    EXPECT_EQ(paintNode(fixture, {UmlNode::Object, {}, node}).at(1),
              u"rect 100,50 99,49 radius 0 pen #000000 solid 1 fill red"_s);
}

TEST(PaintNode, draws_an_activation_as_a_bar_without_its_label)
{
    DiagramFixture fixture;
    const QStringList expected{
        u"beginNode a"_s,
        u"rect 95,50 104,79 radius 0 pen #000000 solid 1 fill #FFFFFF"_s,
        u"endNode"_s,
    };
    EXPECT_EQ(paintNode(fixture, activation(fixture.node(u"a"_s, u"label"_s), {}, 1)), expected);
}

TEST(PaintNode, draws_a_found_message_as_a_dot_on_its_anchor)
{
    DiagramFixture fixture;
    const QStringList expected{
        u"beginNode a"_s,
        u"ellipse 200,80 radii 3,3 pen #000000 solid 1 fill #FFFFFF"_s,
        u"endNode"_s,
    };
    EXPECT_EQ(paintNode(fixture, {UmlNode::FoundMessage, {1, 1}, fixture.node(u"a"_s, u"label"_s)}),
              expected);
}

TEST(PaintNode, shows_a_spacer_to_the_device_and_draws_nothing)
{
    DiagramFixture fixture;
    UmlNode spacer{UmlNode::Spacer, {}, fixture.node(u"a"_s, u"label"_s)};
    spacer.room = {sizeOfLabel, sizeOfLabel};
    EXPECT_EQ(paintNode(fixture, spacer), (QStringList{u"beginNode a"_s, u"endNode"_s}));
}

TEST(PaintNode, leaves_no_trace_of_the_spacer_that_closes_a_fragment)
{
    DiagramFixture fixture;
    EXPECT_EQ(paintNode(fixture, closingSpacer({})), QStringList());
}

TEST(PaintLifeLine, runs_down_from_the_bottom_of_the_tail_to_the_top_of_the_head)
{
    Ends ends;
    ends.add(activation(ends.a, {0, 0}, 1));
    ends.add(activation(ends.b, {2, 1}, 2));
    const QStringList expected{
        u"beginEdge a->b"_s,
        u"polyline 100,79 100,120 pen #000000 solid 1"_s,
        u"endEdge"_s,
        u"connect a->b a b"_s,
    };
    EXPECT_EQ(ends.paintEdge(UmlEdge::LifeLine, ends.edgeAB(u"not drawn"_s)), expected);
}

TEST(PaintLifeLine, runs_up_from_the_top_of_the_tail_to_the_bottom_of_the_head)
{
    Ends ends;
    ends.add(activation(ends.a, {2, 0}, 2));
    ends.add(activation(ends.b, {0, 0}, 1));
    EXPECT_EQ(ends.paintEdge(UmlEdge::LifeLine, ends.edgeAB()).at(1),
              u"polyline 100,120 100,79 pen #000000 solid 1"_s);
}

TEST(PaintLifeLine, within_one_row_counts_as_running_up)
{
    Ends ends;
    ends.add(activation(ends.a, {0, 0}, 0));
    ends.add(activation(ends.b, {0, 1}, 2));
    EXPECT_EQ(ends.paintEdge(UmlEdge::LifeLine, ends.edgeAB()).at(1),
              u"polyline 100,50 100,119 pen #000000 solid 1"_s);
}

TEST(PaintLifeLine, is_dashed_by_its_style)
{
    Ends ends;
    ends.stand({0, 0}, {2, 0});
    DotEdge *edge = ends.edgeAB();
    edge->attributes.insert(u"style"_s, u"dashed"_s);
    EXPECT_EQ(ends.paintEdge(UmlEdge::LifeLine, edge).at(1),
              u"polyline 100,49 100,120 pen #000000 dashed 1"_s);
}

TEST(PaintMessage, to_the_right_is_an_arrow_to_the_left_edge_of_the_head)
{
    Ends ends;
    ends.stand({0, 0}, {1, 1});
    const QStringList expected{
        u"beginEdge a->b"_s,
        textCall(105 + 3, 80 - ends.labelSize(u"call"_s).height() + 3, u"call"_s),
        u"polyline 195,80 104,80 pen #000000 solid 1"_s,
        u"polygon 195,80 189,83 189,77 195,80 pen #000000 solid 1 fill #000000"_s,
        u"endEdge"_s,
        u"connect a->b a b"_s,
    };
    EXPECT_EQ(ends.paintEdge(UmlEdge::Message, ends.edgeAB(u"call"_s)), expected);
}

TEST(PaintMessage, to_the_left_is_an_arrow_to_the_right_edge_of_the_head)
{
    Ends ends;
    ends.stand({0, 1}, {1, 0});
    const QStringList expected{
        u"beginEdge a->b"_s,
        u"polyline 104,80 195,80 pen #000000 solid 1"_s,
        u"polygon 104,80 110,83 110,77 104,80 pen #000000 solid 1 fill #000000"_s,
        u"endEdge"_s,
        u"connect a->b a b"_s,
    };
    EXPECT_EQ(ends.paintEdge(UmlEdge::Message, ends.edgeAB()), expected);
}

TEST(PaintMessage, dashes_and_colours_its_head_like_its_shaft)
{
    Ends ends;
    ends.stand({0, 0}, {1, 1});
    DotEdge *edge = ends.edgeAB();
    edge->attributes.insert(u"style"_s, u"dashed"_s);
    edge->attributes.insert(u"color"_s, u"navy"_s);
    const QStringList calls = ends.paintEdge(UmlEdge::Message, edge);
    EXPECT_EQ(calls.at(1), u"polyline 195,80 104,80 pen navy dashed 1"_s);
    EXPECT_EQ(calls.at(2), u"polygon 195,80 189,83 189,77 195,80 pen navy dashed 1 fill navy"_s);
}

TEST(PaintMessage, to_its_own_column_without_a_label_is_a_hook_whose_halves_meet)
{
    Ends ends;
    ends.stand({0, 0}, {1, 0}, 1);
    // Its box is 10 high and ends at 79: 70 + (79 - 70) / 2 is 74.
    const QStringList expected{
        u"beginEdge a->b"_s,
        u"polyline 104,70 118,70 118,74 pen #000000 solid 1"_s,
        u"polyline 108,80 118,80 118,74 pen #000000 solid 1"_s,
        u"polygon 108,80 114,83 114,77 108,80 pen #000000 solid 1 fill #000000"_s,
        u"endEdge"_s,
        u"connect a->b a b"_s,
    };
    EXPECT_EQ(ends.paintEdge(UmlEdge::Message, ends.edgeAB()), expected);
}

TEST(PaintMessage, to_its_own_column_with_a_label_leaves_the_stretch_beside_it_open)
{
    Ends ends;
    ends.stand({0, 0}, {1, 0}, 1);
    const int top = 80 - ends.labelSize(u"check"_s).height();
    const QStringList calls = ends.paintEdge(UmlEdge::Message, ends.edgeAB(u"check"_s));
    EXPECT_EQ(calls.at(1), textCall(105 + 3, top + 3, u"check"_s));
    EXPECT_EQ(calls.at(2),
              u"polyline 104,%1 118,%1 118,%2 pen #000000 solid 1"_s.arg(top).arg(top + 3));
    EXPECT_EQ(calls.at(3), u"polyline 108,80 118,80 118,77 pen #000000 solid 1"_s);
}

TEST(PaintReturn, to_the_left_is_an_open_arrow_on_its_row)
{
    Ends ends;
    ends.stand({0, 1}, {0, 0});
    DotEdge *edge = ends.edgeAB(u"value"_s);
    edge->attributes.insert(u"style"_s, u"dashed"_s);
    const QSize size = ends.labelSize(u"value"_s);
    const QStringList expected{
        u"beginEdge a->b"_s,
        textCall(195 - size.width() + 3, 120 + 3 - size.height() + 3, u"value"_s),
        u"polyline 110,123 104,120 110,117 pen #000000 solid 1"_s,
        u"polyline 104,120 195,120 pen #000000 dashed 1"_s,
        u"endEdge"_s,
        u"connect a->b a b"_s,
    };
    EXPECT_EQ(ends.paintReturn(2, edge), expected);
}

TEST(PaintReturn, to_the_right_is_an_open_arrow_on_its_row)
{
    Ends ends;
    ends.stand({0, 0}, {0, 1});
    const QStringList expected{
        u"beginEdge a->b"_s,
        u"polyline 189,123 195,120 189,117 pen #000000 solid 1"_s,
        u"polyline 195,120 104,120 pen #000000 solid 1"_s,
        u"endEdge"_s,
        u"connect a->b a b"_s,
    };
    EXPECT_EQ(ends.paintReturn(2, ends.edgeAB()), expected);
}

TEST(PaintReturn, that_is_not_visible_leaves_no_trace_on_the_device)
{
    Ends ends;
    ends.stand({0, 1}, {0, 0});
    EXPECT_EQ(ends.paintReturn(2, ends.edgeAB(u"value"_s), false), QStringList());
    EXPECT_EQ(ends.diagram.extents.edges.at(0).width, ends.labelSize(u"value"_s).width());
}
