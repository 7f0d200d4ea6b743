// What docs/check.md offers to editors and to pre-commit works on what the program prints.
#include "companion/doc_page.h"
#include "driver/program_run.h"
#include "support/golden.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

class EditorsTest : public ProgramTest
{
protected:
    ProgramRun faultyRun() const
    {
        writeFile(u"a b.dot"_s, "digraph {\n  a [\n}\n");
        return run({.arguments = {u"check"_s, u"-K"_s, u"treemp"_s, u"a b.dot"_s}});
    }
};

QJsonObject problemPattern()
{
    const QStringList blocks = codeBlocks(checkPage(), u"json"_s);
    for (const QString &block : blocks) {
        const QJsonObject tasks = QJsonDocument::fromJson(block.toUtf8()).object();
        if (tasks.contains(u"tasks"_s))
            return tasks[u"tasks"_s][0][u"problemMatcher"_s][u"pattern"_s].toObject();
    }
    return {};
}

} // namespace

TEST_F(EditorsTest, the_problem_matcher_reads_every_line)
{
    const QJsonObject pattern = problemPattern();
    const QRegularExpression regexp(pattern[u"regexp"_s].toString());
    ASSERT_TRUE(regexp.isValid());
    ASSERT_FALSE(regexp.pattern().isEmpty());
    const QList<QByteArray> lines = faultyRun().output.trimmed().split('\n');
    ASSERT_EQ(lines.size(), 2);
    const auto part = [&](const QByteArray &line, const QString &name) {
        return regexp.match(QString::fromUtf8(line)).captured(pattern[name].toInt());
    };
    EXPECT_EQ(part(lines[0], u"file"_s), u"a b.dot"_s);
    EXPECT_EQ(part(lines[0], u"line"_s), QString());
    EXPECT_EQ(part(lines[0], u"severity"_s), u"error"_s);
    EXPECT_EQ(part(lines[0], u"message"_s), u"unknown engine 'treemp'; did you mean 'treemap'?"_s);
    EXPECT_EQ(part(lines[0], u"code"_s), u"unknown-engine"_s);
    EXPECT_EQ(part(lines[1], u"file"_s), u"a b.dot"_s);
    EXPECT_EQ(part(lines[1], u"line"_s), u"3"_s);
    EXPECT_EQ(part(lines[1], u"column"_s), u"1"_s);
    EXPECT_EQ(part(lines[1], u"code"_s), u"syntax-error"_s);
}

// What is only counted is a problem of the file.
TEST_F(EditorsTest, the_problem_matcher_reads_a_line_that_counts_the_others)
{
    writeFile(u"many.dot"_s, "digraph {" + QByteArray(" -1").repeated(103) + " }");
    const ProgramRun told = run({.arguments = {u"check"_s, u"many.dot"_s}});
    const QList<QByteArray> lines = told.output.trimmed().split('\n');
    ASSERT_EQ(lines.size(), 101);
    const QJsonObject pattern = problemPattern();
    const QRegularExpressionMatch match =
        QRegularExpression(pattern[u"regexp"_s].toString()).match(QString::fromUtf8(lines.last()));
    const auto part = [&](const QString &name) { return match.captured(pattern[name].toInt()); };
    EXPECT_EQ(part(u"file"_s), u"many.dot"_s);
    EXPECT_EQ(part(u"line"_s), QString());
    EXPECT_EQ(part(u"severity"_s), u"error"_s);
    EXPECT_EQ(part(u"message"_s), u"... and 3 more"_s);
    EXPECT_EQ(part(u"code"_s), u"negative-number"_s);
}

