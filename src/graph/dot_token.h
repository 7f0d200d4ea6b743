#pragma once

#include <initializer_list>

namespace ORR::Graph {

enum class DotToken {
    End = 0, // end of the text, an unterminated string, or a NUL byte
    Arrow = 1, // ->
    Identifier = 2, // any name, keyword, number or string; the only kind with a text
    Comma = 3,
    Equals = 4,
    OpenBrace = 5,
    OpenBracket = 6,
    CloseBrace = 7,
    CloseBracket = 8,
    Semicolon = 9,
};

// Some of the kinds of token.
class DotTokenSet
{
public:
    constexpr DotTokenSet() = default;
    constexpr DotTokenSet(std::initializer_list<DotToken> kinds)
    {
        for (const DotToken kind : kinds)
            insert(kind);
    }

    constexpr void insert(DotToken kind) { bits |= 1U << unsigned(kind); }
    constexpr bool contains(DotToken kind) const { return (bits >> unsigned(kind) & 1U) != 0; }
    constexpr bool isEmpty() const { return bits == 0; }
    friend constexpr bool operator==(DotTokenSet, DotTokenSet) = default;

private:
    unsigned bits = 0;
};

} // namespace ORR::Graph
