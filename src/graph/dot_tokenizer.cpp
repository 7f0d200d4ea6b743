#include "graph/dot_tokenizer.h"

#include "graph/source_text.h"

#include <array>

namespace ORR::Graph {

namespace {

constexpr auto stopsIdentifier = [] {
    std::array<bool, 256> stops{};
    for (const unsigned char c : {'\t', '\n', ' ', ',', ';', '=', ']', '}', '\0'})
        stops[c] = true;
    return stops;
}();

bool isStop(char c)
{
    return stopsIdentifier[static_cast<unsigned char>(c)];
}

} // namespace

DotTokenizer::DotTokenizer(const QByteArray &text) : input(withLineFeeds(text))
{
    next();
}

DotToken DotTokenizer::next()
{
    currentText = {};
    expected = {};
    currentKind = readToken();
    return currentKind;
}

void DotTokenizer::expect(DotToken kind)
{
    if (!is(kind))
        throw DotParseError;
}

void DotTokenizer::take(DotToken kind)
{
    expect(kind);
    next();
}

bool DotTokenizer::takeIf(DotToken kind)
{
    if (!is(kind))
        return false;
    next();
    return true;
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

qsizetype DotTokenizer::takeGraphHead()
{
    expect(DotToken::Identifier);
    if (currentText != QByteArrayView("digraph"))
        throw DotParseError;
    next();
    const qsizetype name = tokenStart;
    return takeIf(DotToken::Identifier) ? name : -1;
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
    while (!isStop(data[position]))
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
        const char c = data[position];
        if (c == '"')
            break;
        if (c == '\0')
            return DotToken::End;
        if (c != '\\')
            continue;
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

} // namespace ORR::Graph
