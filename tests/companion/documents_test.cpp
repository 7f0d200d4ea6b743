// The two printers whose documents other programs read.
#include "companion/check/rules.h"
#include "companion/findings/json_printer.h"
#include "companion/findings/locate.h"
#include "companion/findings/sarif_printer.h"
#include "companion/sample_findings.h"
#include "companion/sarif_schema.h"
#include "support/golden.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

constexpr const Rule *rules[] = {&broken, &misspelt};
const SarifTool tool{u"sample"_s, u"1.0"_s, rules};

// One of each kind: with a place and a suggestion, without either, with a rest.
QList<Finding> someFindings()
{
    Finding placed = findingAt(4, 6);
    placed.suggestion = u"say {it}"_s;
    Finding rest = findingAt(-1, -1, broken);
    rest.more = 7;
    ORR::Graph::SourceText text("xx\n ba");
    return located({findingAt(-1), placed, rest}, &text);
}

QJsonObject parsed(const QByteArray &document)
{
    QJsonParseError fault;
    const QJsonDocument read = QJsonDocument::fromJson(document, &fault);
    EXPECT_EQ(fault.error, QJsonParseError::NoError) << fault.errorString().toStdString();
    return read.object();
}

QJsonObject jsonOf(const QList<FileFindings> &files)
{
    return parsed(findingsAsJson(files));
}

// The one run of a log that is valid.
QJsonObject runOf(const QList<FileFindings> &files)
{
    const QByteArray log = findingsAsSarif(files, tool);
    EXPECT_EQ(sarifFaults(log), "valid\n");
    return parsed(log)[u"runs"_s][0].toObject();
}

QString uriOf(const QByteArray &file)
{
    return runOf({{file, {}}})[u"artifacts"_s][0][u"location"_s][u"uri"_s].toString();
}

} // namespace

TEST(FindingsAsJson, have_every_file_in_its_order)
{
    const QJsonObject json = jsonOf({{"b.dot", {}}, {"a.dot", {}}, {"", {}}, {"\xff.dot", {}}});
    const QJsonArray files = json[u"files"_s].toArray();
    ASSERT_EQ(files.size(), 4);
    EXPECT_EQ(files[0][u"file"_s], u"b.dot"_s);
    EXPECT_EQ(files[1][u"file"_s], u"a.dot"_s);
    EXPECT_TRUE(files[2][u"file"_s].isNull());
    EXPECT_EQ(files[3][u"file"_s], u"\ufffd.dot"_s);
    EXPECT_EQ(files[0][u"findings"_s].toArray().size(), 0);
    EXPECT_EQ(json[u"errors"_s], 0);
    EXPECT_EQ(json[u"warnings"_s], 0);
}

TEST(FindingsAsJson, have_what_the_finding_has_and_nothing_else)
{
    const QJsonObject json = jsonOf({{"a.dot", someFindings()}});
    const QJsonArray findings = json[u"files"_s][0][u"findings"_s].toArray();
    ASSERT_EQ(findings.size(), 3);
    EXPECT_EQ(findings[0].toObject(),
              (QJsonObject{{u"severity"_s, u"warning"_s},
                           {u"rule"_s, u"misspelt"_s},
                           {u"message"_s, u"a word is misspelt"_s}}));
    EXPECT_EQ(findings[1].toObject(),
              (QJsonObject{{u"severity"_s, u"warning"_s},
                           {u"rule"_s, u"misspelt"_s},
                           {u"message"_s, u"a word is misspelt"_s},
                           {u"suggestion"_s, u"say {it}"_s},
                           {u"line"_s, 2},
                           {u"column"_s, 2},
                           {u"endLine"_s, 2},
                           {u"endColumn"_s, 4}}));
    EXPECT_EQ(findings[2][u"more"_s], 7);
    EXPECT_EQ(json[u"errors"_s], 7);
    EXPECT_EQ(json[u"warnings"_s], 2);
}

