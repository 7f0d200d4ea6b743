#include "tools/manual/command_pages.h"

#include "companion/check/rules.h"
#include "companion/command/subcommand.h"
#include "companion/import/import_format.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace ORR::Docs {

using namespace Companion;

namespace {

// "[-K ENGINE]"
QString optionPart(const CommandDescription::Option &option)
{
    QString part = bold(option.names.constFirst());
    if (!option.value.isEmpty())
        part += "\\ "_L1 + italic(option.value); // not parted at the end of a line
    return u'[' + part + u']';
}

QString argumentPart(const CommandDescription::Option &option)
{
    return u'[' + italic(option.value) + u']' + (option.isRepeated ? u"..."_s : QString());
}

void writeSynopsis(RoffPage *page, const Command &command)
{
    page->heading(u"SYNOPSIS"_s);
    QStringList parts;
    for (const CommandDescription::Option &option : command.line.options)
        parts += optionPart(option);
    for (const CommandDescription::Option &argument : command.line.arguments)
        parts += argumentPart(argument);
    page->synopsis(command.name, parts);
    if (command.name != u"orr"_s)
        return;
    page->synopsis(command.name,
                   {italic(u"SUBCOMMAND"_s), u'[' + italic(u"ARGUMENT"_s) + u"]..."_s});
}

// A full stop behind what has none.
QString sentence(const QString &text)
{
    return text.isEmpty() || text.endsWith(u'.') ? text : text + u'.';
}

void writeOptions(RoffPage *page, const CommandDescription &line)
{
    page->heading(u"OPTIONS"_s);
    for (const CommandDescription::Option &argument : line.arguments)
        page->term(italic(argument.value), plain(sentence(argument.sentence)));
    for (const CommandDescription::Option &option : line.options) {
        QStringList names;
        for (const QString &name : option.names)
            names += bold(name);
        QString head = names.join(u", "_s);
        if (!option.value.isEmpty())
            head += u' ' + italic(option.value);
        page->term(head, plain(sentence(option.sentence)));
    }
}

void writeSubcommands(RoffPage *page, const QList<Command> &all)
{
    page->heading(u"SUBCOMMANDS"_s);
    for (const Command &command : all) {
        if (command.name.startsWith("orr "_L1))
            page->term(bold(pageName(command.name)) + u"(1)"_s, plain(command.line.sentence));
    }
}

void writeImportFormats(RoffPage *page)
{
    page->heading(u"FORMATS"_s);
    for (const ImportFormat &format : importFormats()) {
        const auto words = [](const char *text) {
            return QString::fromLatin1(text).replace(u' ', ", "_L1);
        };
        QString text = plain(QString::fromLatin1(format.origin)) + u". Drawn as "_s
            + plain(words(format.engines)) + u'.';
        if (*format.area)
            text += u" Area: "_s + plain(QString::fromLatin1(format.area)) + u'.';
        if (*format.color)
            text += u" Colour: "_s + plain(QString::fromLatin1(format.color)) + u'.';
        if (*format.options)
            text += u" Takes "_s + bold(words(format.options)) + u'.';
        page->term(bold(QString::fromLatin1(format.name)), text);
    }
}

void writeRules(RoffPage *page)
{
    const auto text = [](std::string_view words) {
        return QString::fromLatin1(words.data(), qsizetype(words.size()));
    };
    page->heading(u"RULES"_s);
    for (const Rule *rule : checkRules()) {
        const QString severity = rule->severity == Severity::Error ? u"Error: "_s : u"Warning: "_s;
        page->term(bold(text(rule->id)),
                   plain(severity + text(rule->sentence) + u". "_s + text(rule->help)));
    }
}

void writeStatuses(RoffPage *page)
{
    page->heading(u"EXIT STATUS"_s);
    for (const StatusMeaning &status : statusMeanings)
        page->term(QString::number(status.status), plain(QString::fromLatin1(status.meaning)));
}

void writeOtherPages(RoffPage *page, const Command &command, const QList<Command> &all)
{
    const bool namesAll = command.name == u"orr"_s;
    QStringList others;
    for (const Command &other : all) {
        const bool isSubcommand = other.name.contains(u' ');
        if (other.name != command.name && (!isSubcommand || namesAll))
            others += bold(pageName(other.name)) + u"(1)"_s;
    }
    others += bold(u"orrlayout-engines"_s) + u"(7)"_s;
    page->heading(u"SEE ALSO"_s);
    page->paragraph(others.join(u", "_s));
}

// What only some pages have.
void writeTables(RoffPage *page, const QString &command, const QList<Command> &all)
{
    if (command == u"orr"_s)
        writeSubcommands(page, all);
    else if (command == u"orr import"_s)
        writeImportFormats(page);
    else if (command == u"orr check"_s)
        writeRules(page);
}

} // namespace

QString pageName(const QString &command)
{
    return QString(command).replace(u' ', u'-');
}

QList<ProseSection> proseOf(const QString &page, const ManualSetting &setting)
{
    QFile file(setting.prose + u'/' + page + u".md"_s);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return readProse(QString::fromUtf8(file.readAll()));
}

ManualPage commandPage(const Command &command, const QList<Command> &all,
                       const ManualSetting &setting)
{
    const QString name = pageName(command.name);
    const QList<ProseSection> prose = proseOf(name, setting);
    if (prose.isEmpty())
        return {name, 1, {}};
    RoffPage page({name, 1, setting.date, setting.source});
    page.heading(u"NAME"_s);
    page.summary(name, command.summary);
    writeSynopsis(&page, command);
    page.heading(u"DESCRIPTION"_s);
    page.prose(prose.constFirst().blocks);
    for (const QString &note : command.line.notes)
        page.paragraph(plain(note));
    writeOptions(&page, command.line);
    writeTables(&page, command.name, all);
    if (command.name != u"orrlayout"_s)
        writeStatuses(&page);
    for (const ProseSection &section : prose.sliced(1)) {
        page.heading(section.heading);
        page.prose(section.blocks);
    }
    if (!command.line.examples.isEmpty()) {
        page.heading(u"EXAMPLES"_s);
        page.example(command.line.examples);
    }
    writeOtherPages(&page, command, all);
    return {name, 1, page.text()};
}

} // namespace ORR::Docs
