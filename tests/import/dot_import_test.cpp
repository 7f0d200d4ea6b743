#include "companion/import/graphs/dot_import.h"

#include "companion/import/graphs/foreign_graph.h"
#include "companion/import/graphs/foreign_looks.h"
#include "companion/import/graphs/laid_out_graph.h"
#include "companion/produce/dependency_picture.h"
#include "drawing/job.h"
#include "import/imported.h"

#include <gtest/gtest.h>

#include <QStandardPaths>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

const Dependencies &edgesOf(const ImportResult &result)
{
    return static_cast<const DependencyPicture &>(*result.picture).dependencies();
}

QStringList labelsIn(const ImportResult &result)
{
    QStringList labels;
    const Dependencies &all = edgesOf(result);
    for (Dependencies::Item item = 1; item < all.items().size(); ++item)
        labels.append(all.label(item));
    return labels;
}

} // namespace

TEST(DotImport, reads_what_the_dialect_refuses)
{
    const auto result = importedBytes("dot", R"(// a comment
strict graph "g" {
  a:port:n -- b -- { c d }; a -- b
  subgraph cluster_x { label="The group"; e [label=<<b>bold</b> text<br/>below &lt;1&gt;>] }
  f [shape=record label="{<in> one|two}" + "|three"]; h [label="\N of \G\lleft"]
})");
    ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
    EXPECT_EQ(edgesOf(result).edges().size(), 3);
    const QStringList labels = labelsIn(result);
    for (const char *label :
         {"The group", "bold text\nbelow <1>", "one\ntwo\nthree", "h of g\nleft"})
        EXPECT_TRUE(labels.contains(QString::fromLatin1(label)))
            << label << " is not in " << labels.join(u'|').toStdString();
    ASSERT_EQ(result.notes.size(), 1);
    EXPECT_TRUE(result.notes[0].sentence.startsWith(u"the graph has no directions"));
}

TEST(DotImport, maps_looks)
{
    const auto result = importedBytes(
        "dot",
        "digraph { a [shape=doublecircle style=filled color=lightblue1 fontcolor=\"0,1,1\"] }");
    ASSERT_TRUE(result.picture);
    const ThingLook look = edgesOf(result).look(1);
    EXPECT_EQ(look.shape, u"oval");
    EXPECT_TRUE(look.twoLines);
    EXPECT_EQ(look.fill, u"#add8e6");
    EXPECT_EQ(look.letters, u"#ff0000");
}

TEST(DotImport, maps_lines_and_fonts_of_nodes)
{
    const auto result = importedBytes("dot", R"(digraph {
  a [style="bold,dashed" fontname="Times-Roman,serif" fontsize=20];
  b [fontname="Courier-BoldOblique" fontsize="-3"] })");
    ASSERT_TRUE(result.picture);
    const ThingLook look = edgesOf(result).look(1);
    EXPECT_EQ(look.style, u"dashed");
    EXPECT_EQ(look.width, 2);
    EXPECT_EQ(look.family, u"Times");
    EXPECT_EQ(look.textSize, 20);
    const QByteArray text = drawnImport(*result.picture, "gftree").text;
    EXPECT_TRUE(text.contains("penwidth=\"2\" fontname=\"Times\" fontsize=\"20\"")) << text.data();
    EXPECT_TRUE(text.contains("label=\"in no cycle\"")) << "b has a font, yet no colours";
    EXPECT_TRUE(text.contains("fontname=\"Courier\" path=\"b\"")) << text.data();
}

TEST(DotImport, maps_looks_of_edges)
{
    const auto result = importedBytes("dot", R"(digraph { edge [style=dashed];
  a -> b [color=green style=dotted penwidth=2.6 arrowhead=vee];
  a -> c [style=bold]; a -> d [dir=both style=solid]; a -> e [arrowhead=none];
  a -> f [dir=back arrowhead=normal] })");
    ASSERT_TRUE(result.picture);
    const QByteArray text = drawnImport(*result.picture, "gftree").text;
    for (const char *look :
         {"[color=\"#008000\" style=\"dotted\" penwidth=\"3\" arrowhead=\"normal\"]",
          "[penwidth=\"2\"]", "[arrowhead=\"normal\"]"})
        EXPECT_TRUE(text.contains(look)) << look << " is not in " << text.data();
    EXPECT_EQ(text.count("[style=\"dashed\"]"), 2) << text.data();
    EXPECT_FALSE(importedBytes("dot", "graph { a -- b [arrowhead=vee] }")
                     .picture->write({.engine = u"gftree"_s})
                     .text.contains("arrowhead"));
}

