// The tables of the Graflib engines, and the lookups that are only theirs.

#include "graflib_support.h"
#include "layout/graflib/gfdecl_attributes.h"
#include "layout/graflib/gftree_attributes.h"
#include "layout/graflib/node_size.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace Rows = GraflibAttributes;

namespace {

const AttributeTable *const tables[] = {&Rows::table, &GftreeAttributes::table,
                                        &GfdeclAttributes::table};

} // namespace

TEST(GraflibTables, rows_say_what_they_are)
{
    for (const AttributeTable *table : tables) {
        EXPECT_FALSE(table->rows.empty()) << table->reader;
        for (const AttributeRow *row : table->rows) {
            const std::string name = row->name.text().toStdString();
            EXPECT_FALSE(row->meaning.empty()) << name;
            EXPECT_TRUE(bool(row->elements)) << name;
            EXPECT_EQ(row->type == AttributeType::Choice || row->type == AttributeType::Words,
                      !row->words.empty())
                << name;
            EXPECT_EQ(row->type == AttributeType::Inches || row->type == AttributeType::InchPair,
                      row->unit == "inches")
                << name;
        }
    }
}

TEST(GraflibTables, shapes_are_counted_like_the_words_for_them)
{
    const auto shapeOf = [](const QByteArray &word) {
        const auto graph = parsed("digraph { a [shape=\"" + word + "\"] }");
        return outlineStyle(graph.get(), graph->findNode(u"a"_s), 12).shape;
    };
    EXPECT_EQ(shapeOf("hexagon"), NodeShape::Hexagon);
    EXPECT_EQ(shapeOf("octagon"), NodeShape::Octagon);
    EXPECT_EQ(shapeOf("oval"), NodeShape::Oval);
    EXPECT_EQ(shapeOf("parallelogram"), NodeShape::Parallelogram);
    EXPECT_EQ(shapeOf("rectangle"), NodeShape::Rectangle);
    EXPECT_EQ(shapeOf("none"), NodeShape::None);
    EXPECT_EQ(shapeOf("box"), NodeShape::None);
}

TEST(FrameAttribute, is_the_graphs_own_one_before_the_default_of_its_nodes)
{
    const auto graph = parsed("digraph { graph [fillcolor=lime penwidth=9] "
                              "node [fillcolor=red peripheries=2 penwidth=3 style=rounded] "
                              "subgraph s { graph [fillcolor=blue peripheries=1 style=dotted] } "
                              "subgraph t { subgraph inner { } } }");
    const auto *own = graph->findSubgraph(u"s"_s);
    EXPECT_EQ(Rows::frameFill.of(graph.get(), own), u"blue"_s);
    EXPECT_NE(Rows::framePeripheries.of(graph.get(), own), int(Rows::Double));
    EXPECT_FALSE(Rows::frameStyle.holds(graph.get(), own, 0));
    // The defaults of the graphs around count, their own attributes do not.
    for (const QString &id : {u"t"_s, u"inner"_s}) {
        const auto *none = graph->findSubgraph(id);
        EXPECT_EQ(Rows::frameFill.of(graph.get(), none), u"red"_s);
        EXPECT_EQ(Rows::framePeripheries.of(graph.get(), none), int(Rows::Double));
        EXPECT_EQ(Rows::framePenWidth.of(graph.get(), none), 3);
        EXPECT_TRUE(Rows::frameStyle.holds(graph.get(), none, 0));
        EXPECT_EQ(Rows::frameStyle.of(graph.get(), none), u"rounded"_s);
    }
}

// A graph has no other lookup for them.
template <typename Row>
concept ReadAsAnyOther = requires(const Row &attribute, const DotGraph *graph,
                                  const DotSubgraph *subgraph)
{
    attribute.find(graph, subgraph);
};
static_assert(ReadAsAnyOther<decltype(Rows::frame)>);
static_assert(!ReadAsAnyOther<decltype(Rows::frameColor)>);

TEST(PolylineAttribute, keeps_six_digits_of_each_number)
{
    const auto graph = parsed("digraph { a -> b [] }");
    DotEdge *edge = graph->root()->edges.constFirst();
    Rows::lineD1.set(graph.get(), edge, {0.0, -0.0, 1234567.0, 1234568.0});
    EXPECT_EQ(*Rows::lineD1.find(edge), u"0 0 1.23457e+06 1.23457e+06"_s);
    const auto read = Rows::lineD1.inherited(graph.get(), edge);
    ASSERT_TRUE(read);
    EXPECT_EQ((*read)[2], 1234570.0);
}

TEST(PolylineAttribute, is_none_without_four_parts)
{
    const auto graph = parsed("digraph { edge [d1=\"1 2 3 4\" d2=\"1 2 3\"] a -> b [] }");
    const DotEdge *edge = graph->root()->edges.constFirst();
    EXPECT_TRUE(Rows::lineD1.inherited(graph.get(), edge));
    EXPECT_FALSE(Rows::lineD2.inherited(graph.get(), edge));
}
