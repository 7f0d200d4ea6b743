#include "companion/import/lines/line_counts_import.h"

#include "tree_read.h"

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

QStringList countedLanguages(const ImportResult &result)
{
    return treePicture(result).meaning().kinds;
}

} // namespace

TEST(ClocImport, reads_files_with_their_languages)
{
    const ImportResult result = treeRead(
        readCloc,
        R"({"header": {"cloc_version": "1.96"}, "./a/x.h": {"blank": 1, "code": 2, "language": "C"},)"
        R"("./a/y.py": {"code": 5, "language": "Python"}, "SUM": {"code": 7, "nFiles": 2}})");
    EXPECT_EQ(weightsOf(result), "a/x.h 2 #1\na/y.py 5 #0\n");
    EXPECT_EQ(countedLanguages(result), (QStringList{u"Python"_s, u"C"_s}));
}

TEST(ClocImport, reads_languages_alone)
{
    const ImportResult result = treeRead(readCloc, statsData("cloc/languages.json"));
    EXPECT_EQ(weightsOf(result).substr(0, 7), "C++ 118");
    EXPECT_EQ(countedLanguages(result).first(), u"C++"_s);
}

TEST(ClocImport, adds_up_to_the_sum_that_is_told)
{
    EXPECT_EQ(weightOfAll(treeRead(readCloc, statsData("cloc/companion.json"))),
              weightOfAll(treeRead(readCloc, statsData("cloc/languages.json"))));
    EXPECT_EQ(weightOfAll(treeRead(readCloc, statsData("cloc/both.json"))), 2113);
}

TEST(ClocImport, reads_names_of_any_bytes)
{
    EXPECT_EQ(weightsOf(treeRead(readCloc,
                                 "{\"caf\xe9.c\": {\"code\": 2, \"language\": \"C\"},"
                                 "\"caf\xe8.c\": {\"code\": 3, \"language\": \"C\"}}")),
              "caf\u00e9.c 2 #0\ncaf\u00e8.c 3 #0\n");
}

TEST(ClocImport, tells_the_place_of_what_is_wrong)
{
    EXPECT_EQ(treeFault(treeRead(readCloc, R"({"a.c": {"code": "x", "language": "C"}})")),
              "in@17 $.a.c.code: lines of code are expected, as a number");
    EXPECT_EQ(treeFault(treeRead(readCloc, R"({"a.c": {"code": -1, "language": "C"}})")),
              "in@17 $.a.c.code: this can't be a number of lines");
    EXPECT_EQ(treeFault(treeRead(readCloc, R"({"a.c": {"language": "C"}})")),
              "in@8 $.a.c: lines of code are expected, as a number");
    EXPECT_EQ(treeFault(treeRead(readCloc, R"({"a.c": 3})")),
              "in@8 $.a.c: this is neither a file nor a language of cloc");
    EXPECT_EQ(treeFault(treeRead(readCloc, "[]")),
              "in@0 $: the object that cloc writes is expected");
    EXPECT_EQ(treeFault(treeRead(readCloc, "{}")), "in: there are no lines of code");
    EXPECT_NE(treeFault(treeRead(readCloc, "{\"a")), "");
}

TEST(SccImport, reads_files_with_their_languages)
{
    const ImportResult result = treeRead(readScc, statsData("scc/files.json"));
    EXPECT_NE(weightsOf(result).find("src/companion/import/json_value.h 63 #"), std::string::npos);
    EXPECT_EQ(countedLanguages(result).first(), u"C++"_s);
}

TEST(SccImport, reads_languages_alone_also_of_the_second_form)
{
    EXPECT_EQ(weightsOf(treeRead(readScc, R"([{"Name": "C", "Code": 3, "Files": null}])")),
              "C 3 #0\n");
    EXPECT_EQ(weightOfAll(treeRead(readScc, statsData("scc/languages.json"))),
              weightOfAll(treeRead(readScc, statsData("scc/files.json"))));
}

