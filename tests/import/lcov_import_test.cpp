// Coverage as lcov and gcov write it.
#include "companion/import/lines/lcov_import.h"
#include "import/told_tree.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;
using namespace ORR::Testing;
using namespace Qt::StringLiterals;

namespace {

std::string toldLcov(const QByteArray &bytes)
{
    return toldTree(readBytes(readLcov, bytes));
}

QString faultOfLcov(const QByteArray &bytes)
{
    return toldFault(readBytes(readLcov, bytes));
}

// A document of gcov with the lines of one file.
QByteArray gcovOf(const QByteArray &file, const QByteArray &lines)
{
    return R"({"gcc_version": "12.2.0", "current_working_directory": "/p", "files": [{"file": ")"
        + file + R"(", "lines": [)" + lines + "]}]}";
}

} // namespace

TEST(LcovImport, counts_lines_and_the_covered_ones)
{
    EXPECT_EQ(toldLcov("TN:t\nSF:/p/a.c\nFN:1,f\nFNDA:2,f\nDA:1,2\nDA:2,0\nDA:3,1,abc\nLF:3\nLH:2\n"
                       "end_of_record\n"),
              "p>a.c 3 2/3\n");
}

TEST(LcovImport, joins_records_of_a_file)
{
    EXPECT_EQ(toldLcov("SF:a\nDA:1,0\nDA:2,0\nend_of_record\n"
                       "SF:b\nDA:1,1\nend_of_record\n"
                       "SF:a\nDA:2,5\nDA:3,1\nend_of_record\n"),
              "a 3 2/3\nb 1 1/1\n");
}

TEST(LcovImport, joins_inputs)
{
    const ImportResult result =
        readAll(readLcov, {"SF:a\nDA:1,0\nend_of_record\n", "SF:a\nDA:1,1\nend_of_record\n"});
    EXPECT_EQ(toldTree(result), "a 1 1/1\n");
}

TEST(LcovImport, takes_sums_where_no_line_is_told)
{
    EXPECT_EQ(toldLcov("SF:a\nLF:10\nLH:4\nend_of_record\n"), "a 10 4/10\n");
    EXPECT_EQ(toldLcov("SF:a\nLF:10\nLH:40\nend_of_record\n"), "a 10 10/10\n");
}

TEST(LcovImport, takes_counts_of_any_size)
{
    EXPECT_EQ(toldLcov("SF:a\nDA:1,0\nDA:2,1e300\nDA:3,18446744073709551616\nend_of_record\n"),
              "a 3 2/3\n");
    EXPECT_EQ(faultOfLcov("SF:a\nDA:1,1e400\nend_of_record\n"),
              u"2: 'DA:1,1e400' is no line of coverage; DA: is followed by a line and its count"_s);
}

TEST(LcovImport, tells_of_counts_below_zero)
{
    const ImportResult result =
        readBytes(readLcov, "SF:a\nDA:1,1\nDA:2,-5\nDA:3,-1\nend_of_record\n");
    EXPECT_EQ(toldTree(result), "a 3 1/3\n");
    ASSERT_EQ(result.notes.size(), 1);
    EXPECT_EQ(result.notes[0].place.line, 3);
    EXPECT_EQ(result.notes[0].sentence,
              u"counts below zero are of lines that did not run: 2 of them"_s);
    const QByteArray first = gcovOf("a", R"({"line_number": 1, "count": 1})") + '\n';
    const QByteArray second = gcovOf("a", R"({"line_number": 2, "count": -1})");
    const ImportResult documents = readBytes(readLcov, first + second);
    EXPECT_EQ(toldTree(documents), "p>a 2 1/2\n");
    ASSERT_EQ(documents.notes.size(), 1);
    EXPECT_EQ(documents.notes[0].place.offset, first.size() + second.indexOf("{\"line_number"));
}

TEST(LcovImport, knows_gcov_without_its_version)
{
    const QByteArray text = R"({"format_version": "1", "files": [{"file": "a", "lines": [)"
                            R"({"line_number": 1, "count": 3, "unexecuted_block": false}]}]})";
    EXPECT_EQ(likenessOfLcov(text), 100);
    EXPECT_EQ(toldLcov(text), "a 1 1/1\n");
}

TEST(LcovImport, passes_over_what_other_versions_write)
{
    EXPECT_EQ(toldLcov("# by hand\r\nTN:\r\nSF:a\r\nVER:1\r\nFNL:0,1,2\r\nMCF:0\r\nDA:1,1\r\n"
                       "\r\nend_of_record\r\n"),
              "a 1 1/1\n");
}

