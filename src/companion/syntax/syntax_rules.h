#pragma once

#include "companion/findings/finding.h"

#include <span>

// What is looked for in the syntax of a text. All of it are errors: either there is no drawing, or
// it is not what the text says.
namespace ORR::Companion {

namespace SyntaxRules {

// The reader rejects the text.
extern const Rule syntaxError;
extern const Rule unterminatedText;
extern const Rule nulByte;
extern const Rule commentBreaks;
extern const Rule htmlBreaks;
extern const Rule edgeChain;
extern const Rule edgeToGroup;
extern const Rule bareBraces;
extern const Rule nameValueStatement;
extern const Rule strictGraph;
extern const Rule undirectedGraph;
extern const Rule straySeparator;
extern const Rule secondList;
extern const Rule missingValue;
extern const Rule missingBlank;
extern const Rule textBehindGraph;
// The replay rejects the text, which the reader takes.
extern const Rule replaySyntaxError;

// The text is taken for something else than it says.
extern const Rule comment;
extern const Rule htmlText;
extern const Rule port;
extern const Rule undirectedEdge;
extern const Rule arrowInName;
extern const Rule bracketInName;
extern const Rule quoteInName;
extern const Rule negativeNumber;
extern const Rule unreadText;

// A drawing that is replayed.
extern const Rule unknownOp;
extern const Rule opNumber;
extern const Rule opCount;
extern const Rule missingPage;

} // namespace SyntaxRules

// The rules by which the reader or the replay rejects a text, and the others, each in the order in
// which they are explained. A text that is rejected has exactly one finding of a rejection, any
// other has none.
std::span<const Rule *const> rejectionRules();
std::span<const Rule *const> misreadingRules();

bool isRejection(const Rule &rule);

} // namespace ORR::Companion
