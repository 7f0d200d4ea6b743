// What is said of attributes and their values.
#include "companion/check/attribute_uses.h"
#include "companion/check_said.h"
#include "layout/graflib/graflib_attributes.h"

#include <algorithm>
#include <string>

using namespace ORR::Companion;
using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

std::string ofNode(const char *attributes, const char *engine)
{
    return saidOfBody((std::string("n [") + attributes + "]").c_str(), engine);
}

} // namespace

TEST(UnknownAttribute, is_told_with_the_nearest_one_that_its_place_has)
{
    EXPECT_EQ(saidOfBody("n [lable=x]", "umlseq"),
              "1:14 unknown-attribute: unknown attribute 'lable' of a node in umlseq; did you mean "
              "'label'?");
    EXPECT_EQ(saidOfBody("graph [heigth=4]", "treemap"),
              "1:18 unknown-attribute: unknown attribute 'heigth' of the graph in treemap; did you "
              "mean 'height'?");
    EXPECT_EQ(saidOfBody("n [qqqqqq=1]", "treemap"),
              "1:14 unknown-attribute: unknown attribute 'qqqqqq' of a node in treemap");
    EXPECT_EQ(saidOfBody("n [\"Label\"=x]", "umlseq"),
              "1:14 unknown-attribute: unknown attribute 'Label' of a node in umlseq; did you mean "
              "'label'?");
}

TEST(UnknownAttribute, is_told_where_another_engine_knows_it)
{
    EXPECT_EQ(saidOfBody("graph [sweep=90]", "treemap"),
              "1:18 unknown-attribute: unknown attribute 'sweep' of the graph in treemap; known in "
              "sunburst");
    EXPECT_EQ(ofNode("shape=oval", "bar"),
              "1:14 unknown-attribute: unknown attribute 'shape' of a node in bar; known in gftree "
              "and gfdecl");
}

TEST(UnknownAttribute, is_told_with_one_of_the_same_element_first)
{
    EXPECT_EQ(saidOfBody("a; a -> a [lhaed=x]", "gfdecl"),
              "1:22 unknown-attribute: unknown attribute 'lhaed' of an edge in gfdecl; did you "
              "mean 'lhead'?");
    EXPECT_EQ(ofNode("lhaed=x", "gfdecl"),
              "1:14 unknown-attribute: unknown attribute 'lhaed' of a node in gfdecl; did you mean "
              "'lhead', which is known of an edge?");
    EXPECT_EQ(ofNode("lhead=x", "treemap"),
              "1:14 unknown-attribute: unknown attribute 'lhead' of a node in treemap; known of an "
              "edge in gfdecl");
    EXPECT_EQ(ofNode("sweep=9", "treemap"),
              "1:14 unknown-attribute: unknown attribute 'sweep' of a node in treemap; known of "
              "the graph in sunburst");
    EXPECT_EQ(saidOfBody("graph [ares=9]", "treemap"),
              "1:18 unknown-attribute: unknown attribute 'ares' of the graph in treemap; did you "
              "mean 'area', which is known of a node?");
}

TEST(UnknownAttribute, is_one_of_no_engine_where_none_is_given)
{
    EXPECT_EQ(saidOfBody("graph [sweep=90 rstep=3 nodesep=1]; n [shape=oval]"), "");
    EXPECT_EQ(saidOfBody("graph [speew=90]"),
              "1:18 unknown-attribute: unknown attribute 'speew' of the graph; did you mean "
              "'sweep'?");
}

TEST(UnknownAttribute, is_found_in_defaults_and_subgraphs_and_edges)
{
    EXPECT_EQ(
        saidOfBody("node [lable=x]; a; subgraph s { graph [lable=x] } a -> a [lable=x]", "umlseq"),
        "1:17 unknown-attribute: unknown attribute 'lable' of the node defaults in umlseq; did "
        "you mean 'label'?\n"
        "1:50 unknown-attribute: unknown attribute 'lable' of a subgraph in umlseq; did you "
        "mean 'label'?\n"
        "1:69 unknown-attribute: unknown attribute 'lable' of an edge in umlseq; did you mean "
        "'label'?");
}

