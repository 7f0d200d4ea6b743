#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace ORR::Graph {

enum class DotToken {
    End = 0, // end of the text, an unterminated string, or a NUL byte
    Arrow = 1, // ->
    Identifier = 2, // any name, keyword, number or string; the only kind with a text
    Comma = 3,
    Equals = 4,
    OpenBrace = 5,
    OpenBracket = 6,
    CloseBrace = 7,
    CloseBracket = 8,
    Semicolon = 9,
};

// What is thrown where a text breaks the grammar, to be caught at the entry of its parser.
inline constexpr int DotParseError = -1;

// Splits a DOT text into tokens, one at a time, over bytes. The dialect is small and has its own
// ways, which producers rely on:
// - white space is blank, tab and line feed; there are no comments;
// - an unquoted identifier ends only at white space, `,` `;` `=` `]` `}` or the end of the text, so
//   `a[label` is one;
// - a `-` that starts no arrow swallows the byte behind it: `-12` reads as "-2";
// - in a quoted string a backslash escapes only a double quote or a line feed (which both vanish).
class DotTokenizer
{
public:
    // Turns all line ends into line feeds, also within strings, and reads the first token.
    explicit DotTokenizer(const QByteArray &input);

    // Reads the next token and returns its kind. At the end it stays at the end.
    DotToken next();

    // The current token.
    DotToken kind() const { return currentKind; }
    // Its text, UTF-8; empty unless it is an identifier. Valid until the next call of `next`.
    QByteArrayView text() const { return currentText; }

    // The steps of a grammar. What is expected and does not come throws `DotParseError`.
    void expect(DotToken kind) const;
    // Steps over the token.
    void take(DotToken kind);
    // True if the token came, which then is stepped over.
    bool takeIf(DotToken kind);
    // The text of an identifier, which is stepped over.
    QString takeIdentifier();
    // The same; empty if there is none.
    QString takeIdentifierIfAny();
    // What a graph begins with: "digraph" and a name, which may be missing and counts for nothing.
    void takeGraphHead();

private:
    DotToken readToken();
    DotToken readQuoted();
    DotToken readUnquoted(qsizetype start);
    DotToken readDash();

    QByteArray input;
    qsizetype position = 0;
    QByteArrayView currentText;
    QByteArray assembled; // holds the text of a token that does not stand in the input as it is
    DotToken currentKind = DotToken::End;
};

} // namespace ORR::Graph
