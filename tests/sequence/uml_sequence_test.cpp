#include "layout/sequence/uml_sequence.h"

#include "graph/subgraph_walk.h"
#include "sequence_fixture.h"
#include "support/golden.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

// The DOT text of a graph of one spacer for each row and column named, which shows what an input
// claims and nothing else.
QByteArray spacerAt(const QByteArray &row, const QByteArray &col)
{
    return "digraph { a [uml=spacer, row=\"" + row + "\", col=\"" + col + "\"] }";
}

QString refusal(const QString &what)
{
    return u"Unable to lay out the sequence diagram: %1 is not between 0 and 999999\n"_s.arg(what);
}

// Fragments within each other, each with one section; the innermost holds an activation.
QByteArray nestedFragments(int depth)
{
    QByteArray dot = "digraph {\n";
    for (int i = 0; i < depth; ++i) {
        dot += "subgraph { graph [uml=combinedfragment, label=f]\n"
               "subgraph { graph [uml=section, label=s]\n";
    }
    dot += "a [uml=activation]";
    return dot + QByteArray(2 * depth + 1, '}');
}

QString goldenPath(const QString &name)
{
    return QStringLiteral(ORR_TEST_FOLDER "/goldens/") + name;
}

} // namespace

TEST(UmlSequence, of_no_object_is_a_page_of_five_by_five)
{
    const Drawing drawing("digraph {}");
    EXPECT_EQ(drawing.result, u""_s);
    EXPECT_EQ(drawing.parts.rows, 0);
    EXPECT_EQ(drawing.parts.cols, 0);
    EXPECT_EQ(drawing.device.calls(), (QStringList{u"begin 5 5"_s, u"end"_s}));
}

TEST(UmlSequence, returns_what_the_device_returns)
{
    const auto graph = parseDot("digraph {}");
    RecordingDevice device;
    device.setResult(u"Unable to open file\n"_s);
    EXPECT_EQ(UmlSequence::run({graph.get(), &device}), u"Unable to open file\n"_s);
}

TEST(UmlSequence, makes_an_object_of_every_known_node)
{
    const Drawing drawing(R"(digraph {
        a [uml=object] b [uml=foundmessage, row=1] c [uml=activation, col=1] d [uml=spacer]
        e [uml=Object] f [uml=actor] g
    })");
    EXPECT_EQ(
        drawing.calls(u"beginNode"_s),
        (QStringList{u"beginNode a"_s, u"beginNode b"_s, u"beginNode c"_s, u"beginNode d"_s}));
    EXPECT_EQ(drawing.calls(u"rect"_s).size(), 2);
    EXPECT_EQ(drawing.calls(u"ellipse"_s).size(), 1);
    EXPECT_EQ(drawing.parts.rows, 2);
    EXPECT_EQ(drawing.parts.cols, 2);
}

TEST(UmlSequence, reads_node_attributes_through_the_defaults)
{
    const Drawing drawing("digraph { node [uml=spacer, row=3, col=2] a }");
    EXPECT_EQ(drawing.parts.rows, 4);
    EXPECT_EQ(drawing.parts.cols, 3);
}

TEST(UmlSequence, reads_a_number_that_does_not_parse_as_zero)
{
    for (const char *text : {"", "x", "1.5", "0x10", "99999999999"}) {
        const Drawing drawing(spacerAt(text, text));
        EXPECT_EQ(drawing.result, u""_s);
        EXPECT_EQ(drawing.parts.rows, 1) << text;
        EXPECT_EQ(drawing.parts.cols, 1) << text;
    }
}

TEST(UmlSequence, nesting_moves_an_activation)
{
    const Drawing drawing("digraph { a [uml=activation, nesting=2] }");
    // The bar reaches from 3 to 13 right of an anchor at 5.
    EXPECT_EQ(drawing.device.calls().constFirst(), u"begin 23 20"_s);
    EXPECT_EQ(drawing.calls(u"rect"_s).constFirst(),
              u"rect 8,5 17,4 radius 0 pen #000000 solid 1 fill #FFFFFF"_s);
}

TEST(UmlSequence, a_spacer_is_centred_and_takes_its_size)
{
    const Drawing drawing("digraph { a [uml=spacer, width=40, height=30] }");
    EXPECT_EQ(drawing.device.calls(),
              (QStringList{u"begin 50 40"_s, u"beginNode a"_s, u"endNode"_s, u"end"_s}));
}

