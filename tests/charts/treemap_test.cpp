#include "layout/charts/treemap.h"

#include "chart_fixture.h"
#include "device/graph_style.h"

#include <QRegularExpression>

#include <random>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

// Labels are in Arial 12 with the fonts that the tests are pinned to: 14 high, "a" 7 wide, "Title"
// 23 wide.
namespace {

QStringList treemap(const QByteArray &dot)
{
    return callsOfDrawing<Treemap>(dot);
}

// The calls that start with the word.
QStringList only(const QString &word, const QStringList &calls)
{
    return calls.filter(QRegularExpression(u'^' + word + u"\\b"_s));
}

// The rectangles of a drawing in their order, as "left,top right,bottom".
QStringList rectsOf(const QByteArray &dot)
{
    QStringList rects;
    for (const QString &call : only(u"rect"_s, treemap(dot)))
        rects += call.section(u' ', 1, 2);
    return rects;
}

QStringList textsOf(const QByteArray &dot)
{
    return only(u"text"_s, treemap(dot)).replaceInStrings(u" Arial 12 #000000"_s, QString());
}

QByteArray sized(const QByteArray &width, const QByteArray &height, const QByteArray &statements)
{
    return "digraph { graph [width=" + width + " height=" + height + "] " + statements + " }";
}

} // namespace

TEST(Treemap, without_a_size_is_640_by_480)
{
    const auto graph = graphOf("digraph { a [area=1] }");
    RecordingDevice device;
    EXPECT_EQ(Treemap::run({graph.get(), &device}), QString());
    EXPECT_EQ(device.calls(),
              QStringList({u"begin 640 480"_s, u"beginNode a"_s,
                           u"rect 0,0 640,480 radius 0 pen #000000 solid 1 fill #FFFFFF"_s,
                           u"endNode"_s, u"end"_s}));
    EXPECT_EQ(graph->root()->attributes.value(u"width"_s), "640");
    EXPECT_EQ(graph->root()->attributes.value(u"height"_s), "480");
    EXPECT_EQ(graph->root()->attributes.value(u"x"_s), "0");
    EXPECT_EQ(graph->root()->attributes.value(u"y"_s), "0");
}

TEST(Treemap, truncates_the_size_and_leaves_it_as_it_was_written)
{
    const auto graph = graphOf("digraph { graph [width=99.9 height=\"50.2\"] a [area=1] }");
    RecordingDevice device;
    Treemap::run({graph.get(), &device});
    EXPECT_EQ(device.callsOf(u"begin"_s), QStringList({u"begin 99 50"_s}));
    EXPECT_EQ(graph->root()->attributes.value(u"width"_s), "99.9");
}

TEST(Treemap, takes_an_empty_size_for_none_at_all)
{
    EXPECT_EQ(treemap("digraph { graph [width=\"\"] a [area=1] }"),
              QStringList({u"begin 0 480"_s, u"end"_s}));
}

TEST(Treemap, returns_what_the_device_says_in_the_end)
{
    const auto graph = graphOf("digraph { a [area=1] }");
    RecordingDevice device;
    device.setResult(u"Disk on fire\n"_s);
    EXPECT_EQ(Treemap::run({graph.get(), &device}), "Disk on fire\n");
}

TEST(Treemap, of_a_square_lays_its_first_row_along_the_left)
{
    EXPECT_EQ(rectsOf(sized("40", "40", "a [area=1] b [area=3]")),
              QStringList({u"0,0 30,40"_s, u"30,0 40,40"_s}));
}

TEST(Treemap, paints_the_largest_first_and_subgraphs_before_nodes)
{
    const QStringList calls = treemap(sized(
        "90", "90", "graph [margin=0] a [area=1] b [area=4] subgraph s { c [area=4] } d [area=4]"));
    EXPECT_EQ(only(u"begin(Cluster|Node)"_s, calls),
              QStringList({u"beginCluster s"_s, u"beginNode c"_s, u"beginNode b"_s,
                           u"beginNode d"_s, u"beginNode a"_s}));
}