// Of the settings in the page, by the editor itself.
TEST_F(EditorsTest, fill_the_list_of_errors_of_vim)
{
    const ProgramRun version = run({.arguments = {u"--version"_s}, .command = u"vim"_s});
    if (!version.output.contains("+quickfix"))
        GTEST_SKIP() << "there is no Vim with a list of errors";
    const QStringList blocks = codeBlocks(checkPage(), u"vim"_s);
    ASSERT_EQ(blocks.size(), 1);
    QString settings = blocks.first();
    settings.replace("setlocal"_L1, "set"_L1);
    writeFile(u"settings.vim"_s, settings.toUtf8());
    writeFile(u"said.txt"_s, faultyRun().output);
    const QString list =
        u"call writefile(map(getqflist(), {i, e -> bufname(e.bufnr) . '|' . e.lnum . '|' . e.col . "
        "'|' . e.type . '|' . e.text}), 'list.txt')"_s;
    const ProgramRun vim =
        run({.arguments = {u"-Nu"_s, u"settings.vim"_s, u"-es"_s, u"-c"_s, u"cgetfile said.txt"_s,
                           u"-c"_s, list, u"-c"_s, u"qa!"_s},
             .environment = {{u"HOME"_s, path(u"."_s)}},
             .command = u"vim"_s});
    EXPECT_EQ(vim.status, 0) << vim.errors.toStdString();
    const QList<QByteArray> lines = fileContent(u"list.txt"_s).trimmed().split('\n');
    ASSERT_EQ(lines.size(), 2) << fileContent(u"list.txt"_s).toStdString();
    EXPECT_TRUE(lines[0].startsWith("a b.dot|0|0|e|unknown engine 'treemp'"))
        << lines[0].toStdString();
    EXPECT_TRUE(lines[1].startsWith("a b.dot|3|1|e|")) << lines[1].toStdString();
}

// A repository that has the hook, and one that uses it.
TEST_F(EditorsTest, the_hook_refuses_a_commit_of_a_faulty_input)
{
    const QString script = u"set -e\n"
                           "git init -q hook && cp \"$1\" hook/.pre-commit-hooks.yaml\n"
                           "cd hook && git add . && git commit -q -m hook\n"
                           "rev=$(git rev-parse HEAD)\n"
                           "cd .. && git init -q user && cd user\n"
                           "printf 'repos:\\n- repo: ../hook\\n  rev: %s\\n  hooks:\\n"
                           "  - id: orr-check\\n    args: [-K, treemap]\\n' \"$rev\" "
                           ">.pre-commit-config.yaml\n"
                           "printf 'digraph { a [area=1]; }' >good.dot\n"
                           "printf 'no graph' >notes.txt\n"
                           "printf 'digraph { graph [xdotversion=1.2 bb=\"0,0,9,9\"];"
                           " a [_draw_=\"E 5 5 4 4\"]; }' >good.xdot\n"
                           "git add .\n"
                           "pre-commit run --color never\n"
                           "echo === \n"
                           "printf 'digraph { a [area=1' >faulty.dot\n"
                           "printf 'digraph { a [' >faulty.xdot\n"
                           "git add .\n"
                           "pre-commit run --color never\n"_s;
    const QString path =
        QFileInfo(QStringLiteral(ORR_PROGRAM)).path() + u':' + qEnvironmentVariable("PATH");
    const ProgramRun run =
        this->run({.arguments = {u"-c"_s, script, u"sh"_s,
                                 QStringLiteral(ORR_PROJECT_FOLDER "/.pre-commit-hooks.yaml")},
                   .environment = {{u"PATH"_s, path},
                                   {u"HOME"_s, this->path(u"."_s)},
                                   {u"PRE_COMMIT_HOME"_s, this->path(u"kept"_s)},
                                   {u"GIT_CONFIG_NOSYSTEM"_s, u"1"_s},
                                   {u"GIT_AUTHOR_NAME"_s, u"a"_s},
                                   {u"GIT_AUTHOR_EMAIL"_s, u"a@example.org"_s},
                                   {u"GIT_COMMITTER_NAME"_s, u"a"_s},
                                   {u"GIT_COMMITTER_EMAIL"_s, u"a@example.org"_s}},
                   .command = u"sh"_s});
    const QList<QByteArray> parts = QByteArray(run.output).replace("===\n", "\f").split('\f');
    ASSERT_EQ(parts.size(), 2) << run.output.toStdString() << run.errors.toStdString();
    EXPECT_TRUE(parts[0].contains("Passed")) << parts[0].toStdString();
    EXPECT_TRUE(parts[1].contains("Failed")) << parts[1].toStdString();
    EXPECT_TRUE(parts[1].contains("faulty.dot:1:20: error: ")) << parts[1].toStdString();
    EXPECT_TRUE(parts[1].contains("faulty.xdot:1:14: error: ")) << parts[1].toStdString();
    EXPECT_FALSE(parts[1].contains("notes.txt"));
    EXPECT_EQ(run.status, 1);
}
