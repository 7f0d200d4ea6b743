#pragma once

#include <QString>

#include <span>
#include <string_view>

// What is looked for in the syntax of a text. All of it are errors: either there is no drawing, or
// it is not what the text says.
namespace ORR::Companion {

struct SyntaxRule
{
    std::string_view id; // words of small letters with dashes between; never changed once known
    bool rejection; // whether the reader or the replay rejects the text where the rule finds
                    // something; exactly one finding of such a rule comes from a rejected text
    std::string_view sentence; // what is found, for a list of rules
    std::string_view help; // how to write it instead
};

// Something that is wrong, at a place. Offsets count bytes of the text with its line ends
// normalised.
struct SyntaxFinding
{
    const SyntaxRule *rule = nullptr; // never null
    QString message; // what is wrong, with texts of the input as they are; no full stop
    QString suggestion = {}; // what to do; may be empty
    // The first byte of the offending token and the one behind its last; -1 for the text as a
    // whole.
    qsizetype offset = -1;
    qsizetype end = -1;
};

namespace SyntaxRules {

// The reader rejects the text.
extern const SyntaxRule syntaxError;
extern const SyntaxRule unterminatedText;
extern const SyntaxRule nulByte;
extern const SyntaxRule commentBreaks;
extern const SyntaxRule htmlBreaks;
extern const SyntaxRule edgeChain;
extern const SyntaxRule edgeToGroup;
extern const SyntaxRule bareBraces;
extern const SyntaxRule nameValueStatement;
extern const SyntaxRule strictGraph;
extern const SyntaxRule undirectedGraph;
extern const SyntaxRule straySeparator;
extern const SyntaxRule secondList;
extern const SyntaxRule missingValue;
extern const SyntaxRule missingBlank;
extern const SyntaxRule textBehindGraph;
// The replay rejects the text, which the reader takes.
extern const SyntaxRule replaySyntaxError;

// The text is taken for something else than it says.
extern const SyntaxRule comment;
extern const SyntaxRule htmlText;
extern const SyntaxRule port;
extern const SyntaxRule undirectedEdge;
extern const SyntaxRule arrowInName;
extern const SyntaxRule bracketInName;
extern const SyntaxRule negativeNumber;
extern const SyntaxRule unreadText;

// A drawing that is replayed.
extern const SyntaxRule unknownOp;
extern const SyntaxRule opNumber;
extern const SyntaxRule opCount;
extern const SyntaxRule missingPage;

} // namespace SyntaxRules

// All rules, in the order in which they are explained.
std::span<const SyntaxRule *const> syntaxRules();

} // namespace ORR::Companion