TEST(Treemap, nests_the_objects_of_the_device)
{
    const QStringList calls =
        treemap(sized("90", "90", "subgraph s { subgraph t { a [area=1] } } b [area=1]"));
    EXPECT_EQ(
        calls.filter(QRegularExpression(u"^(begin[CN]|end)"_s)),
        QStringList({u"beginCluster s"_s, u"beginCluster t"_s, u"beginNode a"_s, u"endNode"_s,
                     u"endCluster"_s, u"endCluster"_s, u"beginNode b"_s, u"endNode"_s, u"end"_s}));
}

TEST(Treemap, keeps_a_margin_of_five_around_members)
{
    EXPECT_EQ(rectsOf(sized("100", "80", "subgraph s { a [area=1] }")),
              QStringList({u"0,0 100,80"_s, u"5,5 95,75"_s}));
    EXPECT_EQ(rectsOf(sized("100", "80", "subgraph s { graph [margin=\"\"] a [area=1] }")),
              QStringList({u"0,0 100,80"_s, u"5,5 95,75"_s}));
}

TEST(Treemap, reads_the_first_margin_for_the_sides_and_the_last_for_above_and_below)
{
    const auto inner = [](const QByteArray &margin) {
        return rectsOf(sized("100", "80",
                             "subgraph s { graph [margin=\"" + margin + "\"] a [area=1] }"))
            .constLast();
    };
    EXPECT_EQ(inner("3"), "3,3 97,77");
    EXPECT_EQ(inner("3,8"), "3,8 97,72");
    EXPECT_EQ(inner("3,50,60,8"), "3,8 97,72");
    EXPECT_EQ(inner("3,"), "3,0 97,80");
    EXPECT_EQ(inner(",8"), "0,8 100,72");
    EXPECT_EQ(inner("wide"), "0,0 100,80");
    EXPECT_EQ(inner("2.25,8.75"), "2,9 98,71"); // 97.75 and 71.25, rounded
    EXPECT_EQ(inner("-3"), "-2,-2 103,83"); // negative halves go up: -3 + 0.5 truncated
}

TEST(Treemap, inherits_margins)
{
    EXPECT_EQ(
        rectsOf(sized("100", "80", "graph [margin=2] subgraph s { subgraph t { a [area=1] } }")),
        QStringList({u"0,0 100,80"_s, u"2,2 98,78"_s, u"4,4 96,76"_s}));
}

TEST(Treemap, with_a_margin_of_zero_lets_cells_touch_their_members)
{
    EXPECT_EQ(rectsOf(sized("40", "40", "subgraph s { graph [margin=0] a [area=1] b [area=3] }")),
              QStringList({u"0,0 40,40"_s, u"0,0 30,40"_s, u"30,0 40,40"_s}));
}

TEST(Treemap, draws_a_cell_that_has_no_room_for_members_without_them)
{
    const QStringList calls = treemap(sized("10", "80", "subgraph s { a [area=1] }"));
    EXPECT_EQ(calls,
              QStringList({u"begin 10 80"_s, u"beginCluster s"_s,
                           u"rect 0,0 10,80 radius 0 pen black solid 1 fill #FFFFFF"_s,
                           u"endCluster"_s, u"end"_s}));
}

TEST(Treemap, leaves_out_what_is_tiny_and_fills_the_rectangle_with_the_rest)
{
    EXPECT_EQ(rectsOf(sized("40", "40", "a [area=1000] b [area=2] c [area=3000]")),
              QStringList({u"0,0 30,40"_s, u"30,0 40,40"_s})); // b: 1600 * 2 / 4002
}

TEST(Treemap, keeps_what_covers_four_square_points)
{
    EXPECT_EQ(rectsOf(sized("40", "40", "a [area=399] b [area=1]")).size(), 2);
    EXPECT_EQ(rectsOf(sized("40", "40", "a [area=399.1] b [area=0.9]")).size(), 1);
}