TEST(UmlSequence, a_spacer_of_minus_one_takes_that_measure_from_its_label)
{
    Fixture fixture;
    const QSize text = fixture.textSize(u"label"_s);
    const Drawing wide(R"(digraph { a [uml=spacer, label=label, width="-1", height=30] })");
    EXPECT_EQ(wide.device.calls().constFirst(), u"begin %1 40"_s.arg(text.width() + 6 + 10));
    const Drawing high(R"(digraph { a [uml=spacer, label=label, width=40, height="-1"] })");
    EXPECT_EQ(high.device.calls().constFirst(), u"begin 50 %1"_s.arg(text.height() + 6 + 10));
}

TEST(UmlSequence, an_empty_row_adds_a_gap)
{
    const Drawing drawing("digraph { node [uml=spacer, width=10, height=10] a b [row=2] }");
    EXPECT_EQ(drawing.device.calls().constFirst(), u"begin 20 40"_s);
}

TEST(UmlSequence, drops_an_edge_to_a_node_without_an_object)
{
    const Drawing drawing(R"(digraph {
        a [uml=activation] nothing
        a -> nothing [uml=message] nothing -> a [uml=message] nothing -> nothing [uml=message]
    })");
    EXPECT_EQ(drawing.result, u""_s);
    EXPECT_TRUE(drawing.parts.edges.isEmpty());
}

TEST(UmlSequence, drops_an_edge_of_an_unknown_kind)
{
    const Drawing drawing(R"(digraph {
        node [uml=activation]
        a -> b [uml=Message] a -> b [uml=create] a -> b
    })");
    EXPECT_EQ(drawing.result, u""_s);
    EXPECT_TRUE(drawing.parts.edges.isEmpty());
    EXPECT_EQ(drawing.parts.nodes.size(), 2);
}

TEST(UmlSequence, drops_a_return_from_anything_but_an_activation)
{
    const Drawing drawing(R"(digraph {
        edge [uml=return, visible=true, row=7]
        a [uml=activation] o [uml=object] f [uml=foundmessage] s [uml=spacer]
        o -> a f -> a s -> a
    })");
    EXPECT_TRUE(drawing.parts.edges.isEmpty());
    EXPECT_EQ(drawing.parts.rows, 1);
}

TEST(UmlSequence, a_return_without_a_row_ends_its_activation_at_row_zero)
{
    const Drawing drawing(R"(digraph {
        node [uml=activation] a [row=0] b [row=1, col=1]
        b -> a [uml=return, visible=true]
    })");
    EXPECT_EQ(drawing.parts.edges.at(0).cell.row, 0);
    // Rows at 15 (the return keeps 10 above its row) and 30.
    EXPECT_EQ(drawing.calls(u"rect"_s).at(1),
              u"rect 20,30 29,14 radius 0 pen #000000 solid 1 fill #FFFFFF"_s);
}

TEST(UmlSequence, a_return_that_is_not_visible_ends_its_activation_and_takes_its_room)
{
    for (const char *visible : {"", ", visible=false", ", visible=True", ", visible=1"}) {
        const Drawing drawing(QByteArray("digraph { node [uml=activation] a b [col=1] "
                                         "b -> a [uml=return, row=2, label=value")
                              + visible + "] }");
        Fixture fixture;
        const int above = fixture.textSize(u"value"_s).height() + 6 - 3;
        EXPECT_EQ(drawing.calls(u"beginEdge"_s), QStringList());
        const int end = 5 + 10 + 5 + 5 + above;
        EXPECT_EQ(drawing.calls(u"rect"_s).at(1).section(u' ', 2, 2).section(u',', 1, 1),
                  QString::number(end - 1));
    }
}

TEST(UmlSequence, the_last_of_several_returns_ends_the_activation)
{
    const Drawing drawing(R"(digraph {
        node [uml=activation] a b [col=1]
        edge [uml=return]
        b -> a [row=6] b -> a [row=2] b -> a [row=4]
    })");
    EXPECT_EQ(drawing.parts.nodes.at(1).endRow, 4);
    EXPECT_EQ(drawing.parts.rows, 7);
}

TEST(UmlSequence, a_return_may_end_before_its_activation_begins)
{
    const Drawing drawing(R"(digraph {
        node [uml=activation] a b [row=5, col=1]
        b -> a [uml=return, row=1, visible=true]
    })");
    EXPECT_EQ(drawing.result, u""_s);
    EXPECT_EQ(drawing.calls(u"polyline"_s).size(), 2);
}

