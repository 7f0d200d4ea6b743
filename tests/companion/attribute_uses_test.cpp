// What the tables say that an engine reads is what its drawings depend on.
#include "companion/check/attribute_uses.h"

#include "drawing/layout_table.h"
#include "graph/dot_parser.h"
#include "support/corpus.h"
#include "support/recording_device.h"

using namespace ORR;
using namespace ORR::Companion;
using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// A value of a type that no drawing has already.
QString valueOf(const AttributeRow &row)
{
    switch (row.type) {
    case AttributeType::Color:
        return u"#123456"_s;
    case AttributeType::Choice:
    case AttributeType::Words:
        return latin1(row.words.back().word);
    case AttributeType::Text:
        return u"word"_s;
    default:
        return u"17"_s;
    }
}

// Gives the attribute to all that there is of a place.
void give(DotGraph *graph, AttributePlace place, KnownAttribute name, const QString &value)
{
    DotSubgraph *root = graph->root();
    const QList<DotSubgraph *> subgraphs = graph->allSubgraphs() << root;
    switch (place) {
    case AttributePlace::Root:
        graph->setAttribute(root, name, value);
        break;
    case AttributePlace::Cluster:
        for (DotSubgraph *subgraph : graph->allSubgraphs())
            graph->setAttribute(subgraph, name, value);
        break;
    case AttributePlace::Node:
        for (DotNode *node : graph->allNodes())
            graph->setAttribute(node, name, value);
        break;
    case AttributePlace::Edge:
        for (DotSubgraph *subgraph : subgraphs) {
            for (DotEdge *edge : std::as_const(subgraph->edges))
                graph->setAttribute(edge, name, value);
        }
        break;
    case AttributePlace::NodeDefaults:
        for (DotSubgraph *subgraph : subgraphs)
            graph->declareAttribute(subgraph, name, value, u"node"_s);
        break;
    case AttributePlace::EdgeDefaults:
        for (DotSubgraph *subgraph : subgraphs)
            graph->declareAttribute(subgraph, name, value, u"edge"_s);
        break;
    }
}

QString drawn(const CorpusInput &input, DotGraph *graph)
{
    RecordingDevice device(true, true);
    EXPECT_EQ(Drawing::layoutRow(input.layout).run({graph, &device}), QString());
    return device.log();
}

class AttributeUsesOfInput : public testing::TestWithParam<CorpusInput>
{
};

} // namespace

TEST(EngineTables, are_those_of_every_engine)
{
    QStringList engines;
    for (const Layout::EngineTables &engine : Layout::engineTables()) {
        engines += latin1(engine.engine);
        EXPECT_EQ(engine.tables.back()->reader, engine.engine);
    }
    EXPECT_EQ(engines, Drawing::layoutNames());
}

TEST(EngineTables, leave_out_no_table)
{
    QSet<const AttributeTable *> read;
    for (const Layout::EngineTables &engine : Layout::engineTables()) {
        for (const AttributeTable *table : engine.tables)
            read += table;
    }
    for (const AttributeTable *table : Layout::attributeTables())
        EXPECT_TRUE(read.contains(table)) << table->reader;
    EXPECT_EQ(size_t(read.size()), Layout::attributeTables().size());
}

TEST(AttributeUses, are_those_of_all_engines_where_none_is_named)
{
    const AttributeUses all(u""_s);
    EXPECT_FALSE(all.isOfEngine());
    EXPECT_TRUE(AttributeUses(u"TreeMap"_s).isOfEngine());
    EXPECT_FALSE(AttributeUses(u"treemp"_s).isOfEngine());
    EXPECT_TRUE(all.find("sweep"_attribute));
    EXPECT_FALSE(AttributeUses(u"treemap"_s).find("sweep"_attribute));
    EXPECT_FALSE(all.find("bgcolor"_attribute));
    EXPECT_FALSE(all.find(AttributeName(u"lable"_s)));
}

TEST(AttributeUses, have_a_row_that_several_engines_share_once)
{
    const AttributeUses all(u""_s);
    const AttributeUse *use = all.find("fillcolor"_attribute);
    ASSERT_TRUE(use);
    EXPECT_EQ(use->at(AttributePlace::Node).rows.size(), 1U);
}

