// What the helps are made of reaches who writes it down.
#include "tools/commands/commands.h"
#include "tools/commands/values.h"

#include "companion/import/import_format.h"
#include "companion/subcommands.h"
#include "drawing/format_table.h"
#include "drawing/layout_table.h"
#include "support/golden.h"

#include <algorithm>

using namespace ORR;
using namespace ORR::Docs;
using namespace Qt::StringLiterals;

namespace {

using Option = CommandDescription::Option;

Command commandCalled(const QString &name)
{
    for (const Command &command : commands()) {
        if (command.name == name)
            return command;
    }
    ADD_FAILURE() << "there is no command " << name.toStdString();
    return {};
}

Option optionCalled(const CommandDescription &line, const QString &name)
{
    for (const Option &option : line.options) {
        if (option.names.contains(name))
            return option;
    }
    ADD_FAILURE() << "there is no option " << name.toStdString();
    return {};
}

QStringList namesOf(const CommandDescription &line)
{
    QStringList names;
    for (const Option &option : line.options)
        names += option.names;
    return names;
}

} // namespace

TEST(CommandWords, are_those_of_every_program_and_subcommand)
{
    QStringList expected{u"orrlayout"_s, u"orr"_s};
    for (const Companion::Subcommand &subcommand : Companion::subcommands())
        expected += u"orr "_s + QString::fromLatin1(subcommand.name);
    QStringList found;
    for (const Command &command : commands()) {
        found += command.name;
        EXPECT_FALSE(command.summary.isEmpty()) << command.name.toStdString();
        EXPECT_FALSE(command.summary.endsWith(u'.')) << command.name.toStdString();
        for (const Option &option : command.line.options + command.line.arguments)
            EXPECT_FALSE(option.sentence.isEmpty())
                << command.name.toStdString() << ' ' << option.names.join(u' ').toStdString()
                << option.value.toStdString();
        const int examples = command.name == u"orrlayout"_s ? 0 : 2;
        EXPECT_EQ(command.line.examples.size(), examples) << command.name.toStdString();
    }
    EXPECT_EQ(found, expected);
}

TEST(CommandWords, say_what_the_help_of_a_subcommand_says)
{
    const Command check = commandCalled(u"orr check"_s);
    EXPECT_EQ(check.summary, u"tell what is wrong with a graph, and where"_s);
    EXPECT_EQ(check.line.sentence, u"Tell what is wrong with a graph, and where."_s);
    EXPECT_EQ(namesOf(check.line),
              QStringList({u"-h"_s, u"--help"_s, u"-K"_s, u"--format"_s, u"--werror"_s}));
    const Option format = optionCalled(check.line, u"--format"_s);
    EXPECT_EQ(format.value, u"FORMAT"_s);
    EXPECT_EQ(format.sentence, u"text (if not given), json or sarif"_s);
    EXPECT_EQ(format.words, QStringList({u"text"_s, u"json"_s, u"sarif"_s}));
    EXPECT_EQ(optionCalled(check.line, u"--werror"_s).value, QString());
    ASSERT_EQ(check.line.arguments.size(), 1);
    EXPECT_EQ(check.line.arguments[0].value, u"FILE"_s);
    EXPECT_TRUE(check.line.arguments[0].isRepeated);
    EXPECT_EQ(check.line.examples.constFirst(), u"orr check -K treemap areas.dot"_s);
}

TEST(CommandWords, have_the_notes_of_a_help)
{
    EXPECT_EQ(commandCalled(u"orr page"_s).line.notes,
              QStringList{u"The page is one file and needs no other: zoom, search, read, list."_s});
    EXPECT_EQ(commandCalled(u"orr check"_s).line.notes, QStringList());
    EXPECT_FALSE(commandCalled(u"orr page"_s).line.arguments[0].isRepeated);
}

TEST(CommandWords, are_read_from_a_usage_text)
{
    const CommandDescription line = readUsage(u"Usage: /x/y [options] infile\nWhat it is\n\n"
                                              "Options:\n  -h, --help   Helps.\n"
                                              "  -K <layout>  Use <layout> engine. Options are a,\n"
                                              "               b or c.\n\nArguments:\n"
                                              "  infile       Input. Standard in\n"_s);
    EXPECT_EQ(line.sentence, u"What it is"_s);
    ASSERT_EQ(line.options.size(), 2);
    EXPECT_EQ(line.options[0].names, QStringList({u"-h"_s, u"--help"_s}));
    EXPECT_EQ(line.options[0].value, QString());
    EXPECT_EQ(line.options[0].sentence, u"Helps."_s);
    EXPECT_EQ(line.options[1].names, QStringList{u"-K"_s});
    EXPECT_EQ(line.options[1].value, u"layout"_s);
    EXPECT_EQ(line.options[1].sentence, u"Use <layout> engine. Options are a, b or c."_s);
    ASSERT_EQ(line.arguments.size(), 1);
    EXPECT_EQ(line.arguments[0].value, u"infile"_s);
    EXPECT_EQ(line.arguments[0].sentence, u"Input. Standard in"_s);
}

TEST(CommandWords, have_all_options_of_orrlayout)
{
    EXPECT_EQ(namesOf(commandCalled(u"orrlayout"_s).line),
              QStringList({u"-h"_s, u"--help"_s, u"--help-all"_s, u"-v"_s, u"--version"_s, u"-K"_s,
                           u"-T"_s, u"-o"_s}));
}

TEST(KnownValues, are_engines_formats_words_files_and_folders)
{
    const auto valueOf = [](const QString &command, const QString &option) {
        return knownValue(optionCalled(commandCalled(command).line, option));
    };
    EXPECT_EQ(valueOf(u"orrlayout"_s, u"-K"_s).words, Drawing::layoutNames());
    EXPECT_EQ(valueOf(u"orrlayout"_s, u"-T"_s).words, Drawing::formatNamesForHelp());
    EXPECT_EQ(valueOf(u"orr draw"_s, u"-K"_s).words, Drawing::layoutNames());
    EXPECT_EQ(valueOf(u"orr draw"_s, u"-T"_s).kind, KnownValue::WordList);
    EXPECT_EQ(valueOf(u"orr draw"_s, u"-T"_s).words, Drawing::allFormatNames());
    EXPECT_EQ(valueOf(u"orr draw"_s, u"-d"_s).kind, KnownValue::Folder);
    EXPECT_EQ(valueOf(u"orr draw"_s, u"--report"_s).kind, KnownValue::File);
    EXPECT_EQ(valueOf(u"orr draw"_s, u"--scale"_s).kind, KnownValue::Nothing);
    EXPECT_EQ(valueOf(u"orr check"_s, u"--format"_s).words,
              QStringList({u"text"_s, u"json"_s, u"sarif"_s}));
    const KnownValue formats = knownValue(commandCalled(u"orr import"_s).line.arguments[0]);
    EXPECT_EQ(formats.words.size(), qsizetype(Companion::importFormats().size()));
    EXPECT_TRUE(formats.words.contains(u"lcov"_s));
}
