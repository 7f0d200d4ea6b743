#include "tools/completions/completions.h"

using namespace Qt::StringLiterals;

namespace ORR::Docs {

QList<Command> commandsOf(const QString &program, const QList<Command> &all)
{
    QList<Command> own;
    for (const Command &command : all) {
        if (command.name == program || command.name.startsWith(program + u' '))
            own += command;
    }
    return own;
}

QString ownName(const Command &command)
{
    return command.name.section(u' ', -1);
}

QString singleQuoted(const QString &text)
{
    return u'\'' + QString(text).replace(u'\'', "'\\''"_L1) + u'\'';
}

} // namespace ORR::Docs