TEST(EnginesThatRead, are_told_for_rows_and_not_for_what_passes_hand_on)
{
    using enum AttributePlace;
    EXPECT_EQ(enginesThatRead(u"sweep"_s, Root), QStringList(u"sunburst"_s));
    EXPECT_EQ(enginesThatRead(u"sweep"_s, Node), QStringList());
    EXPECT_EQ(enginesThatRead(u"shape"_s, Node), (QStringList{u"gftree"_s, u"gfdecl"_s}));
    EXPECT_EQ(enginesThatRead(u"x0"_s, Cluster), QStringList());
    EXPECT_EQ(readersOf(u"sweep"_s).engines, QStringList(u"sunburst"_s));
    EXPECT_EQ(readersOf(u"sweep"_s).elements, AttributeElements(AttributeElement::Root));
    EXPECT_EQ(readersOf(u"x0"_s).engines, QStringList());
    EXPECT_EQ(listed({u"a"_s, u"b"_s, u"c"_s}), u"a, b and c"_s);
    EXPECT_EQ(listed({u"a"_s}), u"a"_s);
}

// What is told to be read by nobody can be given to everything, and the drawing stays the same.
TEST_P(AttributeUsesOfInput, leave_out_nothing_that_a_drawing_shows)
{
    const CorpusInput &input = GetParam();
    const QByteArray text = input.text();
    const AttributeUses uses(input.engine());
    const QString before = drawn(input, parseDot(text).get());
    int tried = 0;
    for (const AttributeTable *table : Layout::attributeTables()) {
        for (const AttributeRow *row : table->rows) {
            const AttributeUse *use = uses.find(row->name);
            for (size_t i = 0; i < attributePlaces; ++i) {
                const auto place = AttributePlace(i);
                if (use && (use->at(place).isRead || use->at(place).isTaken))
                    continue;
                const auto graph = parseDot(text);
                give(graph.get(), place, row->name, valueOf(*row));
                EXPECT_EQ(drawn(input, graph.get()), before)
                    << row->name.text().toStdString() << " of " << placeName(place).toStdString();
                ++tried;
            }
        }
    }
    EXPECT_GT(tried, 100);
}

// What an engine is told to set itself is lost, unless it is told to count where none is set.
TEST_P(AttributeUsesOfInput, take_from_no_text_what_the_engine_sets)
{
    const CorpusInput &input = GetParam();
    const QByteArray text = input.text();
    const AttributeUses uses(input.engine());
    const QString before = drawn(input, parseDot(text).get());
    for (const AttributeTable *table : Layout::attributeTables()) {
        for (const WorkingRow *row : table->working) {
            const AttributeUse *use = uses.find(row->name);
            for (size_t i = 0; i < attributePlaces; ++i) {
                const auto place = AttributePlace(i);
                if (!use || use->at(place).isRead || !use->at(place).isSet
                    || use->at(place).isTaken)
                    continue;
                const auto graph = parseDot(text);
                give(graph.get(), place, row->name, u"17"_s);
                EXPECT_EQ(drawn(input, graph.get()), before)
                    << row->name.text().toStdString() << " of " << placeName(place).toStdString();
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Drawings, AttributeUsesOfInput, testing::ValuesIn(drawingInputs()),
                         nameOfInput);

namespace {

// Whether the attribute shows in any drawing of the engine; also where none has such objects.
bool isSeen(Drawing::LayoutIndex layout, AttributePlace place, const AttributeRow &row)
{
    bool hasObjects = false;
    for (const CorpusInput &input : inputsOf(layout, corpusInputs())) {
        const QByteArray text = input.text();
        const auto graph = parseDot(text);
        hasObjects =
            hasObjects || place != AttributePlace::Cluster || !graph->allSubgraphs().isEmpty();
        give(graph.get(), place, row.name, valueOf(row));
        if (drawn(input, graph.get()) != drawn(input, parseDot(text).get()))
            return true;
    }
    return !hasObjects;
}

} // namespace

// And of what is told to be painted, each shows in some drawing of the engine.
TEST(AttributeUses, are_seen_in_some_drawing_where_they_are_paint)
{
    for (const Layout::EngineTables &engine : Layout::engineTables()) {
        const auto layout = Drawing::chooseLayout(latin1(engine.engine));
        ASSERT_TRUE(layout);
        for (const AttributeRow *row : Layout::attributeTables().front()->rows) {
            const QString name = row->name.text();
            // These show only together with another one.
            if (name == "gradientAngle"_L1 || name == "fontname"_L1)
                continue;
            const AttributeUses uses(latin1(engine.engine));
            const AttributeUse *use = uses.find(row->name);
            for (const AttributePlace place :
                 {AttributePlace::Cluster, AttributePlace::Node, AttributePlace::Edge}) {
                if (!use || !use->at(place).isRead)
                    continue;
                EXPECT_TRUE(isSeen(*layout, place, *row))
                    << engine.engine << ": " << name.toStdString() << " of "
                    << placeName(place).toStdString();
            }
        }
    }
}
