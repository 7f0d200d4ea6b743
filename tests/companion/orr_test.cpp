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

// The lines behind "Examples:" are commands of a shell, with `orr` in its path. Those of watch and
// serve do not end by themselves, and are run by tests of their own.
TEST_F(OrrTest, ends_each_help_with_two_examples_that_work)
{
    const QString besides = QFileInfo(QStringLiteral(ORR_PROGRAM)).path();
    const QString searched = besides + u':' + qEnvironmentVariable("PATH");
    QList<QStringList> calls{{}};
    for (const Subcommand &subcommand : subcommands()) {
        const QString name = QString::fromLatin1(subcommand.name);
        if (name != u"watch"_s && name != u"serve"_s)
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
    // With the commit, if there is one.
    static const QRegularExpression line(
        uR"(^orr (\d+\.\d+\.\d+)( \([0-9a-f]{12}(, changed)?\))?\n$)"_s);
    const QRegularExpressionMatch match = line.match(QString::fromUtf8(version.output));
    ASSERT_TRUE(match.hasMatch()) << version.output.toStdString();
    EXPECT_EQ(match.captured(1), QStringLiteral(ORR_PROJECT_VERSION));
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
                        "orr: unknown option '--verson'; did you mean '--version'?\n"
                        "Try 'orr --help'.\n"));
    EXPECT_TRUE(isWrong({u"check"_s, u"--fromat=json"_s},
                        "orr check: unknown option '--fromat'; did you mean '--format'?\n"
                        "Try 'orr check --help'.\n"));
    EXPECT_TRUE(isWrong({u"check"_s, u"--format"_s, u"xml"_s},
                        "orr check: --format: 'xml' is none of text, json, sarif\n"
                        "Try 'orr check --help'.\n"));
}

// Each ends with the hint, and nothing is printed.
TEST_F(OrrTest, says_of_every_wrong_option_what_is_wrong)
{
    struct WrongUse
    {
        QStringList arguments; // behind the subcommand
        QByteArray says;
    };
    const WrongUse ofCheck[] = {
        {{u"--foo"_s}, "unknown option '--foo'"},
        {{u"-x"_s}, "unknown option '-x'"},
        {{u"-x=3"_s}, "unknown option '-x'"},
        {{u"-5"_s}, "unknown option '-5'"},
        {{u"--wError"_s}, "unknown option '--wError'; did you mean '--werror'?"},
        {{u"--werror=false"_s}, "option '--werror' takes no value"},
        {{u"--werror="_s}, "option '--werror' takes no value"},
        {{u"--format"_s}, "option '--format' needs a value"},
        {{u"-K"_s}, "option '-K' needs a value"},
        {{u"--format=xml"_s}, "--format: 'xml' is none of text, json, sarif"},
        {{u"--format="_s}, "option '--format' needs a value"},
        {{u"--format=JSON"_s}, "--format: 'JSON' is none of text, json, sarif"},
        {{u"--format"_s, u"--werror"_s}, "--format: '--werror' is none of text, json, sarif"},
        {{u"-Kbar"_s, u"-K"_s, u"bar"_s}, "option '-K' is given twice"},
    };
    const WrongUse ofDraw[] = {
        {{u"--shrad=1/2"_s}, "unknown option '--shrad'; did you mean '--shard'?"},
        {{u"-O=false"_s, u"a.dot"_s}, "option '-O' takes no value"},
        {{u"--changed=0"_s, u"a.dot"_s}, "option '--changed' takes no value"},
        {{u"-Oj"_s}, "option '-j' needs a value"},
        {{u"-Oq"_s}, "unknown option '-q'"},
        {{u"-j"_s, u"0"_s}, "-j: '0' is no whole number from 1 to 1024"},
        {{u"-j3x"_s}, "-j: '3x' is no whole number from 1 to 1024"},
        {{u"-j"_s, u"-1"_s}, "-j: '-1' is no whole number from 1 to 1024"},
        {{u"-j"_s, u"1.5"_s}, "-j: '1.5' is no whole number from 1 to 1024"},
        {{u"-j"_s, u"99999999999999999999"_s},
         "-j: '99999999999999999999' is no whole number from 1 to 1024"},
        {{u"--timeout=soon"_s}, "--timeout: 'soon' is no number from 0.001 to 1000000"},
        {{u"--timeout=nan"_s}, "--timeout: 'nan' is no number from 0.001 to 1000000"},
        {{u"--timeout= 3"_s}, "--timeout: ' 3' is no number from 0.001 to 1000000"},
        {{u"--memory=0"_s}, "--memory: '0' is no whole number from 1 to 1073741824"},
        {{u"-o"_s, u"a"_s, u"-o"_s, u"b"_s}, "option '-o' is given twice"},
    };
    for (const WrongUse &use : ofCheck)
        EXPECT_TRUE(isWrong(QStringList{u"check"_s} + use.arguments,
                            "orr check: " + use.says + "\nTry 'orr check --help'.\n"))
            << use.says.toStdString();
    for (const WrongUse &use : ofDraw)
        EXPECT_TRUE(isWrong(QStringList{u"draw"_s} + use.arguments,
                            "orr draw: " + use.says + "\nTry 'orr draw --help'.\n"))
            << use.says.toStdString();
    EXPECT_TRUE(
        isWrong({u"--version=2"_s}, "orr: option '--version' takes no value\nTry 'orr --help'.\n"));
}

TEST_F(OrrTest, helps_whatever_else_is_asked_for)
{
    const QByteArray help = orr({u"check"_s, u"--help"_s}).output;
    EXPECT_EQ(orr({u"check"_s, u"--foo"_s, u"--help"_s}).output, help);
    EXPECT_EQ(orr({u"check"_s, u"-h"_s, u"--format"_s}).output, help);
    EXPECT_EQ(orr({u"check"_s, u"--"_s, u"-h"_s}).status, 2);
}

TEST_F(OrrTest, writes_no_control_character_to_the_terminal)
{
    EXPECT_TRUE(
        isWrong({u"\u001b[2J"_s}, "orr: there is no subcommand '\\x1b[2J'\nTry 'orr --help'.\n"));
    EXPECT_TRUE(isWrong({u"check"_s, u"--a\u001b"_s},
                        "orr check: unknown option '--a\\x1b'\nTry 'orr check --help'.\n"));
}

TEST_F(OrrTest, fails_where_its_help_can_not_be_written)
{
    const ProgramRun full = run(
        {.arguments = {u"-c"_s, u"exec \"$0\" --help >/dev/full"_s, QStringLiteral(ORR_PROGRAM)},
         .command = u"sh"_s});
    EXPECT_EQ(full.status, 2);
    EXPECT_EQ(full.errors, "orr: standard output can't be written: No space left on device\n");
}
