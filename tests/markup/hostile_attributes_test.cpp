// Hostile texts in all that the engines read, whether the inputs of tests/drawings say it or not.
#include "graph/dot_parser.h"
#include "graph/subgraph_walk.h"
#include "layout/attribute_tables.h"
#include "markup/drawing.h"
#include "support/breaking_texts.h"
#include "support/corpus.h"

#include <QSet>

#include <utility>

using namespace ORR;
using namespace ORR::Graph::Layout;
using Graph::latin1;
using namespace Qt::StringLiterals;

namespace {

constexpr GraphElement allElements[] = {GraphElement::Root, GraphElement::Cluster,
                                        GraphElement::Node, GraphElement::Edge};

// What every engine may paint with, at any element; these reach an output as they are, as text, as
// a family or, in xdot, as the name of a colour. All others are read as numbers or words.
const QByteArrayList paintedNames{"label", "fontname",  "fontcolor",
                                  "color", "fillcolor", "expandcolor"};

// In no table: a switch that no input can set, and what the graph itself declares.
const QByteArrayList unreadNames{"htmllabels", "bgcolor"};

// No engine knows it.
const QByteArray noWord = "xx";

Drawing::LayoutIndex layoutOf(const EngineTables &engine)
{
    return *Drawing::chooseLayout(latin1(engine.engine));
}

// What the engine reads, or keeps in attributes while it runs, besides what is painted.
QByteArrayList numbersAndWords(const EngineTables &engine)
{
    QByteArrayList names = unreadNames;
    const auto add = [&](Graph::KnownAttribute attribute) {
        const QByteArray name = attribute.text().toUtf8();
        if (!paintedNames.contains(name) && !names.contains(name))
            names += name;
    };
    for (const Graph::AttributeTable *table : engine.tables) {
        for (const Graph::AttributeRow *row : table->rows)
            add(row->name);
        for (const Graph::WorkingRow *row : table->working)
            add(row->name);
    }
    return names;
}

// Where the engine draws labels.
QList<GraphElement> labelledElements(const EngineTables &engine)
{
    using enum Graph::AttributeElement;
    QList<GraphElement> elements;
    for (const auto &[element, of] :
         {std::pair(GraphElement::Cluster, Cluster), std::pair(GraphElement::Node, Node),
          std::pair(GraphElement::Edge, Edge)}) {
        if (engine.painted.labels & of)
            elements += element;
    }
    return elements;
}

// The inputs of tests/drawings for the engine.
QByteArrayList graphsOf(const EngineTables &engine)
{
    QByteArrayList graphs;
    for (const CorpusInput &input : inputsOf(layoutOf(engine), drawingInputs()))
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
void expectTexts(Drawing::Format format, const EngineTables &engine, const Reading &reading,
                 const QByteArray &text)
{
    const bool isXdot = format == Drawing::Format::XDot;
    const auto says = [&](GraphElement element, const QByteArray &name) {
        const QByteArray value = tag(element, name) + text;
        return reading.says(isXdot ? QString::fromUtf8(value) : asXmlHasIt(value));
    };
    const QList<GraphElement> labelled = labelledElements(engine);
    for (const GraphElement element : labelled) {
        EXPECT_TRUE(says(element, "label")) << int(element);
        EXPECT_TRUE(says(element, "fontname")) << int(element);
    }
    for (const GraphElement element : allElements) {
        for (const QByteArray name : {"fontcolor", "color", "fillcolor", "expandcolor"}) {
            const QString mark = QString::fromLatin1(tag(element, name));
            EXPECT_TRUE(isXdot || !reading.says(mark)) << mark.toStdString();
        }
    }
    EXPECT_TRUE(!isXdot || says(labelled.constLast(), "fontcolor"));
}

} // namespace

TEST(HostileStrings, go_through_every_attribute_of_the_drawings)
{
    QStringList engines;
    for (const EngineTables &engine : engineTables()) {
        engines += latin1(engine.engine);
        const QByteArrayList known = numbersAndWords(engine) + paintedNames;
        for (const QByteArray &graph : graphsOf(engine)) {
            for (const QByteArray &name : namesIn(graph))
                EXPECT_TRUE(known.contains(name)) << engine.engine << ": " << name.toStdString();
        }
    }
    EXPECT_EQ(engines, Drawing::layoutNames());
}

TEST(HostileStrings, in_all_that_an_engine_paints_stay_text)
{
    for (const EngineTables &engine : engineTables()) {
        for (const QByteArray &graph : graphsOf(engine)) {
            for (const QByteArray &text : breakingTexts()) {
                const QByteArray hostile = painted(graph, text);
                const QByteArray plain = painted(graph, harmlessText(text));
                for (const Drawing::Format format : allFormats()) {
                    SCOPED_TRACE(engine.engine);
                    const ReadDrawing drawing =
                        expectSameStructure(format, layoutOf(engine), hostile, plain);
                    if (!isPicture(format))
                        expectTexts(format, engine, drawing.reading, text);
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
    for (const EngineTables &engine : engineTables()) {
        const Drawing::LayoutIndex layout = layoutOf(engine);
        for (const QByteArray &graph : graphsOf(engine)) {
            for (const QByteArray &name : numbersAndWords(engine)) {
                SCOPED_TRACE(std::string(engine.engine) + (' ' + name).toStdString());
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
