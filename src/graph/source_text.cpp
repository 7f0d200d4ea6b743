#include "graph/source_text.h"

#include <algorithm>
#include <cstring>

namespace ORR::Graph {

namespace {

// Bytes of the form 10xxxxxx continue a character.
bool beginsCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

} // namespace

QByteArray withLineFeeds(const QByteArray &text)
{
    const char *next = text.constData();
    const char *const end = next + text.size();
    const auto nextReturn = [&]() -> const char * {
        const void *found = next == end ? nullptr : std::memchr(next, '\r', size_t(end - next));
        return static_cast<const char *>(found);
    };
    const char *stop = nextReturn();
    if (!stop)
        return text;
    QByteArray result;
    result.reserve(text.size());
    for (; stop; stop = nextReturn()) {
        result.append(next, stop - next);
        result.append('\n');
        next = stop + 1;
        if (next < end && *next == '\n')
            ++next;
    }
    return result.append(next, end - next);
}

void SourceText::moveTo(qsizetype offset)
{
    const qsizetype target = std::clamp<qsizetype>(offset, 0, text.size());
    if (target < position) {
        position = 0;
        place = {};
        lineStart = 0;
        lineEnd = -1;
    }
    const char *const bytes = text.constData();
    while (position < target) {
        if (bytes[position++] == '\n') {
            ++place.line;
            place.column = 1;
            lineStart = position;
            lineEnd = -1;
        } else if (beginsCharacter(bytes[position])) {
            ++place.column;
        }
    }
}

SourcePlace SourceText::placeOf(qsizetype offset)
{
    moveTo(offset);
    return place;
}

QByteArrayView SourceText::lineOf(qsizetype offset)
{
    moveTo(offset);
    if (lineEnd < 0) {
        lineEnd = text.indexOf('\n', position);
        if (lineEnd < 0)
            lineEnd = text.size();
    }
    return QByteArrayView(text).sliced(lineStart, lineEnd - lineStart);
}

} // namespace ORR::Graph