TEST(DotImport, takes_the_look_of_the_first_of_several_edges)
{
    const auto result =
        importedBytes("dot", "digraph { a -> b a -> b [color=red] a -> b [color=blue] }");
    ASSERT_TRUE(result.picture);
    EXPECT_EQ(edgesOf(result).linkLook(1, 2).color, u"#ff0000");
    EXPECT_TRUE(edgesOf(result).linkLook(2, 1).isEmpty());
}

TEST(DotImport, keeps_widths_and_sizes_that_are_none_away)
{
    const auto result = importedBytes("dot", R"(digraph {
  a -> b [penwidth="1e999"]; b -> c [penwidth="nan"]; c -> d [penwidth="1e9"]; d -> e [penwidth=0];
  a [fontsize="1e999"]; b [fontsize="1e9"]; c [fontsize=nan] })");
    ASSERT_TRUE(result.picture);
    const Dependencies &all = edgesOf(result);
    EXPECT_EQ(all.linkLook(1, 2).width, 0);
    EXPECT_EQ(all.linkLook(2, 3).width, 0);
    EXPECT_EQ(all.linkLook(3, 4).width, 50);
    EXPECT_EQ(all.linkLook(4, 5).width, 1);
    EXPECT_EQ(all.look(1).textSize, 0);
    EXPECT_EQ(all.look(2).textSize, 100);
    EXPECT_EQ(all.look(3).textSize, 0);
    EXPECT_LE(drawnImport(*result.picture, "gftree").size.width(), 1200);
}

TEST(DotImport, hands_links_and_tooltips_on)
{
    const auto result = importedBytes("dot", R"(digraph g {
  a [URL="a.html#\N" href="other" tooltip="of \G"]; b [href="b.html"];
  a -> b [label="calls" tooltip="\T to \H" URL="x?\E"] })");
    ASSERT_TRUE(result.picture);
    const QByteArray tree = drawnImport(*result.picture, "gftree").text;
    for (const char *facts :
         {"path=\"a\" url=\"a.html#a\" tooltip=\"of g\"", "path=\"b\" url=\"b.html\"",
          "[label=\"calls\" url=\"x?a->b\" tooltip=\"a to b\"]"})
        EXPECT_TRUE(tree.contains(facts)) << facts << " is not in " << tree.data();
    const QByteArray matrix = drawnImport(*result.picture, "matrix").text;
    for (const char *facts : {"path=\"a\" url=\"a.html#a\" tooltip=\"of g\"",
                              "count=\"1\" url=\"x?a->b\" tooltip=\"a to b\""})
        EXPECT_TRUE(matrix.contains(facts)) << facts << " is not in " << matrix.data();
}

TEST(DotImport, knows_colours)
{
    EXPECT_EQ(foreignColor("transparent"), u"none");
    EXPECT_EQ(foreignColor("red:blue;0.5"), u"#ff0000");
    EXPECT_EQ(foreignColor("/blues9/navy"), u"#000080");
    EXPECT_EQ(foreignColor("#12345678"), u"#12345678");
    EXPECT_EQ(foreignColor("nonsense"), u"");
    EXPECT_EQ(foreignColor("9 9"), u"");
}

TEST(DotImport, tells_the_line_of_a_fault)
{
    const auto result = importedBytes("dot", "digraph {\n a -> ;\n}");
    ASSERT_TRUE(result.fault);
    EXPECT_EQ(result.fault->place.line, 2);
    EXPECT_EQ(faultOf(result), "this is no DOT: syntax error in line 2 near ';'");
}

