// What the xdot device writes is replayed without a message, whatever the drawing says, but for the
// ids and values that docs/round-trip.md names.
#include "device/xdot_render.h"
#include "graph/dot_parser.h"
#include "graph/subgraph_walk.h"
#include "output/svg_rich_text.h"
#include "output/xdot.h"
#include "support/breaking_texts.h"
#include "support/corpus.h"
#include "support/golden.h"

#include <QTemporaryDir>
#include <QXmlStreamReader>

using namespace ORR;
using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QString draw(const QByteArray &text, const QString &engine, Device &device)
{
    const std::unique_ptr<DotGraph> graph = parseDot(text);
    if (!graph)
        return u"no graph"_s;
    if (graph->root()->attributes.contains(u"xdotversion"_s))
        return Graphviz::XDotRender(&device, graph.get()).render(text);
    return Drawing::layoutRow(*Drawing::chooseLayout(engine)).run({graph.get(), &device});
}

// Draws the boxes that expand a node, as the xdot device alone does.
class ExpanderSvg : public SvgRichText
{
public:
    using SvgRichText::SvgRichText;

    bool supportsExpanders() const override { return true; }
};

QByteArray asXdot(const QByteArray &text, const QString &engine)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"drawing.xdot"_s);
    XDot device(file);
    EXPECT_EQ(draw(text, engine, device), u""_s) << text.toStdString();
    return readTestFile(file);
}

// What SVG shows of a drawing.
struct Shown
{
    int shapes = 0;
    QStringList texts; // each line with its family, sorted: the replay draws texts last
};

Shown shownIn(const QByteArray &svg)
{
    static const QStringList shapes{u"path"_s, u"ellipse"_s, u"polyline"_s, u"polygon"_s,
                                    u"rect"_s};
    Shown shown;
    QString family;
    QXmlStreamReader reader(svg);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && reader.name() == "text"_L1)
            family = reader.attributes().value("font-family"_L1).toString();
        if (reader.isStartElement())
            shown.shapes += shapes.contains(reader.name());
        if (reader.isCharacters() && !reader.isWhitespace())
            shown.texts += family + u": "_s + reader.text().toString();
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    shown.texts.sort();
    return shown;
}

Shown shownOf(const QByteArray &text, const QString &engine)
{
    QByteArray svg;
    ExpanderSvg device(&svg);
    EXPECT_EQ(draw(text, engine, device), u""_s) << text.toStdString();
    return shownIn(svg);
}

class WrittenTexts : public testing::TestWithParam<CorpusInput>
{
};

// Texts of all kinds but those that end in a backslash, which no quoted value can.
QByteArrayList oddTexts()
{
    return breakingTexts()
        + QByteArrayList{
            "D\xc3\xa9j\xc3\xa0 Vu",
            "\xe6\x97\xa5\xe6\x9c\xac\xe8\xaa\x9e \xf0\x9f\x90\x88",
            "",
            " ",
            "  x  ",
            "x\\\"y\\\\\"z",
            "C:\\dir \\x",
            "a\nb",
            "T 9 9 0 9 3 -abc",
            "9 -9 --9",
            "[red",
            "(9 9)",
            "-",
            "\"",
            "\"];} }",
            "x\xc3",
        };
}

// The graph with the text in its name and in all that is painted. The root's own frame stands
// outside of all objects and does not come back.
QByteArray painted(QByteArray graph, const QByteArray &text)
{
    graph.replace("digraph {", "digraph " + quotedInGraph(text) + " {");
    for (const auto element : {GraphElement::Cluster, GraphElement::Node, GraphElement::Edge}) {
        for (const QByteArray name : {"label", "fontname", "fontcolor", "color"})
            graph = withAttribute(graph, element, name, text);
        graph = withAttribute(graph, element, "fillcolor", text + ";red;" + text);
    }
    return graph;
}

// The objects of an xdot text, as the reader of graphs has them.
QStringList idsOf(const QByteArray &xdot)
{
    const std::unique_ptr<DotGraph> graph = parseDot(xdot);
    QStringList ids;
    if (!graph)
        return ids;
    for (const DotSubgraph *subgraph : subgraphsInPreorder(graph->root())) {
        ids += subgraph->id;
        for (const DotNode *node : subgraph->nodes)
            ids += node->id;
    }
    return ids;
}

bool replays(const QByteArray &xdot)
{
    QByteArray svg;
    SvgRichText device(&svg);
    return draw(xdot, {}, device).isEmpty();
}

// A drawing of two nodes, one of them in a cluster, of which one object has this id.
bool comesBackWithId(const QByteArray &id, bool isCluster)
{
    const QByteArray named = quotedInGraph(id);
    const QByteArray cluster = isCluster ? named : "c";
    const QByteArray node = isCluster ? "n" : named;
    const QByteArray xdot = asXdot("digraph { subgraph " + cluster + " { graph [label=c]; " + node
                                       + " [label=n area=1]; } m [label=m area=1]; }",
                                   u"treemap"_s);
    const QStringList expected{u"name"_s, QString::fromUtf8(isCluster ? id : QByteArray("c")),
                               QString::fromUtf8(isCluster ? QByteArray("n") : id), u"m"_s};
    QStringList ids = idsOf(xdot);
    std::ranges::sort(ids);
    QStringList sorted = expected;
    std::ranges::sort(sorted);
    return replays(xdot) && ids == sorted;
}

} // namespace

