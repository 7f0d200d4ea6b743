#include "companion/import/reading/first_lines.h"
#include "companion/import/trees/path_walk.h"
#include "companion/import/trees/tree_result.h"
#include "tree_read.h"

#include <QFile>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

TEST(PathWalk, finds_what_the_tree_finds)
{
    const QByteArrayView paths[] = {"a/b/c", "a/b/c", "a/b/cd",    "a/b",    "a/bc/d",
                                    "",      "/a/b/", "./a",       "a/../b", "a/./b",
                                    "..",    "a//b",  "a/b/c/d/e", "b"};
    WeightTree walked;
    WeightTree looked;
    PathWalk walk(&walked, '/', PathWalk::Parts::Folders);
    for (const QByteArrayView path : paths) {
        EXPECT_EQ(walk.at(path), looked.at(path)) << path.toByteArray().toStdString();
        EXPECT_EQ(walked.size(), looked.size());
    }
}

TEST(PathWalk, keeps_dots_as_names_where_paths_are_no_folders)
{
    WeightTree tree;
    PathWalk walk(&tree, ';', PathWalk::Parts::Names);
    EXPECT_EQ(tree.name(walk.at("a;..")), "..");
    EXPECT_EQ(tree.name(walk.at("a;.;b")), "b");
    EXPECT_EQ(tree.size(), 5);
}

TEST(FirstLines, are_whole)
{
    EXPECT_EQ(firstLines("a\r\n\nb\nhal"), (QList<QByteArrayView>{"a", "b"}));
    EXPECT_EQ(firstLines("only"), (QList<QByteArrayView>{"only"}));
    EXPECT_EQ(firstLines(QByteArrayView("a\n\0b\0", 5), '\0'), (QList<QByteArrayView>{"a\n", "b"}));
    EXPECT_EQ(firstLines(""), QList<QByteArrayView>());
}

TEST(KindNames, rank_by_weight_and_then_by_name)
{
    WeightTree tree;
    KindNames kinds;
    for (const char *word : {"small", "b", "large", "a"})
        tree.setKind(tree.at(word), kinds.of(word));
    tree.addWeight(tree.at("large"), 3);
    tree.addWeight(tree.at("small"), 1);
    EXPECT_EQ(kinds.rankIn(&tree), (QStringList{u"large"_s, u"small"_s, u"a"_s, u"b"_s}));
    EXPECT_EQ(tree.kind(tree.at("large")), 0);
    EXPECT_EQ(tree.kind(tree.at("b")), 3);
    EXPECT_EQ(tree.kind(WeightTree::root), -1);
}

TEST(LikelyFormat, is_that_of_the_data_of_each)
{
    const std::pair<const char *, const char *> inputs[] = {
        {"folded/draw.folded", "folded"},     {"cloc/companion.json", "cloc"},
        {"cloc/languages.json", "cloc"},      {"scc/files.json", "scc"},
        {"scc/languages.json", "scc"},        {"tokei/files.json", "tokei"},
        {"du/companion.txt", "du"},           {"du/import.nul", "du"},
        {"numstat/companion.log", "numstat"}, {"numstat/renamed.nul", "numstat"},
        {"csv/companion.csv", "csv"},         {"csv/packages.tsv", "csv"},
    };
    for (const auto &[file, name] : inputs) {
        const ImportFormat *format = likelyFormat(statsData(file));
        EXPECT_STREQ(format == nullptr ? "none" : format->name, name) << file;
    }
    EXPECT_EQ(likelyFormat("some text\nof no format\n"), nullptr);
}

TEST(TreeResult, tells_a_source_that_could_not_be_read)
{
    std::vector<ImportSource> sources;
    sources.emplace_back("/nowhere/at/all");
    WeightTree tree;
    tree.addWeight(tree.at("a"), 1);
    EXPECT_EQ(treeFault(treeResult(std::move(tree), {}, sources, u"nothing"_s)),
              "/nowhere/at/all: No such file or directory");
}
