#include "tools/commands/commands.h"

#include "companion/companion.h"
#include "companion/subcommands.h"
#include "driver/command_line.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

namespace ORR::Docs {

using namespace Companion;

namespace {

QString usageOfDriver()
{
    QCommandLineParser parser;
    Driver::describeCommandLine(&parser);
    return parser.helpText();
}

CommandDescription describedBy(int (*run)(const CommandCall &call), const char *name)
{
    CommandDescription description;
    CommandCall call;
    call.name = name;
    call.description = &description;
    run(call);
    return description;
}

// A sentence as what goes on behind a dash.
QString summaryOf(const QString &sentence)
{
    QString summary = sentence.first(1).toLower() + sentence.sliced(1);
    if (summary.endsWith(u'.'))
        summary.chop(1);
    return summary;
}

// A line of the list: "-K <layout>  Use <layout> engine." has two blanks or more where the sentence
// begins.
CommandDescription::Option readLine(QStringView line)
{
    const qsizetype gap = line.indexOf("  "_L1);
    const QStringView head = gap < 0 ? line : line.first(gap);
    CommandDescription::Option option;
    option.sentence = gap < 0 ? QString() : line.sliced(gap).trimmed().toString();
    if (!head.startsWith(u'-')) {
        option.value = head.toString();
        return option;
    }
    const qsizetype value = head.indexOf(u'<');
    if (value >= 0)
        option.value = head.sliced(value).toString().remove(u'<').remove(u'>');
    option.names = head.first(value < 0 ? head.size() : value).trimmed().toString().split(u", "_s);
    return option;
}

} // namespace

CommandDescription readUsage(const QString &usage)
{
    CommandDescription description;
    QList<CommandDescription::Option> *list = nullptr;
    const QStringList lines = usage.split(u'\n');
    for (const QString &line : lines) {
        const bool goesOn = line.startsWith("   "_L1);
        if (line == "Options:"_L1)
            list = &description.options;
        else if (line == "Arguments:"_L1)
            list = &description.arguments;
        else if (!list && !line.isEmpty() && !line.startsWith("Usage: "_L1))
            description.sentence = line;
        else if (list && goesOn && !list->isEmpty())
            list->last().sentence += u' ' + line.trimmed();
        else if (list && line.startsWith("  "_L1))
            list->append(readLine(QStringView(line).sliced(2)));
    }
    return description;
}

QList<Command> commands()
{
    CommandDescription driver = readUsage(usageOfDriver());
    const QString title = driver.sentence;
    CommandDescription companion = describedBy(runCompanion, "orr");
    companion.notes.clear(); // the list of subcommands, which has pages of its own
    QList<Command> all{{u"orrlayout"_s, title, driver},
                       {u"orr"_s, summaryOf(companion.sentence), companion}};
    for (const Subcommand &subcommand : subcommands()) {
        const QString name = QString::fromLatin1(subcommand.name);
        all.append({u"orr "_s + name, summaryOf(QString::fromLatin1(subcommand.sentence)),
                    describedBy(subcommand.run, subcommand.name)});
    }
    return all;
}

} // namespace ORR::Docs
