#pragma once

#include "companion/findings/finding.h"

#include <span>

// What `orr check` looks for beside the syntax (syntax_rules.h): docs/check.md has an example of
// each.
namespace ORR::Companion {

namespace Rules {

extern const Rule unknownEngine;
extern const Rule badValue;
extern const Rule senselessValue;
extern const Rule unknownColor;
extern const Rule unknownWord;
extern const Rule unknownAttribute;
extern const Rule unreadAttribute;
extern const Rule engineAttribute;
extern const Rule sharedId;
extern const Rule undeclaredNode;
extern const Rule sharedPlace;
extern const Rule misplacedLegend;
extern const Rule edgeWithoutCell;
extern const Rule outsideGrid;
extern const Rule noGridPlace;
extern const Rule sectionWithoutFragment;
extern const Rule returnWithoutCall;

// Of what the drawing will be.
extern const Rule drawingFails;
extern const Rule blankDrawing;
extern const Rule largeDrawing;
extern const Rule leftOutNode;
extern const Rule unseenLabel;
extern const Rule plainRichText;
extern const Rule missingPicture;
extern const Rule replacedFont;

} // namespace Rules

// All rules, those of the syntax first, in the order in which they are explained.
std::span<const Rule *const> checkRules();

// The rule of an id; null if there is none.
const Rule *findRule(std::string_view id);

} // namespace ORR::Companion
