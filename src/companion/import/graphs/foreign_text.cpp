#include "companion/import/graphs/foreign_text.h"

#include <algorithm>

namespace ORR::Companion {

namespace {

class ForeignTextReader
{
public:
    explicit ForeignTextReader(QByteArrayView read) : text(read) { }

    ForeignTextMeasure measured();

private:
    char at(qsizetype i) const { return i < text.size() ? text[i] : '\0'; }
    bool skipComment();
    void skipString();
    void skipMarkup();
    void readBrace();

    QByteArrayView text;
    qsizetype place = 0;
    int depth = 0;
    bool isClosed = false; // the first graph
    ForeignTextMeasure found;
};

// The place is then that of its last byte. Lines that begin with "#" are those of a preprocessor.
bool ForeignTextReader::skipComment()
{
    const char c = at(place);
    const bool isHash = c == '#' && (place == 0 || at(place - 1) == '\n');
    const bool isLine = isHash || (c == '/' && at(place + 1) == '/');
    if (!isLine && (c != '/' || at(place + 1) != '*'))
        return false;
    const qsizetype end = isLine ? text.indexOf('\n', place) : text.indexOf("*/", place + 2);
    place = end < 0 ? text.size() : isLine ? end : end + 1;
    return true;
}

void ForeignTextReader::skipString()
{
    const qsizetype start = place;
    for (++place; place < text.size() && text[place] != '"'; ++place)
        place += text[place] == '\\' ? 1 : 0;
    found.longestString = std::max(found.longestString, place - start);
}

void ForeignTextReader::skipMarkup()
{
    const qsizetype start = place;
    int open = 0;
    for (; place < text.size(); ++place) {
        open += text[place] == '<' ? 1 : text[place] == '>' ? -1 : 0;
        found.deepest = std::max(found.deepest, open);
        if (open == 0)
            break;
    }
    found.longestString = std::max(found.longestString, place - start);
}

void ForeignTextReader::readBrace()
{
    depth += text[place] == '{' ? 1 : -1;
    found.deepest = std::max(found.deepest, depth);
    const bool closesGraph = !isClosed && depth == 0 && text[place] == '}';
    if (closesGraph)
        found.graphEnd = place + 1;
    isClosed = isClosed || closesGraph;
}

ForeignTextMeasure ForeignTextReader::measured()
{
    for (; place < text.size(); ++place) {
        const char c = text[place];
        if (skipComment() || c == ' ' || c == '\t' || c == '\r' || c == '\n')
            continue;
        if (isClosed && found.restLine == 0 && c != ';')
            found.restLine = 1 + text.first(place).count('\n');
        if (c == '"')
            skipString();
        else if (c == '<')
            skipMarkup();
        else if (c == '{' || c == '}')
            readBrace();
    }
    if (!isClosed)
        found.graphEnd = text.size();
    return found;
}

} // namespace

ForeignTextMeasure measuredForeignText(QByteArrayView text)
{
    return ForeignTextReader(text).measured();
}

} // namespace ORR::Companion