TEST(DotImport, refuses_what_the_library_would_not_survive)
{
    const QByteArray deep = "digraph {" + QByteArray("subgraph {").repeated(100'000)
        + QByteArray("}").repeated(100'001);
    EXPECT_EQ(faultOf(importedBytes("dot", deep)),
              "braces or HTML are nested deeper than 1000 levels");
    EXPECT_EQ(faultOf(importedBytes("dot", QByteArray("digraph { a\0 }", 14))),
              "this is no DOT: there is a NUL byte in it");
    EXPECT_EQ(
        faultOf(importedBytes("dot", "digraph { a [label=\"" + QByteArray(1 << 21, 'x') + "\"] }")),
        "a string is longer than a megabyte");
    EXPECT_TRUE(importedBytes("dot", "digraph { a [label=\"{{{{\"] /* {{ */ }").picture);
}

TEST(DotImport, reads_nine_hundred_subgraphs_in_each_other)
{
    const QByteArray deep = "digraph {" + QByteArray("subgraph {").repeated(900) + "a -> b"
        + QByteArray("}").repeated(901);
    const auto result = importedBytes("dot", deep);
    ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
    EXPECT_EQ(edgesOf(result).edges().size(), 1);
}

TEST(DotImport, takes_names_of_any_bytes)
{
    const auto result = importedBytes("dot", "digraph { \"\xff\x01\" -> \"b\\\\ \" }");
    ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
    EXPECT_TRUE(drawnImport(*result.picture, "gftree").size.isValid());
    EXPECT_TRUE(drawnImport(*result.picture, "matrix").size.isValid());
    EXPECT_EQ(labelsIn(importedBytes("dot", "digraph { charset=latin1 \"caf\xe9\" }")),
              (QStringList{QString::fromUtf8("caf\xc3\xa9")}));
}

TEST(DotImport, draws_what_tools_wrote)
{
    for (const char *name : {"dot/targets.dot", "dot/packages.dot"}) {
        const auto result = importedFile("dot", name);
        ASSERT_TRUE(result.picture) << name;
        for (const char *engine : {"gftree", "matrix"}) {
            const auto drawn = drawnImport(*result.picture, engine);
            EXPECT_TRUE(drawn.size.isValid()) << name;
            EXPECT_LE(drawn.size.width(), 1200) << name;
            EXPECT_LE(drawn.size.height(), 800) << name;
        }
    }
}

TEST(DotImport, refuses_other_layouts)
{
    EXPECT_EQ(faultOf(importedBytes("dot", "digraph { a }", {.layout = "sh -c"})),
              "'sh -c' is none of the layouts dot, neato, fdp, circo and kept");
}

TEST(DotImport, replays_what_another_program_laid_out)
{
    if (QStandardPaths::findExecutable("dot").isEmpty())
        GTEST_SKIP() << "there is no dot";
    for (const char *layout : {"dot", "neato", "fdp", "circo"}) {
        const auto result = importedFile("dot", "dot/targets.dot", {.layout = layout});
        ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
        const auto drawn = drawnImport(*result.picture, "gftree", 5000, 5000);
        EXPECT_TRUE(drawn.text.contains("xdotversion=\"1.2\"")) << layout;
        EXPECT_TRUE(drawn.text.contains("-numbers")) << layout;
        EXPECT_GT(drawn.size.width(), 200) << layout;
        EXPECT_TRUE(drawn.notes.isEmpty()) << layout;
        EXPECT_EQ(drawnImport(*result.picture, "gftree", 50, 50).notes.size(), 1) << layout;
    }
}

TEST(DotImport, keeps_a_layout_that_is_there)
{
    const auto result =
        importedBytes("dot", R"(strict graph { graph [bb="0,0,50,60" xdotversion=1.4];
a [pos="9,9" _draw_="e 9 9 5 5 "]; a:port -- b [_draw_="B 4 0 0 0 9 9 9 9 0 "]; })",
                      {.layout = "kept"});
    ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
    const auto drawn = drawnImport(*result.picture, "gftree");
    EXPECT_TRUE(drawn.text.contains("e 9 9 5 5")) << drawn.text.data();
    EXPECT_EQ(drawn.size.height(), 68);
    EXPECT_FALSE(importedBytes("dot", "digraph {", {.layout = "kept"}).picture);
}

TEST(DotImport, tells_why_another_program_laid_nothing_out)
{
    if (QStandardPaths::findExecutable("dot").isEmpty())
        GTEST_SKIP() << "there is no dot";
    const QByteArray fault = faultOf(importedBytes("dot", "digraph {", {.layout = "dot"}));
    EXPECT_TRUE(fault.startsWith("'dot' did not lay the graph out: ")) << fault.data();
}

