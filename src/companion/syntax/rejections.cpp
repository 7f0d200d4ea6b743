#include "companion/syntax/rejections.h"

#include "companion/findings/quoted_text.h"
#include "companion/syntax/source_tokens.h"
#include "companion/syntax/syntax_rules.h"
#include "graph/dot_tokenizer.h"
#include "graph/limits.h"

#include <QStringList>

namespace ORR::Companion {

using namespace Qt::StringLiterals;
using Graph::DotFault;
using Graph::DotToken;
using Graph::unquotedAt;

namespace {

struct Explanation
{
    const Rule *rule;
    QString headline;
    QString suggestion;
    qsizetype offset = -1; // where it is not at the fault itself
    qsizetype end = -1;
};

QString foundInWords(const DotFault &fault)
{
    switch (fault.cause) {
    case DotFault::Cause::UnterminatedText:
        return u"a text without its closing quote"_s;
    case DotFault::Cause::NulByte:
        return u"a NUL byte"_s;
    default:
        return fault.found == DotToken::Identifier ? quotedText(QByteArrayView(fault.text))
                                                   : kindInWords(fault.found);
    }
}

QString expectedInWords(const DotFault &fault, const TokensAhead &ahead)
{
    if (fault.cause == DotFault::Cause::NotDigraph || ahead.last.kind == DotToken::End)
        return u"'digraph'"_s;
    QStringList words;
    for (const DotToken kind :
         {DotToken::Identifier, DotToken::Arrow, DotToken::Equals, DotToken::OpenBracket,
          DotToken::CloseBracket, DotToken::OpenBrace, DotToken::CloseBrace, DotToken::Comma,
          DotToken::Semicolon, DotToken::End}) {
        if (!fault.expected.contains(kind))
            continue;
        if (kind != DotToken::Identifier)
            words += kindInWords(kind);
        else if (fault.expected.contains(DotToken::CloseBrace))
            words += u"a statement"_s;
        else if (fault.expected.contains(DotToken::CloseBracket))
            words += u"an attribute"_s;
        else
            words += ahead.last.kind == DotToken::Equals ? u"a value"_s : u"a name"_s;
    }
    const QString last = words.isEmpty() ? QString() : words.takeLast();
    return words.isEmpty() ? last : words.join(", "_L1) + " or "_L1 + last;
}

// Whether a statement could begin at the fault.
bool isAtStatement(const DotFault &fault)
{
    return fault.expected.contains(DotToken::CloseBrace);
}

bool isInList(const DotFault &fault)
{
    return fault.expected.contains(DotToken::CloseBracket)
        || fault.expected == Graph::DotTokenSet{DotToken::Equals};
}

Explanation explainHead(const DotFault &fault)
{
    const QByteArray &word = fault.text;
    if (word == "strict")
        return {&SyntaxRules::strictGraph, u"there are no strict graphs here"_s,
                u"leave 'strict' out: parallel edges are kept"_s};
    if (word == "graph")
        return {&SyntaxRules::undirectedGraph, u"there are no undirected graphs here"_s,
                u"begin with 'digraph' and write edges with '->'"_s};
    if (word.startsWith("\xEF\xBB\xBF"))
        return {&SyntaxRules::syntaxError, u"the text begins with a byte order mark"_s,
                u"save it as UTF-8 without one"_s};
    if (word.startsWith("digraph{"))
        return {&SyntaxRules::missingBlank, u"'{' belongs to the name ahead of it"_s,
                u"put a blank ahead of it"_s};
    if (word.toLower() == "digraph")
        return {&SyntaxRules::syntaxError, u"keywords are written in small letters"_s,
                u"write 'digraph'"_s};
    return {&SyntaxRules::syntaxError, {}, {}};
}

// A bracket or a brace that the unquoted name ahead of the fault took in.
bool tookBracket(const TokensAhead &ahead, QByteArrayView text)
{
    if (ahead.last.kind != DotToken::Identifier)
        return false;
    const QByteArrayView name = unquotedAt(text, ahead.last.offset);
    return name.contains('[') || name.contains('{');
}

Explanation explainEquals(const DotFault &fault, const TokensAhead &ahead, const QByteArray &text)
{
    if (!isAtStatement(fault) || ahead.last.kind != DotToken::Identifier)
        return {&SyntaxRules::syntaxError, {}, {}};
    const QByteArrayView name =
        QByteArrayView(text).sliced(ahead.last.offset, ahead.last.end - ahead.last.offset);
    return {&SyntaxRules::nameValueStatement, u"attributes stand in lists only"_s,
            u"write graph [%1=...]"_s.arg(
                QString::fromUtf8(name.first(std::min<qsizetype>(name.size(), 40)))),
            ahead.last.offset, ahead.last.end};
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

Explanation explainList(const DotFault &fault, const TokensAhead &ahead)
{
    // Behind a name without a value comes the next name, a comma or the end of the list.
    if (fault.expected == Graph::DotTokenSet{DotToken::Equals}
        && ahead.last.kind == DotToken::Identifier)
        return {&SyntaxRules::missingValue, u"an attribute needs a value"_s, u"write name=value"_s,
                ahead.last.offset, ahead.last.end};
    if (ahead.last.kind == DotToken::Equals && fault.found == DotToken::CloseBracket)
        return {&SyntaxRules::missingValue, u"an attribute needs a value"_s,
                u"write \"\" for an empty one"_s};
    return {&SyntaxRules::syntaxError, {}, {}};
}

Explanation explainToken(const DotFault &fault, const TokensAhead &ahead, const QByteArray &text)
{
    if (fault.expected == Graph::DotTokenSet{DotToken::End})
        return {&SyntaxRules::textBehindGraph, u"the graph is over"_s,
                u"look for a closing brace too many"_s};
    if (tookBracket(ahead, text))
        return {&SyntaxRules::missingBlank,
                quotedText(unquotedAt(text, ahead.last.offset)) + u" is one name"_s,
                u"put a blank ahead of the bracket"_s, ahead.last.offset, ahead.last.end};
    switch (fault.found) {
    case DotToken::Arrow:
        if (ahead.last.kind == DotToken::Identifier && ahead.beforeLast.kind == DotToken::Arrow)
            return {&SyntaxRules::edgeChain, u"an edge has two ends"_s,
                    u"write a statement for each edge: a -> b; b -> c"_s};
        break;
    case DotToken::Equals:
        return explainEquals(fault, ahead, text);
    case DotToken::OpenBrace:
        if (ahead.last.kind == DotToken::Arrow)
            return {&SyntaxRules::edgeToGroup, u"an edge leads to one node"_s,
                    u"write a statement for each edge: a -> b; a -> c"_s};
        if (isAtStatement(fault))
            return {&SyntaxRules::bareBraces, u"braces belong to a subgraph"_s,
                    u"write subgraph { ... }"_s};
        break;
    case DotToken::OpenBracket:
        if (ahead.last.kind == DotToken::CloseBracket)
            return {&SyntaxRules::secondList, u"a statement has one attribute list"_s,
                    u"put all attributes into the first one"_s};
        break;
    case DotToken::Comma:
    case DotToken::Semicolon:
        if (fault.expected != Graph::DotTokenSet{DotToken::Equals})
            return explainSeparator(fault);
        break;
    default:
        break;
    }
    return explainList(fault, ahead);
}

Explanation explain(const DotFault &fault, const TokensAhead &ahead, const QByteArray &text)
{
    if (ahead.comment >= 0)
        return {&SyntaxRules::commentBreaks, u"there are no comments here"_s,
                u"leave the comment out"_s, ahead.comment,
                ahead.comment + unquotedAt(text, ahead.comment).size()};
    if (ahead.openText >= 0 || (isInList(fault) && unquotedAt(text, fault.offset).startsWith('<')))
        return {&SyntaxRules::htmlBreaks, u"angle brackets quote nothing here"_s,
                u"write the value in quotes"_s, ahead.openText,
                ahead.openText < 0 ? -1 : ahead.openText + unquotedAt(text, ahead.openText).size()};
    switch (fault.cause) {
    case DotFault::Cause::NotDigraph:
        return explainHead(fault);
    case DotFault::Cause::UnterminatedText:
        return {&SyntaxRules::unterminatedText, u"the closing quote is missing"_s,
                u"write a quote within a text as \\\""_s};
    case DotFault::Cause::NulByte:
        return {&SyntaxRules::nulByte, u"the text ends here"_s, u"save the text as UTF-8"_s};
    case DotFault::Cause::UnexpectedToken:
        return explainToken(fault, ahead, text);
    default:
        return {&SyntaxRules::syntaxError, {}, {}};
    }
}

QString messageOf(const QString &headline, const DotFault &fault, const TokensAhead &ahead)
{
    return (headline.isEmpty() ? QString() : headline + ": "_L1) + "found "_L1 + foundInWords(fault)
        + ", expected "_L1 + expectedInWords(fault, ahead);
}

} // namespace

Finding explained(const DotFault &fault, const QByteArray &text)
{
    if (fault.cause == DotFault::Cause::TooLong)
        return {&SyntaxRules::syntaxError,
                u"the text has more than %1 bytes"_s.arg(Graph::Limits::longestInput)};
    if (fault.cause == DotFault::Cause::OutOfMemory)
        return {&SyntaxRules::syntaxError, u"the graph takes more memory than there is"_s};
    const TokensAhead ahead = tokensAhead(text, fault.offset);
    const Explanation why = explain(fault, ahead, text);
    return {why.rule, messageOf(why.headline, fault, ahead), why.suggestion,
            why.offset < 0 ? fault.offset : why.offset, why.offset < 0 ? fault.end : why.end};
}

Finding explainedReplay(const DotFault &fault, const QByteArray &text)
{
    const TokensAhead ahead = tokensAhead(text, fault.offset);
    QString suggestion;
    if (fault.expected.contains(DotToken::OpenBracket))
        suggestion = u"give every keyword and edge a list, [] at least"_s;
    else if (fault.found == DotToken::Semicolon)
        suggestion = u"leave the semicolon out"_s;
    return {&SyntaxRules::replaySyntaxError, messageOf(u"the replay ends here"_s, fault, ahead),
            suggestion, fault.offset, fault.end};
}

} // namespace ORR::Companion