TEST(UmlSequence, skips_an_unknown_subgraph_with_everything_in_it)
{
    const Drawing drawing(R"(digraph {
        node [uml=spacer]
        subgraph s { a subgraph f { graph [uml=combinedfragment] b } }
        subgraph t { graph [uml=Combinedfragment] c }
    })");
    EXPECT_EQ(drawing.device.calls(), (QStringList{u"begin 5 5"_s, u"end"_s}));
}

TEST(UmlSequence, skips_a_section_outside_a_fragment)
{
    const Drawing drawing(R"(digraph {
        node [uml=spacer]
        subgraph s { graph [uml=section, row=9] a
            subgraph f { graph [uml=combinedfragment] b } }
    })");
    EXPECT_EQ(drawing.device.calls(), (QStringList{u"begin 5 5"_s, u"end"_s}));
}

TEST(UmlSequence, a_subgraph_without_a_kind_has_that_of_the_one_around_it)
{
    const Drawing drawing(R"(digraph {
        subgraph f { graph [uml=combinedfragment, row=3] subgraph g { } }
    })");
    ASSERT_EQ(drawing.parts.fragments.size(), 2);
    EXPECT_EQ(drawing.parts.fragments.at(1).row, 3);
}

TEST(UmlSequence, a_section_within_a_section_belongs_to_the_same_fragment)
{
    const Drawing drawing(R"(digraph {
        subgraph f { graph [uml=combinedfragment]
            subgraph s { graph [uml=section] subgraph t { graph [row=1] } } }
    })");
    ASSERT_EQ(drawing.parts.fragments.size(), 1);
    EXPECT_EQ(drawing.parts.fragments.at(0).sections.size(), 2);
    EXPECT_EQ(drawing.parts.fragments.at(0).cells.lastRow, 2);
}

TEST(UmlSequence, a_fragment_that_ends_on_the_last_row_makes_the_grid_one_row_taller)
{
    const Drawing drawing(R"(digraph {
        subgraph f { graph [uml=combinedfragment]
            subgraph s { graph [uml=section]
                a [uml=spacer, width=20, height=20] } }
    })");
    EXPECT_EQ(drawing.parts.rows, 2);
    // Rows at 15 and 15 + 10 + 5 + 2, the spacer reaches 3 below the last one. Columns: half the
    // spacer and 8 for the frame; the closing spacer reaches 12 to the right.
    EXPECT_EQ(drawing.device.calls().constFirst(), u"begin 32 40"_s);
    EXPECT_EQ(drawing.calls(u"rect"_s),
              (QStringList{u"rect 7,15 25,32 radius 0 pen black solid 1 fill #FFFFFF"_s}));
}

TEST(UmlSequence, a_fragment_without_sections_is_drawn_as_its_tag)
{
    const Drawing drawing(R"(digraph {
        subgraph f { graph [uml=combinedfragment, label=opt] a [uml=activation] }
    })");
    EXPECT_EQ(drawing.result, u""_s);
    EXPECT_EQ(drawing.calls(u"polygon"_s).size(), 1);
    EXPECT_EQ(drawing.calls(u"beginCluster"_s), (QStringList{u"beginCluster f"_s}));
}

TEST(UmlSequence, nested_fragments_stand_seven_apart_on_both_sides)
{
    const Drawing drawing(R"(digraph {
        node [uml=activation] edge [uml=message]
        subgraph f { graph [uml=combinedfragment] subgraph f1 { graph [uml=section]
            subgraph g { graph [uml=combinedfragment] subgraph g1 { graph [uml=section]
                subgraph h { graph [uml=combinedfragment] subgraph h1 { graph [uml=section]
                    a b [col=1] a -> b } } } } } }
    })");
    // Anchors at 27 and 42, edges of the frames 8, 15 and 22 left and 12, 19 and 26 right of them.
    QStringList sides;
    for (const QString &rect : drawing.calls(u"rect"_s).first(3))
        sides += rect.section(u' ', 1, 1).section(u',', 0, 0) + u'-'
            + rect.section(u' ', 2, 2).section(u',', 0, 0);
    EXPECT_EQ(sides, (QStringList{u"5-68"_s, u"12-61"_s, u"19-54"_s}));
}

