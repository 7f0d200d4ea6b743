// Hostile texts in all that the engines read, whether the inputs of tests/drawings say it or not.
#include "graph/dot_parser.h"
#include "graph/subgraph_walk.h"
#include "markup/drawing.h"
#include "support/breaking_texts.h"
#include "support/corpus.h"

#include <QSet>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

constexpr GraphElement allElements[] = {GraphElement::Root, GraphElement::Cluster,
                                        GraphElement::Node, GraphElement::Edge};

// What every engine may paint with, at any element; these reach an output as they are, as text, as
// a family or, in xdot, as the name of a colour.
const QByteArrayList paintedNames{"label", "fontname",  "fontcolor",
                                  "color", "fillcolor", "expandcolor"};

// The same, but read as numbers or words.
const QByteArrayList paintNumbers{"fontsize", "gradientAngle", "penwidth",
                                  "style",    "htmllabels",    "bgcolor"};

// No engine knows it.
const QByteArray noWord = "xx";

const QByteArrayList legendNames{"legend", "x", "y"};

// What each engine reads besides, or keeps in attributes while it runs.
struct Vocabulary
{
    const char *engine;
    QByteArrayList names;
    // Where the engine draws labels.
    QList<GraphElement> labelled;
};

const QList<Vocabulary> vocabularies{
    {"gftree",
     {"rankdir", "crossing", "sort", "nodesep", "ranksep", "pad", "margin", "headsegment",
      "tailsegment", "shape", "peripheries", "slash", "expander", "level", "arrowhead", "width",
      "height", "d1", "d2"},
     {GraphElement::Node}},
    {"gfdecl",
     {"pad",     "row",    "col",   "grid",      "nodesep", "margin",      "contentpos",
      "xoffset", "ltail",  "lhead", "arrowhead", "shape",   "peripheries", "rankdir",
      "width",   "height", "d1",    "d2",        "slash",   "expander"},
     {GraphElement::Node}},
    {"umlseq",
     {"uml", "row", "col", "nesting", "width", "height", "visible"},
     {GraphElement::Cluster, GraphElement::Node, GraphElement::Edge}},
    {"matrix",
     {"axis", "x", "y", "x0", "x1", "y0", "y1", "xshift", "yshift"},
     {GraphElement::Cluster, GraphElement::Node, GraphElement::Edge}},
    {"flatbubble",
     legendNames + QByteArrayList{"width", "height", "radius", "area", "r"},
     {GraphElement::Cluster, GraphElement::Node}},
    {"sunburst",
     legendNames + QByteArrayList{"sweep", "rstep", "a0", "a1", "r0", "r1", "area"},
     {GraphElement::Node}}, // of the legend
    {"treemap",
     legendNames + QByteArrayList{"width", "height", "area", "margin"},
     {GraphElement::Cluster, GraphElement::Node}},
    {"bar",
     legendNames + QByteArrayList{"rankdir", "width", "height", "area"},
     {GraphElement::Cluster, GraphElement::Node}},
};

Drawing::LayoutIndex layoutOf(const Vocabulary &vocabulary)
{
    return *Drawing::chooseLayout(QString::fromLatin1(vocabulary.engine));
}

// The inputs of tests/drawings for the engine.
QByteArrayList graphsOf(const Vocabulary &vocabulary)
{
    QByteArrayList graphs;
    for (const CorpusInput &input : inputsOf(layoutOf(vocabulary), drawingInputs()))
        graphs += input.text();
    EXPECT_FALSE(graphs.isEmpty());
    return graphs;
}

QSet<QByteArray> namesIn(const QByteArray &text)
{
    const std::unique_ptr<Graph::DotGraph> graph = Graph::parseDot(text);
    QSet<QByteArray> names;
    const auto add = [&](const Graph::AttributeMap &attributes) {
        for (const auto &entry : attributes)
            names.insert(entry.name.text().toUtf8());
    };
    for (const Graph::DotSubgraph *subgraph : subgraphsInPreorder(graph->root())) {
        for (const auto *map :
             {&subgraph->attributes, &subgraph->nodeDefaults, &subgraph->edgeDefaults})
            add(*map);
        for (const Graph::DotNode *node : subgraph->nodes)
            add(node->attributes);
        for (const Graph::DotEdge *edge : subgraph->edges)
            add(edge->attributes);
    }
    return names;
}

QByteArray withAttributeEverywhere(QByteArray graph, const QByteArray &name,
                                   const QByteArray &value)
{
    for (const GraphElement element : allElements)
        graph = withAttribute(graph, element, name, value);
    return graph;
}

