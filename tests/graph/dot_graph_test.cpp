#include "graph/dot_graph.h"

#include "support/golden.h"

#include <random>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

TEST(DotGraph, starts_with_a_root_and_eight_declared_attributes)
{
    const DotGraph graph;
    const DotSubgraph *root = graph.root();
    EXPECT_EQ(root->id, "name");
    EXPECT_EQ(root->parent, nullptr);
    const AttributeMap all{{u"fontcolor"_s, u"#000000"_s},
                           {u"fontname"_s, u"Arial"_s},
                           {u"fontsize"_s, u"12"_s},
                           {u"label"_s, u""_s}};
    AttributeMap graphs = all;
    graphs.insert(u"bgcolor"_s, u"none"_s);
    graphs.insert(u"fillcolor"_s, u"#FFFFFF"_s);
    AttributeMap nodes = all;
    nodes.insert(u"fillcolor"_s, u"#FFFFFF"_s);
    nodes.insert(u"color"_s, u"#000000"_s);
    nodes.insert(u"style"_s, u"filled"_s);
    AttributeMap edges = all;
    edges.insert(u"color"_s, u"#000000"_s);
    EXPECT_EQ(root->attributes, graphs);
    EXPECT_EQ(root->nodeDefaults, nodes);
    EXPECT_EQ(root->edgeDefaults, edges);
}

TEST(DotGraph, the_root_is_found_by_no_lookup)
{
    const DotGraph graph;
    EXPECT_EQ(graph.findSubgraph(u"name"_s), nullptr);
    EXPECT_TRUE(graph.allSubgraphs().isEmpty());
}

TEST(DotGraph, automatic_ids_share_one_counter)
{
    DotGraph graph;
    EXPECT_EQ(graph.createNode(graph.root(), {}, {})->id, "__N1");
    EXPECT_EQ(graph.createSubgraph(graph.root(), {})->id, "__G2");
    EXPECT_EQ(graph.createCluster(graph.root(), {}, {})->id, "cluster_3");
    EXPECT_NE(graph.findNode(u"__N1"_s), nullptr);
    EXPECT_NE(graph.findSubgraph(u"cluster_3"_s), nullptr);
}

TEST(DotGraph, a_label_is_stored_only_if_it_is_not_empty)
{
    DotGraph graph;
    EXPECT_EQ(graph.createNode(graph.root(), u"x"_s, u"a"_s)->attributes,
              (AttributeMap{{u"label"_s, u"x"_s}}));
    EXPECT_TRUE(graph.createNode(graph.root(), {}, u"b"_s)->attributes.isEmpty());
    EXPECT_EQ(graph.createCluster(graph.root(), u"y"_s, {})->attributes,
              (AttributeMap{{u"label"_s, u"y"_s}}));
    DotEdge *edge = graph.createEdge(graph.findNode(u"a"_s), graph.findNode(u"b"_s), u"z"_s);
    EXPECT_EQ(edge->attributes, (AttributeMap{{u"label"_s, u"z"_s}}));
}

TEST(DotGraph, an_id_used_twice_finds_the_newer_object_and_keeps_both)
{
    DotGraph graph;
    DotNode *older = graph.createNode(graph.root(), {}, u"a"_s);
    DotNode *newer = graph.createNode(graph.root(), {}, u"a"_s);
    EXPECT_EQ(graph.findNode(u"a"_s), newer);
    EXPECT_EQ(graph.root()->nodes, (QList<DotNode *>{older, newer}));
}

TEST(DotGraph, a_node_is_found_or_created_once)
{
    DotGraph graph;
    DotSubgraph *inner = graph.createSubgraph(graph.root(), u"s"_s);
    bool created = false;
    DotNode *node = graph.findOrCreateNode(inner, u"a", &created);
    EXPECT_TRUE(created);
    EXPECT_EQ(node->id, "a");
    EXPECT_EQ(node->owner, inner);
    EXPECT_EQ(inner->nodes, QList<DotNode *>{node});
    EXPECT_EQ(graph.findNode(u"a"), node);
    EXPECT_EQ(graph.findOrCreateNode(graph.root(), u"a", &created), node);
    EXPECT_FALSE(created);
    EXPECT_TRUE(graph.root()->nodes.isEmpty());
}

TEST(DotGraph, a_node_without_an_id_is_always_a_new_one)
{
    DotGraph graph;
    bool created = false;
    const DotNode *first = graph.findOrCreateNode(graph.root(), u"", &created);
    EXPECT_TRUE(created);
    const DotNode *second = graph.findOrCreateNode(graph.root(), u"", &created);
    EXPECT_TRUE(created);
    EXPECT_EQ(first->id, "__N1");
    EXPECT_EQ(second->id, "__N2");
}

