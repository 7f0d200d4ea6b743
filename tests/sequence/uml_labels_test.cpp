#include "layout/sequence/uml_labels.h"

#include "sequence_fixture.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

// The size that a node's label gets.
QSize nodeLabelSize(DiagramFixture &fixture, const UmlNode &node)
{
    const qsizetype index = fixture.add(node);
    fixture.measure();
    EXPECT_EQ(fixture.diagram.labels.nodes.at(index).isEmpty(),
              fixture.parts.nodes.at(index).label.isEmpty());
    return fixture.parts.nodes.at(index).label;
}

UmlNode spacerOf(DotNode *node, QSize room)
{
    UmlNode spacer{UmlNode::Spacer, {}, node};
    spacer.room = room;
    return spacer;
}

} // namespace

TEST(UmlLabels, are_as_large_as_their_text_with_a_padding_of_three_on_every_side)
{
    DiagramFixture fixture;
    DotNode *a = fixture.node(u"a"_s, u"Shop"_s);
    EXPECT_EQ(nodeLabelSize(fixture, {UmlNode::Object, {}, a}),
              fixture.textSize(u"Shop"_s) + QSize(6, 6));
}

TEST(UmlLabels, cover_all_lines)
{
    DiagramFixture fixture;
    const QSize size =
        nodeLabelSize(fixture, {UmlNode::Object, {}, fixture.node(u"a"_s, u"one\\nlonger line"_s)});
    EXPECT_EQ(size.width(), fixture.labelSize(u"longer line"_s).width());
    EXPECT_GT(size.height(), fixture.labelSize(u"one"_s).height());
}

TEST(UmlLabels, that_are_empty_have_no_size)
{
    DiagramFixture fixture;
    EXPECT_EQ(nodeLabelSize(fixture, {UmlNode::Object, {}, fixture.node(u"a"_s)}), QSize(0, 0));
}

TEST(UmlLabels, of_activations_and_dots_are_not_measured)
{
    DiagramFixture fixture;
    DotNode *node = fixture.node(u"a"_s, u"label"_s);
    EXPECT_EQ(nodeLabelSize(fixture, {UmlNode::Activation, {}, node}), QSize(0, 0));
    EXPECT_EQ(nodeLabelSize(fixture, {UmlNode::FoundMessage, {}, node}), QSize(0, 0));
}

TEST(UmlLabels, of_spacers_are_measured_only_where_they_give_a_size)
{
    DiagramFixture fixture;
    DotNode *node = fixture.node(u"a"_s, u"label"_s);
    const QSize label = fixture.labelSize(u"label"_s);
    EXPECT_EQ(nodeLabelSize(fixture, spacerOf(node, {40, 30})), QSize(0, 0));
    EXPECT_EQ(nodeLabelSize(fixture, spacerOf(node, {sizeOfLabel, 30})), label);
    EXPECT_EQ(nodeLabelSize(fixture, spacerOf(node, {40, sizeOfLabel})), label);
    EXPECT_EQ(nodeLabelSize(fixture, spacerOf(nullptr, {sizeOfLabel, sizeOfLabel})), QSize(0, 0));
}

TEST(UmlLabels, of_edges_are_measured_whatever_their_kind)
{
    DiagramFixture fixture;
    DotNode *a = fixture.node(u"a"_s);
    DotEdge *edge = fixture.edge(a, a, u"call"_s);
    fixture.add({UmlNode::Activation, {}, a});
    for (const UmlEdge::Kind kind : {UmlEdge::LifeLine, UmlEdge::Message, UmlEdge::Return})
        fixture.parts.edges.append({kind, {}, edge, 0, 0});
    fixture.parts.edges.last().visible = false;
    fixture.measure();
    for (const UmlEdge &measured : fixture.parts.edges)
        EXPECT_EQ(measured.label, fixture.labelSize(u"call"_s));
}

TEST(UmlLabels, of_fragments_are_those_of_clusters_as_are_those_of_sections)
{
    DiagramFixture fixture;
    UmlFragment fragment;
    fragment.subgraph = fixture.subgraph(u"f"_s, u"alt"_s);
    fragment.sections = {{0, fixture.subgraph(u"s"_s, u"[a condition]"_s)},
                         {1, fixture.subgraph(u"t"_s)}};
    fixture.parts.fragments = {fragment};
    fixture.measure();
    const UmlFragment &measured = fixture.parts.fragments.at(0);
    EXPECT_EQ(measured.label, fixture.labelSize(u"alt"_s));
    EXPECT_EQ(measured.sections.at(0).label, fixture.labelSize(u"[a condition]"_s));
    EXPECT_EQ(measured.sections.at(1).label, QSize(0, 0));
    const FragmentLabels &labels = fixture.diagram.labels.fragments.at(0);
    EXPECT_FALSE(labels.title.isEmpty());
    EXPECT_FALSE(labels.sections.at(0).isEmpty());
    EXPECT_TRUE(labels.sections.at(1).isEmpty());
}

TEST(UmlLabels, are_measured_once)
{
    DiagramFixture fixture;
    DotNode *node = fixture.node(u"a"_s, u"Shop"_s);
    fixture.add({UmlNode::Object, {}, node});
    fixture.measure();
    fixture.graph.setNodeAttribute(node, u"label"_s, u"a longer one"_s);
    EXPECT_EQ(fixture.parts.nodes.at(0).label, fixture.labelSize(u"Shop"_s));
    EXPECT_EQ(extentsOf(fixture.parts).nodes.at(0).width, fixture.labelSize(u"Shop"_s).width());
}
