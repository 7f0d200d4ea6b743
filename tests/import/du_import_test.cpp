#include "companion/import/trees/du_import.h"

#include "tree_read.h"

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

TEST(DuImport, gives_a_folder_what_is_in_no_line_below_it)
{
    EXPECT_EQ(weightsOf(treeRead(readDu, "4\ta/b/x\n8\ta/b\n3\ta/y\n20\ta\n", {.by = "bytes"})),
              "a 9\na/b 4\na/b/x 4\na/y 3\n");
}

TEST(DuImport, counts_blocks_of_1024_bytes)
{
    EXPECT_EQ(weightsOf(treeRead(readDu, "4\ta\n")), "a 4096\n");
    EXPECT_EQ(weightsOf(treeRead(readDu, "3\ta\n", {.by = "blocks"})), "a 3072\n");
}

TEST(DuImport, tells_bytes_by_sizes_that_no_page_has)
{
    EXPECT_EQ(weightsOf(treeRead(readDu, "4\ta\n4097\tb\n")), "a 4\nb 4097\n");
    EXPECT_EQ(weightsOf(treeRead(readDu, "4\ta\n8\tb\n")), "a 4096\nb 8192\n");
}

TEST(DuImport, has_no_negative_rest)
{
    // As du -S prints it, or files that grew meanwhile.
    EXPECT_EQ(weightsOf(treeRead(readDu, "8\ta/x\n4\ta\n", {.by = "bytes"})), "a/x 8\n");
}

TEST(DuImport, reads_paths_from_here_from_above_and_from_the_root)
{
    EXPECT_EQ(weightsOf(treeRead(readDu, "1\t./a\n2\t.\n", {.by = "bytes"})), " 1\na 1\n");
    EXPECT_EQ(weightsOf(treeRead(readDu, "1\t../a/b\n", {.by = "bytes"})), "a/b 1\n");
    EXPECT_EQ(weightsOf(treeRead(readDu, "1\t/usr/lib\n5\t/usr\n", {.by = "bytes"})),
              "usr 4\nusr/lib 1\n");
}

TEST(DuImport, keeps_names_of_any_bytes)
{
    EXPECT_EQ(weightsOf(treeRead(readDu, "1\ta b\tc\n2\t\xff\xfe\n", {.by = "bytes"})),
              "a b\tc 1\n\xff\xfe 2\n");
}

TEST(DuImport, reads_records_that_end_with_nul)
{
    EXPECT_EQ(weightsOf(treeRead(readDu, QByteArray("1\ta\nb\0002\tc\0", 10), {.by = "bytes"})),
              "a\nb 1\nc 2\n");
}

TEST(DuImport, passes_over_the_grand_total)
{
    EXPECT_EQ(weightsOf(treeRead(readDu, "3\ta/x\n4\tb\n7\ttotal\n", {.by = "bytes"})),
              "a/x 3\nb 4\n");
    EXPECT_EQ(weightsOf(treeRead(readDu, "3\ta\n4\tb\n5\ttotal\n", {.by = "bytes"})),
              "a 3\nb 4\ntotal 5\n");
}

TEST(DuImport, tells_the_line_that_is_broken)
{
    EXPECT_EQ(treeFault(treeRead(readDu, "4\ta\n4 b\n")),
              "in:2: '4 b' is no line of du; a size, a tab and a path are expected");
    EXPECT_EQ(treeFault(treeRead(readDu, "-4\ta\n")),
              "in:1: '-4' is below 0; a line of du begins with a size and a tab");
    EXPECT_EQ(treeFault(treeRead(readDu, "inf\ta\n")),
              "in:1: 'inf' is no number; a line of du begins with a size and a tab");
}

TEST(DuImport, passes_over_times)
{
    EXPECT_EQ(weightsOf(treeRead(readDu,
                                 "1\t2025-03-01 12:30\ta/x\n2\t2025-03-01\ta/y\n"
                                 "3\t2025-03-01 12:30:09.123456789 +0100\ta b\n",
                                 {.by = "bytes"})),
              "a/x 1\na/y 2\na b 3\n");
    const QByteArray timed = statsData("du/timed.txt");
    EXPECT_NE(weightsOf(treeRead(readDu, timed)).find("src/device/"), std::string::npos)
        << weightsOf(treeRead(readDu, timed));
    EXPECT_GT(likenessOfDu(timed), 80);
}

TEST(DuImport, tells_a_path_that_is_missing)
{
    EXPECT_EQ(treeFault(treeRead(readDu, "4\ta\n4\t\n")), "in:2: no path stands behind the size");
}

TEST(DuImport, advises_against_rounded_sizes)
{
    EXPECT_EQ(treeFault(treeRead(readDu, statsData("du/rounded.txt"))),
              "in:1: '4.0K' is rounded; du writes plain numbers without -h");
    EXPECT_GT(likenessOfDu(statsData("du/rounded.txt")), 50);
}

TEST(DuImport, tells_what_can_be_counted)
{
    EXPECT_EQ(treeFault(treeRead(readDu, "4\ta\n", {.by = "files"})),
              ": du counts 'bytes' or 'blocks', not 'files'");
    EXPECT_EQ(treeFault(treeRead(readDu, "")), "in: there is no path with a size above 0");
}

TEST(DuImport, adds_up_to_the_total_of_a_folder)
{
    const QByteArray lines = statsData("du/companion.txt");
    const QByteArray last = lines.trimmed().sliced(lines.trimmed().lastIndexOf('\n') + 1);
    EXPECT_EQ(last.split('\t')[1], "src/companion");
    EXPECT_EQ(weightOfAll(treeRead(readDu, lines, {.by = "bytes"})),
              last.split('\t')[0].toDouble());
    const ImportResult records = treeRead(readDu, statsData("du/import.nul"), {.by = "bytes"});
    EXPECT_NE(weightsOf(records).find("src/companion/import/json_value.h "), std::string::npos);
}

TEST(DuImport, counts_two_folders_once_though_a_line_adds_them_up)
{
    const QByteArray lines = statsData("du/two_folders.txt");
    const QByteArray last = lines.trimmed().sliced(lines.trimmed().lastIndexOf('\n') + 1);
    EXPECT_EQ(last.split('\t')[1], "total");
    EXPECT_EQ(weightOfAll(treeRead(readDu, lines, {.by = "bytes"})),
              last.split('\t')[0].toDouble());
}

TEST(DuImport, knows_its_inputs)
{
    EXPECT_GT(likenessOfDu(statsData("du/companion.txt")), 80);
    EXPECT_GT(likenessOfDu(statsData("du/import.nul")), 80);
    EXPECT_EQ(likenessOfDu("1\t2\tsrc/a.c\n"), 0);
    EXPECT_EQ(likenessOfDu(statsData("folded/draw.folded")), 0);
    EXPECT_EQ(likenessOfDu(""), 0);
}