TEST(DotGraph, html_labels_are_a_flag_when_declared_for_no_kind)
{
    DotGraph graph;
    const AttributeMap before = graph.root()->attributes;
    graph.declareAttribute(graph.root(), u"htmllabels"_s, u"on"_s, QString());
    EXPECT_TRUE(graph.htmlLabels());
    EXPECT_EQ(graph.root()->attributes, before);
    graph.declareAttribute(graph.root(), u"htmllabels"_s, u"yes"_s, QString());
    EXPECT_FALSE(graph.htmlLabels());
    graph.declareAttribute(graph.root(), u"htmllabels"_s, u"on"_s, u"graph"_s);
    EXPECT_FALSE(graph.htmlLabels());
    EXPECT_EQ(graph.root()->attributes.value(u"htmllabels"_s), "on");
}

TEST(DotGraph, empty_kinds_declare_nothing_and_null_kinds_everything)
{
    DotGraph graph;
    DotSubgraph *root = graph.root();
    graph.declareAttribute(root, u"x"_s, u"1"_s, u""_s);
    EXPECT_TRUE(graph.graphAttribute(root, u"x"_s).isNull());
    graph.declareAttribute(root, u"x"_s, u"1"_s, QString());
    EXPECT_EQ(graph.graphAttribute(root, u"x"_s), "1");
    EXPECT_EQ(graph.nodeDefault(root, u"x"_s), "1");
    EXPECT_EQ(graph.edgeDefault(root, u"x"_s), "1");
}

TEST(DotGraph, defaults_reach_nodes_made_before_them)
{
    DotGraph graph;
    DotNode *node = graph.createNode(graph.root(), {}, u"a"_s);
    graph.declareAttribute(graph.root(), u"fontname"_s, u"X"_s, u"node"_s);
    EXPECT_EQ(graph.nodeAttribute(node, u"fontname"_s), "X");
}

TEST(DotGraph, a_null_text_is_told_from_an_empty_one)
{
    const DotGraph graph;
    EXPECT_TRUE(graph.graphAttribute(graph.root(), u"nosuch"_s).isNull());
    const QString label = graph.graphAttribute(graph.root(), u"label"_s);
    EXPECT_TRUE(label.isEmpty());
    EXPECT_FALSE(label.isNull());
    EXPECT_TRUE(graph.graphAttribute(nullptr, u"label"_s).isNull());
}

TEST(DotGraph, an_empty_value_hides_that_of_the_parent)
{
    DotGraph graph;
    DotSubgraph *outer = graph.createSubgraph(graph.root(), u"outer"_s);
    DotSubgraph *inner = graph.createSubgraph(outer, u"inner"_s);
    graph.setGraphAttribute(graph.root(), u"x"_s, u"1"_s);
    EXPECT_EQ(graph.graphAttribute(inner, u"x"_s), "1");
    graph.setGraphAttribute(outer, u"x"_s, u""_s);
    EXPECT_EQ(graph.graphAttribute(inner, u"x"_s), "");
}

TEST(DotGraph, nodes_and_edges_never_see_graph_attributes)
{
    DotGraph graph;
    graph.setGraphAttribute(graph.root(), u"x"_s, u"1"_s);
    DotNode *node = graph.createNode(graph.root(), {}, u"a"_s);
    DotEdge *edge = graph.createEdge(node, node, {});
    EXPECT_TRUE(graph.nodeAttribute(node, u"x"_s).isNull());
    EXPECT_TRUE(graph.edgeAttribute(edge, u"x"_s).isNull());
}

TEST(DotGraph, an_edge_between_siblings_reads_the_defaults_of_their_parent)
{
    DotGraph graph;
    DotSubgraph *left = graph.createSubgraph(graph.root(), u"left"_s);
    DotSubgraph *right = graph.createSubgraph(graph.root(), u"right"_s);
    for (DotSubgraph *subgraph : {left, right})
        graph.declareAttribute(subgraph, u"color"_s, u"red"_s, u"edge"_s);
    DotEdge *edge = graph.createEdge(graph.createNode(left, {}, u"a"_s),
                                     graph.createNode(right, {}, u"b"_s), {});
    EXPECT_EQ(graph.edgeAttribute(edge, u"color"_s), "#000000");
    EXPECT_EQ(graph.root()->edges, QList<DotEdge *>{edge});
}