TEST(UmlSequence, paints_clusters_then_nodes_then_edges_in_order_of_creation)
{
    const Drawing drawing(R"(digraph {
        node [uml=activation] edge [uml=message]
        a -> b
        subgraph f { graph [uml=combinedfragment] subgraph f1 { graph [uml=section] c
            subgraph g { graph [uml=combinedfragment] subgraph g1 { graph [uml=section] d } } } }
        c -> d
    })");
    QStringList begun;
    for (const QString &call : drawing.device.calls()) {
        if (call.startsWith("begin"_L1) && call.contains(' ') && !call.startsWith("begin "_L1))
            begun += call.mid(5);
    }
    EXPECT_EQ(begun,
              (QStringList{u"Cluster f1"_s, u"Cluster f"_s, u"Cluster g1"_s, u"Cluster g"_s,
                           u"Node a"_s, u"Node b"_s, u"Node f1"_s, u"Node c"_s, u"Node g1"_s,
                           u"Node d"_s, u"Edge a->b"_s, u"Edge c->d"_s}));
}

TEST(UmlSequence, draws_the_same_twice)
{
    const QByteArray dot = readTestFile(goldenPath(u"fragment.dot"_s));
    EXPECT_EQ(Drawing(dot).device.log(), Drawing(dot).device.log());
}

TEST(UmlSequence, writes_nothing_into_the_graph)
{
    const QByteArray dot = readTestFile(goldenPath(u"fragment.dot"_s));
    const Drawing drawing(dot);
    const auto fresh = parseDot(dot);
    const QList<DotSubgraph *> drawn = subgraphsInPreorder(drawing.graph->root());
    const QList<DotSubgraph *> read = subgraphsInPreorder(fresh->root());
    ASSERT_EQ(drawn.size(), read.size());
    for (qsizetype i = 0; i < read.size(); ++i) {
        EXPECT_EQ(drawn.at(i)->attributes, read.at(i)->attributes);
        for (qsizetype k = 0; k < read.at(i)->nodes.size(); ++k)
            EXPECT_EQ(drawn.at(i)->nodes.at(k)->attributes, read.at(i)->nodes.at(k)->attributes);
        for (qsizetype k = 0; k < read.at(i)->edges.size(); ++k)
            EXPECT_EQ(drawn.at(i)->edges.at(k)->attributes, read.at(i)->edges.at(k)->attributes);
    }
}

class SequenceGolden : public testing::TestWithParam<const char *>
{
};

TEST_P(SequenceGolden, is_drawn_as_it_was)
{
    const QString name = QString::fromLatin1(GetParam());
    const Drawing drawing(readTestFile(goldenPath(name + u".dot"_s)));
    EXPECT_EQ(drawing.result, u""_s);
    EXPECT_TRUE(matchesGolden(drawing.device.log().toUtf8(), goldenPath(name + u".calls"_s)));
}

INSTANTIATE_TEST_SUITE_P(UmlSequence, SequenceGolden,
                         testing::Values("call", "self_calls", "fragment", "spacers"),
                         [](const auto &instance) { return std::string(instance.param); });

// Bad input.

TEST(UmlSequence, refuses_a_negative_row_or_column_before_it_draws)
{
    const Drawing row(spacerAt("-1", "0"));
    EXPECT_EQ(row.result, refusal(u"row -1 of \"a\""_s));
    EXPECT_EQ(row.device.calls(), QStringList());
    const Drawing column(spacerAt("0", "-2147483648"));
    EXPECT_EQ(column.result, refusal(u"column -2147483648 of \"a\""_s));
    EXPECT_EQ(column.device.calls(), QStringList());
}

TEST(UmlSequence, refuses_a_row_or_column_beyond_the_limit_before_it_draws)
{
    EXPECT_EQ(Drawing(spacerAt("2000000000", "0")).result, refusal(u"row 2000000000 of \"a\""_s));
    EXPECT_EQ(Drawing(spacerAt("0", "1000000")).result, refusal(u"column 1000000 of \"a\""_s));
    EXPECT_EQ(Drawing(spacerAt("2147483647", "0")).result, refusal(u"row 2147483647 of \"a\""_s));
}

TEST(UmlSequence, draws_up_to_the_limit)
{
    const Drawing drawing(spacerAt("999999", "999999"));
    EXPECT_EQ(drawing.result, u""_s);
    EXPECT_EQ(drawing.device.calls().constFirst(), u"begin 5000005 5000005"_s);
}

