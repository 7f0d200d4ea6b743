#include "companion/syntax/syntax_rules.h"

namespace ORR::Companion {

namespace SyntaxRules {

constexpr SyntaxRule syntaxError{
    "syntax-error",
    true,
    "the text is no graph of the dialect",
    "Nothing can be drawn from it.",
};

constexpr SyntaxRule unterminatedText{
    "unterminated-text",
    true,
    "a quoted text has no closing quote",
    "A quote within a text is written \\\".",
};

constexpr SyntaxRule nulByte{
    "nul-byte",
    true,
    "a NUL byte ends the text too early",
    "The text is to be UTF-8; other encodings have NUL bytes.",
};

constexpr SyntaxRule commentBreaks{
    "comment-rejected",
    true,
    "a comment, which the dialect does not have, breaks the text",
    "Leave comments out.",
};

constexpr SyntaxRule htmlBreaks{
    "html-text-rejected",
    true,
    "a value in angle brackets, which quote nothing here, breaks the text",
    "Write the value in quotes.",
};

constexpr SyntaxRule edgeChain{
    "edge-chain",
    true,
    "an edge has more than two ends",
    "Write a -> b -> c as a -> b; b -> c.",
};

constexpr SyntaxRule edgeToGroup{
    "edge-to-group",
    true,
    "an edge leads to nodes in braces",
    "Write a -> { b c } as a -> b; a -> c.",
};

constexpr SyntaxRule bareBraces{
    "bare-braces",
    true,
    "braces stand without the word subgraph",
    "Write { a b } as subgraph { a b }.",
};

constexpr SyntaxRule nameValueStatement{
    "name-value-statement",
    true,
    "an attribute stands outside of a list",
    "Write name=value as graph [name=value].",
};

constexpr SyntaxRule strictGraph{
    "strict-graph",
    true,
    "the text begins with strict",
    "Leave the word out: parallel edges are always kept.",
};

constexpr SyntaxRule undirectedGraph{
    "undirected-graph",
    true,
    "the graph is undirected",
    "Begin the text with digraph and write edges with ->.",
};

constexpr SyntaxRule straySeparator{
    "stray-separator",
    true,
    "a comma or a semicolon stands where none can",
    "Statements end in one semicolon or none, attributes in one comma or none.",
};

constexpr SyntaxRule secondList{
    "second-list",
    true,
    "a statement has two attribute lists",
    "Write [a=b] [c=d] as [a=b c=d].",
};

constexpr SyntaxRule missingValue{
    "missing-value",
    true,
    "an attribute has no value",
    "Write [bold] as [bold=true], with the value that is meant.",
};

constexpr SyntaxRule missingBlank{
    "missing-blank",
    true,
    "a bracket belongs to the name ahead of it",
    "Write a[b=c] as a [b=c]: only a blank ends the name.",
};

constexpr SyntaxRule textBehindGraph{
    "text-behind-graph",
    true,
    "something stands behind the graph",
    "One text is one graph; look for a closing brace too many.",
};

constexpr SyntaxRule replaySyntaxError{
    "replay-syntax-error",
    true,
    "the text can't be replayed",
    "Keywords and edges need an attribute list there, and nodes without one a semicolon.",
};

constexpr SyntaxRule comment{
    "comment",
    false,
    "a comment, which the dialect does not have, is read as nodes",
    "Leave comments out.",
};

constexpr SyntaxRule htmlText{
    "html-text",
    false,
    "angle brackets quote nothing and are part of the text",
    "Write the value in quotes; htmllabels=on makes labels rich text.",
};

constexpr SyntaxRule port{
    "port",
    false,
    "a port is read as a part of the node's name",
    "Leave the port out, or quote the name if the colon is meant.",
};

constexpr SyntaxRule undirectedEdge{
    "undirected-edge",
    false,
    "-- makes no edge and is read as a node",
    "Write a -- b as a -> b.",
};

constexpr SyntaxRule arrowInName{
    "arrow-in-name",
    false,
    "an arrow is read as a part of a name",
    "Write a->b as a -> b: only a blank ends the name.",
};

constexpr SyntaxRule bracketInName{
    "bracket-in-name",
    false,
    "a bracket is read as a part of a name",
    "Put a blank ahead of the bracket, or quote the name if the bracket is meant.",
};

constexpr SyntaxRule negativeNumber{
    "negative-number",
    false,
    "the character behind a minus sign is lost",
    "Write -12 as \"-12\".",
};

constexpr SyntaxRule unreadText{
    "unread-text",
    false,
    "what stands behind the graph is not read",
    "A NUL byte and an open quote end the text.",
};

constexpr SyntaxRule unknownOp{
    "unknown-op",
    false,
    "a drawing has an op that does not exist, which is left out",
    "Ops are E e P p L B b T H C c F S I D d; numbers that no op takes mean that a count is too "
    "low.",
};

constexpr SyntaxRule opNumber{
    "op-number",
    false,
    "an op has no number where one should be, which counts as 0",
    "Numbers are separated by blanks.",
};

constexpr SyntaxRule opCount{
    "op-count",
    false,
    "a count or a length is not that of what follows",
    "Lengths count bytes of UTF-8.",
};

constexpr SyntaxRule missingPage{
    "missing-page",
    false,
    "a drawing has no page, so that nothing of it is seen",
    "Give the graph bb=\"left,bottom,right,top\".",
};

} // namespace SyntaxRules

std::span<const SyntaxRule *const> syntaxRules()
{
    using namespace SyntaxRules;
    static constexpr const SyntaxRule *rules[] = {
        &syntaxError,     &unterminatedText,  &nulByte,       &commentBreaks,      &htmlBreaks,
        &edgeChain,       &edgeToGroup,       &bareBraces,    &nameValueStatement, &strictGraph,
        &undirectedGraph, &straySeparator,    &secondList,    &missingValue,       &missingBlank,
        &textBehindGraph, &replaySyntaxError, &comment,       &htmlText,           &port,
        &undirectedEdge,  &arrowInName,       &bracketInName, &negativeNumber,     &unreadText,
        &unknownOp,       &opNumber,          &opCount,       &missingPage,
    };
    return rules;
}

} // namespace ORR::Companion
