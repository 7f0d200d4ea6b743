// The shells themselves complete half lines by the installed files.
#include "tools/commands/commands.h"
#include "tools/commands/values.h"

#include "driver/program_run.h"
#include "support/golden.h"

#include <QDir>
#include <QStandardPaths>

using namespace ORR::Docs;
using namespace Qt::StringLiterals;

namespace {

using Option = CommandDescription::Option;

// Half a line, with a tab where one is pressed, and the whole.
struct TypedLine
{
    const char *typed;
    const char *completed;
};
// With areas.dot and inner/deep.dot in the folder.
constexpr TypedLine typedLines[] = {
    {"orrlayout -K tr\t -T sv\t ar\t", "orrlayout -K treemap -T svg areas.dot"},
    {"orrlayout --ver\t", "orrlayout --version"},
    {"orrlayout -Kflat\t -o ar\t", "orrlayout -Kflatbubble -o areas.dot"},
    {"orr ch\t -K umls\t --format=js\t --we\t ar\t",
     "orr check -K umlseq --format=json --werror areas.dot"},
    {"orr check --format sa\t", "orr check --format sarif"},
    {"orr draw -d inn\t --chan\t ar\t", "orr draw -d inner --changed areas.dot"},
    {"orr dr\t -T svg,pn\t", "orr draw -T svg,png"},
    {"orr imp\t lco\t inner/d\t", "orr import lcov inner/deep.dot"},
    {"orr new -o x.dot treem\t", "orr new -o x.dot treemap"},
    {"orr check -- ar\t", "orr check -- areas.dot"},
};

class CompletionsTest : public ProgramTest
{
protected:
    void SetUp() override
    {
        writeFile(u"areas.dot"_s, smallGraph());
        ASSERT_TRUE(QDir().mkpath(path(u"inner"_s)));
        writeFile(u"inner/deep.dot"_s, smallGraph());
    }

    // What a shell at a terminal makes of the lines that a person types, each with a word ahead of
    // it that prints it.
    QStringList linesOf(const QString &shell, const QByteArray &start) const
    {
        QByteArray typed = start;
        for (const TypedLine &line : typedLines)
            typed += QByteArray(line.typed) + "\001echo DONE \n"; // from its beginning
        typed += "exit\n";
        const ProgramRun run =
            this->run({.arguments = {u"-qec"_s, shell, u"/dev/null"_s},
                       .input = typed,
                       .environment = {{u"TERM"_s, u"dumb"_s}, {u"HOME"_s, path(u"."_s)}},
                       .command = u"script"_s});
        QStringList lines;
        for (QByteArray line : run.output.split('\n')) {
            line = line.trimmed();
            // Some shells take the slash of a folder away again.
            if (line.startsWith("DONE "))
                lines += QString::fromUtf8(line.sliced(5)).simplified().replace(u"/ "_s, u" "_s);
        }
        if (lines.isEmpty())
            ADD_FAILURE() << run.output.toStdString() << run.errors.toStdString();
        return lines;
    }

    // What bash is offered for the last of the words.
    QStringList bashOffers(const QStringList &words) const
    {
        const QString script = u"source \"$1\"; shift; COMP_WORDS=(\"$@\"); "
                               "COMP_CWORD=$(($# - 1)); \"_$1\"; "
                               "printf '%s\\n' \"${COMPREPLY[@]}\""_s;
        const ProgramRun bash = run(
            {.arguments = QStringList{u"-c"_s, script, u"bash"_s, bashFile(words.first())} + words,
             .command = u"bash"_s});
        EXPECT_TRUE(succeeded(bash)) << bash.errors.toStdString();
        return QString::fromUtf8(bash.output).split(u'\n', Qt::SkipEmptyParts);
    }

    static QString bashFile(const QString &program)
    {
        return QStringLiteral(ORR_SHARE_FOLDER "/bash-completion/completions/") + program;
    }
};

QStringList wholeLines()
{
    QStringList lines;
    for (const TypedLine &line : typedLines)
        lines += QString::fromLatin1(line.completed);
    return lines;
}

bool isMissing(const QString &shell)
{
    return QStandardPaths::findExecutable(shell).isEmpty();
}

// In CI there has to be what `make check` installs.
bool mayBeMissing()
{
    return qEnvironmentVariable("CI") != u"true"_s;
}

} // namespace

