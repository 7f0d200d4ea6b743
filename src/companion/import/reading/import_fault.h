#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace ORR::Companion {

// Where in an input something stands: its line, or in JSON the byte and the path to the value.
struct ImportPlace
{
    std::string source = {}; // the name of the file; "-" for standard input
    qint64 line = 0; // from 1; 0 if lines tell nothing
    qint64 offset = -1; // of a byte, from 0; -1 if it tells nothing
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

} // namespace ORR::Companion