TEST(UnknownAttribute, is_none_that_is_meant_for_a_reader)
{
    EXPECT_EQ(ofNode("href=x, URL=x, url=x, file=x, line=3, tooltip=x, id=x, class=x", "treemap"),
              "");
    EXPECT_EQ(ofNode("Tooltip=x", "treemap"),
              "1:14 unknown-attribute: unknown attribute 'Tooltip' of a node in treemap");
}

TEST(UnreadAttribute, is_told_with_what_it_is_read_of)
{
    EXPECT_EQ(saidOfBody("subgraph s { graph [width=5] }", "treemap"),
              "1:31 unread-attribute: attribute 'width' of a subgraph is never read in treemap; it "
              "is read of the graph");
    EXPECT_EQ(saidOfBody("a; a -> a [label=x]", "gftree"),
              "1:22 unread-attribute: attribute 'label' of an edge is never read in gftree; it is "
              "read of nodes");
    EXPECT_EQ(
        saidOfBody("n [fillcolor=red]", "matrix"),
        "1:14 unread-attribute: attribute 'fillcolor' of a node is never read in matrix; it is "
        "read of subgraphs");
    EXPECT_EQ(saidOfBody("n [axis=x]"),
              "1:14 unread-attribute: attribute 'axis' of a node is never read; it is read of the "
              "graph and subgraphs");
}

TEST(UnreadAttribute, is_none_that_is_inherited)
{
    EXPECT_EQ(saidOfBody("graph [color=red, label=x]", "treemap"), "");
    EXPECT_EQ(saidOfBody("node [area=3]; edge [color=red]", "matrix"),
              "1:17 unknown-attribute: unknown attribute 'area' of the node defaults in matrix; "
              "known in flatbubble, sunburst, treemap and bar");
    EXPECT_EQ(saidOfBody("edge [color=red]", "treemap"),
              "1:17 unread-attribute: attribute 'color' of the edge defaults is never read in "
              "treemap; it is read of subgraphs and nodes");
}

// A frame has from the defaults of nodes what its graph does not say.
TEST(UnreadAttribute, is_none_that_frames_have_from_nodes)
{
    const AttributeUses uses(u"gfdecl"_s);
    const auto reads = [&](AttributePlace place, const AttributeRow &row) {
        const AttributeUse *use = uses.find(row.name);
        return use && std::ranges::count(use->at(place).rows, &row) == 1;
    };
    int ofFrames = 0;
    for (const AttributeRow *row : Layout::GraflibAttributes::table.rows) {
        if (row->lookup != AttributeLookup::OwnOrNodeDefault)
            continue;
        EXPECT_TRUE(reads(AttributePlace::Cluster, *row)) << row->name.text().toStdString();
        EXPECT_TRUE(reads(AttributePlace::NodeDefaults, *row)) << row->name.text().toStdString();
        EXPECT_FALSE(reads(AttributePlace::EdgeDefaults, *row)) << row->name.text().toStdString();
        ++ofFrames;
    }
    EXPECT_EQ(ofFrames, 7);
    EXPECT_FALSE(reads(AttributePlace::NodeDefaults, Layout::GraflibAttributes::frame));
}

TEST(UnreadAttribute, is_none_that_passes_find_where_the_engine_reads_it)
{
    EXPECT_EQ(saidOfBody("node [level=2]", "gftree"), "");
    EXPECT_EQ(saidOfBody("graph [width=20]", "treemap"), "");
}

TEST(EngineAttribute, is_told_where_the_value_is_lost)
{
    EXPECT_EQ(ofNode("x=3", "flatbubble"),
              "1:14 engine-attribute: attribute 'x' of a node is set by flatbubble itself; the "
              "value given here is lost");
    EXPECT_EQ(ofNode("width=3", "gftree"),
              "1:14 engine-attribute: attribute 'width' of a node is set by gftree itself; the "
              "value given here is lost");
    EXPECT_EQ(saidOfBody("graph [area=3]", "treemap"),
              "1:18 engine-attribute: attribute 'area' of the graph is set by treemap itself; the "
              "value given here is lost");
    EXPECT_EQ(ofNode("d1=3", ""),
              "1:14 engine-attribute: attribute 'd1' of a node is set by the engines themselves; "
              "the value given here is lost");
}

