#include "companion/findings/locate.h"

#include <algorithm>
#include <vector>

namespace ORR::Companion {

namespace {

// Bytes around the place. Together with what is written out they mostly fit a line of a terminal.
constexpr qsizetype mostBefore = 60;
constexpr qsizetype mostBehind = 60;

// A place that is asked for, and where the answer belongs.
struct Wanted
{
    qsizetype offset;
    qsizetype *line;
    qsizetype *column;
};

bool continuesCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

SourceExcerpt excerptOf(QByteArrayView line, qsizetype place)
{
    qsizetype first = std::max<qsizetype>(0, place - mostBefore);
    qsizetype last = std::min(line.size(), place + mostBehind);
    while (first < place && continuesCharacter(line[first]))
        ++first;
    while (last > place && last < line.size() && continuesCharacter(line[last]))
        --last;
    return {line.sliced(first, last - first).toByteArray(), place - first, first > 0,
            last < line.size()};
}

} // namespace

QList<Finding> located(QList<Finding> findings, Graph::SourceText *text)
{
    std::vector<Wanted> wanted;
    for (Finding &finding : findings) {
        if (finding.offset < 0)
            continue;
        wanted.push_back({finding.offset, &finding.line, &finding.column});
        if (finding.end >= finding.offset)
            wanted.push_back({finding.end, &finding.endLine, &finding.endColumn});
    }
    // Ascending, so that the text is gone through once.
    std::stable_sort(wanted.begin(), wanted.end(),
                     [](const Wanted &a, const Wanted &b) { return a.offset < b.offset; });
    for (const Wanted &place : wanted) {
        const Graph::SourcePlace found = text->placeOf(place.offset);
        *place.line = found.line;
        *place.column = found.column;
    }
    for (Finding &finding : findings) {
        if (finding.offset < 0)
            continue;
        const QByteArrayView line = text->lineOf(finding.offset);
        const qsizetype start = line.data() - text->bytes().constData();
        finding.excerpt =
            excerptOf(line, std::clamp<qsizetype>(finding.offset - start, 0, line.size()));
    }
    return findings;
}

} // namespace ORR::Companion
