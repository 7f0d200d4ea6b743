#pragma once

#include "companion/findings/finding.h"

#include <span>

// What `orr check` looks for: docs/check.md has an example of each.
namespace ORR::Companion {

namespace Rules {

extern const Rule syntaxError;
extern const Rule unknownEngine;

} // namespace Rules

// All rules, in the order in which they are explained.
std::span<const Rule *const> checkRules();

// The rule of an id; null if there is none.
const Rule *findRule(std::string_view id);

} // namespace ORR::Companion
