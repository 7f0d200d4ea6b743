#include "companion/import/lines/numstat_import.h"

#include "companion/import/lines/change_log.h"
#include "companion/import/lines/numstat_lines.h"
#include "tree_read.h"

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

constexpr char threeCommits[] = "commit 3\n"
                                "Author: Ada Byron <ada@example.org>\n"
                                "Date:   Wed Oct 1 12:00:00 2025 +0200\n"
                                "\n"
                                "    1\t2\tis no change but a message\n"
                                "\n"
                                "5\t5\tsrc/a.c\n"
                                "\n"
                                "commit 2\n"
                                "Author: Bo <bo@example.org>\n"
                                "AuthorDate: Mon Sep 1 12:00:00 2025 +0200\n"
                                "\n"
                                "0\t7\tgone.c\n"
                                "\n"
                                "commit 1\n"
                                "Author: Ada Byron <ada@example.org>\n"
                                "Date:   2025-09-01 12:00:00 +0200\n"
                                "\n"
                                "20\t0\tsrc/a.c\n"
                                "7\t0\tgone.c\n"
                                "-\t-\tlogo.png\n";

std::string numstatFormerAndPath(QByteArrayView written)
{
    const NumstatPath path = numstatPath(written);
    return (path.former + " -> " + path.path).toStdString();
}

} // namespace

TEST(NumstatImport, sizes_files_by_what_is_left_and_colours_them_by_what_was_changed)
{
    EXPECT_EQ(weightsOf(treeRead(readNumstat, threeCommits)), "src/a.c 20 30/1\nlogo.png 1 0/1\n");
}

TEST(NumstatImport, gives_a_file_a_line_whose_beginning_is_not_in_the_log)
{
    EXPECT_EQ(weightsOf(treeRead(readNumstat, "1\t9\ta\n3\t3\tb\n")), "a 1 10/1\nb 1 6/1\n");
}

TEST(NumstatImport, follows_a_file_to_its_last_name)
{
    EXPECT_EQ(
        weightsOf(treeRead(readNumstat,
                           "1\t0\tc\n2\t1\tsrc/{b => }/x => y\n" // not git's; taken apart once
                           "1\t1\tb => c\n5\t0\ta => b\n9\t0\ta\n")),
        "c 15 17/1\nsrc/x => y 1 3/1\n");
}

TEST(NumstatImport, reads_records_that_end_with_nul)
{
    EXPECT_EQ(weightsOf(treeRead(readNumstat, statsData("numstat/renamed.nul"))),
              "src/companion/command/CMakeLists.txt 2 6/1\n"
              "src/companion/command/argument_faults.cpp 1 63/1\n"
              "src/companion/command/argument_faults.h 1 13/1\n"
              "src/companion/command/options.cpp 1 39/1\n"
              "src/companion/command/options.h 1 3/1\n");
}

TEST(NumstatImport, reads_paths_of_any_bytes_in_records)
{
    const QByteArray records("5\t0\ttab\there\0"
                             "2\t1\tfeed\nhere\0"
                             "3\t0\t\"quoted\"\0"
                             "1\t0\t\0old\tname\0new\tname\0",
                             63);
    ASSERT_TRUE(records.endsWith(QByteArray("new\tname\0", 9)));
    EXPECT_EQ(weightsOf(treeRead(readNumstat, records)),
              "tab\there 5 5/1\nfeed\nhere 1 3/1\n\"quoted\" 3 3/1\nnew\tname 1 1/1\n");
    EXPECT_EQ(likenessOfNumstat(records), 80);
}

TEST(NumstatImport, tells_authors_and_months)
{
    EXPECT_EQ(weightsOf(treeRead(readNumstat, threeCommits, {.by = "author"})),
              "Ada Byron 37 32/37\nBo 7 0/7\n");
    EXPECT_EQ(weightsOf(treeRead(readNumstat, threeCommits, {.by = "month"})),
              "2025-09 34 27/34\n2025-10 10 5/10\n");
}