TEST(Treemap, asks_again_with_what_is_left_after_each_removal)
{
    // Of 400 square points, c gets 3.96 and b 3.98; without c, b gets 4.02.
    EXPECT_EQ(only(u"beginNode"_s,
                   treemap(sized("20", "20", "a [area=98.015] b [area=0.995] c [area=0.99]"))),
              QStringList({u"beginNode a"_s, u"beginNode b"_s}));
}

TEST(Treemap, of_no_area_draws_nothing_but_the_legend)
{
    EXPECT_EQ(treemap("digraph { a [] b [area=0] subgraph s { c [] } }"),
              QStringList({u"begin 640 480"_s, u"end"_s}));
    const QStringList calls = treemap(
        "digraph { a [] subgraph s { b [] } subgraph key { graph [legend=right] k [label=a] } }");
    EXPECT_EQ(only(u"beginNode"_s, calls), QStringList({u"beginNode k"_s}));
    EXPECT_EQ(only(u"beginCluster"_s, calls), QStringList({u"beginCluster key"_s}));
}

TEST(Treemap, leaves_out_the_areas_of_the_other_sign)
{
    // The total is -9, so that the negative area is the one with a share.
    EXPECT_EQ(treemap(sized("40", "40", "a [area=1] b [area=\"-10\"]")),
              QStringList({u"begin 40 40"_s, u"beginNode b"_s,
                           u"rect 0,0 44,40 radius 0 pen #000000 solid 1 fill #FFFFFF"_s,
                           u"endNode"_s, u"end"_s}));
    EXPECT_EQ(rectsOf(sized("40", "40", "a [area=10] b [area=\"-1\"]")),
              QStringList({u"0,0 40,40"_s}));
}

TEST(Treemap, of_nothing_is_an_empty_page)
{
    EXPECT_EQ(treemap("digraph {}"), QStringList({u"begin 640 480"_s, u"end"_s}));
}

TEST(Treemap, leaves_the_legend_out_of_the_tiling_as_long_as_it_has_no_area)
{
    EXPECT_EQ(only(u"rect"_s,
                   treemap(sized("40", "40",
                                 "a [area=1] subgraph key { graph [legend=right label=a] k [] }")))
                  .size(),
              1);
    EXPECT_EQ(only(u"beginCluster key"_s,
                   treemap(sized("90", "90",
                                 "a [area=1] subgraph key { graph [legend=right] k [area=1] }")))
                  .size(),
              2); // as a cell and as the legend
}

TEST(Treemap, reads_areas_that_nodes_inherit)
{
    EXPECT_EQ(rectsOf(sized("40", "40", "node [area=1] a [] b [area=3]")),
              QStringList({u"0,0 30,40"_s, u"30,0 40,40"_s}));
}

TEST(Treemap, centres_the_label_of_a_node)
{
    EXPECT_EQ(textsOf(sized("40", "40", "a [area=1 label=a]")),
              QStringList({u"text 17,13 \"a\""_s})); // (40 - 7) / 2 + 0.5, (40 - 14) / 2 + 0.5
}

TEST(Treemap, draws_the_label_of_a_node_only_inside_its_cell)
{
    EXPECT_EQ(textsOf(sized("8", "15", "a [area=1 label=a]")).size(), 1);
    EXPECT_EQ(textsOf(sized("7", "15", "a [area=1 label=a]")).size(), 0);
    EXPECT_EQ(textsOf(sized("8", "14", "a [area=1 label=a]")).size(), 0);
    EXPECT_EQ(textsOf(sized("8", "29", "a [area=1 label=\"a\\na\"]")).size(), 2);
    EXPECT_EQ(textsOf(sized("8", "28", "a [area=1 label=\"a\\na\"]")).size(), 0);
}

TEST(Treemap, draws_the_label_of_a_subgraph_above_its_members)
{
    EXPECT_EQ(
        treemap(sized("100", "80", "subgraph s { graph [label=Title] a [area=1 label=\"\"] }")),
        QStringList({u"begin 100 80"_s, u"beginCluster s"_s,
                     u"rect 0,0 100,80 radius 0 pen black solid 1 fill #FFFFFF"_s,
                     u"text 39,3 \"Title\" Arial 12 #000000"_s, // (100 - 23) / 2, 5 / 2
                     u"beginNode a"_s,
                     u"rect 5,19 95,75 radius 0 pen #000000 solid 1 fill #FFFFFF"_s, u"endNode"_s,
                     u"endCluster"_s, u"end"_s}));
}