TEST(EngineAttribute, is_told_where_the_value_may_count)
{
    EXPECT_EQ(ofNode("x=3", "matrix"),
              "1:14 engine-attribute: attribute 'x' of a node is set by matrix itself; the value "
              "given here counts only where none is set");
    EXPECT_EQ(saidOfBody("n [sweep=5]"),
              "1:14 engine-attribute: attribute 'sweep' of a node is set by the engines "
              "themselves; the value given here counts only where none is set");
}

TEST(BadValue, is_told_with_what_it_counts_as)
{
    EXPECT_EQ(ofNode("area=\"thirty\"", "treemap"),
              "1:19 bad-value: 'thirty' is no number: 'area' counts as 0");
    EXPECT_EQ(ofNode("area=\"30px\"", "treemap"),
              "1:19 bad-value: '30px' is no number: 'area' counts as 0; did you mean '30'?");
    EXPECT_EQ(ofNode("area=\"1,5\"", "treemap"),
              "1:19 bad-value: '1,5' is no number: 'area' counts as 0; did you mean '1.5'?");
    EXPECT_EQ(ofNode("area=\"\"", "treemap"),
              "1:19 bad-value: '' is no number: 'area' counts as 0");
    EXPECT_EQ(ofNode("area=1e999", "treemap"),
              "1:19 bad-value: '1e999' is no number: 'area' counts as infinite; it is too large");
    EXPECT_EQ(saidOfBody("graph [ranksep=\"1in\"]", "gftree"),
              "1:26 bad-value: '1in' is no number: 'ranksep' counts as 0; did you mean '1'?");
}

TEST(BadValue, is_no_number_that_the_reader_takes)
{
    for (const char *value : {"0", "+3", "3.", ".5", " 3 ", "1e3"})
        EXPECT_EQ(ofNode((std::string("area=\"") + value + "\"").c_str(), "treemap"), "") << value;
}

TEST(SenselessValue, is_a_number_that_is_none_or_infinite_or_a_size_below_0)
{
    EXPECT_EQ(ofNode("area=nan", "treemap"),
              "1:19 senseless-value: 'nan' of 'area' makes no sense: it is no number at all");
    EXPECT_EQ(ofNode("area=\"-inf\"", "treemap"),
              "1:19 senseless-value: '-inf' of 'area' makes no sense: it is infinite");
    EXPECT_EQ(ofNode("area=\"-1\"", "treemap"),
              "1:19 senseless-value: '-1' of 'area' makes no sense: it is below 0");
    EXPECT_EQ(saidOfBody("graph [width=\"-640\"]", "treemap"),
              "1:24 senseless-value: '-640' of 'width' makes no sense: it is below 0");
    EXPECT_EQ(ofNode("penwidth=\"-2\"", "treemap"),
              "1:23 senseless-value: '-2' of 'penwidth' makes no sense: it is below 0");
    EXPECT_EQ(saidOfBody("graph [margin=\"1,inf\"]", "treemap"),
              "1:25 senseless-value: 'inf' of 'margin' makes no sense: it is infinite");
    EXPECT_EQ(ofNode("area=\"-1\"", ""),
              "1:19 senseless-value: '-1' of 'area' makes no sense: it is below 0");
}

TEST(BadValue, is_none_that_has_lost_its_minus_sign)
{
    EXPECT_EQ(ofNode("area=-1", "treemap"),
              "1:19 negative-number: the character behind the minus sign of '-1' is lost; write it "
              "in quotes");
}

