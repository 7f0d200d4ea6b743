// What reads manual pages reads ours without a complaint, and finds there what the helps say.
#include "tools/commands/commands.h"
#include "tools/manual/command_pages.h"

#include "companion/command/subcommand.h"
#include "drawing/layout_table.h"
#include "driver/program_run.h"
#include "layout/attribute_tables.h"
#include "support/golden.h"

#include <QDir>
#include <QRegularExpression>
#include <QStandardPaths>

using namespace ORR;
using namespace ORR::Docs;
using namespace Qt::StringLiterals;

namespace {

QString fileOf(const QString &page, int section = 1)
{
    return QStringLiteral(ORR_SHARE_FOLDER "/man/man%1/%2.%1").arg(section).arg(page);
}

QStringList allFiles()
{
    QStringList files{fileOf(u"orrlayout-engines"_s, 7)};
    for (const Command &command : commands())
        files += fileOf(pageName(command.name));
    return files;
}

class ManualPagesTest : public ProgramTest
{
protected:
    // As somebody reads it at a terminal that is wide enough for every line.
    QString shown(const QString &file) const
    {
        const ProgramRun man =
            run({.arguments = {u"-Tutf8"_s, u"-Owidth=900"_s, file}, .command = u"mandoc"_s});
        QString text = QString::fromUtf8(man.output);
        static const QRegularExpression overstrike(u".\b"_s);
        return text.remove(overstrike);
    }
    static bool isMissing(const QString &reader)
    {
        return QStandardPaths::findExecutable(reader).isEmpty();
    }
    // In CI there has to be what the tests need.
    static bool mayBeMissing() { return qEnvironmentVariable("CI") != u"true"_s; }
};

} // namespace

TEST_F(ManualPagesTest, are_there_for_every_command)
{
    const auto countIn = [](const QString &section) {
        return QDir(QStringLiteral(ORR_SHARE_FOLDER "/man/") + section)
            .entryList(QDir::Files)
            .size();
    };
    for (const QString &file : allFiles())
        EXPECT_TRUE(QFile::exists(file)) << file.toStdString();
    EXPECT_EQ(countIn(u"man1"_s), commands().size());
    EXPECT_EQ(countIn(u"man7"_s), 1);
}

TEST_F(ManualPagesTest, have_no_fault_for_mandoc)
{
    if (isMissing(u"mandoc"_s) && mayBeMissing())
        GTEST_SKIP() << "there is no mandoc";
    const ProgramRun lint =
        run({.arguments = QStringList{u"-Tlint"_s} + allFiles(), .command = u"mandoc"_s});
    EXPECT_TRUE(succeeded(lint));
    EXPECT_EQ(lint.output, "");
    writeFile(u"broken.1"_s, ".TH A 1 2026-11-22\n.SH NAME\na \\- b\n.frob\n");
    EXPECT_NE(run({.arguments = {u"-Tlint"_s, path(u"broken.1"_s)}, .command = u"mandoc"_s}).status,
              0);
}

TEST_F(ManualPagesTest, are_read_by_man_without_a_warning)
{
    if ((isMissing(u"man"_s) || isMissing(u"groff"_s)) && mayBeMissing())
        GTEST_SKIP() << "there is no man with groff";
    for (const QString &file : allFiles()) {
        const ProgramRun man =
            run({.arguments = {u"--warnings"_s, u"-l"_s, file},
                 .environment = {{u"MANWIDTH"_s, u"80"_s}, {u"LC_ALL"_s, u"C.UTF-8"_s}},
                 .command = u"man"_s});
        EXPECT_TRUE(succeeded(man)) << file.toStdString();
        EXPECT_TRUE(man.output.contains("SEE ALSO")) << file.toStdString();
    }
}

TEST_F(ManualPagesTest, say_what_the_helps_say)
{
    if (isMissing(u"mandoc"_s) && mayBeMissing())
        GTEST_SKIP() << "there is no mandoc";
    for (const Command &command : commands()) {
        const QString text = shown(fileOf(pageName(command.name)));
        const auto has = [&](const QString &part) {
            EXPECT_TRUE(text.contains(part))
                << pageName(command.name).toStdString() << ": " << part.toStdString();
        };
        has(pageName(command.name) + u" - "_s + command.summary);
        for (const auto &option : command.line.options + command.line.arguments) {
            has(option.sentence);
            for (const QString &name : option.names)
                has(name);
        }
        for (const QString &note : command.line.notes)
            has(note);
        for (const QString &example : command.line.examples)
            has(example);
        for (const Companion::StatusMeaning &status : Companion::statusMeanings) {
            if (command.name != u"orrlayout"_s)
                has(QString::fromLatin1(status.meaning));
        }
    }
}

TEST_F(ManualPagesTest, have_every_engine_and_every_attribute)
{
    if (isMissing(u"mandoc"_s) && mayBeMissing())
        GTEST_SKIP() << "there is no mandoc";
    const QString text = shown(fileOf(u"orrlayout-engines"_s, 7));
    for (const QString &engine : Drawing::layoutNames())
        EXPECT_TRUE(text.contains(u"\n       "_s + engine)) << engine.toStdString();
    for (const Graph::AttributeTable *table : Graph::Layout::attributeTables()) {
        for (const Graph::AttributeRow *row : table->rows) {
            EXPECT_TRUE(text.contains(row->name.text())) << row->name.text().toStdString();
            EXPECT_TRUE(text.contains(Graph::latin1(row->meaning).sliced(1))) << row->meaning;
        }
    }
    EXPECT_TRUE(text.contains(u"navy (#000080)"_s));
}

// With all else that is written from the tables.
TEST_F(ManualPagesTest, are_installed_below_share)
{
    const ProgramRun installed = run({.arguments = {u"--install"_s, QStringLiteral(ORR_TOOLS_BUILD),
                                                    u"--prefix"_s, path(u"opt"_s)},
                                      .command = QStringLiteral(ORR_CMAKE)});
    ASSERT_EQ(installed.status, 0) << installed.errors.toStdString();
    for (const QString &file :
         {u"man/man1/orrlayout.1"_s, u"man/man1/orr-check.1"_s, u"man/man7/orrlayout-engines.7"_s,
          u"bash-completion/completions/orr"_s, u"bash-completion/completions/orrlayout"_s,
          u"zsh/vendor-completions/_orr"_s, u"fish/vendor_completions.d/orrlayout.fish"_s,
          u"orrlayout/attributes.json"_s, u"orrlayout/attributes.schema.json"_s})
        EXPECT_TRUE(QFile::exists(path(u"opt/share/"_s + file))) << file.toStdString();
}

TEST_F(ManualPagesTest, are_the_same_from_every_build)
{
    const ManualSetting setting{u"2026-11-22"_s, u"orrlayout 1.0"_s,
                                QStringLiteral(ORR_PROJECT_FOLDER "/tools/manual/prose")};
    const QList<Command> all = commands();
    for (const Command &command : all) {
        const QByteArray text = commandPage(command, all, setting).text;
        EXPECT_EQ(commandPage(command, all, setting).text, text);
        EXPECT_FALSE(text.contains(ORR_PROJECT_FOLDER)) << command.name.toStdString();
    }
    EXPECT_EQ(commandPage({u"orr frob"_s, {}, {}}, all, setting).text, "");
}
