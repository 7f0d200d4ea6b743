#pragma once

#include "companion/findings/finding.h"

namespace ORR::Companion {

// What a fault of a text looks like.
struct Explanation
{
    const Rule *rule;
    QString headline; // may be empty
    QString suggestion; // may be empty
    qsizetype offset = -1; // where it is not at the fault itself
    qsizetype end = -1;
    QString found = {}; // what was found, where the token itself can't be shown
};

} // namespace ORR::Companion
