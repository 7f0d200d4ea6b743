#include "tools/commands/values.h"
#include "tools/completions/completions.h"

using namespace Qt::StringLiterals;

namespace ORR::Docs {

namespace {

using Option = CommandDescription::Option;

// What holds for every program, but for its name, PROGRAM, and whether it has subcommands, FIRST:
// the number of the word at which arguments begin.
constexpr QLatin1StringView frame = R"bash(
# Those of the words $1 that go on with $2.
_PROGRAM_words()
{
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$2")
}

# The same for the last one of a list with commas.
_PROGRAM_list()
{
    local ahead=
    if [[ $2 == *,* ]]; then ahead=${2%,*},; fi
    mapfile -t COMPREPLY < <(compgen -P "$ahead" -W "$1" -- "${2##*,}")
    compopt -o nospace 2>/dev/null
}

# What readline itself can tell, in the way that it quotes names.
_PROGRAM_files()
{
    compopt -o default 2>/dev/null
}

_PROGRAM_folders()
{
    compopt -o dirnames 2>/dev/null
}

# How many arguments stand ahead of the cursor.
_PROGRAM_place()
{
    local i place=0 onlyArguments=
    for ((i = FIRST; i < COMP_CWORD; i++)); do
        if [[ $onlyArguments ]]; then
            ((place++))
        elif [[ ${COMP_WORDS[i]} == -- ]]; then
            onlyArguments=1
        elif [[ ${COMP_WORDS[i]} == = ]]; then
            ((i++))
        elif _PROGRAM_takes "$1 ${COMP_WORDS[i]}"; then
            if [[ ${COMP_WORDS[i + 1]} != = ]]; then ((i++)); fi
        elif [[ ${COMP_WORDS[i]} != -?* ]]; then
            ((place++))
        fi
    done
    echo "$place"
}

_PROGRAM()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command=
    COMPREPLY=()
    if ((FIRST == 2)); then
        if ((COMP_CWORD == 1)); then
            _PROGRAM_options '' "$current"
            return
        fi
        command=${COMP_WORDS[1]}
    fi
    # "--format=js" comes as three words.
    if [[ $current == = ]]; then
        current=
    elif [[ $previous == = ]]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    if _PROGRAM_takes "$command $previous"; then
        _PROGRAM_value "$command $previous" "$current"
    elif [[ $current == -[!-]* ]] && _PROGRAM_takes "$command ${current:0:2}"; then
        _PROGRAM_value "$command ${current:0:2}" "${current:2}"
        COMPREPLY=("${COMPREPLY[@]/#/${current:0:2}}")
    elif [[ $current == -* ]]; then
        _PROGRAM_options "$command" "$current"
    else
        _PROGRAM_argument "$command $(_PROGRAM_place "$command")" "$current"
    fi
}

complete -F _PROGRAM PROGRAM
)bash"_L1;

// The lines that complete a value, of which $2 is there.
QString helpWith(const Option &option, const QString &program)
{
    const KnownValue value = knownValue(option);
    const QString words = singleQuoted(value.words.join(u' '));
    switch (value.kind) {
    case KnownValue::Word:
        return u"_%1_words %2 \"$2\""_s.arg(program, words);
    case KnownValue::WordList:
        return u"_%1_list %2 \"$2\""_s.arg(program, words);
    case KnownValue::File:
        return u"_%1_files"_s.arg(program);
    case KnownValue::Folder:
        return u"_%1_folders"_s.arg(program);
    case KnownValue::Nothing:
        break;
    }
    return u":"_s;
}

// A function with a case for each of the lines.
QString caseFunction(const QString &name, const QString &comment, const QString &word,
                     const QStringList &lines)
{
    return u"\n# %1\n%2()\n{\n    case %3 in\n    %4\n    esac\n}\n"_s.arg(comment, name, word,
                                                                           lines.join("\n    "_L1));
}

// How a command is called in the cases: the program itself has no name there.
QString caseName(const Command &command, const QList<Command> &commands)
{
    return command.name == commands.constFirst().name ? QString() : ownName(command);
}

// "'check -K' | 'check --engine'"
QString casePattern(const QString &command, const Option &option)
{
    QStringList patterns;
    for (const QString &name : option.names)
        patterns += singleQuoted(command + u' ' + name);
    return patterns.join(" | "_L1);
}

QString valueFunctions(const QString &program, const QList<Command> &commands)
{
    QStringList takes;
    QStringList values;
    for (const Command &command : commands) {
        for (const Option &option : command.line.options) {
            if (option.value.isEmpty())
                continue;
            const QString pattern = casePattern(caseName(command, commands), option);
            takes += pattern;
            values += u"%1) %2 ;;"_s.arg(pattern, helpWith(option, program));
        }
    }
    return caseFunction(u"_%1_takes"_s.arg(program),
                        u"Whether the option of a command has a value: $1 is both."_s, u"$1"_s,
                        {takes.join(" | \\\n    "_L1) + u") ;;"_s, u"*) return 1 ;;"_s})
        + caseFunction(u"_%1_value"_s.arg(program),
                       u"What the value may be, of which $2 is there."_s, u"$1"_s, values);
}

QString argumentFunction(const QString &program, const QList<Command> &commands)
{
    QStringList lines;
    for (const Command &command : commands) {
        for (qsizetype i = 0; i < command.line.arguments.size(); ++i) {
            const Option &argument = command.line.arguments.at(i);
            const QString name = singleQuoted(caseName(command, commands) + u' ');
            const QString place = argument.isRepeated ? u"*"_s : QString::number(i);
            lines += u"%1%2) %3 ;;"_s.arg(name, place, helpWith(argument, program));
        }
    }
    return caseFunction(u"_%1_argument"_s.arg(program),
                        u"What stands without an option: $1 is the command and the place of it."_s,
                        u"$1"_s, lines);
}

QString optionFunction(const QString &program, const QList<Command> &commands)
{
    QStringList lines;
    for (const Command &command : commands) {
        QStringList words;
        for (const Option &option : command.line.options)
            words += option.names;
        const QString name = caseName(command, commands);
        if (name.isEmpty()) {
            for (const Command &subcommand : commands.sliced(1))
                words += ownName(subcommand);
        }
        lines += u"%1) _%2_words %3 \"$2\" ;;"_s.arg(singleQuoted(name), program,
                                                     singleQuoted(words.join(u' ')));
    }
    return caseFunction(u"_%1_options"_s.arg(program),
                        u"The options of the command $1, or the commands themselves."_s, u"$1"_s,
                        lines);
}

} // namespace

QByteArray bashCompletions(const QList<Command> &commands)
{
    const QString program = commands.constFirst().name;
    QString common = frame;
    common.replace("PROGRAM"_L1, program);
    common.replace("FIRST"_L1, commands.size() > 1 ? "2"_L1 : "1"_L1);
    const QString text = u"# Completions of bash for %1, as its help has them.\n"_s.arg(program)
        + valueFunctions(program, commands) + argumentFunction(program, commands)
        + optionFunction(program, commands) + common;
    return text.toUtf8();
}

} // namespace ORR::Docs
