#pragma once

#include "graph/dot_token.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

// Tokens as they stand in a text, for whoever explains what they were read as.
namespace ORR::Companion {

struct SourceToken
{
    Graph::DotToken kind = Graph::DotToken::End;
    qsizetype offset = -1;
    qsizetype end = -1;
};

// What stands ahead of a place.
struct TokensAhead
{
    SourceToken last; // the token next to it; an end if there is none
    SourceToken beforeLast;
    qsizetype comment = -1; // a comment that the place is in, or begins; -1 for none
    qsizetype openText = -1; // a value of the same list that begins with `<`; -1 for none
};
TokensAhead tokensAhead(const QByteArray &text, qsizetype offset);

// Whether the bytes begin like a comment.
bool beginsComment(QByteArrayView bytes);
// Behind the comment that begins at the offset.
qsizetype commentEnd(QByteArrayView text, qsizetype offset);

// A kind of token in words.
QString kindInWords(Graph::DotToken kind);

} // namespace ORR::Companion
