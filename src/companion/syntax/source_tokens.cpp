#include "companion/syntax/source_tokens.h"

#include "graph/dot_tokenizer.h"

namespace ORR::Companion {

using namespace Qt::StringLiterals;
using Graph::DotToken;
using Graph::unquotedAt;

bool beginsComment(QByteArrayView bytes)
{
    return bytes.startsWith("//") || bytes.startsWith("/*") || bytes.startsWith('#');
}

qsizetype commentEnd(QByteArrayView text, qsizetype offset)
{
    const bool isBlock = text.sliced(offset).startsWith("/*");
    const qsizetype last = isBlock ? text.indexOf("*/", offset + 2) : text.indexOf('\n', offset);
    return last < 0 ? text.size() : last + (isBlock ? 2 : 1);
}

TokensAhead tokensAhead(const QByteArray &text, qsizetype offset)
{
    TokensAhead ahead;
    qsizetype end = 0; // of the last comment
    Graph::DotTokenizer tokens(text);
    for (; tokens.kind() != DotToken::End && tokens.offset() < offset; tokens.next()) {
        const bool isValue = ahead.last.kind == DotToken::Equals;
        ahead.beforeLast = ahead.last;
        ahead.last = {tokens.kind(), tokens.offset(), tokens.end()};
        if (tokens.kind() == DotToken::OpenBracket || tokens.kind() == DotToken::CloseBracket)
            ahead.openText = -1;
        if (tokens.kind() != DotToken::Identifier)
            continue;
        const QByteArrayView bytes = unquotedAt(text, tokens.offset());
        if (isValue && bytes.startsWith('<'))
            ahead.openText = tokens.offset();
        if (!isValue && tokens.offset() >= end && beginsComment(bytes)) {
            ahead.comment = tokens.offset();
            end = commentEnd(text, tokens.offset());
        }
    }
    if (offset >= end)
        ahead.comment = -1;
    if (ahead.comment < 0 && beginsComment(unquotedAt(text, offset)))
        ahead.comment = offset;
    return ahead;
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
