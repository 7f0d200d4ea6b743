#include "tools/commands/values.h"
#include "tools/completions/completions.h"

using namespace Qt::StringLiterals;

namespace ORR::Docs {

namespace {

using Option = CommandDescription::Option;

// In single quotes of fish a backslash escapes a quote and itself.
QString fishQuoted(const QString &text)
{
    QString inner = text;
    inner.replace(u'\\', "\\\\"_L1).replace(u'\'', "\\'"_L1);
    return u'\'' + inner + u'\'';
}

// How a value is completed, behind the option or as an argument. That a value has to come is said
// by -r, that no file is one by -f.
QString valuePart(const KnownValue &value)
{
    switch (value.kind) {
    case KnownValue::Word:
        return u" -f -a "_s + fishQuoted(value.words.join(u' '));
    case KnownValue::WordList:
        return u" -f -a "_s + fishQuoted(u"(__fish_append , %1)"_s.arg(value.words.join(u' ')));
    case KnownValue::File:
        return u" -F"_s;
    case KnownValue::Folder:
        return u" -f -a '(__fish_complete_directories)'"_s;
    case KnownValue::Nothing:
        break;
    }
    return u" -f"_s;
}

QString namePart(const Option &option)
{
    QString text;
    for (const QString &name : option.names)
        text += name.startsWith("--"_L1) ? " -l "_L1 + name.sliced(2) : " -s "_L1 + name.sliced(1);
    return text;
}

// Lines for the options and arguments of a command, where `condition` holds.
QString linesOf(const Command &command, const QString &start, const QString &condition)
{
    const auto behind = [&](const QString &further) {
        const QString all = further.isEmpty() ? condition : condition + u"; and "_s + further;
        return start + (all.isEmpty() ? QString() : u" -n "_s + fishQuoted(all));
    };
    QString text;
    for (const Option &option : command.line.options) {
        const QString value =
            option.value.isEmpty() ? u" -f"_s : u" -r"_s + valuePart(knownValue(option));
        text +=
            behind({}) + namePart(option) + value + u" -d "_s + fishQuoted(option.sentence) + u'\n';
    }
    // An argument that is one of a few words is the first one.
    QString isBehind;
    for (const Option &argument : command.line.arguments) {
        const KnownValue value = knownValue(argument);
        const QString words = value.words.join(u' ');
        const bool isFirst = value.kind == KnownValue::Word;
        text += behind(isFirst ? u"not __fish_seen_subcommand_from "_s + words : isBehind)
            + valuePart(value) + u'\n';
        if (isFirst)
            isBehind = u"__fish_seen_subcommand_from "_s + words;
    }
    return text;
}

} // namespace

QByteArray fishCompletions(const QList<Command> &commands)
{
    const Command &program = commands.constFirst();
    const QString start = u"complete -c "_s + program.name;
    QString text = u"# Completions of fish for %1, as its help has them.\n"_s.arg(program.name)
        + start + u" -f\n"_s;
    const bool hasSubcommands = commands.size() > 1;
    const QString beforeSubcommand = hasSubcommands ? u"__fish_use_subcommand"_s : QString();
    text += linesOf(program, start, beforeSubcommand);
    for (const Command &command : commands.sliced(1)) {
        text += u"%1 -n %2 -a %3 -d %4\n"_s.arg(start, beforeSubcommand, ownName(command),
                                                fishQuoted(command.summary));
        text += linesOf(command, start, u"__fish_seen_subcommand_from "_s + ownName(command));
    }
    return text.toUtf8();
}

} // namespace ORR::Docs
