#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace ORR::Companion {

// Where in an input something stands: its line, or in JSON the byte and the path to the value; of a
// document a line all of them.
struct ImportPlace
{
    std::string source = {}; // the name of the file; "-" for standard input
    qint64 line = 0; // from 1; 0 if lines tell nothing
    qint64 offset = -1; // of a byte, from 0, of the line if there is one; -1 if it tells nothing
    QString path = {}; // "$.spans[3].name"
};

// What is wrong with an input, or worth to be told of it: "'DA:x' is no line of coverage; DA: is
// followed by a line and its count". One sentence without a full stop; parts of the input in it as
// they are.
struct ImportFault
{
    ImportPlace place;
    QString sentence;
};

// The same of many places: the first is told, with how many there are.
struct CountedNote
{
    qint64 count = 0;
    ImportPlace first = {};

    void add(const ImportPlace &place)
    {
        if (count++ == 0)
            first = place;
    }
    // Appends what is wrong with them, if there are any: "rows below zero are passed over: 3 of
    // them".
    void tell(const QString &sentence, QList<ImportFault> *notes) const
    {
        if (count > 0)
            notes->append({first, QStringLiteral("%1: %2 of them").arg(sentence).arg(count)});
    }
};

} // namespace ORR::Companion
