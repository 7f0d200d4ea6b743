// What is said of objects that are in each other's way or count for nothing.
#include "companion/check/object_places.h"
#include "companion/check_said.h"
#include "graph/dot_parser.h"
#include "layout/sequence/uml_sequence.h"
#include "support/recording_device.h"

using namespace ORR;
using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

const std::string cellSuggestion = "; an edge runs from the header of a row to that of a column";

} // namespace

TEST(SharedPlaces, are_those_behind_the_first_in_the_order_of_the_text)
{
    const int grids[2] = {};
    const auto shared = sharedPlaces({{&grids[0], 1, 1, 0, 0},
                                      {&grids[0], 0, 0, 0, 1},
                                      {&grids[1], 1, 1, 0, 2},
                                      {&grids[0], 0, 0, 1, 3},
                                      {&grids[0], 0, 0, 0, 4},
                                      {&grids[0], 1, 1, 0, 5},
                                      {&grids[0], 1, 1, 0, 6}});
    ASSERT_EQ(shared.size(), 3);
    EXPECT_EQ(shared[0].later.number, 4);
    EXPECT_EQ(shared[0].earlier, 1);
    EXPECT_EQ(shared[1].later.number, 5);
    EXPECT_EQ(shared[2].earlier, 0);
    EXPECT_TRUE(sharedPlaces({}).empty());
}

TEST(SharedId, is_that_of_a_subgraph_and_a_node)
{
    EXPECT_EQ(saidOfBody("a; subgraph b { b }", "treemap"),
              "1:23 shared-id: 'b' names a subgraph and a node; give one of them another name");
    EXPECT_EQ(saidOfBody("a; subgraph { __G1 } subgraph \"\" { }", "treemap"), "");
}

TEST(UndeclaredNode, is_mentioned_by_edges_only)
{
    EXPECT_EQ(saidOfBody("a; b; a -> bb; bb -> b", "matrix"),
              "1:22 undeclared-node: node 'bb' is mentioned by edges only; declare it by a "
              "statement of its own, or mend the name");
    EXPECT_EQ(saidOfBody("a -> b; b; a", "matrix"), "");
    EXPECT_EQ(saidOfBody("a -> b; b -> c", "matrix"), "");
}

TEST(SharedPlace, is_a_cell_of_siblings)
{
    EXPECT_EQ(
        saidOfBody("subgraph a { x } subgraph b { graph [col=1]; y } subgraph c { z }", "gfdecl"),
        "1:69 shared-place: subgraph 'c' lies over 'a', in row 0 and column 0 as well");
    // A nested one takes the address of its parent, in a grid of its own.
    EXPECT_EQ(saidOfBody("subgraph a { subgraph b { subgraph c { x } } }", "gfdecl"), "");
    EXPECT_EQ(saidOfBody("subgraph a { x } subgraph c { z }", "treemap"), "");
}

TEST(SharedPlace, is_one_of_two_nodes_of_a_sequence)
{
    EXPECT_EQ(saidOfBody("node [uml=object row=1 col=2]; a; b", "umlseq"),
              "1:45 shared-place: node 'b' lies over 'a', in row 1 and column 2 as well");
    EXPECT_EQ(saidOfBody("node [uml=activation row=1 col=2]; a; b [nesting=1]", "umlseq"), "");
    EXPECT_EQ(saidOfBody("node [uml=spacer row=1 col=2]; a; b", "umlseq"), "");
}

TEST(MisplacedLegend, is_none_of_a_subgraph)
{
    const std::string suggestion = "; write 'graph [legend=right]' in the subgraph of the legend";
    EXPECT_EQ(saidOfBody("n [legend=left]", "treemap"),
              "1:14 misplaced-legend: a node is no legend" + suggestion);
    EXPECT_EQ(saidOfBody("node [legend=left]; edge [legend=left]", "bar"),
              "1:17 misplaced-legend: a node is no legend" + suggestion
                  + "\n1:37 misplaced-legend: an edge is no legend" + suggestion);
    EXPECT_EQ(saidOfBody("graph [legend=left]", "sunburst"),
              "1:18 misplaced-legend: the whole graph is the legend" + suggestion);
    EXPECT_EQ(saidOfBody("subgraph a { graph [legend=left] } subgraph b { graph [legend=top] }",
                         "flatbubble"),
              "1:66 misplaced-legend: there is a legend ahead of this one: 'a'" + suggestion);
    EXPECT_EQ(
        saidOfBody("n [legend=left]"),
        "1:14 unread-attribute: attribute 'legend' of a node is never read; it is read of the "
        "graph and subgraphs");
}

