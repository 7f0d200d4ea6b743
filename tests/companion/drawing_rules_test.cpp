// What `orr check` tells of a drawing before it is made, engine by engine.
#include "companion/check/check_text.h"
#include "companion/drawing_findings.h"
#include "support/golden.h"

#include <QStringList>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

// What is found by the rules of drawings, as lines of "line:column sentence [rule]".
QStringList foretold(const QString &engine, const QByteArray &text)
{
    QStringList lines;
    for (const Finding &finding : checkText(text, {engine})) {
        if (!isOfDrawing(finding))
            continue;
        lines += u"%1:%2 %3 [%4]"_s.arg(
            QString::number(finding.line), QString::number(finding.column), finding.sentence,
            QString::fromLatin1(finding.rule->id.data(), qsizetype(finding.rule->id.size())));
    }
    return lines;
}

QStringList one(const QString &line)
{
    return {line};
}

// A text that is replayed, with these attributes of the graph and of a node.
QByteArray replayed(const QByteArray &graph, const QByteArray &node)
{
    return "digraph { graph [xdotversion=\"1.2\" " + graph + "];\n a [" + node + "]; }";
}

QByteArray richLabel(const QByteArray &html)
{
    return "_ldraw_=\"F 14 5 -Arial H 10 10 0 30 " + QByteArray::number(html.size()) + " -" + html
        + " \"";
}

constexpr char square[] = "_draw_=\"P 4 10 10 10 50 50 50 50 10 \"";

} // namespace

TEST(Foretelling, says_nothing_without_an_engine_and_with_one_that_there_is_not)
{
    const QByteArray blank = "digraph { }";
    EXPECT_EQ(foretold({}, blank), QStringList());
    EXPECT_EQ(foretold(u"none"_s, blank), QStringList());
    EXPECT_NE(foretold(u"TreeMap"_s, blank), QStringList());
    EXPECT_EQ(foretold(u"treemap"_s, "digraph {"), QStringList());
}

TEST(Foretelling, tells_no_consequence_of_a_value_that_is_told)
{
    EXPECT_EQ(foretold(u"treemap"_s, "digraph { a [area=\"-1\"]; }"), QStringList());
    EXPECT_EQ(foretold(u"treemap"_s, "digraph { a [area=\"-1\"]; b [area=3]; }"), QStringList());
    EXPECT_EQ(foretold(u"treemap"_s, "digraph { a [area=\"-1\"];\n b [];\n c [area=3]; }"),
              one(u"2:2 1 of 3 nodes has no area [left-out-node]"_s));
    EXPECT_EQ(foretold(u"treemap"_s, "digraph { a [area=\"-1\"]; b []; }"),
              one(u"1:26 1 of 2 nodes has no area [left-out-node]"_s));
    EXPECT_EQ(foretold(u"flatbubble"_s, "digraph { a [radius=nan]; b [area=300]; }"),
              QStringList());
}

TEST(Foretelling, tells_that_slices_have_no_labels)
{
    EXPECT_EQ(foretold(u"sunburst"_s,
                       "digraph { a [area=2];\nb [area=1 label=b]; c [area=1 label=c];"
                       " subgraph s { graph [legend=right label=l]; d [label=d]; } }"),
              one(u"2:1 2 labels are not drawn: slices have no labels [unseen-label]"_s));
    EXPECT_EQ(foretold(u"sunburst"_s,
                       "digraph { a [area=2]; subgraph s { graph [legend=right "
                       "label=l]; d [label=d]; } }"),
              QStringList());
}

TEST(Foretelling, tells_that_an_object_of_a_sequence_without_a_label_is_nothing)
{
    EXPECT_EQ(foretold(u"umlseq"_s, "digraph { a [uml=object row=0 col=0]; }"),
              one(u"0:0 nothing is drawn [blank-drawing]"_s));
    EXPECT_EQ(foretold(u"umlseq"_s, "digraph { a [uml=object row=0 col=0 label=a]; }"),
              QStringList());
}

// A value is told where it stands, which does not say that all of the drawing is lost.
TEST(Foretelling, tells_that_a_value_leaves_nothing_of_a_chart)
{
    const auto blank = [](const QString &reason) {
        return one(u"0:0 nothing is drawn: "_s + reason + u" [blank-drawing]"_s);
    };
    for (const QString &engine : {u"treemap"_s, u"sunburst"_s}) {
        EXPECT_EQ(foretold(engine, "digraph { a [area=nan label=x]; b [area=1]; }"),
                  blank(u"an area is no number"_s))
            << engine.toStdString();
        EXPECT_EQ(foretold(engine, "digraph { a [area=inf]; b [area=3]; }"),
                  blank(u"an area is infinite"_s))
            << engine.toStdString();
        EXPECT_EQ(foretold(engine, "digraph { a [area=thirty]; }"),
                  blank(u"an area is no number"_s))
            << engine.toStdString();
    }
    EXPECT_EQ(foretold(u"flatbubble"_s, "digraph { a [radius=wide]; }"),
              blank(u"a radius is no number"_s));
    EXPECT_EQ(foretold(u"treemap"_s, "digraph { node [area=thirty]; a; b; }"),
              blank(u"an area is no number"_s));
}

