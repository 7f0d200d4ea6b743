#include "companion/produce/shown_tree.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

WeightTree treeOf(std::initializer_list<std::pair<const char *, double>> paths)
{
    WeightTree tree;
    for (const auto &[path, weight] : paths)
        tree.addWeight(tree.at(path), weight);
    return tree;
}

const TreeMeaning plain;

// The names of what is in a thing, in their order.
QStringList childrenOf(const ShownTree &tree, int thing = 0)
{
    QStringList names;
    for (const int child : tree[thing].children)
        names.append(tree[child].name);
    return names;
}

} // namespace

TEST(ShownTree, has_the_largest_first_and_equal_ones_by_name)
{
    const WeightTree tree = treeOf({{"c", 1}, {"a", 1}, {"b", 5}, {"empty", 0}});
    EXPECT_EQ(childrenOf(ShownTree(tree, plain, {})), (QStringList{u"b"_s, u"a"_s, u"c"_s}));
}

TEST(ShownTree, sums_up)
{
    WeightTree tree = treeOf({{"a/x", 2}, {"a/y", 3}, {"b", 4}});
    tree.addShare(tree.at("a/x"), 1, 2);
    tree.addShare(tree.at("b"), 3, 4);
    const ShownTree shown(tree, plain, {});
    EXPECT_EQ(shown.root().weight, 9);
    EXPECT_EQ(shown.root().part, 4);
    EXPECT_EQ(shown.root().whole, 6);
    EXPECT_EQ(shown[shown.root().children.at(0)].weight, 5);
}

TEST(ShownTree, joins_chains_of_single_children)
{
    const WeightTree tree =
        treeOf({{"top/src/companion/a", 2}, {"top/src/companion/b", 1}, {"top/x", 1}});
    const ShownTree shown(tree, plain, {});
    EXPECT_EQ(shown.root().name, u"top"_s);
    EXPECT_EQ(childrenOf(shown), (QStringList{u"src/companion"_s, u"x"_s}));
    EXPECT_EQ(shown.path(shown.root().children.at(0)), u"top/src/companion"_s);
}

TEST(ShownTree, names_what_weighs_by_itself_beside_its_children)
{
    const WeightTree tree = treeOf({{"a", 3}, {"a/x", 1}, {"b", 1}});
    const ShownTree shown(tree, plain, {});
    EXPECT_EQ(childrenOf(shown, shown.root().children.at(0)), (QStringList{u"(self)"_s, u"x"_s}));
    const ShownTree calls(tree, plain, {.ownAsChildren = false});
    const ShownThing &a = calls[calls.root().children.at(0)];
    EXPECT_EQ(childrenOf(calls, calls.root().children.at(0)), QStringList{u"x"_s});
    EXPECT_EQ(a.own, 3);
    EXPECT_EQ(a.weight, 4);
}

TEST(ShownTree, folds_the_smallest_of_too_many)
{
    WeightTree tree;
    for (int i = 0; i < 100; ++i)
        tree.addWeight(tree.at(QByteArray::number(i)), 1 + i);
    const ShownTree shown(tree, plain, {.most = 4});
    EXPECT_EQ(childrenOf(shown), (QStringList{u"99"_s, u"98"_s, u"97"_s, u"others (97)"_s}));
    EXPECT_EQ(shown[shown.root().children.at(3)].weight, 5050 - 100 - 99 - 98);
}

TEST(ShownTree, never_has_more_than_asked_for_and_loses_no_weight)
{
    WeightTree tree;
    for (int i = 0; i < 2000; ++i)
        tree.addWeight(tree.at(QByteArray::number(i % 7) + '/' + QByteArray::number(i % 31) + '/'
                               + QByteArray::number(i)),
                       1 + i * i % 97);
    for (const int most : {2, 3, 10, 50, 300, 5000}) {
        const ShownTree shown(tree, plain, {.most = most});
        EXPECT_LE(shown.size() - 1, most);
        for (int thing = 0; thing < shown.size(); ++thing) {
            double sum = 0;
            for (const int child : shown[thing].children)
                sum += shown[child].weight;
            if (!shown[thing].children.isEmpty()) {
                EXPECT_DOUBLE_EQ(sum, shown[thing].weight);
            }
        }
    }
}

TEST(ShownTree, calls_one_alone_by_its_name)
{
    const WeightTree tree = treeOf({{"a", 3}, {"b", 2}, {"c", 1}});
    EXPECT_EQ(childrenOf(ShownTree(tree, plain, {.most = 2})),
              (QStringList{u"a"_s, u"others (2)"_s}));
    EXPECT_EQ(childrenOf(ShownTree(tree, plain, {.most = 3})),
              (QStringList{u"a"_s, u"b"_s, u"c"_s}));
}

TEST(ShownTree, counts_the_kinds_of_what_was_folded)
{
    WeightTree tree = treeOf({{"d/a", 3}, {"d/b", 5}, {"e", 1}});
    tree.setKind(tree.at("d/a"), 0);
    tree.setKind(tree.at("d/b"), 1);
    tree.setKind(tree.at("e"), 0);
    const ShownTree shown(tree, plain, {.most = 2});
    const ShownThing &d = shown[shown.root().children.at(0)];
    ASSERT_EQ(d.kinds.size(), 2);
    EXPECT_EQ(d.kinds.at(0).kind, 1);
    EXPECT_EQ(d.kinds.at(1).weight, 3);
    EXPECT_EQ(shown.root().kinds.at(1).weight, 4);
}

TEST(ShownTree, folds_again_what_an_engine_has_no_room_for)
{
    const WeightTree tree = treeOf({{"a", 4}, {"b", 3}, {"c", 2}, {"d", 1}});
    ShownTree shown(tree, plain, {});
    shown.foldBehind(0, 3); // one alone is no others
    EXPECT_EQ(shown.root().children.size(), 4);
    shown.foldBehind(0, 2);
    EXPECT_EQ(childrenOf(shown), (QStringList{u"a"_s, u"b"_s, u"others (2)"_s}));
    shown.foldBehind(0, 1);
    EXPECT_EQ(childrenOf(shown), (QStringList{u"a"_s, u"others (3)"_s}));
    EXPECT_EQ(shown[shown.root().children.at(1)].weight, 6);
}

TEST(ShownTree, stands_depth)
{
    WeightTree tree;
    WeightTree::Item item = WeightTree::root;
    for (int i = 0; i < 100'000; ++i) {
        item = tree.child(item, "d");
        tree.addWeight(item, 1);
    }
    const ShownTree shown(tree, plain, {.most = 100});
    EXPECT_LE(shown.size(), 101);
    EXPECT_EQ(shown.root().weight, 100'000);
    EXPECT_LE(shown.path(shown.size() - 1).size(), 1100);
}

TEST(ShownTree, of_nothing_is_a_root)
{
    const WeightTree tree = treeOf({{"a/b", 0}});
    const ShownTree shown(tree, plain, {});
    EXPECT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.root().weight, 0);
}
