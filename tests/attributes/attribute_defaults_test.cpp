// The default that a row tells is the one that holds: an input that says it draws what one without
// the attribute draws, and one that says something else does not.
#include "attributes/paint_attributes.h"
#include "graph/dot_parser.h"
#include "graph/subgraph_walk.h"
#include "layout/attribute_tables.h"
#include "layout/charts/legend_attributes.h"
#include "layout/charts/sunburst_attributes.h"
#include "layout/graflib/gfdecl_attributes.h"
#include "layout/graflib/gftree_attributes.h"
#include "layout/graflib/graflib_attributes.h"
#include "layout/sequence/umlseq_attributes.h"
#include "support/corpus.h"
#include "support/recording_device.h"

#include <QHash>

#include <algorithm>

using namespace ORR;
using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

using enum AttributeElement;

// Inputs that say hardly anything, beside those of tests/drawings.
const QHash<QLatin1StringView, QByteArray> bareInputs{
    {"gftree"_L1,
     "digraph { node [shape=rectangle]; r [label=r]; a [label=b]; b [label=a]; c [label=c "
     "expander=true]; r -> a [arrowhead=normal]; r -> b []; b -> c []; }"},
    {"gfdecl"_L1,
     "digraph { a [label=a shape=rectangle]; subgraph s { graph [color=red]; b [label=b]; "
     "c [label=cc]; } subgraph t { d [label=d]; } a -> b [arrowhead=normal]; }"},
    {"umlseq"_L1,
     "digraph { a [label=a uml=object]; b [label=b uml=object col=1]; c [uml=activation row=1]; "
     "d [uml=activation row=1 col=1]; e [uml=spacer row=4]; f [uml=spacer row=4 col=1]; "
     "a -> c [uml=lifeline]; b -> d [uml=lifeline]; c -> e [uml=lifeline]; d -> f [uml=lifeline]; "
     "subgraph s { g [uml=object col=2]; } c -> d [uml=message label=m]; d -> c [uml=return row=3 "
     "label=r]; }"},
    {"flatbubble"_L1, "digraph { a [label=a area=900]; b [label=b radius=40]; c [label=c]; }"},
    {"sunburst"_L1,
     "digraph { a [label=a area=3]; subgraph s { graph [label=s]; b [area=2]; c [area=1]; } }"},
    {"treemap"_L1,
     "digraph { a [label=a area=3]; subgraph s { graph [label=s]; b [area=2]; c [area=1]; } }"},
    {"bar"_L1, "digraph { a [label=a area=3]; b [label=b area=5]; c [label=c]; }"},
};

QByteArrayList inputsOfEngine(const EngineTables &engine)
{
    QByteArrayList texts;
    if (const QByteArray bare = bareInputs.value(latin1(engine.engine)); !bare.isEmpty())
        texts += bare;
    for (const CorpusInput &input :
         inputsOf(*Drawing::chooseLayout(latin1(engine.engine)), drawingInputs()))
        texts += input.text();
    return texts;
}

// Whether the input says nothing: what is found is nothing, or what every graph declares.
bool isUnsaid(const QString *found, const QString *declared)
{
    return !found || (declared && *found == *declared);
}

bool isUnsaidOf(const DotGraph *graph, const DotSubgraph *subgraph, const AttributeRow &row)
{
    static const DotGraph blank;
    const QString *found = row.lookup == AttributeLookup::Inherited
        ? graph->findAttribute(subgraph, row.name)
        : subgraph->attributes.find(row.name);
    if (row.lookup == AttributeLookup::OwnOrNodeDefault && !found
        && graph->nodeDefault(subgraph, row.name) != blank.nodeDefault(blank.root(), row.name))
        return false;
    return isUnsaid(found, blank.root()->attributes.find(row.name));
}

// Gives the text to all subgraphs of the elements that the input says nothing of. Whether there are
// any.
bool sayOfSubgraphs(DotGraph *graph, const AttributeRow &row, AttributeElements elements,
                    const QString &text)
{
    QList<DotSubgraph *> unsaid;
    for (DotSubgraph *subgraph : subgraphsInPreorder(graph->root())) {
        if (elements & (subgraph->parent ? Cluster : Root) && isUnsaidOf(graph, subgraph, row))
            unsaid += subgraph;
    }
    for (DotSubgraph *subgraph : unsaid)
        graph->setAttribute(subgraph, row.name, text);
    return !unsaid.isEmpty();
}

