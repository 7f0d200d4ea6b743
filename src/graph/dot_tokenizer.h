#pragma once

#include "graph/dot_fault.h"
#include "graph/dot_token.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace ORR::Graph {

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
    DotToken next()
    {
        currentText = {};
        expected = {};
        currentKind = readToken();
        return currentKind;
    }

    // The current token.
    DotToken kind() const { return currentKind; }
    // Its text, UTF-8; empty unless it is an identifier. Valid until the next call of `next`.
    QByteArrayView text() const { return currentText; }
    // Where it begins, and behind its last byte, in the text with its line ends turned.
    qsizetype offset() const { return tokenStart; }
    qsizetype end() const { return position; }

    // Whether it is of this kind. Asking tells `fault` that the kind could stand here, as the steps
    // of a grammar do.
    bool is(DotToken kind)
    {
        expected.insert(kind);
        return currentKind == kind;
    }

    // The steps of a grammar. What is expected and does not come throws `DotParseError`.
    void expect(DotToken kind)
    {
        if (!is(kind))
            throw DotParseError;
    }
    // Steps over the token.
    void take(DotToken kind)
    {
        expect(kind);
        next();
    }
    // True if the token came, which then is stepped over.
    bool takeIf(DotToken kind)
    {
        if (!is(kind))
            return false;
        next();
        return true;
    }
    // The text of an identifier, which is stepped over.
    QString takeIdentifier();
    // The same; empty if there is none.
    QString takeIdentifierIfAny();
    // What a graph begins with: "digraph" and a name, which may be missing and counts for nothing.
    // The result is where the name stands, -1 if it is missing. `name`, if it is asked for, becomes
    // its text.
    qsizetype takeGraphHead(QString *name = nullptr);

    // After a step has thrown: what it found, and all that was asked for at this token.
    DotFault fault() const;

private:
    DotToken readToken();
    DotToken readQuoted();
    DotToken readUnquoted(qsizetype start);
    DotToken readDash();

    QByteArray input;
    qsizetype position = 0;
    qsizetype tokenStart = 0;
    DotTokenSet expected; // what the current token was asked for
    QByteArrayView currentText;
    QByteArray assembled; // holds the text of a token that does not stand in the input as it is
    DotToken currentKind = DotToken::End;
};

// The bytes of the unquoted token that begins at the offset, as they stand in the text, up to what
// stops an identifier. Empty where a quoted one or nothing begins.
QByteArrayView unquotedAt(QByteArrayView text, qsizetype offset);

// Behind the last byte of the identifier that begins at the offset, as it is read: of a quoted one
// behind its closing quote, or the end of the text where that is missing.
qsizetype identifierEnd(QByteArrayView text, qsizetype offset);

} // namespace ORR::Graph
