#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace ORR::Graph {

// The text with every pair of carriage return and line feed, and then every carriage return, turned
// into a line feed; shared with the original if it has none.
QByteArray withLineFeeds(const QByteArray &text);

// A place in a text as people count it.
struct SourcePlace
{
    qsizetype line = 1; // from 1
    qsizetype column = 1; // from 1, in characters: Unicode code points
    friend bool operator==(const SourcePlace &, const SourcePlace &) = default;
};

// An input text as its reader sees it, with its line ends normalised, and where its bytes stand.
//
// Places that are asked for in ascending order take one pass over the text together, whatever its
// lines are like; one before the last place begins a new pass.
class SourceText
{
public:
    explicit SourceText(const QByteArray &input) : text(withLineFeeds(input)) { }

    // What offsets count the bytes of. Line ends are line feeds.
    const QByteArray &bytes() const { return text; }

    // Where the byte at the offset stands; an offset beyond the text is its end. A byte that begins
    // no character of UTF-8 counts as part of the character ahead of it.
    SourcePlace placeOf(qsizetype offset);

    // The line of the byte at the offset, without its line feed. It is as long as the input has it
    // and holds whatever bytes stand there.
    QByteArrayView lineOf(qsizetype offset);

private:
    void moveTo(qsizetype offset);

    QByteArray text;
    // The last place asked for, and the line it is in; -1 for an end that is not known yet.
    qsizetype position = 0;
    SourcePlace place;
    qsizetype lineStart = 0;
    qsizetype lineEnd = -1;
};

} // namespace ORR::Graph