TEST(Foretelling, tells_why_an_engine_fails_and_where_if_it_can)
{
    EXPECT_EQ(foretold(u"gftree"_s, "digraph { a -> b [];\nb -> a []; c -> a []; }"),
              one(u"2:1 the drawing fails: Cycle detected. Graflib Tree layout does not support "
                  "cycles [drawing-fails]"_s));
    EXPECT_EQ(foretold(u"gftree"_s, "digraph { r -> a; a -> b; a -> c;\nc -> a; b -> r; }"),
              one(u"2:9 the drawing fails: Could not find root node [drawing-fails]"_s));
    EXPECT_EQ(foretold(u"gftree"_s, "digraph { a -> b; a -> c;\n d -> b; e; }"),
              one(u"2:2 the drawing fails: Could not find root node [drawing-fails]"_s));
    EXPECT_EQ(foretold(u"gftree"_s, "digraph { a -> a }"),
              one(u"1:11 the drawing fails: Could not find root node [drawing-fails]"_s));
    EXPECT_EQ(foretold(u"gftree"_s, "digraph { }"),
              one(u"0:0 the drawing fails: Could not find root node [drawing-fails]"_s));
    // What the root does not reach is no reason.
    EXPECT_EQ(foretold(u"gftree"_s, "digraph { r -> s; a -> b; b -> a; a [level=9] }"),
              one(u"0:0 the drawing fails: A node has a level that is not in the tree "
                  "[drawing-fails]"_s));
    EXPECT_EQ(foretold(u"gftree"_s, "digraph { a;\nsubgraph b { c; } }"),
              one(u"2:10 the drawing fails: GraflibTree does not support subgraphs "
                  "[drawing-fails]"_s));
}

// It is told at the object, as one that stands outside.
TEST(Foretelling, tells_no_failure_of_a_sequence_twice)
{
    const QByteArray text = "digraph { b [uml=object row=\"0\" col=\"0\"];\n"
                            "  a [uml=object row=\"3\" col=\"-1\"]; }";
    EXPECT_EQ(foretold(u"umlseq"_s, text), QStringList());
    const QList<Finding> findings = checkText(text, {u"umlseq"_s});
    ASSERT_EQ(findings.size(), 1);
    EXPECT_EQ(findings.first().rule, &Rules::outsideGrid);
}

TEST(Foretelling, tells_the_failure_of_a_sequence_that_no_object_is_named_in)
{
    EXPECT_EQ(foretold(u"umlseq"_s,
                       "digraph { subgraph c { graph [uml=combinedfragment row=\"999999\" "
                       "col=\"0\"]; } }"),
              one(u"0:0 the drawing fails: Unable to lay out the sequence diagram: row 1000000 of "
                  "the end of a fragment is not between 0 and 999999 [drawing-fails]"_s));
}

TEST(Foretelling, tells_a_chart_without_areas)
{
    for (const QString &engine : {u"treemap"_s, u"sunburst"_s}) {
        EXPECT_EQ(foretold(engine, "digraph { a; b [area=\"0\"]; }"),
                  one(u"0:0 nothing is drawn: no node has an area [blank-drawing]"_s));
        EXPECT_EQ(foretold(engine, "digraph { subgraph a { } }"),
                  one(u"0:0 nothing is drawn: there are no nodes [blank-drawing]"_s));
    }
    EXPECT_EQ(foretold(u"bar"_s, "digraph { a [area=0]; }"),
              one(u"0:0 nothing is drawn: no node has an area [blank-drawing]"_s));
}

TEST(Foretelling, takes_a_legend_for_no_drawing_and_its_entries_for_no_nodes)
{
    const QByteArray legend =
        "subgraph k { graph [legend=right label=Key]; x [label=X]; y; subgraph m { z; } }";
    EXPECT_EQ(foretold(u"treemap"_s, "digraph { " + legend + " a; }"),
              one(u"0:0 nothing is drawn: no node has an area [blank-drawing]"_s));
    for (const QString &engine : {u"treemap"_s, u"sunburst"_s, u"bar"_s, u"flatbubble"_s})
        EXPECT_EQ(foretold(engine, "digraph { " + legend + " a [area=\"9\"]; }"), QStringList())
            << engine.toStdString();
    EXPECT_EQ(
        foretold(u"treemap"_s, "digraph { subgraph k { graph [legend=right]; x [area=\"4\"]; } }"),
        QStringList());
}