TEST(Treemap, keeps_the_room_of_a_label_that_does_not_fit)
{
    const QByteArray statements = "subgraph s { graph [label=Title] a [area=1] }";
    EXPECT_EQ(textsOf(sized("24", "80", statements)).size(), 1);
    const QByteArray narrow = sized("23", "80", statements);
    EXPECT_EQ(textsOf(narrow), QStringList());
    EXPECT_EQ(rectsOf(narrow), QStringList({u"0,0 23,80"_s, u"5,19 18,75"_s}));
}

TEST(Treemap, counts_the_upper_margin_when_a_subgraphs_label_is_to_fit)
{
    const QByteArray statements = "subgraph s { graph [label=Title] a [area=1] }";
    EXPECT_EQ(textsOf(sized("100", "20", statements)).size(), 1);
    EXPECT_EQ(textsOf(sized("100", "19", statements)).size(), 0);
}

TEST(Treemap, gives_a_gradient_the_bounds_of_its_cell)
{
    EXPECT_EQ(
        only(u"rect"_s, treemap(sized("40", "40", "a [area=1] b [area=3 fillcolor=\"red;blue\"]")))
            .constFirst(),
        "rect 0,0 30,40 radius 0 pen #000000 solid 1 fill linear(0,20 30,20 red@0 blue@1)");
    EXPECT_EQ(
        only(u"rect"_s,
             treemap(sized("40", "40", "subgraph s { graph [fillcolor=\"red;blue\"] a [area=1] }")))
            .constFirst(),
        "rect 0,0 40,40 radius 0 pen black solid 1 fill linear(0,20 40,20 red@0 blue@1)");
}

TEST(Treemap, draws_within_the_rectangle_that_the_legend_leaves)
{
    const auto drawn = [](const QByteArray &side) {
        return treemap(
                   sized(
                       "100", "80",
                       "a [area=3] b [area=1] subgraph key { graph [legend=" + side
                           + " label=Kind] k [label=a fillcolor=red] l [label=bb] m [label=ccc] }"))
                   .join(u'\n')
                   .toUtf8()
            + '\n';
    };
    for (const QByteArray side : {"top", "bottom", "left", "right"})
        EXPECT_TRUE(matchesGolden(drawn(side),
                                  QStringLiteral(ORR_TEST_FOLDER "/goldens/treemap_legend_%1.calls")
                                      .arg(QString::fromLatin1(side))));
}

TEST(Treemap, reaches_the_bottom_of_deep_nesting)
{
    const int depth = 100'000;
    const QStringList calls =
        treemap("digraph { graph [margin=0] " + QByteArray("subgraph {").repeated(depth)
                + "a [area=5]" + QByteArray("}").repeated(depth + 1));
    EXPECT_EQ(only(u"beginNode"_s, calls).size(), 1);
    EXPECT_EQ(only(u"endCluster"_s, calls).size(), depth);
}

namespace {

// A random tree of subgraphs, and what a treemap makes of it.
class RandomTree
{
public:
    explicit RandomTree(unsigned seed) : random(seed) { }

    QByteArray dot()
    {
        QByteArray text = "digraph { graph [width=2000 height=1500 margin=0] ";
        addMembers(text, 0);
        return text + "}";
    }

private:
    void addMembers(QByteArray &text, int depth)
    {
        const int nodes = 1 + int(random() % 6);
        for (int i = 0; i < nodes; ++i)
            text += "n" + QByteArray::number(++count)
                + " [area=" + QByteArray::number(50 + int(random() % 1000)) + "] ";
        const int subgraphs = depth < 3 ? int(random() % 4) : 0;
        for (int i = 0; i < subgraphs; ++i) {
            text += "subgraph s" + QByteArray::number(++count) + " {";
            addMembers(text, depth + 1);
            text += "} ";
        }
    }

