#include "tools/commands/values.h"
#include "tools/completions/completions.h"

using namespace Qt::StringLiterals;

namespace ORR::Docs {

namespace {

using Option = CommandDescription::Option;

// Within the brackets of a specification.
QString bracketed(const QString &text)
{
    QString result;
    for (const QChar c : text) {
        if (c == u'[' || c == u']' || c == u'\\')
            result += u'\\';
        result += c;
    }
    return u'[' + result + u']';
}

// ":ENGINE:(treemap bar)"
QString valueSpec(const Option &option)
{
    const KnownValue value = knownValue(option);
    const QString head = u':' + option.value + u':';
    switch (value.kind) {
    case KnownValue::Word:
        return head + u'(' + value.words.join(u' ') + u')';
    case KnownValue::WordList:
        return head + "_sequence compadd - "_L1 + value.words.join(u' ');
    case KnownValue::File:
        return head + "_files"_L1;
    case KnownValue::Folder:
        return head + "_files -/"_L1;
    case KnownValue::Nothing:
        break;
    }
    return head + u' ';
}

// A short option has its value behind it or in the next word, a long one behind "=" too.
QString nameSpec(const QString &name, const Option &option)
{
    if (option.value.isEmpty())
        return name;
    return name + (name.startsWith("--"_L1) ? u'=' : u'+');
}

QStringList specs(const CommandDescription &line)
{
    QStringList all;
    for (const Option &option : line.options) {
        const QString others =
            option.names.size() > 1 ? u'(' + option.names.join(u' ') + u')' : QString();
        const QString value = option.value.isEmpty() ? QString() : valueSpec(option);
        for (const QString &name : option.names)
            all +=
                singleQuoted(others + nameSpec(name, option) + bracketed(option.sentence) + value);
    }
    for (qsizetype i = 0; i < line.arguments.size(); ++i) {
        const Option &argument = line.arguments.at(i);
        const QString place = argument.isRepeated ? u"*"_s : QString::number(i + 1);
        all += singleQuoted(place + valueSpec(argument));
    }
    return all;
}

QString argumentsCall(const QString &indent, const QString &head, const QStringList &all)
{
    const QString separator = u" \\\n"_s + indent + u"    "_s;
    return indent + head + separator + all.join(separator) + u'\n';
}

// ":subcommand:((check\:"Tell ..." draw\:"..."))"
QString subcommandSpec(const QList<Command> &subcommands)
{
    QStringList words;
    for (const Command &subcommand : subcommands)
        words += u"%1\\:\"%2\""_s.arg(ownName(subcommand), subcommand.summary);
    return singleQuoted(u"1:subcommand:(("_s + words.join(u' ') + u"))"_s);
}

QString bodyOf(const QList<Command> &commands)
{
    const QString head = u"_arguments -s -S"_s;
    const QString step = u"    "_s;
    QStringList own = specs(commands.constFirst().line);
    if (commands.size() == 1)
        return argumentsCall(step, head, own);
    own += {subcommandSpec(commands.sliced(1)), u"'*::argument:->arguments'"_s};
    QString text = u"    local context state state_descr line\n    typeset -A opt_args\n"_s
        + argumentsCall(step, u"_arguments -C"_s, own)
        + u"    [[ $state == arguments ]] || return\n    case $words[1] in\n"_s;
    for (const Command &command : commands.sliced(1))
        text += step + ownName(command) + u")\n"_s
            + argumentsCall(step + step, head, specs(command.line)) + step + step + u";;\n"_s;
    return text + u"    esac\n"_s;
}

} // namespace

QByteArray zshCompletions(const QList<Command> &commands)
{
    const QString program = commands.constFirst().name;
    const QString text = u"#compdef %1\n# Completions of zsh for %1, as its help has them.\n\n"
                         "_%1()\n{\n%2}\n\n_%1 \"$@\"\n"_s.arg(program, bodyOf(commands));
    return text.toUtf8();
}

} // namespace ORR::Docs