TEST(DotGraph, the_common_subgraph_is_the_lowest_ancestor_of_both)
{
    DotGraph graph;
    DotSubgraph *a = graph.createSubgraph(graph.root(), u"a"_s);
    DotSubgraph *ab = graph.createSubgraph(a, u"ab"_s);
    DotSubgraph *abc = graph.createSubgraph(ab, u"abc"_s);
    DotSubgraph *ad = graph.createSubgraph(a, u"ad"_s);
    EXPECT_EQ(DotGraph::commonSubgraph(abc, ad), a);
    EXPECT_EQ(DotGraph::commonSubgraph(abc, ab), ab);
    EXPECT_EQ(DotGraph::commonSubgraph(ab, ab), ab);
    EXPECT_EQ(DotGraph::commonSubgraph(nullptr, ab), ab);
    EXPECT_EQ(DotGraph::commonSubgraph(ab, nullptr), ab);
    EXPECT_EQ(DotGraph::commonSubgraph(nullptr, nullptr), nullptr);
    const DotGraph other;
    EXPECT_EQ(DotGraph::commonSubgraph(abc, other.root()), nullptr);
}

TEST(DotGraph, the_common_subgraph_agrees_with_a_plain_walk_on_random_trees)
{
    const auto plainly = [](DotSubgraph *x, DotSubgraph *y) {
        while (x != y) {
            DotSubgraph *&deeper = x->depth >= y->depth ? x : y;
            deeper = deeper->parent;
        }
        return x;
    };
    std::mt19937 random(7);
    const auto pick = [&](qsizetype count) { return qsizetype(random() % std::size_t(count)); };
    for (int round = 0; round < 20; ++round) {
        DotGraph graph;
        QList<DotSubgraph *> all{graph.root()};
        while (all.size() < 200) {
            // Mostly below one of the last, so that the trees are deep.
            const qsizetype parent = all.size() - 1 - pick(std::min<qsizetype>(all.size(), 4));
            all.append(graph.createSubgraph(all.at(parent), {}));
        }
        for (int i = 0; i < 1000; ++i) {
            DotSubgraph *x = all.at(pick(all.size()));
            DotSubgraph *y = all.at(pick(all.size()));
            ASSERT_EQ(DotGraph::commonSubgraph(x, y), plainly(x, y));
        }
    }
}

TEST(DotGraph, successors_are_newest_first_with_duplicates)
{
    DotGraph graph;
    DotNode *a = graph.createNode(graph.root(), {}, u"a"_s);
    DotNode *b = graph.createNode(graph.root(), {}, u"b"_s);
    graph.createEdge(a, b, {});
    graph.createEdge(a, a, {});
    graph.createEdge(a, b, {});
    EXPECT_EQ(graph.successors(a), (QList<DotNode *>{b, a, b}));
    EXPECT_TRUE(graph.successors(b).isEmpty());
}

TEST(DotGraph, a_predecessor_must_be_the_only_one)
{
    DotGraph graph;
    DotNode *a = graph.createNode(graph.root(), {}, u"a"_s);
    DotNode *b = graph.createNode(graph.root(), {}, u"b"_s);
    DotNode *c = graph.createNode(graph.root(), {}, u"c"_s);
    DotNode *d = graph.createNode(graph.root(), {}, u"d"_s);
    graph.createEdge(a, b, {});
    graph.createEdge(a, c, {});
    graph.createEdge(b, c, {});
    EXPECT_EQ(graph.predecessor(b), a);
    EXPECT_EQ(graph.predecessor(c), nullptr);
    EXPECT_EQ(graph.predecessor(a), nullptr);
    graph.createEdge(a, d, {});
    EXPECT_EQ(graph.predecessor(d), nullptr) << "an edge made after the first question is not seen";
}

TEST(DotGraph, parallel_edges_are_taken_in_creation_order_and_round_again)
{
    DotGraph graph;
    DotNode *a = graph.createNode(graph.root(), {}, u"a"_s);
    DotNode *b = graph.createNode(graph.root(), {}, u"b"_s);
    DotNode *c = graph.createNode(graph.root(), {}, u"c"_s);
    DotEdge *first = graph.createEdge(a, b, {});
    graph.createEdge(a, c, {});
    DotEdge *second = graph.createEdge(a, b, {});
    DotEdge *third = graph.createEdge(a, b, {});
    EXPECT_EQ(graph.takeEdge(a, b), first);
    EXPECT_EQ(graph.takeEdge(a, b), second);
    EXPECT_EQ(graph.takeEdge(a, b), third);
    EXPECT_EQ(graph.takeEdge(a, b), first);
    EXPECT_EQ(graph.takeEdge(b, a), nullptr);
    EXPECT_EQ(graph.takeEdge(nullptr, a), nullptr);
}

