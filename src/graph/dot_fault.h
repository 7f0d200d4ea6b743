#pragma once

#include "graph/dot_token.h"

#include <QByteArray>

namespace ORR::Graph {

// Why a DOT text was rejected, and where. Offsets count the bytes of the text with its line ends
// normalised (`SourceText` turns them into lines and columns).
struct DotFault
{
    enum class Cause {
        UnexpectedToken, // `found` cannot stand here
        NotDigraph, // the text begins with another word than "digraph"
        EndOfText, // the text ends too early
        NulByte, // a NUL byte, which counts as the end of the text
        UnterminatedText, // a quoted text whose closing quote is missing, or is behind a NUL byte
        TooLong, // the text is longer than `Limits::longestInput`
        OutOfMemory, // there is less memory than the graph needs
    };

    Cause cause = Cause::UnexpectedToken;
    // The first byte of what was found: of a quoted text its opening quote, of a missing end of the
    // text its size. 0 if it is the text as a whole that cannot be read.
    qsizetype offset = 0;
    // Behind the last byte of what was found.
    qsizetype end = 0;
    DotToken found = DotToken::End;
    QByteArray text; // of an identifier: as it was read, UTF-8
    // What could have stood here instead; empty if it is the text as a whole that cannot be read.
    // The kind that was found may be among them where its text is the fault.
    DotTokenSet expected;
};

} // namespace ORR::Graph