    std::mt19937 random;
    int count = 0;
};

// A cell as it was drawn: both corners are of the page, the right and lower edges belong to it.
struct Cell
{
    int left, top, right, bottom;
    double area;

    bool holds(const Cell &other) const
    {
        return left <= other.left && top <= other.top && right >= other.right
            && bottom >= other.bottom;
    }
    bool overlaps(const Cell &other) const
    {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
};

Cell cellOf(const QString &call, double area)
{
    const QStringList numbers = call.section(u' ', 1, 2).replace(u' ', u',').split(u',');
    return {numbers.at(0).toInt(), numbers.at(1).toInt(), numbers.at(2).toInt(),
            numbers.at(3).toInt(), area};
}

double areaOf(const DotGraph &graph, const QString &begin)
{
    const QString id = begin.section(u' ', 1);
    const DotNode *node = graph.findNode(id);
    return (node ? graph.nodeAttribute(node, u"area"_s)
                 : graph.graphAttribute(graph.findSubgraph(id), u"area"_s))
        .toDouble();
}

} // namespace

TEST(Treemap, tiles_every_parent_with_its_members_in_proportion)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        const auto graph = graphOf(RandomTree(seed).dot());
        RecordingDevice device;
        Treemap::run({graph.get(), &device});
        QList<QList<Cell>> open{{}}; // the members so far of each subgraph that is not ended
        QList<Cell> parents{{0, 0, 2000, 1500, 0.0}};
        const double total = graph->root()->attributes.value(u"area"_s).toDouble();
        for (qsizetype i = 0; i < device.calls().size(); ++i) {
            const QString &call = device.calls().at(i);
            if (call == "endCluster"_L1) {
                open.removeLast();
                parents.removeLast();
            }
            if (!call.startsWith("beginNode"_L1) && !call.startsWith("beginCluster"_L1))
                continue;
            const Cell cell = cellOf(device.calls().at(i + 1), areaOf(*graph, call));
            EXPECT_TRUE(parents.constLast().holds(cell)) << call.toStdString();
            for (const Cell &sibling : std::as_const(open.last()))
                EXPECT_FALSE(cell.overlaps(sibling)) << call.toStdString();
            // Each edge is rounded by half a point at most.
            const double width = cell.right - cell.left;
            const double height = cell.bottom - cell.top;
            EXPECT_NEAR(width * height, 2000.0 * 1500.0 * cell.area / total, width + height + 1.0)
                << call.toStdString();
            open.last().append(cell);
            if (call.startsWith("beginCluster"_L1)) {
                open.append(QList<Cell>());
                parents.append(cell);
            }
        }
        EXPECT_GT(only(u"rect"_s, device.calls()).size(), 0);
    }
}

// Labels are not measured where the cell is lower than a line of text.
TEST(Treemap, draws_exactly_the_labels_that_fit)
{
    QByteArray dot = "digraph { graph [width=1200 height=900 margin=0] ";
    const QByteArrayList labels{
        "a", "word", "two\\nlines", "\\n", "\"feed\nline\"", "\xc3\xa9t\xc3\xa9", "~!", "\" \""};
    const QByteArrayList fonts{"",
                               "fontsize=6",
                               "fontsize=20",
                               "fontsize=1",
                               "fontsize=inf",
                               "fontsize=\"-3\"",
                               "fontname=\"\""};
    for (int i = 0; i < 3000; ++i)
        dot += "n" + QByteArray::number(i) + " [area=" + QByteArray::number(1 + i % 97)
            + " label=" + labels.at(i % labels.size()) + " " + fonts.at(i % fonts.size()) + "] ";
    const auto graph = graphOf(dot + "}");
    RecordingDevice device;
    const GraphStyle style(graph.get(), &device);
    Treemap::run({graph.get(), &device});
    int drawn = 0;
    for (qsizetype i = 0; i < device.calls().size(); ++i) {
        const QString &call = device.calls().at(i);
        if (!call.startsWith("beginNode"_L1))
            continue;
        const Cell cell = cellOf(device.calls().at(i + 1), 0.0);
        const TextBlock label = style.nodeLabel(graph->findNode(call.section(u' ', 1)));
        const bool hasLabel = device.calls().at(i + 2).startsWith("text"_L1);
        drawn += hasLabel;
        // The drawn edges are rounded: a cell may be up to a point larger or smaller.
        if (label.width < cell.right - cell.left - 1 && label.height < cell.bottom - cell.top - 1) {
            EXPECT_TRUE(hasLabel) << call.toStdString();
        }
        if (label.width > cell.right - cell.left + 1 || label.height > cell.bottom - cell.top + 1) {
            EXPECT_FALSE(hasLabel) << call.toStdString();
        }
    }
    EXPECT_GT(drawn, 300);
}

