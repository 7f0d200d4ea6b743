#include "layout/sequence/pending_edges.h"
#include "layout/sequence/uml_collecting.h"

#include "sequence_fixture.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <QHash>

#include <random>

using namespace ORR::Graph;
using namespace ORR::Graph::Layout;
using namespace Qt::StringLiterals;

namespace {

// The order and the owners that a plain reading gives: at every level, all edges that still wait
// are looked at again. What belongs to a fragment is written down by name, in order.
class PlainCollector
{
public:
    explicit PlainCollector(const DotGraph *dotGraph) : graph(dotGraph) { }

    void collect(DotSubgraph *subgraph)
    {
        DotSubgraph *parent = fragmentOf.value(subgraph);
        for (DotNode *node : subgraph->nodes) {
            if (graph->nodeAttribute(node, u"uml"_s) != u"activation"_s)
                continue;
            known.append(node);
            contents[parent] += node->id;
        }
        pending += subgraph->edges;
        for (qsizetype i = 0; i < pending.size();) {
            DotEdge *edge = pending.at(i);
            if (!known.contains(edge->tail) || !known.contains(edge->head)) {
                ++i;
                continue;
            }
            if (graph->edgeAttribute(edge, u"uml"_s) == u"message"_s) {
                made += edge;
                contents[parent] += edge->attributes.value(u"name"_s);
            }
            pending.removeAt(i);
        }
        for (DotSubgraph *child : subgraph->subgraphs) {
            const QString uml = graph->graphAttribute(child, u"uml"_s);
            if (uml == u"combinedfragment"_s) {
                fragmentOf.insert(child, child);
                contents[parent] += child->id;
                collect(child);
                contents[parent] += u"closing spacer"_s;
            } else if (uml == u"section"_s && parent) {
                contents[parent] += child->id;
                fragmentOf.insert(child, parent);
                collect(child);
            }
        }
    }

    const DotGraph *graph;
    QHash<DotSubgraph *, DotSubgraph *> fragmentOf;
    QList<DotNode *> known;
    QList<DotEdge *> pending;
    QList<DotEdge *> made;
    QHash<DotSubgraph *, QStringList> contents;
};

// A graph of nested fragments, sections and skipped subgraphs. Its edges run between any two nodes,
// some of which have no object or are never reached.
void fillAtRandom(DotGraph *graph, std::mt19937 &random)
{
    const auto pick = [&](int count) { return int(random() % unsigned(count)); };
    QList<DotSubgraph *> subgraphs{graph->root()};
    const int subgraphCount = pick(12);
    for (int i = 0; i < subgraphCount; ++i) {
        DotSubgraph *child =
            graph->createSubgraph(subgraphs.at(pick(int(subgraphs.size()))), u"s%1"_s.arg(i));
        const QStringList kinds{u"combinedfragment"_s,
                                u"combinedfragment"_s,
                                u"section"_s,
                                u"section"_s,
                                u"other"_s,
                                {}};
        const QString &kind = kinds.at(pick(int(kinds.size())));
        if (!kind.isNull()) // otherwise it has that of the subgraph around it
            graph->setGraphAttribute(child, u"uml"_s, kind);
        subgraphs.append(child);
    }
    QList<DotNode *> nodes;
    const int nodeCount = 1 + pick(20);
    for (int i = 0; i < nodeCount; ++i) {
        DotNode *node =
            graph->createNode(subgraphs.at(pick(int(subgraphs.size()))), {}, u"n%1"_s.arg(i));
        graph->setNodeAttribute(node, u"uml"_s, pick(8) ? u"activation"_s : u"nothing"_s);
        nodes.append(node);
    }
    const int edgeCount = pick(40);
    for (int i = 0; i < edgeCount; ++i) {
        DotEdge *edge = graph->createEdge(nodes.at(pick(nodeCount)), nodes.at(pick(nodeCount)), {});
        graph->setEdgeAttribute(edge, u"uml"_s, pick(8) ? u"message"_s : u"nothing"_s);
        graph->setEdgeAttribute(edge, u"name"_s, u"e%1"_s.arg(i));
    }
}

QString nameOf(UmlPart part, const UmlParts &parts)
{
    if (part.list == UmlPart::Fragment)
        return parts.fragments.at(part.index).subgraph->id;
    if (part.list == UmlPart::Edge)
        return parts.edges.at(part.index).edge->attributes.value(u"name"_s);
    const DotNode *node = parts.nodes.at(part.index).node;
    return node ? node->id : u"closing spacer"_s;
}

QList<DotEdge *> madeEdges(const UmlParts &parts)
{
    QList<DotEdge *> edges;
    for (const UmlEdge &edge : parts.edges)
        edges.append(edge.edge);
    return edges;
}

// The names of all edges made by a DOT text, in order.
QStringList edgeNames(const QByteArray &dot)
{
    const Drawing drawing(dot);
    QStringList names;
    for (qsizetype i = 0; i < drawing.parts.edges.size(); ++i)
        names.append(nameOf({UmlPart::Edge, i}, drawing.parts));
    return names;
}

// What each fragment of a diagram holds.
QHash<QString, QStringList> contentsOf(const UmlParts &parts)
{
    QHash<QString, QStringList> contents;
    for (const UmlFragment &fragment : parts.fragments) {
        QStringList &names = contents[fragment.subgraph->id];
        for (const UmlPart part : fragment.contents)
            names += nameOf(part, parts);
    }
    return contents;
}

} // namespace

