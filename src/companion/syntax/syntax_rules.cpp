#include "companion/syntax/syntax_rules.h"

#include <algorithm>

namespace ORR::Companion {

namespace SyntaxRules {

using enum Severity;

constexpr Rule syntaxError{
    "syntax-error",
    Error,
    "the text is no graph of the dialect",
    "Nothing can be drawn from it.",
};

constexpr Rule unterminatedText{
    "unterminated-text",
    Error,
    "a quoted text has no closing quote",
    "A quote within a text is written \\\".",
};

constexpr Rule nulByte{
    "nul-byte",
    Error,
    "a NUL byte ends the text too early",
    "The text is to be UTF-8; other encodings have NUL bytes.",
};

constexpr Rule commentBreaks{
    "comment-rejected",
    Error,
    "a comment, which the dialect does not have, breaks the text",
    "Leave comments out.",
};

constexpr Rule htmlBreaks{
    "html-text-rejected",
    Error,
    "a value in angle brackets, which quote nothing here, breaks the text",
    "Write the value in quotes.",
};

constexpr Rule edgeChain{
    "edge-chain",
    Error,
    "an edge has more than two ends",
    "Write a -> b -> c as a -> b; b -> c.",
};

constexpr Rule edgeToGroup{
    "edge-to-group",
    Error,
    "an edge leads to nodes in braces",
    "Write a -> { b c } as a -> b; a -> c.",
};

constexpr Rule bareBraces{
    "bare-braces",
    Error,
    "braces stand without the word subgraph",
    "Write { a b } as subgraph { a b }.",
};

constexpr Rule nameValueStatement{
    "name-value-statement",
    Error,
    "an attribute stands outside of a list",
    "Write name=value as graph [name=value].",
};

constexpr Rule strictGraph{
    "strict-graph",
    Error,
    "the text begins with strict",
    "Leave the word out: parallel edges are always kept.",
};

constexpr Rule undirectedGraph{
    "undirected-graph",
    Error,
    "the graph is undirected",
    "Begin the text with digraph and write edges with ->.",
};

constexpr Rule straySeparator{
    "stray-separator",
    Error,
    "a comma or a semicolon stands where none can",
    "Statements end in one semicolon or none, attributes in one comma or none.",
};

constexpr Rule secondList{
    "second-list",
    Error,
    "a statement has two attribute lists",
    "Write [a=b] [c=d] as [a=b c=d].",
};

constexpr Rule missingValue{
    "missing-value",
    Error,
    "an attribute has no value",
    "Write [bold] as [bold=true], with the value that is meant.",
};

constexpr Rule missingBlank{
    "missing-blank",
    Error,
    "a bracket belongs to the name ahead of it",
    "Write a[b=c] as a [b=c]: only a blank ends the name.",
};

constexpr Rule textBehindGraph{
    "text-behind-graph",
    Error,
    "something stands behind the graph",
    "One text is one graph; look for a closing brace too many.",
};

constexpr Rule replaySyntaxError{
    "replay-syntax-error",
    Error,
    "the text can't be replayed",
    "Keywords and edges need an attribute list there, and nodes without one a semicolon.",
};

constexpr Rule comment{
    "comment",
    Error,
    "a comment, which the dialect does not have, is read as nodes or as a part of a text",
    "Leave comments out.",
};

constexpr Rule htmlText{
    "html-text",
    Error,
    "angle brackets quote nothing and are part of the text",
    "Write the value in quotes. Labels are plain text; orrlayout takes them for HTML if its "
    "environment has ORR_GVLAYOUT_USE_HTML=1.",
};

constexpr Rule port{
    "port",
    Error,
    "a port is read as a part of the node's name, or as a node of its own",
    "Leave the port out, or quote the name if the colon is meant.",
};

constexpr Rule undirectedEdge{
    "undirected-edge",
    Error,
    "-- makes no edge and is read as a node or as a part of a name",
    "Write a -- b as a -> b.",
};

constexpr Rule arrowInName{
    "arrow-in-name",
    Error,
    "an arrow is read as a name or as a part of one",
    "Write a->b as a -> b: only a blank ends the name. Write a <- b as b -> a.",
};

constexpr Rule bracketInName{
    "bracket-in-name",
    Error,
    "a bracket is read as a part of a name",
    "Put a blank ahead of the bracket, or quote the name if the bracket is meant.",
};

constexpr Rule quoteInName{
    "quote-in-name",
    Error,
    "a quote is read as a part of a name or a value",
    "A quote is missing ahead of it, or it is a typographic one. Within a quoted text a quote is "
    "written \\\".",
};

constexpr Rule negativeNumber{
    "negative-number",
    Error,
    "the character behind a minus sign is lost",
    "Write -12 as \"-12\".",
};

constexpr Rule unreadText{
    "unread-text",
    Error,
    "what stands behind the graph is not read",
    "A NUL byte and an open quote end the text.",
};

constexpr Rule unknownOp{
    "unknown-op",
    Error,
    "a drawing has an op that does not exist, which is left out",
    "Ops are E e P p L B b T H C c F S I D d; numbers that no op takes mean that a count is too "
    "low.",
};

constexpr Rule opNumber{
    "op-number",
    Error,
    "an op has no number where one should be, which counts as 0",
    "Numbers are separated by blanks.",
};

constexpr Rule opCount{
    "op-count",
    Error,
    "a count or a length is not that of what follows",
    "Lengths count bytes of UTF-8.",
};

constexpr Rule missingPage{
    "missing-page",
    Error,
    "a drawing has no page, so that nothing of it is seen",
    "Give the graph bb=\"left,bottom,right,top\".",
};

} // namespace SyntaxRules

std::span<const Rule *const> rejectionRules()
{
    using namespace SyntaxRules;
    static constexpr const Rule *rules[] = {
        &syntaxError,     &unterminatedText,  &nulByte,    &commentBreaks,      &htmlBreaks,
        &edgeChain,       &edgeToGroup,       &bareBraces, &nameValueStatement, &strictGraph,
        &undirectedGraph, &straySeparator,    &secondList, &missingValue,       &missingBlank,
        &textBehindGraph, &replaySyntaxError,
    };
    return rules;
}

std::span<const Rule *const> misreadingRules()
{
    using namespace SyntaxRules;
    static constexpr const Rule *rules[] = {
        &comment,       &htmlText,    &port,           &undirectedEdge, &arrowInName,
        &bracketInName, &quoteInName, &negativeNumber, &unreadText,     &unknownOp,
        &opNumber,      &opCount,     &missingPage,
    };
    return rules;
}

bool isRejection(const Rule &rule)
{
    return std::ranges::find(rejectionRules(), &rule) != rejectionRules().end();
}

} // namespace ORR::Companion
