#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace ORR::Companion {

// A command line in words, for who writes it down: manual pages, completions. All texts are plain.
struct CommandDescription
{
    struct Option
    {
        QStringList names; // with their dashes, short ones first; none for a mere argument
        QString sentence;
        QString value; // a word for the value, or for the argument; empty for a flag
        QStringList words; // all that the value may be, where these are a few
        bool isRepeated = false; // of an argument that may come several times
    };

    QString sentence; // what it does
    QList<Option> options; // in the order of the help
    QList<Option> arguments; // in their order
    QStringList notes; // paragraphs of the help between the options and the examples
    QStringList examples; // calls that work, as a shell has them
};

} // namespace ORR::Companion