// The same of nodes or edges, by the defaults of the root.
bool sayOfKind(DotGraph *graph, const AttributeRow &row, const QString &kind, const QString &text)
{
    static const DotGraph blank;
    const auto map = kind == "node"_L1 ? &DotSubgraph::nodeDefaults : &DotSubgraph::edgeDefaults;
    if (!isUnsaid((graph->root()->*map).find(row.name), (blank.root()->*map).find(row.name)))
        return false;
    graph->declareAttribute(graph->root(), row.name, text, kind);
    return true;
}

bool sayWhereUnsaid(DotGraph *graph, const AttributeRow &row, AttributeElements elements,
                    const QString &text)
{
    bool isSaid = sayOfSubgraphs(graph, row, elements, text);
    if (elements & Node)
        isSaid |= sayOfKind(graph, row, u"node"_s, text);
    if (elements & Edge)
        isSaid |= sayOfKind(graph, row, u"edge"_s, text);
    return isSaid;
}

// What is drawn, with colours as numbers, and the message of the engine.
QString drawn(const EngineTables &engine, DotGraph *graph)
{
    RecordingDevice device(true, true);
    const Drawing::LayoutIndex layout = *Drawing::chooseLayout(latin1(engine.engine));
    const QString message = Drawing::layoutRow(layout).run({graph, &device});
    QString log = message + device.log();
    return log.replace(" black"_L1, " #000000"_L1).replace(" white"_L1, " #FFFFFF"_L1);
}

// The drawings of all inputs that leave the row open.
struct Drawings
{
    int all = 0;
    int asWithout = 0; // that are drawn as without the attribute
};

Drawings drawnWith(const EngineTables &engine, const AttributeRow &row, const QString &text)
{
    Drawings drawings;
    for (const QByteArray &input : inputsOfEngine(engine)) {
        const std::unique_ptr<DotGraph> graph = parseDot(input);
        const std::unique_ptr<DotGraph> without = parseDot(input);
        EXPECT_TRUE(graph) << input.constData();
        if (!graph || !sayWhereUnsaid(graph.get(), row, elementsRead(engine, row), text))
            continue;
        ++drawings.all;
        drawings.asWithout += drawn(engine, graph.get()) == drawn(engine, without.get());
    }
    return drawings;
}

// Texts that mean something else than the default, or most of them.
QStringList otherTexts(const AttributeRow &row)
{
    QStringList texts;
    for (const AttributeWord &word : row.words)
        texts += latin1(word.word);
    if (!texts.isEmpty())
        return texts;
    switch (row.type) {
    case AttributeType::Color:
        return {u"lime"_s};
    case AttributeType::Text:
        return {u"Courier"_s};
    default:
        return {u"0.5"_s, u"3"_s, u"3000"_s};
    }
}

bool isSeen(const EngineTables &engine, const AttributeRow &row)
{
    const QStringList texts = otherTexts(row);
    return std::ranges::any_of(texts, [&](const QString &text) {
        const Drawings drawings = drawnWith(engine, row, text);
        return drawings.asWithout < drawings.all;
    });
}

// Says it of the graph alone: what the subgraphs right below inherited so far becomes their own.
void sayOfRootAlone(DotGraph *graph, KnownAttribute name, const QString &text)
{
    for (DotSubgraph *child : std::as_const(graph->root()->subgraphs)) {
        const QString *inherited = graph->findAttribute(child, name);
        graph->setAttribute(child, name, inherited ? QString(*inherited) : u""_s);
    }
    graph->setAttribute(graph->root(), name, text);
}

// Whether some drawing shows what the graph itself says. In one of them it is the legend of a chart
// and, in a sunburst, has a disc.
bool showsRoot(const EngineTables &engine, const AttributeRow &row)
{
    QByteArrayList inputs = inputsOfEngine(engine);
    inputs += R"(digraph { graph [legend="top" label="g" r1="20"]; a [label="a" area="3"]; })";
    for (const QString &text : otherTexts(row)) {
        for (const QByteArray &input : std::as_const(inputs)) {
            const std::unique_ptr<DotGraph> graph = parseDot(input);
            const std::unique_ptr<DotGraph> without = parseDot(input);
            sayOfRootAlone(graph.get(), row.name, text);
            if (drawn(engine, graph.get()) != drawn(engine, without.get()))
                return true;
        }
    }
    return false;
}

