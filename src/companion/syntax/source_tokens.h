#pragma once

#include "companion/syntax/comments.h"
#include "graph/dot_token.h"

#include <QByteArray>
#include <QString>

#include <vector>

// Tokens as they stand in a text, for whoever explains what they were read as.
namespace ORR::Companion {

struct SourceToken
{
    Graph::DotToken kind = Graph::DotToken::End;
    qsizetype offset = -1;
    qsizetype end = -1;
};

// A quoted text that seems to run beyond what was meant, since a closing quote is missing: the
// quote that ends it is glued to a name, as an opening one is.
struct RunawayText
{
    SourceToken text; // an end if there is none
    qsizetype lines = 0; // that it is on
};

// What stands ahead of a place.
struct TokensAhead
{
    SourceToken last; // the token next to it; an end if there is none
    SourceToken beforeLast;
    std::vector<SourceRange> comments; // that begin ahead of it or there
    qsizetype openText = -1; // a value of the same list that begins with `<`; -1 for none
    RunawayText runaway; // the first one
};
TokensAhead tokensAhead(const QByteArray &text, qsizetype offset);

// A kind of token in words.
QString kindInWords(Graph::DotToken kind);

} // namespace ORR::Companion
