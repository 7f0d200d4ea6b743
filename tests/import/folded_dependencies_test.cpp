#include "companion/produce/folded_dependencies.h"

#include "companion/produce/strong_components.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;

namespace {

using FoldedEdge = FoldedDependencies::Edge;

Dependencies needsOf(std::initializer_list<std::pair<const char *, const char *>> pairs)
{
    Dependencies dependencies;
    for (const auto &[tail, head] : pairs) {
        const Dependencies::Item item = dependencies.thing(tail);
        dependencies.need(item, dependencies.thing(head));
    }
    return dependencies;
}

QStringList partNames(const FoldedDependencies &folded)
{
    QStringList names;
    for (const FoldedDependencies::Part &part : folded.parts)
        names.append(part.name);
    return names;
}

} // namespace

TEST(StrongComponents, number_what_is_needed_below_what_needs_it)
{
    EXPECT_EQ(strongComponents({{1}, {2}, {}}), (QList<int>{2, 1, 0}));
}

TEST(StrongComponents, join_a_circle)
{
    EXPECT_EQ(strongComponents({{1}, {2}, {0, 3}, {}}), (QList<int>{1, 1, 1, 0}));
}

TEST(StrongComponents, take_a_long_path_without_recursion)
{
    QList<QList<int>> path(300'000);
    for (int i = 0; i + 1 < path.size(); ++i)
        path[i].append(i + 1);
    const QList<int> component = strongComponents(path);
    EXPECT_EQ(component.first(), 299'999);
    EXPECT_EQ(component.last(), 0);
}

TEST(FoldedDependencies, put_what_is_needed_ahead)
{
    const auto folded = foldedDependencies(needsOf({{"a", "b"}, {"b", "c"}, {"a", "c"}}), 10);
    EXPECT_EQ(partNames(folded), (QStringList{"c", "b", "a"}));
    for (const FoldedEdge &edge : folded.edges) {
        EXPECT_GT(edge.tail, edge.head);
        EXPECT_EQ(edge.kind, FoldedEdge::Needs);
    }
}

TEST(FoldedDependencies, tell_cycles)
{
    const auto folded = foldedDependencies(needsOf({{"a", "b"}, {"b", "a"}, {"c", "a"}}), 10);
    ASSERT_EQ(folded.parts.size(), 3);
    int inCycle = 0;
    for (const FoldedEdge &edge : folded.edges)
        inCycle += edge.kind == FoldedEdge::InCycle ? 1 : 0;
    EXPECT_EQ(inCycle, 2);
    EXPECT_FALSE(folded.parts[2].isInCycle) << "c, which needs them";
    EXPECT_TRUE(folded.parts[0].isInCycle);
}

TEST(FoldedDependencies, keep_folders_together_and_tell_what_goes_against_their_order)
{
    // x/1 needs y/1 and y/2 needs x/2: no cycle of files, but one of folders.
    const auto folded = foldedDependencies(needsOf({{"x/1", "y/1"}, {"y/2", "x/2"}}), 10);
    ASSERT_EQ(folded.groups.size(), 2);
    EXPECT_EQ(folded.groups[0].count, 2);
    EXPECT_EQ(folded.groups[1].first, 2);
    int against = 0;
    for (const FoldedEdge &edge : folded.edges)
        against += edge.kind == FoldedEdge::Against ? 1 : 0;
    EXPECT_EQ(against, 1);
}

TEST(FoldedDependencies, fold_folders_until_there_is_room_and_sum_up_their_needs)
{
    const auto folded =
        foldedDependencies(needsOf({{"x/1", "y/1"}, {"x/2", "y/1"}, {"x/3", "y/2"}}), 2);
    EXPECT_EQ(partNames(folded), (QStringList{"y/", "x/"}));
    ASSERT_EQ(folded.edges.size(), 1);
    EXPECT_EQ(folded.edges[0].weight, 3);
    EXPECT_EQ(folded.parts[1].things, 3);
}

TEST(FoldedDependencies, put_the_rest_of_many_into_others)
{
    Dependencies many;
    const Dependencies::Item hub = many.thing("hub");
    for (int i = 0; i < 100; ++i)
        many.need(many.thing(QByteArray::number(i)), hub);
    const auto folded = foldedDependencies(many, 10);
    ASSERT_EQ(folded.parts.size(), 10);
    EXPECT_TRUE(partNames(folded).contains("92 others"))
        << partNames(folded).join(' ').toStdString();
    EXPECT_TRUE(partNames(folded).contains("hub"));
}

TEST(FoldedDependencies, show_a_folder_that_is_a_thing_too_beside_its_files)
{
    const auto folded = foldedDependencies(needsOf({{"a", "a/b"}, {"a/b", "c"}}), 10);
    EXPECT_EQ(partNames(folded), (QStringList{"c", "b", "a"}));
}

TEST(FoldedDependencies, of_nothing_are_nothing)
{
    EXPECT_TRUE(foldedDependencies({}, 10).parts.isEmpty());
}

TEST(FoldedDependencies, take_deep_paths)
{
    Dependencies deep;
    const Dependencies::Item end = deep.thing(QByteArray("d/").repeated(20'000) + "end");
    deep.need(deep.thing("other"), end);
    EXPECT_EQ(foldedDependencies(deep, 10).parts.size(), 2);
}