// What the above relies on.
TEST(Treemap, may_take_a_blank_for_the_lowest_text)
{
    RecordingDevice device;
    std::mt19937 random(1);
    for (const double size : {1.0, 2.0, 5.0, 7.0, 9.0, 12.0, 13.0, 31.0, 200.0, 1000.0}) {
        const Device::Font *font = device.font(u"Arial"_s, size, -1);
        const int blank = TextImage::textSize(u" "_s, font, false).height();
        EXPECT_GE(TextImage::textSize(QString(), font, false).height(), blank);
        for (int i = 0; i < 200; ++i) {
            QString text;
            for (unsigned length = 1 + random() % 12; length > 0; --length)
                text += QChar::fromLatin1(char(' ' + random() % ('~' - ' ' + 1)));
            EXPECT_GE(TextImage::textSize(text, font, false).height(), blank) << text.toStdString();
        }
    }
}

TEST(Treemap, draws_the_same_on_every_run)
{
    const QByteArray dot = RandomTree(7).dot();
    EXPECT_EQ(treemap(dot), treemap(dot));
}

TEST(Treemap, takes_any_number_in_any_attribute)
{
    const QByteArrayList numbers{"0",   "\"-1\"",   "1e308", "\"-1e308\"", "1e-308", "nan",
                                 "inf", "\"-inf\"", "\"\"",  "word",       "5e-324", "99999999999"};
    const auto dot = [](const QByteArray &attribute, const QByteArray &a, const QByteArray &b) {
        const auto in = [&](const QByteArray &names, const QByteArray &value) {
            return names.contains(attribute) ? attribute + "=" + value : QByteArray();
        };
        return "digraph { graph [" + in("width height margin", a) + "] subgraph s { graph [label=a "
            + in("margin fontsize penwidth gradientAngle", b) + "] x [label=a "
            + in("area fontsize penwidth gradientAngle", a) + "] y [" + in("area", b)
            + "] z [area=2] } t [area=3 label=a fillcolor=\"red;blue\" "
            + in("area gradientAngle", b) + "] "
            + "subgraph key { graph [legend=left label=a] k [label=a " + in("fontsize x y", a)
            + "] } }";
    };
    for (const QByteArray attribute :
         {"width", "height", "margin", "area", "fontsize", "penwidth", "gradientAngle", "x", "y"}) {
        for (const QByteArray &a : numbers) {
            for (const QByteArray &b : numbers) {
                const QStringList calls = treemap(dot(attribute, a, b));
                EXPECT_EQ(calls.constLast(), "end") << attribute.toStdString();
                EXPECT_EQ(only(u"beginCluster"_s, calls).size(),
                          only(u"endCluster"_s, calls).size());
                EXPECT_EQ(only(u"beginNode"_s, calls).size(), only(u"endNode"_s, calls).size());
            }
        }
    }
}

TEST(Treemap, ends_quickly_on_long_rows_of_any_sign)
{
    QByteArray dot = "digraph { graph [width=100000 height=100000] ";
    for (int i = 0; i < 20'000; ++i)
        dot += "p" + QByteArray::number(i) + " [area=\"0.9\"] m" + QByteArray::number(i)
            + " [area=\"-1\"] ";
    EXPECT_EQ(treemap(dot + "}").constLast(), "end");
}