TEST(FindingsAsSarif, have_the_rules_with_their_help)
{
    const QJsonObject run = runOf({});
    const QJsonObject driver = run[u"tool"_s][u"driver"_s].toObject();
    EXPECT_EQ(driver[u"name"_s], u"sample"_s);
    EXPECT_EQ(driver[u"version"_s], u"1.0"_s);
    ASSERT_EQ(driver[u"rules"_s].toArray().size(), 2);
    const QJsonObject rule = driver[u"rules"_s][1].toObject();
    EXPECT_EQ(rule[u"id"_s], u"misspelt"_s);
    EXPECT_EQ(rule[u"shortDescription"_s][u"text"_s], u"a word is misspelt"_s);
    EXPECT_EQ(rule[u"help"_s][u"text"_s], u"Spell it right."_s);
    EXPECT_EQ(rule[u"defaultConfiguration"_s][u"level"_s], u"warning"_s);
    EXPECT_EQ(run[u"columnKind"_s], u"unicodeCodePoints"_s);
}

TEST(FindingsAsSarif, have_a_result_for_each_finding)
{
    const QJsonObject run = runOf({{"a.dot", someFindings()}, {"b.dot", someFindings()}});
    const QJsonArray results = run[u"results"_s].toArray();
    ASSERT_EQ(results.size(), 6);
    const QJsonObject place = results[4][u"locations"_s][0][u"physicalLocation"_s].toObject();
    EXPECT_EQ(place[u"artifactLocation"_s].toObject(),
              (QJsonObject{{u"uri"_s, u"b.dot"_s}, {u"index"_s, 1}}));
    EXPECT_EQ(
        place[u"region"_s].toObject(),
        (QJsonObject{
            {u"startLine"_s, 2}, {u"startColumn"_s, 2}, {u"endLine"_s, 2}, {u"endColumn"_s, 4}}));
    EXPECT_EQ(results[4][u"ruleId"_s], u"misspelt"_s);
    EXPECT_EQ(results[4][u"ruleIndex"_s], 1);
    EXPECT_EQ(results[4][u"level"_s], u"warning"_s);
    EXPECT_FALSE(
        results[3][u"locations"_s][0][u"physicalLocation"_s].toObject().contains(u"region"_s));
    EXPECT_EQ(results[5][u"ruleIndex"_s], 0);
    EXPECT_EQ(results[5][u"level"_s], u"error"_s);
}

TEST(FindingsAsSarif, double_the_braces_that_would_hold_arguments)
{
    const QJsonObject run = runOf({{"a.dot", someFindings()}});
    EXPECT_EQ(run[u"results"_s][1][u"message"_s][u"text"_s], u"a word is misspelt; say {{it}}"_s);
}

TEST(FindingsAsSarif, list_a_file_once_that_is_read_twice)
{
    const QJsonObject run = runOf({{"a.dot", {}}, {"b.dot", {}}, {"a.dot", someFindings()}});
    EXPECT_EQ(run[u"artifacts"_s].toArray().size(), 2);
    EXPECT_EQ(run[u"results"_s][0][u"locations"_s][0][u"physicalLocation"_s][u"artifactLocation"_s]
                 [u"index"_s],
              0);
}

TEST(FindingsAsSarif, encode_names_as_uris)
{
    EXPECT_EQ(uriOf("a.dot"), u"a.dot"_s);
    EXPECT_EQ(uriOf("../b c/#1?.dot"), u"../b%20c/%231%3F.dot"_s);
    EXPECT_EQ(uriOf("C:x%41.dot"), u"C%3Ax%2541.dot"_s);
    EXPECT_EQ(uriOf("/tmp/\xff\xc3\xa4\n.dot"), u"file:///tmp/%FF%C3%A4%0A.dot"_s);
    EXPECT_EQ(uriOf(""), u"%3Cstdin%3E"_s);
}

TEST(FindingsAsSarif, are_valid_with_the_rules_of_the_check)
{
    const QByteArray log = findingsAsSarif({}, {u"orr check"_s, u"1.0"_s, checkRules()});
    EXPECT_EQ(sarifFaults(log), "valid\n");
    EXPECT_NE(sarifFaults(QByteArray(log).replace("\"version\": \"2.1.0\"", "\"version\": 2")),
              "valid\n");
}
