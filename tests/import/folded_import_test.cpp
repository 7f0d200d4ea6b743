#include "companion/import/trees/folded_import.h"

#include "tree_read.h"

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

// The stacks and their samples, without the kinds that colour them.
std::string foldedSamples(const ImportResult &result)
{
    std::string lines;
    for (const QByteArray &line : QByteArray::fromStdString(weightsOf(result)).split('\n')) {
        const qsizetype kind = line.indexOf(" #");
        lines += (kind < 0 ? line : line.first(kind)).toStdString() + (line.isEmpty() ? "" : "\n");
    }
    return lines;
}

} // namespace

TEST(FoldedImport, adds_the_counts_of_equal_stacks)
{
    EXPECT_EQ(foldedSamples(treeRead(readFolded, "a;b 2\na;b;c 3\na;d 1\na;b 4\n")),
              "a/b 6\na/b/c 3\na/d 1\n");
}

TEST(FoldedImport, takes_the_last_word_for_the_count)
{
    EXPECT_EQ(foldedSamples(treeRead(readFolded, "int f(int, char);g h 3 \nx\t4\r\n")),
              "int f(int, char)/g h 3\nx 4\n");
}

TEST(FoldedImport, reads_counts_with_a_fraction_and_an_exponent)
{
    EXPECT_EQ(foldedSamples(treeRead(readFolded, "a 0.5\nb 1e3\nc 12345678901234567890\n")),
              "a 0.5\nb 1000\nc 1.23457e+19\n");
}

TEST(FoldedImport, keeps_names_that_would_be_folders)
{
    EXPECT_EQ(foldedSamples(treeRead(readFolded, "a;..;.;b/c 1\n")), "a/.././b/c 1\n");
}

TEST(FoldedImport, passes_over_empty_frames_empty_lines_and_comments)
{
    EXPECT_EQ(foldedSamples(treeRead(readFolded, "# of yesterday\n\n;a;;b; 1\na;b 1")), "a/b 2\n");
}

TEST(FoldedImport, joins_several_inputs)
{
    std::vector<ImportSource> sources;
    sources.emplace_back("one", "a;b 1\n");
    sources.emplace_back("two", "a;b 2\nc 1\n");
    EXPECT_EQ(foldedSamples(readFolded(sources, {})), "a/b 3\nc 1\n");
}

TEST(FoldedImport, colours_by_what_the_trunk_calls)
{
    const ImportResult result =
        treeRead(readFolded,
                 "p;main;run;a;x 2\np;main;run;b 3\np;main;run;c 1\np;main;run 1\n"
                 "p;main;exit 1\n");
    EXPECT_EQ(weightsOf(result),
              "p/main/run 1\np/main/run/a/x 2 #1\np/main/run/b 3 #0\np/main/run/c 1 #2\n"
              "p/main/exit 1\n");
    EXPECT_EQ(treePicture(result).meaning().kinds, (QStringList{u"b"_s, u"a"_s, u"c"_s}));
    EXPECT_EQ(treePicture(result).meaning().color, u"called by run"_s);
    EXPECT_EQ(treePicture(treeRead(readFolded, "a;b 1\nc;d 1\n")).meaning().color,
              u"outermost calls"_s);
}

TEST(FoldedImport, tells_the_line_that_is_broken)
{
    EXPECT_EQ(treeFault(treeRead(readFolded, "a;b 1\na;c x\n")),
              "in:2: 'x' is no number; a folded stack ends with its count");
    EXPECT_EQ(treeFault(treeRead(readFolded, "a -3\n")),
              "in:1: '-3' is below 0; a folded stack ends with its count");
    EXPECT_EQ(treeFault(treeRead(readFolded, "a nan\n")),
              "in:1: 'nan' is no number; a folded stack ends with its count");
    EXPECT_EQ(treeFault(treeRead(readFolded, "a 1e999\n")),
              "in:1: '1e999' is too large for a number; a folded stack ends with its count");
    EXPECT_EQ(treeFault(treeRead(readFolded, "\n12\n")),
              "in:2: '12' is no folded stack; frames with ';' between are followed by a blank and "
              "a count");
}

TEST(FoldedImport, tells_that_nothing_was_seen)
{
    EXPECT_EQ(treeFault(treeRead(readFolded, "")), "in: there is no stack with a count above 0");
    EXPECT_EQ(treeFault(treeRead(readFolded, "a;b 0\n")),
              "in: there is no stack with a count above 0");
}

TEST(FoldedImport, adds_up_a_recording)
{
    const ImportResult result = treeRead(readFolded, statsData("folded/draw.folded"));
    double counted = 0;
    for (const QByteArray &line : statsData("folded/draw.folded").trimmed().split('\n'))
        counted += line.sliced(line.lastIndexOf(' ')).toDouble();
    EXPECT_EQ(weightOfAll(result), counted);
    EXPECT_FALSE(treePicture(result).meaning().pathsAreFiles);
}

TEST(FoldedImport, knows_its_inputs)
{
    EXPECT_GT(likenessOfFolded(statsData("folded/draw.folded")), 80);
    EXPECT_EQ(likenessOfFolded(statsData("du/companion.txt")), 0);
    EXPECT_EQ(likenessOfFolded("some words\n"), 0);
    EXPECT_EQ(likenessOfFolded(""), 0);
}
