#pragma once

#include "companion/check/rules.h"

#include <algorithm>
#include <iterator>

// Whether the finding is one of what the drawing will be, and not of its text.
inline bool isOfDrawing(const ORR::Companion::Finding &finding)
{
    using namespace ORR::Companion::Rules;
    static constexpr const ORR::Companion::Rule *rules[] = {
        &drawingFails, &blankDrawing,  &largeDrawing,   &leftOutNode,
        &unseenLabel,  &plainRichText, &missingPicture, &replacedFont,
    };
    return std::ranges::find(rules, finding.rule) != std::end(rules);
}