TEST(Foretelling, tells_a_page_without_a_size)
{
    EXPECT_EQ(foretold(u"treemap"_s, "digraph { graph [width=\"0\"]; a [area=\"1\"]; }"),
              one(u"0:0 nothing can be seen: the page is 0 x 480 points large [blank-drawing]"_s));
    EXPECT_EQ(foretold(u"gfdecl"_s, "digraph { }"),
              one(u"0:0 nothing can be seen: the page is 0 x 0 points large [blank-drawing]"_s));
}

TEST(Foretelling, tells_a_chart_that_is_too_small_for_all_nodes)
{
    EXPECT_EQ(
        foretold(u"treemap"_s, "digraph { graph [width=\"3\" height=\"1\"]; a [area=\"1\"]; }"),
        one(u"0:0 nothing is drawn: every node is too small to be seen [blank-drawing]"_s));
}

TEST(Foretelling, tells_an_empty_drawing_of_any_engine)
{
    EXPECT_EQ(foretold(u"umlseq"_s, "digraph { a; }"),
              one(u"0:0 nothing is drawn [blank-drawing]"_s));
    EXPECT_EQ(foretold(u"matrix"_s, "digraph { a; }"),
              one(u"0:0 nothing is drawn [blank-drawing]"_s));
}

TEST(Foretelling, counts_what_a_chart_leaves_out_and_tells_the_first_place)
{
    const QByteArray nodes = "digraph { a [area=\"10000\"];\n b [area=\"1\"];\n c [area=\"1\"];\n"
                             " d [area=\"0\"]; }";
    const QStringList both{u"2:2 2 of 4 nodes are too small to be seen [left-out-node]"_s,
                           u"4:2 1 of 4 nodes has no area [left-out-node]"_s};
    EXPECT_EQ(foretold(u"sunburst"_s, nodes), both);
    EXPECT_EQ(foretold(u"treemap"_s, QByteArray(nodes).replace("10000", "1000000")), both);
    EXPECT_EQ(foretold(u"bar"_s, QByteArray(nodes).replace("10000", "9")), both.sliced(1));
    EXPECT_EQ(foretold(u"flatbubble"_s, nodes),
              (QStringList{both.first(),
                           u"4:2 1 of 4 nodes has no area and no radius [left-out-node]"_s}));
}

TEST(Foretelling, knows_that_bars_have_one_level_of_subgraphs)
{
    EXPECT_EQ(foretold(u"bar"_s,
                       "digraph { subgraph s { a [area=\"3\"]; subgraph t {\n b [area=\"3\"];\n"
                       " c [area=\"3\"]; } } }"),
              one(u"2:2 2 of 3 nodes stand in a subgraph of a subgraph "
                  "[left-out-node]"_s));
}

TEST(Foretelling, leaves_bubbles_with_a_radius_or_a_label_alone)
{
    EXPECT_EQ(
        foretold(u"flatbubble"_s, "digraph { a [radius=\"5\"]; b [label=\"B\"]; c [area=\"9\"]; }"),
        QStringList());
}

TEST(Foretelling, counts_labels_that_their_cells_can_not_hold)
{
    const QByteArray text = "digraph { graph [width=\"60\" height=\"60\"];\n"
                            " subgraph s { graph [label=\"a label that is far too long\"];\n"
                            "  a [area=\"3\" label=\"another one that is too long\"];\n"
                            "  b [area=\"3\"]; } }";
    EXPECT_EQ(foretold(u"treemap"_s, text),
              one(u"2:11 2 labels are not drawn: the cell is too small [unseen-label]"_s));
    EXPECT_EQ(foretold(u"treemap"_s, QByteArray(text).replace("60", "600")), QStringList());
    // There a node with a label that is not drawn is hidden on purpose.
    EXPECT_EQ(foretold(u"gfdecl"_s, "digraph { a [style=invis label=\"x\"]; b [label=\"y\"]; }"),
              QStringList());
}

TEST(Foretelling, tells_a_group_of_a_matrix_without_headers)
{
    EXPECT_EQ(
        foretold(u"matrix"_s, "digraph { a [label=\"A\"];\n subgraph g { graph [label=\"G\"]; } }"),
        one(u"2:11 1 label is not drawn: the group has no headers [unseen-label]"_s));
}