TEST_F(CompletionsTest, of_bash_complete_half_lines)
{
    const QByteArray start = "source " + bashFile(u"orr"_s).toUtf8() + "\nsource "
        + bashFile(u"orrlayout"_s).toUtf8() + '\n';
    EXPECT_EQ(linesOf(u"bash --norc --noprofile -i"_s, start), wholeLines());
}

TEST_F(CompletionsTest, of_zsh_complete_half_lines)
{
    if (isMissing(u"zsh"_s) && mayBeMissing())
        GTEST_SKIP() << "there is no zsh";
    const QByteArray start = "unsetopt zle_bracketed_paste 2>/dev/null\nfpath=(" ORR_SHARE_FOLDER
                             "/zsh/vendor-completions $fpath)\nautoload -Uz compinit\n"
                             "compinit -u -D\n";
    EXPECT_EQ(linesOf(u"zsh -f -i"_s, start), wholeLines());
}

// fish tells itself what it would offer for a line.
TEST_F(CompletionsTest, of_fish_complete_half_lines)
{
    if (isMissing(u"fish"_s) && mayBeMissing())
        GTEST_SKIP() << "there is no fish";
    const auto offers = [&](const QString &line) {
        const ProgramRun fish =
            run({.arguments = {u"--no-config"_s, u"-c"_s,
                               u"source $argv[2]/orr.fish; source $argv[2]/orrlayout.fish; "
                               "complete -C $argv[1] | string replace -r '\\t.*' ''"_s,
                               line, QStringLiteral(ORR_SHARE_FOLDER "/fish/vendor_completions.d")},
                 .environment = {{u"HOME"_s, path(u"."_s)}},
                 .command = u"fish"_s});
        EXPECT_EQ(fish.errors, "");
        return QString::fromUtf8(fish.output).split(u'\n', Qt::SkipEmptyParts);
    };
    for (const TypedLine &line : typedLines) {
        // Word for word, as each tab asks.
        const QStringList typed = QString::fromLatin1(line.typed).split(u'\t');
        const QStringList whole = QString::fromLatin1(line.completed).split(u' ');
        QString ahead;
        for (const QString &part : typed) {
            ahead += part;
            if (&part == &typed.back())
                break;
            const qsizetype words = ahead.split(u' ').size();
            const QString expected = whole.at(words - 1);
            const QStringList offered = offers(ahead);
            EXPECT_TRUE(offered.contains(expected) || offered.contains(expected + u'/'))
                << ahead.toStdString() << ": " << offered.join(u' ').toStdString();
            EXPECT_EQ(offered.size(), 1) << ahead.toStdString();
            ahead = whole.first(words).join(u' ');
        }
    }
}

TEST_F(CompletionsTest, of_bash_know_every_option_and_every_word)
{
    for (const Command &command : commands()) {
        const QStringList call = command.name.split(u' ');
        QStringList names;
        for (const Option &option : command.line.options) {
            names += option.names;
            const KnownValue value = knownValue(option);
            if (value.kind != KnownValue::Word && value.kind != KnownValue::WordList)
                continue;
            EXPECT_EQ(bashOffers(call + QStringList{option.names.last(), u""_s}), value.words)
                << command.name.toStdString();
        }
        EXPECT_EQ(bashOffers(call + QStringList{u"-"_s}), names) << command.name.toStdString();
    }
}

TEST_F(CompletionsTest, of_bash_know_the_place_of_an_argument)
{
    const QStringList formats = bashOffers({u"orr"_s, u"import"_s, u""_s});
    EXPECT_TRUE(formats.contains(u"ninja"_s));
    EXPECT_EQ(bashOffers({u"orr"_s, u"import"_s, u"-o"_s, u"a.svg"_s, u""_s}), formats);
    EXPECT_EQ(bashOffers({u"orr"_s, u"import"_s, u"--max"_s, u"="_s, u"5"_s, u""_s}), formats);
    EXPECT_EQ(bashOffers({u"orr"_s, u"import"_s, u"ninja"_s, u""_s}), QStringList());
    EXPECT_EQ(bashOffers({u"orr"_s, u"draw"_s, u"-T"_s, u"png,v"_s}),
              QStringList({u"png,vsdx"_s, u"png,vdx"_s}));
}
