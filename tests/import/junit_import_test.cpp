// Results of tests in the XML of JUnit.
#include "companion/import/builds/junit_import.h"
#include "companion/produce/palette.h"
#include "import/told_tree.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;
using namespace ORR::Testing;
using namespace Qt::StringLiterals;

namespace {

// Their numbers, as they are told.
const std::string passed = " #0\n";
const std::string skipped = " #1\n";
const std::string failed = " #2\n";
const std::string erroneous = " #3\n";

std::string toldCases(const QByteArray &cases,
                      const ImportOptions &options = {.engine = u"treemap"_s})
{
    return toldTree(
        readBytes(readJunit, "<testsuite name=\"s\">" + cases + "</testsuite>", options));
}

} // namespace

TEST(JunitImport, has_suites_classes_and_cases)
{
    EXPECT_EQ(toldTree(readBytes(readJunit,
                                 "<testsuites><testsuite name='a'><testsuite name='b'>"
                                 "<testcase classname='p.C' name='x' time='1.5'/></testsuite>"
                                 "<testcase name='y' time='2'/></testsuite>"
                                 "<testsuite name='c'><testcase classname='c' name='z' time='3'/>"
                                 "</testsuite></testsuites>")),
              "a>b>p>C>x 1.5" + passed + "a>y 2" + passed + "c>z 3" + passed);
}

TEST(JunitImport, has_the_result_of_each_case)
{
    EXPECT_EQ(toldCases("<testcase name='a' time='1'><system-out/></testcase>"
                        "<testcase name='b' time='1'><failure>why</failure></testcase>"
                        "<testcase name='c' time='1'><error/><failure/></testcase>"
                        "<testcase name='d' time='1'><skipped/></testcase>"
                        "<testcase name='e' time='1'><properties><error/></properties></testcase>"),
              "s>a 1" + passed + "s>b 1" + failed + "s>c 1" + erroneous + "s>d 1" + skipped
                  + "s>e 1" + passed);
}

TEST(JunitImport, has_what_only_the_attributes_tell)
{
    EXPECT_EQ(toldCases("<testcase name='a' status='notrun' time='1'/>"
                        "<testcase name='b' status='disabled' time='1'/>"
                        "<testcase name='c' status='run' result='skipped' time='1'/>"
                        "<testcase name='d' status='fail' time='1'><failure/></testcase>"),
              "s>a 1" + skipped + "s>b 1" + skipped + "s>c 1" + skipped + "s>d 1" + failed);
}

TEST(JunitImport, joins_cases_of_one_name)
{
    EXPECT_EQ(toldCases("<testcase name='a' time='1'><failure/></testcase>"
                        "<testcase name='a' time='2'/>"),
              "s>a 3" + failed);
}

TEST(JunitImport, has_no_name_for_what_has_none)
{
    EXPECT_EQ(toldTree(readBytes(readJunit, "<testsuite><testcase time='1'/></testsuite>")),
              "(unnamed)>(unnamed) 1" + passed);
}

TEST(JunitImport, takes_times_as_they_come)
{
    EXPECT_EQ(toldCases("<testcase name='a' time='1,234.5'/><testcase name='b' time=''/>"
                        "<testcase name='c' time='1e-3'/><testcase name='d'/>"),
              "s>a 1234.5" + passed + "s>c 0.001" + passed);
    EXPECT_EQ(toldCases("\n<testcase name='e' time='1e999'/>"),
              "2: '1e999' is too large for a number");
}

TEST(JunitImport, tells_of_times_below_zero)
{
    const ImportResult result = readBytes(readJunit,
                                          "<testsuite>\n<testcase name='a' time='-1'/>\n"
                                          "<testcase name='b' time='1'/></testsuite>");
    EXPECT_EQ(toldTree(result), "(unnamed)>b 1" + passed);
    ASSERT_EQ(result.notes.size(), 1);
    EXPECT_EQ(result.notes.constFirst().place.line, 2);
    EXPECT_EQ(result.notes.constFirst().sentence, u"a time below zero counts as none"_s);
}

TEST(JunitImport, counts_tests_where_none_took_a_time_or_that_is_asked_for)
{
    EXPECT_EQ(toldCases("<testcase name='a'/><testcase name='b'/>"),
              "s>a 1" + passed + "s>b 1" + passed);
    EXPECT_EQ(toldCases("<testcase name='a' time='9'/><testcase name='b'/>",
                        {.engine = u"treemap"_s, .area = "tests"}),
              "s>a 1" + passed + "s>b 1" + passed);
    EXPECT_EQ(toldCases("<testcase/>", {.engine = u"treemap"_s, .area = "x"}),
              "--area can be time or tests, not 'x'");
}

TEST(JunitImport, has_bars_by_class)
{
    EXPECT_EQ(toldCases("<testcase classname='p.C' name='a' time='1'/>"
                        "<testcase classname='p.C' name='b' time='2'><error/></testcase>"
                        "<testcase name='c' time='4'/>",
                        {.engine = u"bar"_s}),
              "p.C 3" + erroneous + "s 4" + passed);
}