TEST(NumstatImport, draws_bars_of_authors_unless_something_else_is_asked_for)
{
    const ImportOptions bars = {.engine = u"bar"_s};
    EXPECT_EQ(weightsOf(treeRead(readNumstat, threeCommits, bars)),
              "Ada Byron 37 32/37\nBo 7 0/7\n");
    EXPECT_EQ(weightsOf(treeRead(readNumstat, "2\t1\ta\n", {.engine = u"bar"_s, .by = "file"})),
              "a 1 3/1\n");
}

TEST(NumstatImport, tells_what_the_heads_do_not)
{
    EXPECT_EQ(treeFault(treeRead(readNumstat, "1\t1\ta\n", {.by = "author"})),
              "in: no line 'Author:' tells who made a change; the heads of commits are expected as "
              "git log writes them without --format");
    EXPECT_EQ(treeFault(treeRead(readNumstat, "1\t1\ta\n", {.by = "month"})),
              "in: no line 'Date:' tells the month of a change; the heads of commits are expected "
              "as git log writes them without --format");
    EXPECT_EQ(treeFault(treeRead(readNumstat, "1\t1\ta\n", {.by = "year"})),
              ": the changes are those of each 'file', 'author' or 'month', not 'year'");
}

TEST(NumstatImport, tells_dates_without_a_month)
{
    const QByteArray recent = "commit 2\nDate:   3 weeks ago\n\n5\t5\ta\n";
    EXPECT_EQ(treeFault(treeRead(readNumstat, recent, {.by = "month"})),
              "in:2: '3 weeks ago' tells no month; 'git log --date=iso' writes dates that do");
    EXPECT_EQ(treeFault(treeRead(readNumstat, recent)), "");
    const ImportResult mixed = treeRead(
        readNumstat, recent + "commit 1\nDate:   Aug 31 2025\n\n4\t0\ta\n", {.by = "month"});
    EXPECT_EQ(weightsOf(mixed), "2025-08 4 4/4\n");
    ASSERT_EQ(mixed.notes.size(), 1);
    EXPECT_EQ(mixed.notes[0].place.line, 2);
    EXPECT_EQ(mixed.notes[0].sentence.toStdString(),
              "commits whose dates tell no month, as '3 weeks ago', are left out; 'git log "
              "--date=iso' writes dates that do: 1 of them");
}

TEST(NumstatImport, tells_the_line_that_is_broken)
{
    EXPECT_EQ(
        treeFault(treeRead(readNumstat, "1\t1\ta\n1\tx\tb\n")),
        "in:2: '1\tx\tb' is no line of --numstat; added lines, deleted lines and the path are "
        "expected, with tabs between");
    EXPECT_NE(treeFault(treeRead(readNumstat, "-1\t2\ta\n")), "");
    const QByteArray most(308, '9');
    EXPECT_EQ(treeFault(treeRead(readNumstat, "1\t1\ta\n" + most + "\t0\tb\n" + most + "\t0\tb\n")),
              "in:3: with these the lines are more than a number can hold");
    EXPECT_NE(treeFault(treeRead(readNumstat, "1\t-\ta\n")), "");
    EXPECT_NE(treeFault(treeRead(readNumstat, "1\t2\n")), "");
    EXPECT_NE(treeFault(treeRead(readNumstat, "1\t2\ta\tb\n")), "");
    EXPECT_EQ(treeFault(treeRead(readNumstat, QByteArray("1\t2\t\0a\0", 7))),
              "in:2: the names of a renamed file are missing");
    EXPECT_EQ(treeFault(treeRead(readNumstat, "some text\n")),
              "in: there is no change; the lines of --numstat are expected");
}

TEST(NumstatImport, ends_its_scale_above_most_files)
{
    QByteArray log = "90000\t0\tgiant\n";
    for (int i = 0; i < 40; ++i)
        log += "13\t0\tfile" + QByteArray::number(i) + '\n';
    EXPECT_EQ(treePicture(treeRead(readNumstat, log)).meaning().high, 20);
    EXPECT_EQ(treePicture(treeRead(readNumstat, "-\t-\ta\n")).meaning().high, 1);
}