TEST(Collect, agrees_with_a_plain_reading_on_random_graphs)
{
    std::mt19937 random(20240611);
    int edgesSeen = 0;
    for (int round = 0; round < 2000; ++round) {
        DotGraph graph;
        fillAtRandom(&graph, random);
        PlainCollector plain(&graph);
        plain.collect(graph.root());

        UmlParts parts;
        ASSERT_EQ(collectUml(&graph, parts), QString());
        ASSERT_EQ(madeEdges(parts), plain.made) << "round " << round;
        const QHash<QString, QStringList> contents = contentsOf(parts);
        for (auto it = plain.contents.cbegin(); it != plain.contents.cend(); ++it) {
            if (it.key()) {
                ASSERT_EQ(contents.value(it.key()->id), it.value()) << "round " << round;
            }
        }
        edgesSeen += int(plain.made.size());
    }
    EXPECT_GT(edgesSeen, 2000);
}

TEST(Collect, makes_edges_that_waited_before_later_ones_of_the_same_level)
{
    // All three edges stand in the root. "late" could be made there; "first" and "second" wait for
    // the fragment, and come in their old order although "b", the end of "second", is made first.
    EXPECT_EQ(edgeNames(R"(digraph {
                  node [uml=activation] edge [uml=message]
                  subgraph f { graph [uml=combinedfragment] b c }
                  a x
                  a -> c [name=first]
                  a -> b [name=second]
                  a -> x [name=late]
              })"),
              (QStringList{u"late"_s, u"first"_s, u"second"_s}));
}

TEST(Collect, gives_an_edge_to_the_fragment_where_its_last_end_turns_up)
{
    const Drawing drawing(R"(digraph {
        node [uml=activation] edge [uml=message]
        subgraph f { graph [uml=combinedfragment] b
            subgraph g { graph [uml=combinedfragment] c } }
        subgraph h { graph [uml=combinedfragment] d }
        b -> d [name=across]
        b -> c [name=within]
    })");
    const QHash<QString, QStringList> contents = contentsOf(drawing.parts);
    EXPECT_EQ(contents.value(u"f"_s), (QStringList{u"b"_s, u"g"_s, u"closing spacer"_s}));
    EXPECT_EQ(contents.value(u"g"_s), (QStringList{u"c"_s, u"within"_s}));
    EXPECT_EQ(contents.value(u"h"_s), (QStringList{u"d"_s, u"across"_s}));
}

