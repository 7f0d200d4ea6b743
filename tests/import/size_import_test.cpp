// Tables of size(1) and of bloaty.
#include "companion/import/programs/size_import.h"
#include "import/told_tree.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;
using namespace ORR::Testing;
using namespace Qt::StringLiterals;

namespace {

std::string toldSizes(const QByteArray &bytes,
                      const ImportOptions &options = {.engine = u"treemap"_s})
{
    return toldTree(readBytes(readSize, bytes, options));
}

QString faultOfSize(const QByteArray &bytes)
{
    return toldFault(readBytes(readSize, bytes));
}

const QByteArray sizesOfA = "a.o  :\n"
                            "section   size   addr\n"
                            ".text      10      0\n"
                            ".bss        4     64\n"
                            ".empty      0      0\n"
                            "Total      14\n\n\n";

} // namespace

TEST(SizeImport, has_the_sections_of_a_file)
{
    const ImportResult result = readBytes(readSize, sizesOfA);
    EXPECT_EQ(toldTree(result), ".text 10 #0\n.bss 4 #3\n");
    EXPECT_EQ(treeOf(result).meaning().rootName, "a.o");
    EXPECT_EQ(treeOf(result).meaning().unit, TreeMeaning::Unit::Bytes);
}

TEST(SizeImport, has_several_files_with_theirs)
{
    EXPECT_EQ(toldSizes(sizesOfA + "b.o   (ex lib/x.a):\nsection size addr\n.data 0x10 0x0\n"),
              "a.o>.text 10 #0\na.o>.bss 4 #3\nlib>x.a>b.o>.data 16 #2\n");
}

TEST(SizeImport, has_files_as_bars_or_their_sections)
{
    const QByteArray sizesOfB = "p/b.o  :\nsection size addr\n.text 3 0\n.data 1 0\n";
    EXPECT_EQ(toldSizes(sizesOfA, {.engine = u"bar"_s}), ".text 10 #0\n.bss 4 #3\n");
    EXPECT_EQ(toldSizes(sizesOfA + sizesOfB, {.engine = u"bar"_s}), "a.o 14\np/b.o 4\n");
}

TEST(SizeImport, reads_the_short_table)
{
    EXPECT_EQ(toldSizes("   text\t   data\t    bss\t    dec\t    hex\tfilename\n"
                        "     10\t      0\t      4\t     14\t      e\ta b.o\n"
                        "      1\t      2\t      3\t      6\t      6\tc.o (ex libx.a)\n"
                        "     11\t      2\t      7\t     20\t     14\t(TOTALS)\n"),
              "a b.o>text 10 #0\na b.o>bss 4 #3\n"
              "libx.a>c.o>text 1 #0\nlibx.a>c.o>data 2 #2\nlibx.a>c.o>bss 3 #3\n");
}

TEST(SizeImport, tells_sizes_beyond_double)
{
    EXPECT_NE(toldSizes("a :\nsection size addr\n.text " + QByteArray(400, '9') + " 0\n")
                  .find("is no line of a table of sizes"),
              std::string::npos);
    EXPECT_EQ(faultOfSize("sections,vmsize,filesize\n.a,1,2\n.b,1,1e999\n"),
              u"3: '1e999' is too large for a number"_s);
}

TEST(SizeImport, tells_the_line_that_is_broken)
{
    EXPECT_EQ(faultOfSize("a :\nsection size addr\n.text -10 0\n"),
              u"3: '.text -10 0' is no line of a table of sizes"_s);
    EXPECT_EQ(faultOfSize("a :\nsection size addr\n.text 10\n"),
              u"3: '.text 10' is no line of a table of sizes"_s);
    EXPECT_EQ(faultOfSize("a :\nsection size addr\nTotal 0\n"), u"nothing in it has a size"_s);
}

TEST(SizeImport, has_the_columns_of_bloaty)
{
    const ImportResult result =
        readBytes(readSize,
                  "sections,symbols,vmsize,filesize\r\n"
                  ".text,\"f(int, \"\"x\"\")\",10,20\r\n.text,g,1,2\r\n.bss,[None],7,0\r\n");
    EXPECT_EQ(toldTree(result), ".text>f 20 #0\n.text>g 2 #0\n");
    EXPECT_EQ(treeOf(result).meaning().coloring, TreeMeaning::Coloring::ByKind);
}

TEST(SizeImport, has_the_size_of_bloaty_that_is_asked_for)
{
    const QByteArray table = "compileunits,vmsize,filesize\nsrc/a.cc,10,20\n../b.cc,1,2\n";
    EXPECT_EQ(toldSizes(table), "src>a.cc 20\nb.cc 2\n");
    EXPECT_EQ(toldSizes(table, {.engine = u"treemap"_s, .area = "vmsize"}),
              "src>a.cc 10\nb.cc 1\n");
    EXPECT_EQ(toldSizes(table, {.engine = u"treemap"_s, .area = "x"}),
              "1: --area can be vmsize or filesize, not 'x'");
    EXPECT_EQ(treeOf(readBytes(readSize, table)).meaning().coloring, TreeMeaning::Coloring::ByTop);
}

TEST(SizeImport, passes_over_rows_of_bloaty_below_zero_and_says_so)
{
    const ImportResult result =
        readBytes(readSize, "sections,vmsize,filesize\n.a,1,1\n.b,-1,-4\n.c,-1,-4\n");
    EXPECT_EQ(toldTree(result), ".a 1 #6\n");
    ASSERT_EQ(result.notes.size(), 1);
    EXPECT_EQ(result.notes.constFirst().place.line, 3);
    EXPECT_EQ(result.notes.constFirst().sentence, u"rows below zero are passed over: 2 of them"_s);
}

TEST(SizeImport, tells_the_row_of_bloaty_that_is_broken)
{
    EXPECT_EQ(faultOfSize("sections,vmsize,filesize\n.a,1\n"),
              u"2: this row has 2 cells and the heading 3"_s);
    EXPECT_EQ(faultOfSize("sections,vmsize,filesize\n.a,1,nan\n"), u"2: 'nan' is no size"_s);
    EXPECT_EQ(faultOfSize("sections,vmsize,filesize\n\".a,1,2\n"),
              u"2: this row has 0 cells and the heading 3"_s);
}

TEST(SizeImport, tells_options_that_are_for_others)
{
    EXPECT_EQ(toldSizes(sizesOfA, {.engine = u"treemap"_s, .by = "object"}),
              "--by is for maps, and this is a table");
    EXPECT_EQ(toldSizes(sizesOfA, {.engine = u"treemap"_s, .area = "vmsize"}),
              "--area is for tables of bloaty");
}

TEST(SizeImport, reads_a_table_of_bloaty)
{
    const ImportResult result = readBytes(readSize, dataFile(u"size/sections.csv"_s));
    ASSERT_TRUE(result.picture) << qPrintable(toldFault(result));
    EXPECT_GT(wholeWeight(result), 10'000);
}

TEST(SizeImport, knows_its_formats)
{
    for (const QString &name :
         {u"read_graph.map"_s, u"read_graph.size"_s, u"sections.csv"_s, u"objects.txt"_s})
        EXPECT_EQ(likenessOfSize(dataFile("size/"_L1 + name)), 100) << qPrintable(name);
    for (const char *text : {"", "digraph {}", "a,b,c\n1,2,3\n", "{}", "section size addr\n"})
        EXPECT_EQ(likenessOfSize(text), 0) << text;
}