TEST(NumstatImport, reads_the_log_of_a_folder)
{
    ChangeLog log;
    ImportSource source("in", statsData("numstat/companion.log"));
    EXPECT_FALSE(log.read(source));
    for (const ChangeLog::Entry &file : log.files())
        EXPECT_NE(file.name, "src/companion/command/option_faults.cpp");
    EXPECT_GT(log.files().size(), 200);
    EXPECT_EQ(log.authors().size(), 0);
    ASSERT_EQ(log.months().size(), 1);
    EXPECT_EQ(log.months()[0].name, "2026-11");
    EXPECT_EQ(
        weightsOf(treeRead(readNumstat, statsData("numstat/page.log"), {.by = "author"}))
            .find('\n'),
        weightsOf(treeRead(readNumstat, statsData("numstat/page.log"), {.by = "author"})).size()
            - 1);
}

TEST(NumstatImport, knows_its_inputs)
{
    EXPECT_GT(likenessOfNumstat(statsData("numstat/companion.log")), 90);
    EXPECT_GT(likenessOfNumstat("1\t2\ta\n"), 50);
    EXPECT_EQ(likenessOfNumstat(statsData("du/companion.txt")), 0);
    EXPECT_EQ(likenessOfNumstat("a,b\n1,2\n"), 0);
    EXPECT_EQ(likenessOfNumstat(""), 0);
}

TEST(NumstatPath, takes_renamed_paths_apart)
{
    EXPECT_EQ(numstatFormerAndPath("a/b.c"), " -> a/b.c");
    EXPECT_EQ(numstatFormerAndPath("a => b"), "a -> b");
    EXPECT_EQ(numstatFormerAndPath("src/{old => new}/f.c"), "src/old/f.c -> src/new/f.c");
    EXPECT_EQ(numstatFormerAndPath("src/{ => sub}/f.c"), "src/f.c -> src/sub/f.c");
    EXPECT_EQ(numstatFormerAndPath("{old => }/f.c"), "old/f.c -> f.c");
    EXPECT_EQ(numstatFormerAndPath("a/{b.c => c.c}"), "a/b.c -> a/c.c");
}

TEST(NumstatPath, reads_quotes_as_git_writes_them)
{
    EXPECT_EQ(numstatFormerAndPath("\"a\\tb\\303\\244\\\"\\\\\""), " -> a\tb\xc3\xa4\"\\");
    EXPECT_EQ(numstatFormerAndPath("\"a\\n\" => b"), "a\n -> b");
    EXPECT_EQ(numstatFormerAndPath("\"open"), " -> \"open");
    EXPECT_EQ(numstatFormerAndPath("\"a\\\""), " -> a\\");
}

TEST(MonthOfDate, reads_the_forms_of_dates)
{
    EXPECT_EQ(monthOfDate("Mon Sep 1 12:00:00 2025 +0200"), "2025-09");
    EXPECT_EQ(monthOfDate("Mon, 1 Dec 2025 12:00:00 +0200"), "2025-12");
    EXPECT_EQ(monthOfDate("2025-01-02T03:04:05Z"), "2025-01");
    EXPECT_EQ(monthOfDate("2025-01-02"), "2025-01");
    EXPECT_EQ(monthOfDate("1756677599"), "2025-08");
    EXPECT_EQ(monthOfDate("1756677600 +0200"), "2025-09");
    EXPECT_EQ(monthOfDate("1756677599 +0200"), "2025-08");
    EXPECT_EQ(monthOfDate("1756684800 -0001"), "2025-08");
    EXPECT_EQ(monthOfDate("99999999999"), "5138-11");
    EXPECT_EQ(monthOfDate("999999999999"), "");
    EXPECT_EQ(monthOfDate("20250901"), "");
    EXPECT_EQ(monthOfDate("3 weeks ago"), "");
    EXPECT_EQ(monthOfDate(""), "");
}