TEST(SccImport, tells_the_place_of_what_is_wrong)
{
    EXPECT_EQ(treeFault(treeRead(readScc, R"([{"Name": "C", "Files": [{"Code": 3}]}])")),
              "in@25 $[0].Files[0]: the file has no name");
    EXPECT_EQ(treeFault(treeRead(readScc, R"([{"Name": "C", "Code": 1}, 3])")),
              "in@27 $[1]: lines of code are expected, as a number");
    EXPECT_EQ(treeFault(treeRead(readScc, R"([{"Name": "C", "Code": 1, "Files": 3}])")),
              "in@35 $[0].Files: an array is expected here, and this is a number");
    EXPECT_EQ(treeFault(treeRead(readScc, R"([{"Name": 7, "Code": 1}])")),
              "in@10 $[0].Name: a string is expected here, and this is a number");
    EXPECT_EQ(treeFault(treeRead(readScc, "{}")),
              "in@0 $: the array of languages that scc writes is expected");
}

TEST(TokeiImport, reads_files_with_their_languages)
{
    const ImportResult result = treeRead(readTokei, statsData("tokei/files.json"));
    EXPECT_NE(weightsOf(result).find("src/companion/import/json_value.h 63 #"), std::string::npos);
    EXPECT_EQ(countedLanguages(result).first(), u"C++"_s);
    EXPECT_EQ(weightOfAll(result), weightOfAll(treeRead(readScc, statsData("scc/files.json"))));
}

TEST(TokeiImport, adds_what_is_within_a_file_to_it)
{
    EXPECT_EQ(weightsOf(treeRead(
                  readTokei,
                  R"({"HTML": {"code": 3, "reports": [{"name": "a.html", "stats": {"code": 3}}],)"
                  R"("children": {"CSS": [{"name": "a.html", "stats": {"code": 2}}]}},)"
                  R"("C": {"code": 4, "reports": []}, "Total": {"code": 9, "reports": []}})")),
              "a.html 5 #0\nC 4 #1\n");
}

TEST(TokeiImport, tells_the_place_of_what_is_wrong)
{
    EXPECT_EQ(treeFault(treeRead(readTokei, R"({"C": {"reports": [{"stats": {"code": 3}}]}})")),
              "in@19 $.C.reports[0]: the file has no name");
    EXPECT_EQ(treeFault(treeRead(readTokei, R"({"C": {"code": 3, "reports": {}}})")),
              "in@29 $.C.reports: an array is expected here, and this is an object");
    EXPECT_EQ(treeFault(treeRead(readTokei, R"({"C": {"reports": [{"name": 7, "stats": {}}]}})")),
              "in@28 $.C.reports[0].name: a string is expected here, and this is a number");
    EXPECT_EQ(treeFault(treeRead(readTokei, R"({"C": {}})")),
              "in@6 $.C: lines of code are expected, as a number");
    EXPECT_EQ(treeFault(treeRead(readTokei, "[1]")),
              "in@0 $: the object of languages that tokei writes is expected");
}

TEST(LineCounts, tell_what_can_not_be_read)
{
    std::vector<ImportSource> sources;
    sources.emplace_back("/nowhere/at/all");
    EXPECT_EQ(treeFault(readScc(sources, {})), "/nowhere/at/all: No such file or directory");
}

TEST(LineCounts, know_their_own_inputs_alone)
{
    const QByteArray cloc = statsData("cloc/companion.json");
    const QByteArray scc = statsData("scc/files.json");
    const QByteArray tokei = statsData("tokei/files.json");
    EXPECT_EQ(likenessOfCloc(cloc), 100);
    EXPECT_EQ(likenessOfCloc(scc), 0);
    EXPECT_EQ(likenessOfCloc(tokei), 0);
    EXPECT_GT(likenessOfScc(scc), 90);
    EXPECT_GT(likenessOfScc(statsData("scc/languages.json")), 90);
    EXPECT_EQ(likenessOfScc(cloc), 0);
    EXPECT_EQ(likenessOfScc(tokei), 0);
    EXPECT_GT(likenessOfTokei(tokei), 90);
    EXPECT_EQ(likenessOfTokei(cloc), 0);
    EXPECT_EQ(likenessOfTokei(scc), 0);
}