TEST_P(WrittenTexts, of_each_input_shows_the_same_when_replayed)
{
    const QByteArray text = readTestFile(GetParam().file);
    const Shown direct = shownOf(text, GetParam().engine());
    const Shown replayed = shownOf(asXdot(text, GetParam().engine()), {});
    EXPECT_GT(direct.shapes, 2);
    EXPECT_EQ(replayed.shapes, direct.shapes);
    EXPECT_EQ(replayed.texts, direct.texts);
}

INSTANTIATE_TEST_SUITE_P(All, WrittenTexts, testing::ValuesIn(corpusInputs()), nameOfInput);

TEST(WrittenText, of_odd_labels_families_and_colours_shows_the_same_when_replayed)
{
    // The examples say nothing that the drawings don't, and are long.
    for (const CorpusInput &input : drawingInputs()) {
        for (const QByteArray &text : oddTexts()) {
            const QByteArray graph = painted(input.text(), text);
            SCOPED_TRACE(input.engine().toStdString() + ": " + text.toStdString());
            const Shown direct = shownOf(graph, input.engine());
            const Shown replayed = shownOf(asXdot(graph, input.engine()), {});
            EXPECT_GT(direct.shapes, 2);
            EXPECT_EQ(replayed.shapes, direct.shapes);
            EXPECT_EQ(replayed.texts, direct.texts);
        }
    }
}

// The reader takes a backslash away with the line feed behind it. All else stays in its place.
TEST(WrittenText, of_a_backslash_ahead_of_a_line_feed_shows_neither_when_replayed)
{
    const auto graphOf = [](const QByteArray &text) {
        const QByteArray graph = painted("digraph { a [area=1]; b [area=1]; }", text);
        return withAttribute(graph, GraphElement::Node, "label", "c");
    };
    // In a quoted value it takes two backslashes and two line feeds to have one of each.
    const QByteArray odd = asXdot(graphOf("a\\\\\n\nb"), u"treemap"_s);
    EXPECT_TRUE(odd.contains("a\\\nb")) << odd.toStdString();
    const Shown replayed = shownOf(odd, {});
    const Shown plain = shownOf(asXdot(graphOf("ab"), u"treemap"_s), {});
    EXPECT_GT(plain.shapes, 1);
    EXPECT_EQ(replayed.shapes, plain.shapes);
    EXPECT_EQ(replayed.texts, (QStringList{u"ab: c"_s, u"ab: c"_s}));
}

TEST(WrittenText, of_ids_that_are_one_unquoted_identifier_come_back)
{
    for (const QByteArray id : {"a", "\xc3\xa9", "7", "a-b", "a->b", "a:p", "a[b", "a{b", "a\"b",
                                "<a>", "#a", "//", "graph2", "Node", "\x1b[1m", "a'b"})
        EXPECT_TRUE(comesBackWithId(id, false)) << id.toStdString();
}

TEST(WrittenText, of_other_ids_do_not_come_back)
{
    for (const QByteArray id : {"a b", "a\tb", "a\nb", "\"a", "a,b", "a;b", "a=b", "a]b", "a}b",
                                "[a", "{a", "-a", "-", " "})
        EXPECT_FALSE(comesBackWithId(id, false)) << id.toStdString();
    // Only as the end of an edge a keyword is an id.
    for (const QByteArray id : {"graph", "node", "edge", "subgraph"}) {
        const QByteArray graph = "digraph { node [area=1 label=n]; a -> " + id + "; }";
        EXPECT_FALSE(idsOf(asXdot(graph, u"treemap"_s)).contains(QString::fromLatin1(id)))
            << id.toStdString();
    }
}

TEST(WrittenText, of_ids_of_subgraphs_come_back_but_for_quotes_and_backslashes_at_the_end)
{
    for (const QByteArray id :
         {"a b", "a\nb", "a,b;c=d]e}f[g{h", "-a", "graph", "a\\b", "\xc3\xa9"})
        EXPECT_TRUE(comesBackWithId(id, true)) << id.toStdString();
    for (const QByteArray id : {"a\"b", "\"", "a\\\\\n\nb"})
        EXPECT_FALSE(comesBackWithId(id, true)) << id.toStdString();
    // In quotes nothing can end in a backslash.
    const QByteArray graph = "digraph { subgraph a\\ { n [area=1 label=n]; } }";
    EXPECT_FALSE(replays(asXdot(graph, u"treemap"_s)));
}

TEST(WrittenText, of_values_that_end_in_a_backslash_do_not_replay)
{
    const QByteArray graph = "digraph { a [area=1 label=C:\\]; }";
    EXPECT_FALSE(replays(asXdot(graph, u"treemap"_s)));
    EXPECT_TRUE(replays(asXdot("digraph { a [area=1 label=\"C:\\ \"]; }", u"treemap"_s)));
    EXPECT_TRUE(
        replays(asXdot("digraph { a [area=1 label=a fontname=C:\\ fontcolor=C:\\ color=C:\\ "
                       "fillcolor=C:\\ ]; }",
                       u"treemap"_s)));
}