TEST(SenselessValue, is_no_place_or_angle_or_gap_below_0)
{
    EXPECT_EQ(saidOfBody("graph [a0=\"-90\"]", "sunburst"), "");
    EXPECT_EQ(saidOfBody("graph [margin=\"-1\" nodesep=\"-0.5\"]", "gfdecl"), "");
    EXPECT_EQ(ofNode("xoffset=\"-1\"", "gfdecl"), "");
    EXPECT_EQ(ofNode("area=\"-0\"", "treemap"), "");
    EXPECT_EQ(ofNode("label=nan", "treemap"), "");
}

TEST(BadValue, is_an_integer_with_a_fraction)
{
    EXPECT_EQ(
        ofNode("penwidth=2.5", "treemap"),
        "1:23 bad-value: '2.5' is no whole number: 'penwidth' counts as 0; did you mean '2'?");
    EXPECT_EQ(ofNode("penwidth=99999999999", "treemap"),
              "1:23 bad-value: '99999999999' is no whole number: 'penwidth' counts as 0; it is too "
              "large");
    EXPECT_EQ(ofNode("penwidth=x", "treemap"),
              "1:23 bad-value: 'x' is no whole number: 'penwidth' counts as 0");
    EXPECT_EQ(ofNode("penwidth=\" 2 \"", "treemap"), "");
}

TEST(BadValue, is_looked_for_at_both_ends_of_a_list)
{
    EXPECT_EQ(saidOfBody("graph [margin=\"1,b\"]", "treemap"),
              "1:25 bad-value: 'b' is no number: it counts as 0 in 'margin'; write one number, or "
              "two with a comma between");
    EXPECT_EQ(saidOfBody("graph [margin=\"a,b\"]", "treemap"),
              "1:25 bad-value: 'a' is no number: it counts as 0 in 'margin'; write one number, or "
              "two with a comma between");
    EXPECT_EQ(saidOfBody("graph [margin=\"1,\"]", "gfdecl"),
              "1:25 bad-value: '' is no number: it counts as 0 in 'margin'; write one number, or "
              "two with a comma between");
    EXPECT_EQ(saidOfBody("graph [margin=\"1,x,2\"]", "treemap"), "");
}

TEST(BadValue, is_none_that_a_later_one_replaces)
{
    EXPECT_EQ(ofNode("area=x, area=3", "treemap"), "");
    EXPECT_EQ(ofNode("area=3, area=x", "treemap"),
              "1:27 bad-value: 'x' is no number: 'area' counts as 0");
}

TEST(BadValue, has_to_be_one_for_every_engine_where_none_is_given)
{
    // A width is a number of the charts and an integer of the sequence diagram.
    EXPECT_EQ(saidOfBody("n [row=1.5]"),
              "1:18 bad-value: '1.5' is no whole number: 'row' counts as 0; did you mean '1'?");
    EXPECT_EQ(saidOfBody("graph [fontsize=12.5]"), "");
    EXPECT_EQ(
        saidOfBody("graph [fontsize=12.5]", "gftree"),
        "1:27 bad-value: '12.5' is no whole number: 'fontsize' counts as 0; did you mean '12'?");
}

TEST(UnknownColor, is_told_with_what_it_becomes)
{
    EXPECT_EQ(ofNode("color=bleu", "treemap"),
              "1:20 unknown-color: unknown colour 'bleu' of 'color' becomes black; did you mean "
              "'blue'?");
    EXPECT_EQ(ofNode("color=\"#f00\"", "treemap"),
              "1:20 unknown-color: unknown colour '#f00' of 'color' becomes black; did you mean "
              "'#ff0000'?");
    EXPECT_EQ(ofNode("color=ff0000", "treemap"),
              "1:20 unknown-color: unknown colour 'ff0000' of 'color' becomes black; did you mean "
              "'#ff0000'?");
    EXPECT_EQ(ofNode("color=\"#00000g\"", "treemap"),
              "1:20 unknown-color: unknown colour '#00000g' of 'color' becomes black; write "
              "'#rrggbb' or '#rrggbbaa'");
    EXPECT_EQ(ofNode("color=orange", "treemap"),
              "1:20 unknown-color: unknown colour 'orange' of 'color' becomes black; write "
              "'#rrggbb', '#rrggbbaa' or one of aqua, black, blue, fuchsia, gray, green, grey, "
              "lime, maroon, navy, none, olive, purple, red, silver, teal, white, yellow");
}

