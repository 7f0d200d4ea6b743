#include "companion/syntax/rejections.h"

#include "companion/findings/quoted_text.h"
#include "companion/syntax/head_rejections.h"
#include "companion/syntax/source_tokens.h"
#include "companion/syntax/syntax_rules.h"
#include "companion/syntax/token_rejections.h"
#include "graph/dot_tokenizer.h"
#include "graph/limits.h"

#include <QStringList>

#include <optional>

namespace ORR::Companion {

using namespace Qt::StringLiterals;
using Graph::DotFault;
using Graph::DotToken;
using Graph::unquotedAt;

namespace {

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

Explanation explainComment(const QByteArray &text, const SourceRange &comment)
{
    const qsizetype length = unquotedAt(text, comment.offset).size();
    return {&SyntaxRules::commentBreaks, u"there are no comments here"_s,
            u"leave the comment out"_s, comment.offset, comment.offset + length};
}

Explanation explainRunaway(const RunawayText &runaway)
{
    const QString extent = runaway.lines == 1 ? u"ends at the opening quote of the next one"_s
                                              : u"runs over %1 lines"_s.arg(runaway.lines);
    return {&SyntaxRules::unterminatedText,
            u"a closing quote is missing, so that the text that opens here "_s + extent,
            u"look for the end of the text"_s, runaway.text.offset, runaway.text.end};
}

// A text that ends at a quote which is meant to be a part of it.
std::optional<Explanation> explainQuote(const TokensAhead &ahead, const QByteArray &text)
{
    const qsizetype start = ahead.last.offset;
    if (ahead.last.kind != DotToken::Identifier || ahead.beforeLast.kind != DotToken::Identifier
        || ahead.beforeLast.end != start || text.at(start) == ':')
        return {};
    return Explanation{&SyntaxRules::syntaxError, u"a quote ends the text ahead of this"_s,
                       u"write a quote within a text as \\\""_s, start, ahead.last.end};
}

Explanation explain(const DotFault &fault, const TokensAhead &ahead, const QByteArray &text)
{
    using Cause = DotFault::Cause;
    if (const auto encoding = explainEncoding(text))
        return *encoding;
    // A quote that is missing turns texts into names and names into texts from there on, so that
    // what seems to be a comment behind it may be none.
    const SourceRange comment = breakingComment(text, fault.offset, ahead.comments);
    const bool runsAway = ahead.runaway.lines > 0 && fault.cause != Cause::NulByte;
    if (comment.offset >= 0 && !(runsAway && ahead.runaway.text.offset < comment.offset))
        return explainComment(text, comment);
    if (ahead.openText >= 0 || (isInList(fault) && unquotedAt(text, fault.offset).startsWith('<')))
        return {&SyntaxRules::htmlBreaks, u"angle brackets quote nothing here"_s,
                u"write the value in quotes"_s, ahead.openText,
                ahead.openText < 0 ? -1 : ahead.openText + unquotedAt(text, ahead.openText).size()};
    if (runsAway)
        return explainRunaway(ahead.runaway);
    if (ahead.last.kind == DotToken::End && fault.found != DotToken::End)
        return explainHead(fault, text);
    switch (fault.cause) {
    case Cause::UnterminatedText:
        return {&SyntaxRules::unterminatedText, u"the closing quote is missing"_s,
                u"write a quote within a text as \\\""_s};
    case Cause::NulByte:
        return {&SyntaxRules::nulByte, u"the text ends here"_s, u"save the text as UTF-8"_s};
    case Cause::UnexpectedToken:
        return explainQuote(ahead, text).value_or(explainToken(fault, ahead, text));
    default:
        return {&SyntaxRules::syntaxError, {}, {}};
    }
}

QString messageOf(const Explanation &why, const DotFault &fault, const TokensAhead &ahead)
{
    return (why.headline.isEmpty() ? QString() : why.headline + ": "_L1) + "found "_L1
        + (why.found.isEmpty() ? foundInWords(fault) : why.found) + ", expected "_L1
        + expectedInWords(fault, ahead);
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
    return {why.rule, messageOf(why, fault, ahead), why.suggestion,
            why.offset < 0 ? fault.offset : why.offset, why.offset < 0 ? fault.end : why.end};
}

Finding explainedReplay(const DotFault &fault, const QByteArray &text)
{
    const TokensAhead ahead = tokensAhead(text, fault.offset);
    Explanation why{&SyntaxRules::replaySyntaxError, u"the replay ends here"_s, {}};
    if (fault.expected.contains(DotToken::OpenBracket))
        why.suggestion = u"give every keyword and edge a list, [] at least"_s;
    else if (fault.found == DotToken::Semicolon)
        why.suggestion = u"leave the semicolon out"_s;
    return {why.rule, messageOf(why, fault, ahead), why.suggestion, fault.offset, fault.end};
}

} // namespace ORR::Companion