TEST(JunitImport, tells_the_line_that_is_broken)
{
    EXPECT_EQ(toldCases("\n<testcase name='a' time='soon'/>"), "2: 'soon' is no time in seconds");
    EXPECT_EQ(toldFault(readBytes(readJunit, "\n<html/>")),
              u"2: <html> is not how a report of JUnit begins: <testsuites> or <testsuite>"_s);
    const QString cut = toldFault(readBytes(readJunit, "<testsuite>\n<testcase>"));
    EXPECT_TRUE(cut.startsWith(u"2: this is no XML: "_s)) << qPrintable(cut);
    EXPECT_FALSE(cut.endsWith(u'.'));
    EXPECT_EQ(toldCases(""), "no case of a test is in it");
}

TEST(JunitImport, opens_no_files_of_entities)
{
    EXPECT_TRUE(toldFault(readBytes(readJunit,
                                    "<!DOCTYPE testsuite [<!ENTITY x SYSTEM "
                                    "'file:///etc/passwd'>]>\n<testsuite name='s'>"
                                    "<testcase name='&x;' time='1'/></testsuite>"))
                    .startsWith(u"2: this is no XML: "_s));
}

TEST(JunitImport, gives_up_on_entities_that_grow)
{
    QByteArray text = "<!DOCTYPE testsuite [<!ENTITY a0 'aaaaaaaaaa'>";
    for (int i = 1; i < 12; ++i) {
        const QByteArray inner = "&a" + QByteArray::number(i - 1) + ';';
        text += "<!ENTITY a" + QByteArray::number(i) + " '" + inner.repeated(10) + "'>";
    }
    text += "]><testsuite><testcase time='1' name='&a11;'/></testsuite>";
    EXPECT_TRUE(toldFault(readBytes(readJunit, text)).contains(u"this is no XML: "_s));
}

TEST(JunitImport, nests_as_deep_as_a_report_does)
{
    constexpr int depth = 20'000;
    const QByteArray text = QByteArray("<testsuite name='s'>").repeated(depth)
        + "<testcase name='a' time='1'/>" + QByteArray("</testsuite>").repeated(depth);
    const ImportResult result = readBytes(readJunit, text);
    ASSERT_TRUE(result.picture) << qPrintable(toldFault(result));
    EXPECT_EQ(treeOf(result).tree().size(), depth + 2);
}

TEST(JunitImport, has_fills_that_are_told_apart)
{
    const ImportResult result = readBytes(readJunit, "<testsuite><testcase name='a'/></testsuite>");
    const QStringList fills = treeOf(result).meaning().kindFills;
    ASSERT_EQ(fills.size(), 4);
    for (qsizetype i = 0; i < fills.size(); ++i) {
        EXPECT_GE(contrast(fills.at(i).toLatin1(), "#000000"), 4.5) << qPrintable(fills.at(i));
        for (qsizetype j = 0; j < i; ++j) {
            EXPECT_GE(deuteranopeDistance(fills.at(i).toLatin1(), fills.at(j).toLatin1()), 10)
                << qPrintable(fills.at(i)) << ' ' << qPrintable(fills.at(j));
        }
    }
}

TEST(JunitImport, reads_reports_of_pytest)
{
    const ImportResult result = readBytes(readJunit, dataFile(u"junit/pytest.xml"_s));
    ASSERT_TRUE(result.picture) << qPrintable(toldFault(result));
    EXPECT_EQ(treeOf(result).meaning().kinds,
              (QStringList{u"passed (8)"_s, u"skipped (2)"_s, u"failed (2)"_s, u"errors (2)"_s}));
    EXPECT_EQ(treeOf(result).meaning().rootName, u"8 passed, 2 skipped, 2 failed, 2 errors"_s);
}

TEST(JunitImport, reads_reports_of_ctest)
{
    const ImportResult result = readBytes(readJunit, dataFile(u"junit/ctest.xml"_s));
    ASSERT_TRUE(result.picture) << qPrintable(toldFault(result));
    EXPECT_EQ(treeOf(result).meaning().kinds,
              (QStringList{u"passed (3)"_s, u"skipped (3)"_s, u"failed (1)"_s, u"errors (0)"_s}));
    EXPECT_NE(toldTree(result).find("(empty)>compares 0.306403" + failed), std::string::npos);
}

TEST(JunitImport, reads_reports_of_google_test)
{
    const ImportResult result = readBytes(readJunit, dataFile(u"junit/graph_tests.xml"_s));
    ASSERT_TRUE(result.picture) << qPrintable(toldFault(result));
    EXPECT_EQ(treeOf(result).meaning().kinds.constFirst(), u"passed (139)"_s);
}

TEST(JunitImport, knows_its_format)
{
    for (const QString &name : {u"pytest.xml"_s, u"ctest.xml"_s, u"graph_tests.xml"_s})
        EXPECT_EQ(likenessOfJunit(dataFile("junit/"_L1 + name).first(500)), 100)
            << qPrintable(name);
    for (const char *text : {"", "<svg>", "digraph { \"<testsuite>\" }", "{}"})
        EXPECT_EQ(likenessOfJunit(text), 0) << text;
}
