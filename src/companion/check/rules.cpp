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

constexpr Rule badValue{
    "bad-value",
    Error,
    "a value is none of the type of its attribute",
    "It is taken for 0. A number has a decimal point and no unit behind it; a whole number has "
    "neither.",
};

constexpr Rule unknownColor{
    "unknown-color",
    Error,
    "a colour is neither a known name nor of the form #rrggbb or #rrggbbaa",
    "What can't be read is black. Only fills may run through several colours.",
};

constexpr Rule unknownWord{
    "unknown-word",
    Error,
    "a value is none of the words of its attribute",
    "It counts as the default, and a word of a style as nothing. Words are exact, also in their "
    "case.",
};

constexpr Rule unknownAttribute{
    "unknown-attribute",
    Warning,
    "no such attribute is known",
    "Nothing reads it. Names are exact, also in their case. Some that no engine reads are meant "
    "for "
    "whoever shows the graph and are no findings, as are href, line and tooltip.",
};

constexpr Rule unreadAttribute{
    "unread-attribute",
    Warning,
    "an attribute is given to what never reads it",
    "It changes nothing there. The page of the engine tells what it is read of.",
};

} // namespace Rules

std::span<const Rule *const> checkRules()
{
    static constexpr const Rule *rules[] = {
        &Rules::syntaxError,     &Rules::unknownEngine, &Rules::badValue,
        &Rules::unknownColor,    &Rules::unknownWord,   &Rules::unknownAttribute,
        &Rules::unreadAttribute,
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