TEST(Foretelling, tells_what_becomes_of_a_large_drawing)
{
    const auto chart = [](const QByteArray &width, const QByteArray &height) {
        return foretold(u"treemap"_s,
                        "digraph { graph [width=\"" + width + "\" height=\"" + height
                            + "\"]; a [area=\"1\"]; }");
    };
    EXPECT_EQ(chart("32767", "40"), QStringList());
    EXPECT_EQ(chart("32768", "40"),
              one(u"0:0 the drawing is 32768 x 40 points large: images of it are scaled down "
                  "[large-drawing]"_s));
    EXPECT_EQ(chart("50", "1600000"),
              one(u"0:0 the drawing is 50 x 1600000 points large: images of it are scaled down "
                  "[large-drawing]"_s));
    EXPECT_EQ(chart("48", "1600000"),
              one(u"0:0 the drawing is 48 x 1600000 points large: it can't be an image "
                  "[large-drawing]"_s));
}

TEST(Foretelling, watches_a_replay_without_an_engine)
{
    EXPECT_EQ(foretold({}, replayed("bb=\"0,0,99,99\"", square)), QStringList());
    EXPECT_EQ(foretold({}, replayed("bb=\"0,0,99,99\"", "label=\"a\"")),
              one(u"0:0 nothing is drawn [blank-drawing]"_s));
    EXPECT_EQ(foretold({}, replayed("bb=\"0,0,-8,99\"", square)),
              one(u"0:0 nothing can be seen: the page is 0 x 107 points large [blank-drawing]"_s));
    EXPECT_EQ(foretold({}, replayed("bb=\"0,0,5,3\"", square)),
              one(u"0:0 nothing can be seen: all that is drawn lies beside the page of 13 x 11 "
                  "points [blank-drawing]"_s));
}

// The rules of the syntax tell why.
TEST(Foretelling, says_nothing_of_a_replay_that_fails_or_has_no_page)
{
    for (const QByteArray &text :
         {replayed("", square), replayed("bb=\"0,0,x\"", square),
          replayed("bb=\"0,0,99,99\"", QByteArray(square) + "]; a -> b; c ["_ba)}) {
        EXPECT_EQ(foretold({}, text), QStringList()) << text.toStdString();
        EXPECT_EQ(checkText(text, {}).size(), 1) << text.toStdString();
    }
}

TEST(Foretelling, tells_rich_texts_and_pictures_that_are_not_shown)
{
    EXPECT_EQ(foretold({}, replayed("bb=\"0,0,99,99\"", richLabel("<b>bold</b>"))), QStringList());
    EXPECT_EQ(foretold({},
                       replayed("bb=\"0,0,99,99\"",
                                richLabel("<table><tr><td colspan=60000>x</td></tr></table>"))),
              one(u"2:2 1 rich text takes too long to lay out and is drawn as plain text "
                  "[plain-rich-text]"_s));
    EXPECT_EQ(
        foretold({},
                 replayed("bb=\"0,0,99,99\"", richLabel("x<img src='a.png'/><img src='b.png'/>"))),
        one(u"2:2 2 pictures are not in their texts, or are too large, and are empty boxes "
            "[missing-picture]"_s));
}

// The pinned fonts are of one family, which stands for Arial and Helvetica by intention.
TEST(Foretelling, tells_fonts_that_others_take_the_place_of)
{
    const auto drawnIn = [](const QByteArray &family) {
        return foretold(u"treemap"_s,
                        "digraph {\n a [area=3 label=a];\n b [area=2 label=b fontname=\"" + family
                            + "\"]; }");
    };
    for (const char *family : {"Arial", "arial", "Helvetica", "Liberation Sans", "sans-serif", ""})
        EXPECT_EQ(drawnIn(family), QStringList()) << family;
    EXPECT_EQ(drawnIn("Comic Sans MS"),
              one(u"3:2 no font 'Comic Sans MS' is there: 'Liberation Sans' takes its place "
                  "[replaced-font]"_s));
    EXPECT_EQ(
        foretold({},
                 replayed("bb=\"0,0,99,99\"", "_ldraw_=\"F 14 7 -Courier T 10 10 0 30 1 -x \"")),
        one(u"2:2 no font 'Courier' is there: 'Liberation Sans' takes its place "
            "[replaced-font]"_s));
}

TEST(Foretelling, says_the_same_of_texts_with_other_line_ends)
{
    const QByteArray text = "digraph {\n a [area=\"1000000\"];\n b [area=\"1\"]; }";
    EXPECT_EQ(foretold(u"treemap"_s, QByteArray(text).replace("\n", "\r\n")),
              foretold(u"treemap"_s, text));
}