TEST(ReplayableText, has_clusters_nodes_and_all_texts_of_edges)
{
    std::optional<ImportFault> fault;
    const auto replay = replayableText(R"(digraph { graph [bb="0,0,50,60" xdotversion="1.2"];
subgraph cluster_a { graph [_draw_="P 4 0 0 0 9 9 9 9 0 "]; x [_ldraw_="T 1 2 0 9 1 -x " width=9]; }
x -> y [_ldraw_="T 1 2 0 9 3 -mid ", _tldraw_="T 3 4 0 9 3 -end "]; })",
                                       "in", &fault);
    ASSERT_TRUE(replay);
    EXPECT_TRUE(replay->contains("subgraph cluster_"));
    EXPECT_TRUE(replay->contains("-mid  T 3 4 0 9 3 -end")) << replay->data();
    EXPECT_FALSE(replay->contains("width"));
    QByteArray drawing;
    const ORR::Drawing::Job job{.input = *replay, .engine = "gftree"};
    const auto target = ORR::Drawing::inMemory(&drawing, ORR::Drawing::Format::Svg);
    EXPECT_EQ(ORR::Drawing::draw(job, target).message, "");
    EXPECT_TRUE(drawing.contains(">end<")) << drawing.data();
}

TEST(DotImport, tells_where_more_than_a_graph_begins)
{
    const auto restOf = [](const char *text) {
        const auto result = importedBytes("dot", text);
        return result.notes.isEmpty() ? qint64(0) : result.notes[0].place.line;
    };
    EXPECT_EQ(restOf("digraph {\n a -> b\n}\n// end }\ndigraph { c }\n"), 5);
    EXPECT_EQ(restOf("digraph { a [label=\"}\" x=<<b>}</b>>] }\n\nrest"), 3);
    EXPECT_EQ(restOf("/* { */ digraph { subgraph { a } }\n# 1 \"x\"\n /* } */\n"), 0);
    EXPECT_EQ(labelsIn(importedBytes("dot", "digraph { z }")), QStringList{"z"});
    EXPECT_EQ(importedBytes("dot", "digraph { a } digraph { b }").notes[0].sentence,
              u"what stands behind the first graph is passed over, from here on");
}

TEST(DotImport, leaves_out_what_is_invisible)
{
    const auto result = importedBytes(
        "dot", "digraph { a -> b -> c; b [style=\"filled,invis\"]; a -> c [style=invis]; c -> a }");
    ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
    EXPECT_EQ(labelsIn(result), (QStringList{"a", "c"}));
    EXPECT_EQ(edgesOf(result).edges().size(), 1);
    ASSERT_EQ(result.notes.size(), 1);
    EXPECT_EQ(result.notes[0].sentence,
              u"what is invisible is left out, with its edges: 1 nodes and 3 edges");
}

TEST(DotImport, tells_weights_that_are_none)
{
    const auto result = importedBytes(
        "dot", "digraph { a -> b [weight=-1] b -> c [weight=\"1e999\"] c -> d [weight=0] d -> e }");
    ASSERT_EQ(result.notes.size(), 1);
    EXPECT_EQ(result.notes[0].sentence,
              u"weights of edges that are no number of 0 or more count as 1: 2 of them");
}

TEST(DotImport, tells_that_a_graph_without_nodes_can_not_be_drawn)
{
    EXPECT_EQ(faultOf(importedBytes("dot", "digraph { }")), "the graph has no nodes");
    EXPECT_EQ(faultOf(importedBytes("dot", "digraph { }", {.layout = "kept"})),
              "the graph has no nodes");
    if (!QStandardPaths::findExecutable("dot").isEmpty()) {
        EXPECT_EQ(faultOf(importedBytes("dot", "digraph { }", {.layout = "dot"})),
                  "the graph has no nodes");
    }
}

TEST(DotImport, is_told_by_its_look)
{
    EXPECT_GT(likenessOfDot("/* a */ // b\n strict digraph \"x\" {"), 50);
    EXPECT_GT(likenessOfDot(importDataBytes("dot/targets.dot")), 50);
    EXPECT_LE(likenessOfDot("graph TD\n a --> b"), 50);
    EXPECT_EQ(likenessOfDot("a -> b"), 0);
}

TEST(DotImport, ends_no_process_whatever_it_reads)
{
    EXPECT_GT(readBrokenImports("dot", "gftree", importDataBytes("dot/targets.dot")), 100);
}
