#include "graph/dot_tokenizer.h"

#include "graph/source_text.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace ORR::Graph {

namespace {

// A byte each, so that a text is walked over with one look-up a byte.
using ByteSet = std::array<bool, 256>;

constexpr ByteSet setOf(std::initializer_list<unsigned char> bytes)
{
    ByteSet set{};
    for (const unsigned char c : bytes)
        set[c] = true;
    return set;
}

constexpr ByteSet stopsIdentifier = setOf({'\t', '\n', ' ', ',', ';', '=', ']', '}', '\0'});
constexpr ByteSet mattersWithinQuotes = setOf({'"', '\\', '\0'});

bool isIn(const ByteSet &set, char c)
{
    return set[static_cast<unsigned char>(c)];
}

} // namespace

DotTokenizer::DotTokenizer(const QByteArray &text) : input(withLineFeeds(text))
{
    next();
}

QString DotTokenizer::takeIdentifier()
{
    expect(DotToken::Identifier);
    const QString identifier = QString::fromUtf8(currentText);
    next();
    return identifier;
}

QString DotTokenizer::takeIdentifierIfAny()
{
    return is(DotToken::Identifier) ? takeIdentifier() : QString();
}

qsizetype DotTokenizer::takeGraphHead(QString *name)
{
    expect(DotToken::Identifier);
    if (currentText != QByteArrayView("digraph"))
        throw DotParseError;
    next();
    if (!is(DotToken::Identifier))
        return -1;
    const qsizetype place = tokenStart;
    if (name)
        *name = takeIdentifier();
    else
        next();
    return place;
}

DotFault DotTokenizer::fault() const
{
    using Cause = DotFault::Cause;
    DotFault fault{Cause::UnexpectedToken,    tokenStart, position, currentKind,
                   currentText.toByteArray(), expected};
    // An identifier where one could stand: the steps above ask for no text but that of the head.
    if (currentKind == DotToken::Identifier && expected.contains(DotToken::Identifier))
        fault.cause = Cause::NotDigraph;
    else if (currentKind == DotToken::End)
        fault.cause = tokenStart == input.size()   ? Cause::EndOfText
            : input.constData()[tokenStart] == '"' ? Cause::UnterminatedText
                                                   : Cause::NulByte;
    return fault;
}

// Reading one byte past the end is fine throughout: a QByteArray ends in a NUL.
DotToken DotTokenizer::readToken()
{
    const char *const data = input.constData();
    while (data[position] == ' ' || data[position] == '\t' || data[position] == '\n')
        ++position;
    tokenStart = position;
    switch (data[position]) {
    case '\0':
        return DotToken::End;
    case ',':
        ++position;
        return DotToken::Comma;
    case '=':
        ++position;
        return DotToken::Equals;
    case '{':
        ++position;
        return DotToken::OpenBrace;
    case '[':
        ++position;
        return DotToken::OpenBracket;
    case '}':
        ++position;
        return DotToken::CloseBrace;
    case ']':
        ++position;
        return DotToken::CloseBracket;
    case ';':
        ++position;
        return DotToken::Semicolon;
    case '-':
        return readDash();
    case '"':
        return readQuoted();
    default:
        return readUnquoted(position);
    }
}

DotToken DotTokenizer::readUnquoted(qsizetype start)
{
    const char *const data = input.constData();
    while (!isIn(stopsIdentifier, data[position]))
        ++position;
    currentText = QByteArrayView(data + start, position - start);
    return DotToken::Identifier;
}

DotToken DotTokenizer::readDash()
{
    ++position;
    if (input.constData()[position] == '>') {
        ++position;
        return DotToken::Arrow;
    }
    // The byte behind the dash is stepped over unseen, whatever it is.
    if (position < input.size())
        ++position;
    readUnquoted(position);
    assembled = QByteArray("-").append(currentText);
    currentText = assembled;
    return DotToken::Identifier;
}

DotToken DotTokenizer::readQuoted()
{
    const char *const data = input.constData();
    ++position;
    qsizetype start = position;
    bool pieces = false; // part of the text stands in `assembled` already
    const auto flush = [&] {
        if (!pieces)
            assembled.truncate(0);
        pieces = true;
        assembled.append(data + start, position - start);
    };
    for (;; ++position) {
        while (!isIn(mattersWithinQuotes, data[position]))
            ++position;
        const char c = data[position];
        if (c == '"')
            break;
        if (c == '\0')
            return DotToken::End;
        const char escaped = data[position + 1];
        if (escaped != '\n' && escaped != '"')
            continue;
        flush();
        ++position;
        // A line feed vanishes with its backslash; a quote begins the next piece of the text.
        start = escaped == '"' ? position : position + 1;
    }
    if (pieces) {
        assembled.append(data + start, position - start);
        currentText = assembled;
    } else {
        currentText = QByteArrayView(data + start, position - start);
    }
    ++position;
    return DotToken::Identifier;
}

QByteArrayView unquotedAt(QByteArrayView text, qsizetype offset)
{
    if (offset < 0 || offset >= text.size() || text.at(offset) == '"')
        return {};
    qsizetype end = offset;
    while (end < text.size() && !isIn(stopsIdentifier, text.at(end)))
        ++end;
    return text.sliced(offset, end - offset);
}

qsizetype identifierEnd(QByteArrayView text, qsizetype offset)
{
    qsizetype end = offset;
    if (end < text.size() && text.at(end) == '"') {
        for (++end; end < text.size() && text.at(end) != '"'; ++end) {
            const bool isEscape = text.at(end) == '\\' && end + 1 < text.size()
                && (text.at(end + 1) == '"' || text.at(end + 1) == '\n');
            if (isEscape)
                ++end;
        }
        return std::min(end + 1, text.size());
    }
    // A dash takes the byte behind it along, whatever it is.
    if (end < text.size() && text.at(end) == '-')
        end = std::min(end + 2, text.size());
    while (end < text.size() && !isIn(stopsIdentifier, text.at(end)))
        ++end;
    return end;
}

} // namespace ORR::Graph