TEST(EdgeWithoutCell, runs_from_no_row_or_to_no_column)
{
    const char *text = "subgraph r { graph [axis=y]; a } subgraph c { graph [axis=x]; b } n; ";
    EXPECT_EQ(saidOfBody((std::string(text) + "a -> b; n -> n; a -> n; n -> b").c_str(), "matrix"),
              "");
    EXPECT_EQ(saidOfBody((std::string(text) + "b -> n").c_str(), "matrix"),
              "1:80 edge-without-cell: 'b' heads no row: the edge lies in row 0" + cellSuggestion);
    EXPECT_EQ(saidOfBody((std::string(text) + "n -> a").c_str(), "matrix"),
              "1:85 edge-without-cell: 'a' heads no column: the edge lies in column 0"
                  + cellSuggestion);
    EXPECT_EQ(saidOfBody("subgraph r { graph [axis=y]; a [x=3] } n; n -> a", "matrix"),
              "1:43 engine-attribute: attribute 'x' of a node is set by matrix itself; the value "
              "given here counts only where none is set");
}

TEST(NoGridPlace, is_told_with_what_is_missing)
{
    EXPECT_EQ(
        saidOfBody("a [uml=object]; b [uml=spacer row=1]; c [uml=activation col=1]; d", "umlseq"),
        "1:11 no-grid-place: node 'a' has neither row nor column\n"
        "1:27 no-grid-place: node 'b' has no column\n"
        "1:49 no-grid-place: node 'c' has no row");
    EXPECT_EQ(saidOfBody("subgraph f { graph [uml=combinedfragment row=1]; subgraph s { graph "
                         "[uml=section] } }",
                         "umlseq"),
              "1:20 no-grid-place: fragment 'f' has no column");
    EXPECT_EQ(saidOfBody("subgraph f { graph [uml=combinedfragment col=1]; subgraph s { graph "
                         "[uml=section] } }",
                         "umlseq"),
              "1:20 no-grid-place: fragment 'f' has no row\n"
              "1:69 no-grid-place: section 's' has no row");
}

TEST(SectionWithoutFragment, is_left_out_with_what_is_in_it)
{
    EXPECT_EQ(saidOfBody("subgraph s { graph [uml=section]; a [uml=object]; subgraph t { graph "
                         "[uml=section] } }",
                         "umlseq"),
              "1:20 section-without-fragment: section 's' is in no fragment and is left out; write "
              "it into a subgraph with graph [uml=combinedfragment]");
}

TEST(ReturnWithoutCall, comes_from_what_nothing_called)
{
    const std::string nodes =
        "node [uml=activation row=1]; a [col=1]; b [col=2]; o [col=3 uml=object]; ";
    EXPECT_EQ(
        saidOfBody((nodes + "a -> b [uml=message]; b -> a [uml=return row=3]").c_str(), "umlseq"),
        "");
    EXPECT_EQ(saidOfBody((nodes + "b -> a [uml=return row=3]").c_str(), "umlseq"),
              "1:84 return-without-call: no message calls 'b', which returns");
    EXPECT_EQ(
        saidOfBody((nodes + "b -> a [uml=message]; o -> a [uml=return row=3]").c_str(), "umlseq"),
        "1:106 return-without-call: 'o' is no activation: its return is left out");
    EXPECT_EQ(saidOfBody((nodes + "a -> b [uml=message]; b -> a [uml=return]").c_str(), "umlseq"),
              "1:106 no-grid-place: the return of 'b' has no row");
}

// The same words as those of the engine.
TEST(OutsideGrid, is_told_with_the_message_that_ends_the_drawing)
{
    const QByteArray texts[] = {
        "digraph { a [uml=object row=1000000 col=0] }",
        "digraph { \"a\x1b\" [uml=object row=0 col=\"-1\"] }",
        "digraph { subgraph f { graph [uml=combinedfragment row=\"-7\" col=1] } }",
        "digraph { node [uml=activation row=1]; a [col=1]; b [col=2]; a -> b [uml=message]; "
        "b -> a [uml=return row=2000000] }",
    };
    for (const QByteArray &text : texts) {
        const auto graph = Graph::parseDot(text);
        ASSERT_TRUE(graph);
        RecordingDevice device;
        const QString message = Graph::Layout::UmlSequence::run({graph.get(), &device});
        const QStringList said = saidOf(text, u"umlseq"_s);
        ASSERT_EQ(said.size(), 1) << text.constData();
        EXPECT_EQ(said[0].section(u' ', 1), u"outside-grid: "_s + message.chopped(1));
    }
}
