// The workflow of docs/editors.md does what it says.
#include "driver/program_run.h"
#include "support/golden.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

// The steps of the only block of YAML, as JSON.
constexpr auto reader = R"(
import json, re, sys, yaml
page = sys.stdin.buffer.read().decode("utf-8")
[block] = re.findall(r"^```yaml\n(.*?)^```", page, re.M | re.S)
print(json.dumps(yaml.safe_load(block)["jobs"]["draw"]["steps"]))
)"_L1;

class WorkflowTest : public ProgramTest
{
protected:
    void SetUp() override
    {
        const ProgramRun python =
            run({.arguments = {u"-c"_s, reader},
                 .input = readTestFile(QStringLiteral(ORR_PROJECT_FOLDER "/docs/editors.md")),
                 .command = u"python3"_s});
        ASSERT_TRUE(succeeded(python));
        steps = QJsonDocument::fromJson(python.output).array();
        ASSERT_TRUE(QDir().mkpath(path(u"graphs"_s)));
        writeFile(u"graphs/a.dot"_s, "digraph { a [area=3]; b [area=1]; }");
        writeFile(u"graphs/b.dot"_s, "digraph { c [area=2]; }");
    }

    // As a host runs a step.
    ProgramRun runStep(const QString &name) const
    {
        const QString programs = QFileInfo(QStringLiteral(ORR_PROGRAM)).path();
        for (const QJsonValue &step : steps) {
            if (step[u"name"_s] == name)
                return run(
                    {.arguments = {u"-e"_s, u"-c"_s, step[u"run"_s].toString()},
                     .environment = {{u"PATH"_s, programs + u':' + qEnvironmentVariable("PATH")}},
                     .command = u"sh"_s});
        }
        ADD_FAILURE() << "there is no step " << name.toStdString();
        return {};
    }

    QJsonArray steps;
};

} // namespace

TEST_F(WorkflowTest, checks_draws_and_keeps_the_drawings)
{
    EXPECT_EQ(runStep(u"check"_s).status, 0);
    EXPECT_EQ(runStep(u"draw"_s).status, 0);
    const QString kept = steps.last()[u"with"_s][u"path"_s].toString();
    for (const QString &name : {u"a.svg"_s, u"a.png"_s, u"b.svg"_s, u"b.png"_s})
        EXPECT_TRUE(QFile::exists(path(kept + u"/graphs/"_s + name))) << name.toStdString();
    EXPECT_TRUE(fileContent(kept + u"/findings.sarif"_s).contains("\"2.1.0\""));
}

TEST_F(WorkflowTest, fails_for_a_faulty_graph_and_keeps_what_was_found)
{
    writeFile(u"graphs/b.dot"_s, "digraph { c [aera=2]; }");
    EXPECT_EQ(runStep(u"check"_s).status, 1);
    EXPECT_TRUE(fileContent(u"drawings/findings.sarif"_s).contains("unknown-attribute"));
}