TEST(DotGraph, a_taken_edge_becomes_the_newest)
{
    DotGraph graph;
    DotNode *a = graph.createNode(graph.root(), {}, u"a"_s);
    DotNode *b = graph.createNode(graph.root(), {}, u"b"_s);
    DotNode *c = graph.createNode(graph.root(), {}, u"c"_s);
    graph.createEdge(a, b, {});
    graph.createEdge(a, c, {});
    EXPECT_EQ(graph.successors(a), (QList<DotNode *>{c, b}));
    graph.takeEdge(a, b);
    EXPECT_EQ(graph.successors(a), (QList<DotNode *>{b, c}));
    graph.takeEdge(a, a);
    EXPECT_EQ(graph.successors(a), (QList<DotNode *>{b, c})) << "no such edge, no change";
}

TEST(DotGraph, taking_agrees_with_a_plain_list_of_edges)
{
    std::mt19937 random(7);
    DotGraph graph;
    QList<DotNode *> nodes;
    for (int i = 0; i < 4; ++i)
        nodes.append(graph.createNode(graph.root(), {}, {}));
    QHash<DotNode *, QList<DotEdge *>> newestFirst;
    const auto anyNode = [&] { return nodes.at(random() % nodes.size()); };
    for (int step = 0; step < 2000; ++step) {
        DotNode *tail = anyNode();
        DotNode *head = anyNode();
        QList<DotEdge *> &list = newestFirst[tail];
        if (random() % 8 == 0) {
            list.prepend(graph.createEdge(tail, head, {}));
            continue;
        }
        DotEdge *expected = nullptr;
        for (qsizetype i = list.size() - 1; i >= 0 && !expected; --i) {
            if (list.at(i)->head == head) {
                expected = list.takeAt(i);
                list.prepend(expected);
            }
        }
        ASSERT_EQ(graph.takeEdge(tail, head), expected);
        QList<DotNode *> heads;
        for (const DotEdge *edge : std::as_const(list))
            heads.append(edge->head);
        ASSERT_EQ(graph.successors(tail), heads);
    }
}

TEST(DotGraph, user_data_is_free_for_callers)
{
    DotGraph graph;
    DotNode *node = graph.createNode(graph.root(), {}, {});
    EXPECT_FALSE(DotGraph::userData(node).isValid());
    DotGraph::setUserData(node, 7);
    EXPECT_EQ(DotGraph::userData(node).toInt(), 7);
    EXPECT_FALSE(DotGraph::userData(nullptr).isValid());
}

// Deep trees remember where an inherited attribute was found; nobody may notice.
TEST(DotGraph, inheritance_in_deep_trees_follows_every_change)
{
    std::mt19937 random(11);
    DotGraph graph;
    QList<DotSubgraph *> chain{graph.root()};
    for (int i = 0; i < 400; ++i)
        chain.append(graph.createSubgraph(chain.constLast(), {}));
    QHash<const DotSubgraph *, QString> own;
    for (int step = 0; step < 5000; ++step) {
        DotSubgraph *subgraph = chain.at(random() % chain.size());
        if (random() % 16 == 0) {
            own.insert(subgraph, QString::number(step));
            graph.setGraphAttribute(subgraph, u"x"_s, QString::number(step));
        }
        QString expected;
        for (const DotSubgraph *s = subgraph; s && expected.isNull(); s = s->parent)
            expected = own.value(s);
        ASSERT_EQ(graph.graphAttribute(subgraph, u"x"_s), expected);
    }
}

TEST(DotGraph, looking_up_from_100000_levels_takes_no_time)
{
    DotGraph graph;
    QList<DotSubgraph *> chain{graph.root()};
    for (int i = 0; i < 100000; ++i)
        chain.append(graph.createSubgraph(chain.constLast(), {}));
    // From the bottom up and again: were each of these walks a full one, this would not end.
    for (qsizetype i = chain.size() - 1; i >= 0; --i) {
        ASSERT_EQ(graph.graphAttribute(chain.at(i), u"bgcolor"_s), "none");
        ASSERT_TRUE(graph.nodeDefault(chain.at(i), u"nosuch"_s).isNull());
    }
}
