#include "companion/check/rules.h"

namespace ORR::Companion {

namespace Rules {

using enum Severity;

constexpr Rule syntaxError{
    "syntax-error",
    Error,
    "the text is no graph of the dialect",
    "Nothing can be drawn: orrlayout ends with \"Unable to parse dot input\".",
};

constexpr Rule unknownEngine{
    "unknown-engine",
    Error,
    "the layout engine does not exist",
    "The engine that -K names draws the graph; there is no other one to take its place.",
};

} // namespace Rules

std::span<const Rule *const> checkRules()
{
    static constexpr const Rule *rules[] = {
        &Rules::syntaxError,
        &Rules::unknownEngine,
    };
    return rules;
}

const Rule *findRule(std::string_view id)
{
    for (const Rule *rule : checkRules()) {
        if (rule->id == id)
            return rule;
    }
    return nullptr;
}

} // namespace ORR::Companion
