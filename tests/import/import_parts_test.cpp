#include "companion/import/reading/first_lines.h"
#include "companion/import/strange_input.h"
#include "companion/import/trees/path_walk.h"
#include "companion/import/trees/tree_result.h"
#include "tree_read.h"

#include <QFile>
#include <QTemporaryFile>

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

// What two paths share is found eight bytes at a time.
TEST(PathWalk, finds_where_paths_differ_at_any_byte)
{
    const QByteArray longPath = "folder/of/many/names/that/go/on/and/on";
    WeightTree walked;
    WeightTree looked;
    PathWalk walk(&walked, '/', PathWalk::Parts::Folders);
    for (qsizetype i = 0; i < longPath.size(); ++i) {
        QByteArray other = longPath;
        other[i] = '\xe9';
        for (const QByteArray &path : {longPath, other, longPath.first(i), longPath + "/more"})
            EXPECT_EQ(walk.at(path), looked.at(path)) << path.toStdString();
    }
    EXPECT_EQ(walked.size(), looked.size());
}

TEST(WeightTree, finds_the_children_of_few_and_of_many)
{
    constexpr int count = 3000;
    WeightTree tree;
    const WeightTree::Item few = tree.at("few");
    const WeightTree::Item many = tree.at("many");
    for (const int round : {1, 2}) {
        for (int i = 0; i < count; ++i) {
            const QByteArray name = QByteArray::number(i);
            const WeightTree::Item item = tree.child(many, name);
            EXPECT_EQ(tree.name(item), name) << round;
            EXPECT_EQ(tree.parent(item), many);
            tree.child(few, QByteArray::number(i % 7));
        }
    }
    EXPECT_EQ(tree.size(), 3 + count + 7);
    EXPECT_NE(tree.child(few, QByteArrayView("a\0b", 3)), tree.child(few, "a"));
}

TEST(WeightTree, has_shares_of_what_they_were_added_to)
{
    WeightTree tree;
    const WeightTree::Item a = tree.at("a");
    EXPECT_FALSE(tree.hasShares());
    tree.addShare(a, 1, 2);
    const WeightTree::Item later = tree.at("later");
    EXPECT_TRUE(tree.hasShares());
    EXPECT_EQ(tree.whole(a), 2);
    EXPECT_EQ(tree.whole(later), 0);
}

// Pieces are of a quarter of a megabyte; some lines are longer than two.
TEST(ImportSource, gives_lines_whole_wherever_a_piece_of_the_file_ends)
{
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    QList<QByteArray> lines;
    for (int i = 0; i < 300; ++i)
        lines.append(QByteArray((i * 7919) % 4000, char('a' + i % 26)));
    lines.insert(100, QByteArray(600'000, 'x'));
    file.write(lines.join('\n'));
    ASSERT_TRUE(file.flush());
    ImportSource source(file.fileName().toStdString());
    EXPECT_EQ(source.beginning().size(), 1 << 16);
    QByteArrayView line;
    for (const QByteArray &written : std::as_const(lines)) {
        ASSERT_TRUE(source.nextLine(&line));
        EXPECT_EQ(line, written);
    }
    EXPECT_FALSE(source.nextLine(&line));
    EXPECT_EQ(source.lineNumber(), lines.size());

    ImportSource whole(file.fileName().toStdString());
    ASSERT_TRUE(whole.nextLine(&line));
    EXPECT_EQ(whole.rest(), lines.sliced(1).join('\n'));
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

namespace {

// "csv", with "!" where it is not worth to be read; empty if nothing is strange.
std::string strangeLooks(const char *format, const QByteArray &bytes)
{
    std::vector<ImportSource> sources;
    sources.emplace_back("in", bytes);
    const QList<StrangeInput> strange =
        strangeInputs(sources, *importFormat(QString::fromLatin1(format)));
    if (strange.isEmpty())
        return {};
    EXPECT_EQ(strange[0].source, "in");
    return strange[0].looks().toStdString() + (strange[0].isSure ? "!" : "");
}

} // namespace

TEST(StrangeInput, is_of_another_format)
{
    const QByteArray table = "path,size\na,1\nb,2\n";
    for (const char *format : {"lcov", "du", "folded", "numstat", "junit", "dot"})
        EXPECT_EQ(strangeLooks(format, table), "csv") << format;
    EXPECT_EQ(strangeLooks("csv", table), "");
    EXPECT_EQ(strangeLooks("lcov", "12\tsrc/a\n"), "du!");
    EXPECT_EQ(strangeLooks("folded", "no format that is known\n"), "");
}

TEST(StrangeInput, is_of_no_format)
{
    const std::pair<QByteArray, const char *> inputs[] = {
        {"\x89PNG\r\n\x1a\n", "a PNG picture!"},
        {"\xff\xd8\xff\xe0", "a JPEG picture!"},
        {"%PDF-1.7\n", "a PDF!"},
        {QByteArray("\x7f"
                    "ELF\2\1\1\0\0",
                    9),
         "a program or library (ELF)!"},
        {"\x1f\x8b\x08", "a file that gzip packed; unpack it first!"},
        {"\xff\xfe"
         "1",
         "text in UTF-16; UTF-8 is read!"},
        {"<?xml version=\"1.0\"?>\n<!-- of tests -->\n<coverage line-rate=\"1\"/>",
         "XML with <coverage>"},
        {"<?xml version=\"1.0\"?>", "XML"},
        {"{\"a\": 1}", "JSON"},
    };
    for (const ImportFormat &format : importFormats()) {
        for (const auto &[bytes, looks] : inputs)
            EXPECT_EQ(strangeLooks(format.name, bytes), looks) << format.name;
    }
}

TEST(StrangeInput, is_none_of_the_data_of_each)
{
    EXPECT_EQ(strangeLooks("lcov", statsData("lcov/html_text.cpp.gcov.json.gz")), "");
    EXPECT_EQ(strangeLooks("junit", statsData("junit/pytest.xml")), "");
    EXPECT_EQ(strangeLooks("du", statsData("du/import.nul")), "");
    EXPECT_EQ(strangeLooks("folded", "<module>;<listcomp> 3\n"), "");
    EXPECT_EQ(strangeLooks("dot", "graph { a -- b }"), "");
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