TEST(UnknownColor, is_found_within_a_gradient)
{
    EXPECT_EQ(
        ofNode("fillcolor=\"red;grean;blue\"", "treemap"),
        "1:24 unknown-color: unknown colour 'grean' of 'fillcolor' becomes black; did you mean "
        "'green'?");
    EXPECT_EQ(ofNode("fillcolor=\"red;Blue;#112233;#11223344\"", "treemap"), "");
    EXPECT_EQ(
        ofNode("color=\"red;blue\"", "treemap"),
        "1:20 unknown-color: 'color' can't be a gradient: 'red;blue' becomes black; write one "
        "colour");
    EXPECT_EQ(ofNode("fillcolor=\"\" color=\"\"", "treemap"), "");
}

TEST(UnknownWord, is_told_with_the_default_and_the_words)
{
    EXPECT_EQ(
        ofNode("shape=rectangel", "gftree"),
        "1:20 unknown-word: unknown word 'rectangel' of 'shape' counts as the default (neither "
        "outline nor slash nor expander); did you mean 'rectangle'?");
    EXPECT_EQ(ofNode("shape=box", "gftree"),
              "1:20 unknown-word: unknown word 'box' of 'shape' counts as the default (neither "
              "outline nor slash nor expander); the words are hexagon, octagon, oval, "
              "parallelogram, rectangle and none");
    EXPECT_EQ(
        ofNode("slash=yes", "gftree"),
        "1:20 unknown-word: unknown word 'yes' of 'slash' counts as the default (not); the only "
        "word is 'true'");
    EXPECT_EQ(
        saidOfBody("graph [rankdir=lr]", "gftree"),
        "1:26 unknown-word: unknown word 'lr' of 'rankdir' counts as the default (from top to "
        "bottom); did you mean 'LR'?");
}

TEST(UnknownWord, is_none_that_says_the_default)
{
    EXPECT_EQ(ofNode("slash=false expander=false peripheries=1 shape=\"\"", "gftree"), "");
    EXPECT_EQ(saidOfBody("graph [crossing=true sort=false rankdir=TB]", "gftree"), "");
    EXPECT_EQ(saidOfBody("graph [rankdir=LR]; subgraph s { graph [legend=right] }", "bar"), "");
    EXPECT_EQ(saidOfBody("edge [arrowhead=none]", "gfdecl"), "");
    EXPECT_EQ(saidOfBody("graph [axis=both]", "matrix"), "");
}

TEST(UnknownWord, is_found_in_a_style)
{
    EXPECT_EQ(ofNode("style=\"filled, dashd\"", "treemap"),
              "1:20 unknown-word: unknown word 'dashd' of 'style' has no effect; did you mean "
              "'dashed'?");
    EXPECT_EQ(ofNode("style=\"filled,solid,rounded dashed;dotted\"", "treemap"), "");
    EXPECT_EQ(ofNode("style=\"\"", "treemap"), "");
}

TEST(AttributeRules, hold_for_no_text_that_is_replayed)
{
    EXPECT_EQ(saidOfBody("graph [xdotversion=1.2 bb=\"0,0,1,1\"]; n [lable=x]", "treemap"), "");
}

TEST(AttributeRules, count_what_is_beyond_a_hundred)
{
    QByteArray text = "digraph {\n";
    for (int i = 0; i < 150; ++i)
        text += "n" + QByteArray::number(i) + " [lable=x];\n";
    const QStringList said = saidOf(text + "}", u"treemap"_s);
    ASSERT_EQ(said.size(), 101);
    EXPECT_EQ(said[99],
              u"101:6 unknown-attribute: unknown attribute 'lable' of a node in treemap; did you "
              "mean 'label'?"_s);
    EXPECT_TRUE(said[100].endsWith("... and 50 more"_L1)) << said[100].toStdString();
}