// What tells the text of one attribute of one element from all others.
QByteArray tag(GraphElement element, const QByteArray &name)
{
    return "xn"_ba + char('a' + int(element)) + name;
}

// The graph with the text in all that is painted, in letters that are small enough for every place.
QByteArray painted(QByteArray graph, const QByteArray &text)
{
    for (const GraphElement element : allElements) {
        for (const QByteArray &name : paintedNames) {
            const QByteArray value = tag(element, name) + text;
            graph = withAttribute(graph, element, name,
                                  name == "fillcolor" ? value + ';' + value : value);
        }
    }
    return withAttributeEverywhere(graph, "fontsize", "1");
}

// Labels and families are in the file as they were; names of colours are in none but xdot.
void expectTexts(Drawing::Format format, const Vocabulary &vocabulary, const Reading &reading,
                 const QByteArray &text)
{
    const bool isXdot = format == Drawing::Format::XDot;
    const auto says = [&](GraphElement element, const QByteArray &name) {
        const QByteArray value = tag(element, name) + text;
        return reading.says(isXdot ? QString::fromUtf8(value) : asXmlHasIt(value));
    };
    for (const GraphElement element : vocabulary.labelled) {
        EXPECT_TRUE(says(element, "label")) << int(element);
        EXPECT_TRUE(says(element, "fontname")) << int(element);
    }
    for (const GraphElement element : allElements) {
        for (const QByteArray name : {"fontcolor", "color", "fillcolor", "expandcolor"}) {
            const QString mark = QString::fromLatin1(tag(element, name));
            EXPECT_TRUE(isXdot || !reading.says(mark)) << mark.toStdString();
        }
    }
    EXPECT_TRUE(!isXdot || says(vocabulary.labelled.constLast(), "fontcolor"));
}

} // namespace

TEST(HostileStrings, go_through_every_attribute_of_the_drawings)
{
    QStringList engines;
    for (const Vocabulary &vocabulary : vocabularies)
        engines += QString::fromLatin1(vocabulary.engine);
    ASSERT_EQ(engines, Drawing::layoutNames());
    for (const Vocabulary &vocabulary : vocabularies) {
        const QByteArrayList known = vocabulary.names + paintedNames + paintNumbers;
        EXPECT_EQ(QSet<QByteArray>(known.begin(), known.end()).size(), known.size());
        for (const QByteArray &graph : graphsOf(vocabulary)) {
            for (const QByteArray &name : namesIn(graph))
                EXPECT_TRUE(known.contains(name))
                    << vocabulary.engine << ": " << name.toStdString();
        }
    }
}

TEST(HostileStrings, in_all_that_an_engine_paints_stay_text)
{
    for (const Vocabulary &vocabulary : vocabularies) {
        for (const QByteArray &graph : graphsOf(vocabulary)) {
            for (const QByteArray &text : breakingTexts()) {
                const QByteArray hostile = painted(graph, text);
                const QByteArray plain = painted(graph, harmlessText(text));
                for (const Drawing::Format format : allFormats()) {
                    SCOPED_TRACE(vocabulary.engine);
                    const ReadDrawing drawing =
                        expectSameStructure(format, layoutOf(vocabulary), hostile, plain);
                    if (!isPicture(format))
                        expectTexts(format, vocabulary, drawing.reading, text);
                }
            }
        }
    }
}

// What is read as a number or a word leaves no trace at all. The engine does the same for each
// device, so that SVG meets all of it and the other formats take turns.
TEST(HostileStrings, in_numbers_and_words_are_like_any_other_that_is_none)
{
    const QByteArrayList &texts = breakingTexts();
    qsizetype turn = 0;
    for (const Vocabulary &vocabulary : vocabularies) {
        const Drawing::LayoutIndex layout = layoutOf(vocabulary);
        for (const QByteArray &graph : graphsOf(vocabulary)) {
            for (const QByteArray &name : vocabulary.names + paintNumbers) {
                SCOPED_TRACE(vocabulary.engine + (' ' + name).toStdString());
                const auto fileWith = [&](Drawing::Format format, const QByteArray &value) {
                    return fileOf(format, layout, withAttributeEverywhere(graph, name, value))
                        .bytes;
                };
                const QByteArray plain = fileWith(Drawing::Format::Svg, noWord);
                EXPECT_TRUE(plain.endsWith("</svg>\n"));
                for (const QByteArray &text : texts)
                    EXPECT_EQ(fileWith(Drawing::Format::Svg, text), plain);
                const auto format = allFormats().at(size_t(turn++) % allFormats().size());
                const QByteArray &text = texts.at(turn % texts.size());
                EXPECT_EQ(fileWith(format, text), fileWith(format, noWord));
            }
        }
    }
}