TEST(Collect, puts_what_a_section_holds_into_its_fragment_behind_the_marker)
{
    const Drawing drawing(R"(digraph {
        node [uml=activation] edge [uml=message]
        subgraph f { graph [uml=combinedfragment]
            subgraph s { graph [uml=section] a b a -> b [name=call] }
            subgraph t { graph [uml=section] c } }
    })");
    EXPECT_EQ(contentsOf(drawing.parts).value(u"f"_s),
              (QStringList{u"s"_s, u"a"_s, u"b"_s, u"call"_s, u"t"_s, u"c"_s}));
}

TEST(Collect, follows_the_cells_of_what_is_put_into_a_fragment)
{
    const Drawing drawing(R"(digraph {
        node [uml=spacer]
        subgraph f { graph [uml=combinedfragment, row=2, col=5]
            a [row=1, col=3] b [row=7, col=6] }
    })");
    ASSERT_EQ(drawing.parts.fragments.size(), 1);
    const UmlFragment &fragment = drawing.parts.fragments.at(0);
    EXPECT_EQ(fragment.row, 2);
    EXPECT_EQ(fragment.cell().col, 3);
    EXPECT_EQ(fragment.cells.lastCol, 6);
    EXPECT_EQ(fragment.cells.lastRow, 8); // one below the contents
}

TEST(Collect, starts_a_section_on_the_column_that_its_fragment_has_by_then)
{
    const Drawing drawing(R"(digraph {
        node [uml=spacer]
        subgraph f { graph [uml=combinedfragment, col=5] a [col=3]
            subgraph s { graph [uml=section, row=9] b [col=1] } }
    })");
    ASSERT_EQ(drawing.parts.nodes.size(), 4);
    const UmlNode &marker = drawing.parts.nodes.at(1);
    EXPECT_EQ(marker.node->id, u"s"_s);
    EXPECT_EQ(marker.cell.row, 9);
    EXPECT_EQ(marker.cell.col, 3);
    EXPECT_EQ(drawing.parts.fragments.at(0).sections.at(0).row, 9);
    EXPECT_EQ(drawing.parts.fragments.at(0).cells.lastRow, 10);
}

TEST(Collect, closes_a_fragment_around_those_within)
{
    const Drawing drawing(R"(digraph {
        subgraph outer { graph [uml=combinedfragment]
            subgraph middle { graph [row=1]
                subgraph inner { graph [row=2] a [uml=object, row=2, col=4] } } }
    })");
    ASSERT_EQ(drawing.parts.fragments.size(), 3);
    QList<int> nesting;
    QList<int> lastRows;
    for (const UmlFragment &fragment : drawing.parts.fragments) {
        nesting += fragment.cells.nesting;
        lastRows += fragment.cells.lastRow;
        EXPECT_EQ(fragment.cells.lastCol, 4);
    }
    EXPECT_EQ(nesting, (QList<int>{2, 1, 0}));
    EXPECT_EQ(lastRows, (QList<int>{5, 4, 3}));
    const UmlNode &spacer = drawing.parts.nodes.constLast(); // that of the outermost
    EXPECT_EQ(spacer.node, nullptr);
    EXPECT_EQ(spacer.cell.row, 5);
    EXPECT_EQ(spacer.cell.col, 4);
    EXPECT_EQ(spacer.room, QSize(7 * 2 + 12, 5));
}

TEST(PendingEdges, hands_out_a_loop_when_its_node_is_known)
{
    Fixture fixture;
    DotNode *a = fixture.node(u"a"_s);
    DotEdge *loop = fixture.edge(a, a);
    NodePlaces places;
    PendingEdges pending(places);
    pending.add(loop);
    EXPECT_EQ(pending.takeReady(), QList<DotEdge *>());
    places.insert(a, 0);
    pending.nodeIsKnown(a);
    EXPECT_EQ(pending.takeReady(), QList<DotEdge *>{loop});
    EXPECT_EQ(pending.takeReady(), QList<DotEdge *>());
}