TEST(LcovImport, tells_the_line_that_is_broken)
{
    EXPECT_EQ(faultOfLcov("SF:a\nDA:x,1\nend_of_record\n"),
              u"2: 'DA:x,1' is no line of coverage; DA: is followed by a line and its count"_s);
    EXPECT_EQ(faultOfLcov("SF:a\nDA:1,1\nSF:b\nend_of_record\n"),
              u"3: 'SF:b' begins a record within another, which has no end_of_record"_s);
    EXPECT_EQ(faultOfLcov("SF:a\nDA:1,nan\nend_of_record\n"),
              u"2: 'DA:1,nan' is no line of coverage; DA: is followed by a line and its count"_s);
    EXPECT_EQ(faultOfLcov("TN:t\nDA:1,1\n"),
              u"2: 'DA:1,1' stands outside of a record, which begins with SF: and a path"_s);
    EXPECT_EQ(faultOfLcov("SF:a\nLF:-1\nend_of_record\n"), u"2: 'LF:-1' has no number of lines"_s);
    EXPECT_EQ(faultOfLcov("SF:a\nhello\n"), u"2: 'hello' is no line of a tracefile"_s);
    EXPECT_EQ(faultOfLcov("SF:a\nDA:1,1\n"), u"2: the last record has no end_of_record"_s);
    EXPECT_EQ(faultOfLcov(""), u"no line of code is in it"_s);
}

TEST(LcovImport, reads_gcov)
{
    EXPECT_EQ(toldLcov(gcovOf("/p/a.c",
                              R"({"line_number": 1, "count": 3}, {"line_number": 2, "count": 0},
                                 {"line_number": 1, "count": 0})")),
              "p>a.c 2 1/2\n");
}

TEST(LcovImport, finds_relative_files_of_gcov_where_the_compiler_ran)
{
    const QByteArray line = R"({"line_number": 1, "count": 1})";
    EXPECT_EQ(toldLcov(gcovOf("../q/a.c", line) + '\n' + gcovOf("/q/a.c", line) + '\n'),
              "q>a.c 1 1/1\n");
}

TEST(LcovImport, tells_where_gcov_is_broken)
{
    const QByteArray good = gcovOf("a", R"({"line_number": 1, "count": 1})") + '\n';
    const qsizetype end = good.size();
    EXPECT_EQ(faultOfLcov(good + gcovOf("a", R"({"line_number": 1})")),
              u"@%1 $.files[0].lines[0]: a line needs its \"line_number\" and \"count\""_s.arg(
                  end + gcovOf("a", "").indexOf("]}]}")));
    EXPECT_EQ(faultOfLcov(R"({"gcc_version": "12", "files": 3})"),
              u"@0 $: there are no \"files\" as gcov writes them"_s);
    EXPECT_TRUE(faultOfLcov(R"({"gcc_version": "12", "files": )").contains(u"this is no JSON"_s));
}

TEST(LcovImport, reads_what_is_packed)
{
    const ImportResult packed = readBytes(readLcov, dataFile(u"lcov/html_text.cpp.gcov.json.gz"_s));
    EXPECT_GT(wholeWeight(packed), 50);
    EXPECT_EQ(faultOfLcov(dataFile(u"lcov/html_text.cpp.gcov.json.gz"_s).chopped(9)),
              u"it can't be unpacked"_s);
}

TEST(LcovImport, reads_a_tracefile_of_lcov)
{
    const ImportResult result = readBytes(readLcov, dataFile(u"lcov/parser.info"_s));
    ASSERT_TRUE(result.picture) << qPrintable(toldFault(result));
    EXPECT_EQ(wholeWeight(result), 1027); // as lcov --list says
    EXPECT_NE(toldTree(result).find("src>graph>dot_graph.cpp 209 113/209\n"), std::string::npos);
    const TreeMeaning &meaning = treeOf(result).meaning();
    EXPECT_EQ(meaning.coloring, TreeMeaning::Coloring::ByShare);
    EXPECT_EQ(meaning.scale, TreeMeaning::Scale::BadToGood);
}

TEST(LcovImport, reads_documents_of_gcov)
{
    const ImportResult result = readBytes(readLcov, dataFile(u"lcov/texts.gcov.json"_s));
    ASSERT_TRUE(result.picture) << qPrintable(toldFault(result));
    EXPECT_NE(toldTree(result).find("src>graph>html_text.cpp 15 0/15\n"), std::string::npos);
    EXPECT_NE(toldTree(result).find("src>graph>message_text.cpp 16 0/16\n"), std::string::npos);
}

TEST(LcovImport, knows_its_formats)
{
    for (const QString &name :
         {u"parser.info"_s, u"texts.gcov.json"_s, u"html_text.cpp.gcov.json.gz"_s})
        EXPECT_EQ(likenessOfLcov(dataFile("lcov/"_L1 + name).first(2000)), 100) << qPrintable(name);
    for (const char *text :
         {"", "digraph {}", "{\"traceEvents\": []}", "\x1f\x8b", "# ninja log v5"})
        EXPECT_EQ(likenessOfLcov(text), 0) << text;
}