TEST(UmlSequence, names_whatever_stands_off_the_grid)
{
    EXPECT_EQ(
        Drawing(R"(digraph { subgraph f { graph [uml=combinedfragment, row="-4"] } })").result,
        refusal(u"row -4 of \"f\""_s));
    EXPECT_EQ(Drawing(R"(digraph { subgraph f { graph [uml=combinedfragment]
                          subgraph s { graph [uml=section, row=2147483647] } } })")
                  .result,
              refusal(u"row 2147483647 of \"s\""_s));
    EXPECT_EQ(Drawing(R"(digraph { node [uml=activation] a -> b [uml=return, row="-4"] })").result,
              refusal(u"row -4 of \"a\" -> \"b\""_s));
    EXPECT_EQ(Drawing("digraph { subgraph f { graph [uml=combinedfragment, row=999999] } }").result,
              refusal(u"row 1000000 of the end of a fragment"_s));
}

TEST(UmlSequence, reports_the_first_of_several_failures)
{
    EXPECT_EQ(Drawing(R"(digraph { node [uml=spacer] a [col="-1"] b [row="-1"] })").result,
              refusal(u"column -1 of \"a\""_s));
}

TEST(UmlSequence, refuses_and_stops_within_nested_fragments)
{
    const Drawing drawing(R"(digraph {
        subgraph f { graph [uml=combinedfragment, row=2147483647]
            subgraph g { graph [uml=combinedfragment] subgraph s { graph [uml=section] } } }
    })");
    EXPECT_EQ(drawing.result, refusal(u"row 2147483647 of \"f\""_s));
}

TEST(UmlSequence, takes_spacers_of_any_size)
{
    for (const char *size : {"-2147483648", "-2147483647", "-5", "0", "2147483647"}) {
        const QByteArray attributes = QByteArray("width=\"") + size + "\", height=\"" + size + "\"";
        const Drawing drawing("digraph { node [uml=spacer, " + attributes
                              + "] a b [row=1, col=1] c [row=2, col=1] }");
        EXPECT_EQ(drawing.result, u""_s) << size;
    }
}

TEST(UmlSequence, keeps_everything_drawn_beyond_a_huge_spacer_within_an_int)
{
    const Drawing drawing(R"(digraph {
        wide [uml=spacer, width=2147483647, height=2147483647]
        node [uml=activation] edge [uml=message, label=text]
        a [row=1, col=1, nesting=2147483647] b [row=2, col=2] c [row=2, col=2, nesting="-2147483648"]
        o [uml=object, row=2, col=1, label=text] f [uml=foundmessage, row=2, col=2]
        a -> b b -> a b -> c
        o -> a [uml=lifeline]
        b -> a [uml=return, visible=true, row=3]
        subgraph s { graph [uml=combinedfragment, row=2, label=alt]
            subgraph s1 { graph [uml=section, row=2, label=if] d [row=2, col=1] } }
    })");
    EXPECT_EQ(drawing.result, u""_s);
    EXPECT_EQ(drawing.device.calls().constFirst(), u"begin 2147483647 2147483647"_s);
    EXPECT_EQ(drawing.device.calls().constLast(), u"end"_s);
}

TEST(UmlSequence, draws_fragments_nested_ten_thousand_deep)
{
    const Drawing drawing(nestedFragments(10'000));
    EXPECT_EQ(drawing.result, u""_s);
    EXPECT_EQ(drawing.calls(u"polygon"_s).size(), 10'000);
    EXPECT_EQ(drawing.parts.rows, 10'001);
}

TEST(UmlSequence, draws_fragments_nested_a_hundred_thousand_deep)
{
    QByteArray dot = "digraph { graph [uml=combinedfragment] ";
    dot += QByteArray("subgraph { ").repeated(100'000) + "a [uml=activation]";
    const Drawing drawing(dot + QByteArray(100'001, '}'));
    EXPECT_EQ(drawing.result, u""_s);
    EXPECT_EQ(drawing.parts.rows, 100'001);
}

TEST(UmlSequence, draws_edges_from_the_top_to_every_level_of_nested_fragments)
{
    QByteArray dot = "digraph { graph [uml=combinedfragment] node [uml=activation, col=1] "
                     "edge [uml=message] top ";
    for (int i = 0; i < 5'000; ++i)
        dot += "subgraph { top -> n" + QByteArray::number(i) + " ";
    const Drawing drawing(dot + QByteArray(5'001, '}'));
    EXPECT_EQ(drawing.result, u""_s);
    EXPECT_EQ(drawing.calls(u"beginEdge"_s).size(), 5'000);
}