// Of which elements the engine reads an attribute, by whatever row.
AttributeElements elementsReadByName(const EngineTables &engine, KnownAttribute name)
{
    AttributeElements elements;
    for (const AttributeTable *table : engine.tables) {
        for (const AttributeRow *row : table->rows) {
            if (row->name.text() == name.text())
                elements |= elementsRead(engine, *row);
        }
    }
    return elements;
}

struct Exception
{
    const AttributeRow *row;
    const char *reason;
};

bool isOneOf(const std::vector<Exception> &exceptions, const AttributeRow &row)
{
    return std::ranges::any_of(exceptions, [&](const Exception &one) { return one.row == &row; });
}

template <typename Check>
void forEachDefault(const Check &check)
{
    for (const EngineTables &engine : engineTables()) {
        for (const AttributeTable *table : engine.tables) {
            for (const AttributeRow *row : table->rows) {
                if (!row->byDefault.empty() && elementsRead(engine, *row))
                    check(engine, *row);
            }
        }
    }
}

std::string nameOf(const EngineTables &engine, const AttributeRow &row)
{
    return std::string(engine.engine) + ": " + row.name.text().toStdString() + " ("
        + std::string(row.meaning) + ")";
}

} // namespace

TEST(AttributeDefaults, draw_what_is_drawn_without_them)
{
    const std::vector<Exception> exceptions{
        {&GraflibAttributes::frameColor, "whoever says the colour of a frame asks for the frame"},
        {&GraflibAttributes::expandColor, "a pen without a colour has no name, and is black"},
        {&LegendAttributes::legend, "whoever says the side of a legend asks for the legend"},
    };
    forEachDefault([&](const EngineTables &engine, const AttributeRow &row) {
        if (isOneOf(exceptions, row))
            return;
        const Drawings drawings = drawnWith(engine, row, latin1(row.byDefault));
        EXPECT_GT(drawings.all, 0) << nameOf(engine, row);
        EXPECT_EQ(drawings.asWithout, drawings.all) << nameOf(engine, row);
    });
}

// Or the test above could not fail. One engine that shows it is enough: rows are shared.
TEST(AttributeDefaults, differ_from_what_another_value_draws)
{
    const std::vector<Exception> exceptions{
        {&PaintAttributes::gradientAngle, "turns gradients only, and the inputs have none"},
        {&UmlseqAttributes::nodeKind, "every node of the inputs has its kind"},
        {&UmlseqAttributes::edgeKind, "every edge of the inputs has its kind"},
        {&UmlseqAttributes::returnRow, "every return of the inputs has its row"},
        {&GftreeAttributes::givenLevel, "the root reaches every node of the inputs"},
        {&GfdeclAttributes::row, "all cells of a graph move alike"},
        {&GfdeclAttributes::col, "all cells of a graph move alike"},
        {&SunburstAttributes::innerRadius, "shows nothing unless it is below r1"},
    };
    QHash<const AttributeRow *, bool> seen;
    forEachDefault([&](const EngineTables &engine, const AttributeRow &row) {
        seen[&row] = seen.value(&row) || isSeen(engine, row);
    });
    for (auto it = seen.cbegin(); it != seen.cend(); ++it) {
        const AttributeRow *row = it.key();
        EXPECT_TRUE(it.value() || isOneOf(exceptions, *row))
            << row->name.text().toStdString() << ": " << row->meaning;
    }
}

// Rows of paint are shared, so that no reader knows by itself of which elements its engine reads
// them.
TEST(PaintedElements, name_the_graph_where_its_own_paint_is_seen)
{
    QStringList seen;
    for (const EngineTables &engine : engineTables()) {
        for (const AttributeRow *row : PaintAttributes::rows) {
            if (!showsRoot(engine, *row))
                continue;
            EXPECT_TRUE(elementsReadByName(engine, row->name) & Root) << nameOf(engine, *row);
            seen += latin1(engine.engine) + u' ' + row->name.text();
        }
    }
    EXPECT_TRUE(seen.contains(u"matrix label"_s)) << seen.join(u", "_s).toStdString();
    EXPECT_TRUE(seen.contains(u"sunburst fillcolor"_s));
    EXPECT_TRUE(seen.contains(u"bar label"_s));
    EXPECT_FALSE(seen.contains(u"treemap fillcolor"_s));
}
