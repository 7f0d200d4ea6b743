#include "companion/subcommands.h"
#include "driver/program_run.h"
#include "support/golden.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

class OrrTest : public ProgramTest
{
protected:
    ProgramRun orr(const QStringList &arguments) const { return run({.arguments = arguments}); }

    // Wrong use that says this, and what to do.
    testing::AssertionResult isWrong(const QStringList &arguments, const QByteArray &message) const
    {
        const ProgramRun call = orr(arguments);
        if (call.status == 2 && call.output.isEmpty() && call.errors == message)
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "status " << call.status << ", on standard error \""
                                           << call.errors.toStdString() << '"';
    }
};

bool fitsScreen(const QByteArray &text)
{
    const QList<QByteArray> lines = text.split('\n');
    return lines.size() <= 24
        && std::all_of(lines.begin(), lines.end(),
                       [](const QByteArray &line) { return line.size() < 80; });
}

// Nothing, or the line in which `orr draw` sums up.
bool isNoFault(const QByteArray &errors)
{
    static const QRegularExpression sum(
        u"^(orr draw: [1-9][0-9]* drawn, 0 failed(, 0 unchanged)?\\n)?$"_s);
    return sum.match(QString::fromUtf8(errors)).hasMatch();
}

} // namespace

TEST_F(OrrTest, helps_in_a_screen_and_names_every_subcommand)
{
    const ProgramRun help = orr({u"--help"_s});
    EXPECT_TRUE(succeeded(help));
    EXPECT_TRUE(fitsScreen(help.output)) << help.output.toStdString();
    for (const Subcommand &subcommand : subcommands())
        EXPECT_TRUE(help.output.contains(QByteArray("\n  ") + subcommand.name + ' '));
    EXPECT_EQ(orr({u"-h"_s}).output, help.output);
}

TEST_F(OrrTest, helps_with_each_subcommand_in_a_screen)
{
    for (const Subcommand &subcommand : subcommands()) {
        const QString name = QString::fromLatin1(subcommand.name);
        const ProgramRun help = orr({name, u"--help"_s});
        EXPECT_TRUE(succeeded(help)) << subcommand.name;
        EXPECT_TRUE(fitsScreen(help.output)) << help.output.toStdString();
        EXPECT_TRUE(help.output.contains(subcommand.sentence)) << subcommand.name;
    }
}

// The lines behind "Examples:" are commands of a shell, with `orr` in its path. Those of watch do
// not end by themselves, and are run by tests of its own.
TEST_F(OrrTest, ends_each_help_with_two_examples_that_work)
{
    const QString besides = QFileInfo(QStringLiteral(ORR_PROGRAM)).path();
    const QString searched = besides + u':' + qEnvironmentVariable("PATH");
    QList<QStringList> calls{{}};
    for (const Subcommand &subcommand : subcommands()) {
        const QString name = QString::fromLatin1(subcommand.name);
        if (name != u"watch"_s)
            calls += QStringList{name};
    }
    for (const QStringList &call : calls) {
        writeFile(u"areas.dot"_s, smallGraph());
        const QByteArray help = orr(call + QStringList{u"--help"_s}).output;
        const qsizetype start = help.indexOf("\nExamples:\n");
        ASSERT_GE(start, 0);
        const QList<QByteArray> examples = help.sliced(start + 11).trimmed().split('\n');
        EXPECT_EQ(examples.size(), 2);
        for (const QByteArray &example : examples) {
            const ProgramRun shell = run({.arguments = {u"-c"_s, QString::fromUtf8(example)},
                                          .environment = {{u"PATH"_s, searched}},
                                          .command = u"sh"_s});
            EXPECT_EQ(shell.status, 0) << example.toStdString() << shell.errors.toStdString();
            EXPECT_TRUE(isNoFault(shell.errors)) << shell.errors.toStdString();
        }
    }
}

TEST_F(OrrTest, tells_the_version_of_the_project)
{
    const ProgramRun version = orr({u"--version"_s});
    EXPECT_TRUE(succeeded(version));
    EXPECT_EQ(version.output, "orr " ORR_PROJECT_VERSION "\n");
}

TEST_F(OrrTest, says_what_is_wrong_with_its_use_and_what_to_do)
{
    EXPECT_TRUE(isWrong({}, "orr: a subcommand is missing\nTry 'orr --help'.\n"));
    EXPECT_TRUE(isWrong({u"chek"_s},
                        "orr: there is no subcommand 'chek'; did you mean 'check'?\n"
                        "Try 'orr --help'.\n"));
    EXPECT_TRUE(isWrong({u"frobnicate"_s},
                        "orr: there is no subcommand 'frobnicate'\nTry 'orr --help'.\n"));
    EXPECT_TRUE(isWrong({u"--verson"_s},
                        "orr: there is no option '--verson'; did you mean '--version'?\n"
                        "Try 'orr --help'.\n"));
    EXPECT_TRUE(isWrong({u"check"_s, u"--fromat=json"_s},
                        "orr check: there is no option '--fromat'; did you mean '--format'?\n"
                        "Try 'orr check --help'.\n"));
    EXPECT_TRUE(isWrong({u"check"_s, u"--format"_s, u"xml"_s},
                        "orr check: --format: xml not in {text,json,sarif}\n"
                        "Try 'orr check --help'.\n"));
}

TEST_F(OrrTest, writes_no_control_character_to_the_terminal)
{
    EXPECT_TRUE(
        isWrong({u"\u001b[2J"_s}, "orr: there is no subcommand '\\x1b[2J'\nTry 'orr --help'.\n"));
    EXPECT_TRUE(isWrong({u"check"_s, u"--a\u001b"_s},
                        "orr check: there is no option '--a\\x1b'\nTry 'orr check --help'.\n"));
}

TEST_F(OrrTest, fails_where_its_help_can_not_be_written)
{
    const ProgramRun full = run(
        {.arguments = {u"-c"_s, u"exec \"$0\" --help >/dev/full"_s, QStringLiteral(ORR_PROGRAM)},
         .command = u"sh"_s});
    EXPECT_EQ(full.status, 2);
    EXPECT_EQ(full.errors, "orr: standard output can't be written: No space left on device\n");
}
