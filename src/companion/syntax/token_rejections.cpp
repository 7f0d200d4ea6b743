#include "companion/syntax/token_rejections.h"

#include "companion/findings/quoted_text.h"
#include "companion/syntax/syntax_rules.h"
#include "graph/dot_tokenizer.h"

#include <algorithm>

namespace ORR::Companion {

using namespace Qt::StringLiterals;
using Graph::DotFault;
using Graph::DotToken;
using Graph::unquotedAt;

namespace {

// Whether a statement could begin at the fault.
bool isAtStatement(const DotFault &fault)
{
    return fault.expected.contains(DotToken::CloseBrace);
}

Explanation plain(const QString &headline, const QString &suggestion)
{
    return {&SyntaxRules::syntaxError, headline, suggestion};
}

// The unquoted name ahead of the fault that took in a bracket or a brace; null for none. What is in
// the brackets may begin behind a blank: a[ label=x ].
const SourceToken *tookBracket(const DotFault &fault, const TokensAhead &ahead, QByteArrayView text)
{
    for (const SourceToken *token : {&ahead.last, &ahead.beforeLast}) {
        const QByteArrayView name = unquotedAt(text, token->offset);
        if (token->kind == DotToken::Identifier && (name.contains('[') || name.contains('{')))
            return token;
        if (ahead.last.kind != DotToken::Identifier || !isAtStatement(fault))
            break;
    }
    return nullptr;
}

QByteArrayView bytesOf(const QByteArray &text, const SourceToken &token)
{
    return QByteArrayView(text).sliced(token.offset, token.end - token.offset);
}

Explanation explainEquals(const DotFault &fault, const TokensAhead &ahead, const QByteArray &text)
{
    if (!isAtStatement(fault) || ahead.last.kind != DotToken::Identifier)
        return plain({}, {});
    if (fault.end < text.size() && text.at(fault.end) == '>')
        return plain(u"'=>' makes no edge"_s, u"write a -> b"_s);
    constexpr qsizetype longestName = 40;
    const QByteArrayView name = bytesOf(text, ahead.last);
    const QString list =
        u"[%1=...]"_s.arg(QString::fromUtf8(name.first(std::min(name.size(), longestName))));
    // A name directly ahead of it, on the same line, is what the attribute is for.
    const bool hasOwner = ahead.beforeLast.kind == DotToken::Identifier
        && !QByteArrayView(text)
                .sliced(ahead.beforeLast.end, ahead.last.offset - ahead.beforeLast.end)
                .contains('\n');
    return {&SyntaxRules::nameValueStatement, u"attributes stand in lists only"_s,
            (hasOwner ? "write "_L1 : "write graph "_L1) + list, ahead.last.offset, ahead.last.end};
}

Explanation explainSeparator(const DotFault &fault)
{
    if (isInList(fault))
        return {&SyntaxRules::straySeparator, u"a separator stands where none can"_s,
                u"put a blank or one comma between attributes"_s};
    return {&SyntaxRules::straySeparator, u"a separator stands where none can"_s,
            fault.found == DotToken::Comma ? u"put a blank or ';' between statements"_s
                                           : u"leave it out"_s};
}

// What stands in statements only: the end of the list is missing.
bool isBeyondList(DotToken kind)
{
    return kind == DotToken::Arrow || kind == DotToken::OpenBracket || kind == DotToken::OpenBrace
        || kind == DotToken::CloseBrace;
}

Explanation explainList(const DotFault &fault, const TokensAhead &ahead, const QByteArray &text)
{
    if (isInList(fault) && isBeyondList(fault.found))
        return plain({}, u"close the list ahead of this with ']'"_s);
    // Behind a name without a value comes the next name, a comma or the end of the list.
    if (fault.expected == Graph::DotTokenSet{DotToken::Equals}
        && ahead.last.kind == DotToken::Identifier) {
        if (bytesOf(text, ahead.last) == "+")
            return {&SyntaxRules::syntaxError, u"'+' joins no texts here"_s, u"write them as one"_s,
                    ahead.last.offset, ahead.last.end};
        const bool isBehindWord = !unquotedAt(text, ahead.beforeLast.offset).isEmpty()
            && ahead.beforeLast.kind == DotToken::Identifier;
        return {&SyntaxRules::missingValue, u"an attribute needs a value"_s,
                isBehindWord ? u"write name=value, or a value of several words in quotes"_s
                             : u"write name=value"_s,
                ahead.last.offset, ahead.last.end};
    }
    if (ahead.last.kind == DotToken::Equals && fault.found == DotToken::CloseBracket)
        return {&SyntaxRules::missingValue, u"an attribute needs a value"_s,
                u"write \"\" for an empty one"_s};
    return plain({}, {});
}

Explanation explainBehindGraph(const DotFault &fault)
{
    const auto behind = [](const QString &suggestion) {
        return Explanation{&SyntaxRules::textBehindGraph, u"the graph is over"_s, suggestion};
    };
    if (fault.found == DotToken::Semicolon)
        return behind(u"leave the semicolon out"_s);
    const QByteArray word = fault.text.toLower();
    if (word == "digraph" || word == "graph" || word == "strict" || word.startsWith("digraph{"))
        return behind(u"write each graph into a text of its own"_s);
    return behind(u"look for a closing brace too many"_s);
}

Explanation explainArrow(const TokensAhead &ahead, const QByteArray &text)
{
    switch (ahead.last.kind) {
    case DotToken::CloseBrace:
        return {&SyntaxRules::edgeToGroup, u"an edge comes from one node"_s,
                u"write a statement for each edge: a -> c; b -> c"_s};
    case DotToken::CloseBracket:
        return plain(u"an attribute list ends its statement"_s,
                     u"write the edge ahead of its list: a -> b [...]"_s);
    case DotToken::Identifier:
        if (ahead.beforeLast.kind == DotToken::Arrow)
            return {&SyntaxRules::edgeChain, u"an edge has two ends"_s,
                    u"write a statement for each edge: a -> b; b -> c"_s};
        return plain(quotedText(bytesOf(text, ahead.last)) + u" is a keyword and no node"_s,
                     u"give the node another name"_s);
    default:
        return plain(u"an edge begins with a node"_s, u"write a -> b"_s);
    }
}

// What should be the second end of an edge.
Explanation explainHeadOfEdge(const DotFault &fault)
{
    if (fault.found == DotToken::OpenBrace)
        return {&SyntaxRules::edgeToGroup, u"an edge leads to one node"_s,
                u"write a statement for each edge: a -> b; a -> c"_s};
    return plain(u"an edge needs a second end"_s, u"write a -> b"_s);
}

bool isKeyword(const QByteArray &text, const SourceToken &token, QByteArrayView word)
{
    return token.kind == DotToken::Identifier && bytesOf(text, token) == word;
}

// What should be the name of a graph or its opening brace.
Explanation explainBody(const DotFault &fault, const TokensAhead &ahead, const QByteArray &text)
{
    if (fault.found == DotToken::Identifier)
        return plain({}, u"write a name of several words in quotes"_s);
    if (isKeyword(text, ahead.last, "subgraph") || isKeyword(text, ahead.beforeLast, "subgraph"))
        return plain(u"a subgraph stands with its body only"_s, u"write subgraph x { ... }"_s);
    return plain({}, {});
}

Explanation explainOpenBrace(const DotFault &fault, const TokensAhead &ahead,
                             const QByteArray &text)
{
    // The word for it is read as a node: a -> subgraph { b c }, a -> subgraph s { b c }.
    for (const SourceToken &token : {ahead.last, ahead.beforeLast}) {
        if (isKeyword(text, token, "subgraph"))
            return {&SyntaxRules::edgeToGroup, u"an edge leads to one node"_s,
                    u"write a statement for each edge: a -> b; a -> c"_s, token.offset, token.end};
    }
    if (isAtStatement(fault))
        return {&SyntaxRules::bareBraces, u"braces belong to a subgraph"_s,
                u"write subgraph { ... }"_s};
    return plain({}, {});
}

} // namespace

bool isInList(const DotFault &fault)
{
    return fault.expected.contains(DotToken::CloseBracket)
        || fault.expected == Graph::DotTokenSet{DotToken::Equals};
}

Explanation explainToken(const DotFault &fault, const TokensAhead &ahead, const QByteArray &text)
{
    if (fault.expected == Graph::DotTokenSet{DotToken::End})
        return explainBehindGraph(fault);
    if (const SourceToken *name = tookBracket(fault, ahead, text))
        return {&SyntaxRules::missingBlank,
                quotedText(unquotedAt(text, name->offset)) + u" is one name"_s,
                u"put a blank ahead of the bracket"_s, name->offset, name->end};
    if (ahead.last.kind == DotToken::Arrow)
        return explainHeadOfEdge(fault);
    if (fault.expected.contains(DotToken::OpenBrace))
        return explainBody(fault, ahead, text);
    switch (fault.found) {
    case DotToken::Arrow:
        if (isAtStatement(fault))
            return explainArrow(ahead, text);
        break;
    case DotToken::Equals:
        return explainEquals(fault, ahead, text);
    case DotToken::OpenBrace:
        return explainOpenBrace(fault, ahead, text);
    case DotToken::OpenBracket:
        if (ahead.last.kind == DotToken::CloseBracket)
            return {&SyntaxRules::secondList, u"a statement has one attribute list"_s,
                    u"put all attributes into the first one"_s};
        if (ahead.last.kind == DotToken::Semicolon)
            return plain(u"an attribute list belongs to a statement"_s,
                         u"leave the semicolon ahead of it out"_s);
        break;
    case DotToken::Comma:
    case DotToken::Semicolon:
        if (fault.expected != Graph::DotTokenSet{DotToken::Equals})
            return explainSeparator(fault);
        break;
    default:
        break;
    }
    return explainList(fault, ahead, text);
}

} // namespace ORR::Companion
