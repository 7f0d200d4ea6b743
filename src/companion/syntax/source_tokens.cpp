#include "companion/syntax/source_tokens.h"

#include "graph/dot_tokenizer.h"

#include <utility>

namespace ORR::Companion {

using namespace Qt::StringLiterals;
using Graph::DotToken;
using Graph::unquotedAt;

namespace {

// What stands behind a quoted text that is closed where it is meant to be, and the end of the text.
constexpr char behindText[] = " \t\n,;=[]{}-:";

QByteArrayView bytesOf(QByteArrayView text, const SourceToken &token)
{
    return text.sliced(token.offset, token.end - token.offset);
}

// Whether the quote that ends a text looks like one that begins the next: what follows is neither a
// blank nor a token of one character, and the text has more than one line or ends like
// `"Alpha, color="`.
bool runsAway(QByteArrayView text, const SourceToken &token)
{
    const QByteArrayView quoted = bytesOf(text, token);
    if (token.kind != DotToken::Identifier || !quoted.startsWith('"'))
        return false;
    const QByteArrayView inside = quoted.sliced(1, quoted.size() - 2).trimmed();
    const bool isGlued = token.end < text.size()
        && !QByteArrayView(behindText, sizeof behindText).contains(text.at(token.end));
    return quoted.contains('\n') ? isGlued || inside.endsWith('=')
                                 : isGlued && inside.endsWith('=');
}

// Walks along a text, and notes of each token what the next ones are explained by.
class TokenWalk
{
public:
    explicit TokenWalk(const QByteArray &read) : text(read) { }

    void take(const SourceToken &token);
    void takeFound(qsizetype offset) { findComment(offset, false); }
    TokensAhead result() && { return std::move(ahead); }

private:
    void findComment(qsizetype offset, bool isValue);

    void findRunaway(const SourceToken &token);

    const QByteArray &text;
    TokensAhead ahead;
    bool hasStrayQuote = false; // an unquoted text has one, which closes what ran away
};

void TokenWalk::findComment(qsizetype offset, bool isValue)
{
    if (!ahead.comments.empty() && offset < ahead.comments.back().end)
        return;
    const qsizetype comment = isValue
        ? commentInValue(text, offset, bytesOf(text, ahead.beforeLast))
        : commentInName(text, offset);
    if (comment >= 0)
        ahead.comments.push_back({comment, commentEnd(text, comment)});
}

// A statement that ends behind the stray quote is over: the quotes behind it are paired again.
void TokenWalk::findRunaway(const SourceToken &token)
{
    if (ahead.runaway.lines > 0) {
        hasStrayQuote = hasStrayQuote || unquotedAt(text, token.offset).count('"') % 2 == 1;
        if (hasStrayQuote && token.kind == DotToken::Semicolon)
            ahead.runaway = {};
    } else if (runsAway(text, token)) {
        ahead.runaway = {token, 1 + bytesOf(text, token).count('\n')};
        hasStrayQuote = false;
    }
}

void TokenWalk::take(const SourceToken &token)
{
    if (token.kind == DotToken::OpenBracket || token.kind == DotToken::CloseBracket)
        ahead.openText = -1;
    if (token.kind == DotToken::Identifier) {
        const bool isValue =
            ahead.last.kind == DotToken::Equals && ahead.beforeLast.kind == DotToken::Identifier;
        findComment(token.offset, isValue);
        if (isValue && text.at(token.offset) == '<')
            ahead.openText = token.offset;
    }
    findRunaway(token);
    ahead.beforeLast = ahead.last;
    ahead.last = token;
}

} // namespace

TokensAhead tokensAhead(const QByteArray &text, qsizetype offset)
{
    TokenWalk walk(text);
    Graph::DotTokenizer tokens(text);
    for (; tokens.kind() != DotToken::End && tokens.offset() < offset; tokens.next())
        walk.take({tokens.kind(), tokens.offset(), tokens.end()});
    walk.takeFound(offset);
    return std::move(walk).result();
}

QString kindInWords(DotToken kind)
{
    switch (kind) {
    case DotToken::End:
        return u"the end of the text"_s;
    case DotToken::Arrow:
        return u"'->'"_s;
    case DotToken::Identifier:
        return u"a name"_s;
    case DotToken::Comma:
        return u"','"_s;
    case DotToken::Equals:
        return u"'='"_s;
    case DotToken::OpenBrace:
        return u"'{'"_s;
    case DotToken::OpenBracket:
        return u"'['"_s;
    case DotToken::CloseBrace:
        return u"'}'"_s;
    case DotToken::CloseBracket:
        return u"']'"_s;
    case DotToken::Semicolon:
        return u"';'"_s;
    }
    return {};
}

} // namespace ORR::Companion
