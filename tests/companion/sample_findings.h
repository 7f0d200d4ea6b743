#pragma once

#include "companion/findings/finding.h"

// Rules for tests of what holds for all rules.
inline constexpr ORR::Companion::Rule misspelt{"misspelt", ORR::Companion::Severity::Warning,
                                               "a word is misspelt", "Spell it right."};
inline constexpr ORR::Companion::Rule broken{"broken", ORR::Companion::Severity::Error,
                                             "the text is broken", "Mend it."};

// A finding of `misspelt` or another rule at an offset.
inline ORR::Companion::Finding findingAt(qsizetype offset, qsizetype end = -1,
                                         const ORR::Companion::Rule &rule = misspelt)
{
    ORR::Companion::Finding finding{&rule, QString::fromLatin1(rule.sentence.data())};
    finding.offset = offset;
    finding.end = end;
    return finding;
}
