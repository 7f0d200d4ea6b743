// The engine against the plain reading of the same algorithms, on random graphs.

#include "graflib_support.h"
#include "graph/numbers.h"
#include "tree_reading.h"

#include <gtest/gtest.h>

#include <set>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

constexpr double expanderSize = 9.0; // at the font size of 12

struct Shape
{
    int nodes;
    int crossEdges; // edges beyond those of a tree
    int backEdges; // edges that may close a cycle
    double pad; // inches
    int reach = 0; // how far back parents are looked for; 0 for anything
};

QByteArray randomGraph(RandomNumbers &random, const Shape &shape, bool compact)
{
    static const char *const directions[] = {"", "LR", "RL", "TB", "BT"};
    static const char *const margins[] = {"0.11,0.055", "0.1", "0.07,0.2"};
    static const char *const outlines[] = {"hexagon", "octagon", "oval", "rectangle", "box"};
    QByteArray dot = "digraph {\n graph [rankdir=\"" + QByteArray(directions[random.below(5)])
        + "\" nodesep=\"" + QByteArray::number(random.below(40) / 100.0)
        + "\" ranksep=\"0.4\" pad=\"" + QByteArray::number(shape.pad) + ",0.2\" sort=\""
        + (random.oneIn(2) ? "true" : "") + "\" crossing=\"" + (compact ? "false" : "true")
        + "\"];\n node [margin=\"" + margins[random.below(3)] + "\"];\n";
    for (int i = 0; i < shape.nodes; ++i) {
        dot += "n" + QByteArray::number(i) + " [label=\""
            + QByteArray(random.below(12), 'a' + random.below(26)) + "\" shape="
            + outlines[random.below(5)] + " peripheries=" + (random.oneIn(4) ? "2" : "1")
            + " expander=" + (random.oneIn(5) ? "true" : "false") + "];\n";
    }
    const auto edge = [&](int tail, int head) {
        dot += "n" + QByteArray::number(tail) + " -> n" + QByteArray::number(head) + " []\n";
    };
    // Trees of many forms: parents from everywhere, or from among the last few nodes.
    const int reach = 1 + random.below(shape.reach ? shape.reach : shape.nodes);
    for (int i = 1; i < shape.nodes; ++i)
        edge(std::max(0, i - 1 - random.below(reach)) % i, i);
    for (int i = 0; i < shape.crossEdges; ++i) {
        const int head = 1 + random.below(shape.nodes - 1);
        edge(random.below(head), head);
    }
    for (int i = 0; i < shape.backEdges; ++i)
        edge(random.below(shape.nodes), random.below(shape.nodes));
    return dot + "}\n";
}

void expectTheSamePlaces(const QByteArray &dot, bool compact)
{
    const GraflibDrawing laid = runTree(dot);
    const auto plain = parsed(dot);
    const TreeReading reading(plain.get());
    DotNode *root = reading.findRoot();
    ASSERT_EQ(laid.result == u"Could not find root node\n"_s, root == nullptr) << dot.constData();
    if (!root)
        return;
    const bool cycle = reading.hasCycle(root);
    ASSERT_EQ(laid.result.startsWith(u"Cycle"_s), cycle) << dot.constData();
    if (cycle)
        return;

    for (DotNode *node : plain->root()->nodes) {
        for (const QString &name : {u"width"_s, u"height"_s})
            plain->setNodeAttribute(node, name, laid.ofNode(node->id, name));
    }
    const int levels = reading.assignLevels(root);
    const QSizeF size = compact ? reading.placeCompact(root, levels, 0.4 * 72, expanderSize)
                                : reading.placeColumns(levels, expanderSize);
    for (DotNode *node : plain->root()->nodes) {
        for (const QString &name : {u"level"_s, u"d1"_s, u"d2"_s})
            ASSERT_EQ(laid.ofNode(node->id, name), plain->nodeAttribute(node, name))
                << node->id.toStdString() << ' ' << name.toStdString() << '\n'
                << dot.constData();
    }
    const QString rankdir = laid.ofGraph({}, u"rankdir"_s);
    const bool horizontal = rankdir == u"LR"_s || rankdir == u"RL"_s;
    const QSizeF page = horizontal ? size : size.transposed();
    ASSERT_EQ(laid.beginCall(),
              u"begin %1 %2"_s.arg(rounded(page.width())).arg(rounded(page.height())));
}

void compareRandomGraphs(quint32 seed, int rounds, const Shape &largest)
{
    RandomNumbers random(seed);
    for (int i = 0; i < rounds && !testing::Test::HasFatalFailure(); ++i) {
        const Shape shape{2 + random.below(largest.nodes), random.below(largest.crossEdges + 1),
                          random.below(largest.backEdges + 1), largest.pad, largest.reach};
        const bool compact = i % 3 != 0;
        expectTheSamePlaces(randomGraph(random, shape, compact), compact);
    }
}

} // namespace

TEST(TreeAgainstItsReading, random_trees)
{
    compareRandomGraphs(11, 400, {.nodes = 60, .crossEdges = 0, .backEdges = 0, .pad = 0.1});
}

TEST(TreeAgainstItsReading, random_graphs_with_shared_children)
{
    compareRandomGraphs(12, 400, {.nodes = 14, .crossEdges = 8, .backEdges = 0, .pad = 0.0});
}

TEST(TreeAgainstItsReading, random_graphs_that_may_have_cycles)
{
    compareRandomGraphs(13, 400, {.nodes = 10, .crossEdges = 3, .backEdges = 2, .pad = 0.3});
}

// Positions of more than six digits lose whole points on their way through the attributes, so that
// nearly every parent is pushed.
TEST(TreeAgainstItsReading, random_graphs_far_out)
{
    compareRandomGraphs(14, 200, {.nodes = 40, .crossEdges = 0, .backEdges = 0, .pad = 17146.17});
    compareRandomGraphs(15, 200, {.nodes = 12, .crossEdges = 6, .backEdges = 0, .pad = 17146.17});
}

// Deep ones, in which whole blocks of nodes move or stay.
TEST(TreeAgainstItsReading, random_deep_trees_far_out)
{
    compareRandomGraphs(
        16, 12, {.nodes = 1'200, .crossEdges = 0, .backEdges = 0, .pad = 17146.17, .reach = 2});
    compareRandomGraphs(17, 12,
                        {.nodes = 1'200, .crossEdges = 0, .backEdges = 0, .pad = 0.02, .reach = 2});
}
