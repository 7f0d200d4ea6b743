#pragma once

#include "companion/findings/finding.h"

#include <map>

namespace ORR::Companion {

// Collects the findings of one text, in whatever order they are found, and keeps no more of them
// than are told: of each rule the first hundred by their place. The rest are counted.
class FindingList
{
public:
    static constexpr qsizetype mostOfRule = 100;

    void add(const Finding &finding);

    // Forgets the findings from a place on, but for those that are counted already.
    void removeFrom(qsizetype offset);

    // The findings by their place, those without a place first; at one place by their rules. A
    // finding that was added twice is told once. Behind them all, for each rule that has more, one
    // that says how many; of what is counted, twins count each. The list is empty afterwards.
    QList<Finding> take();

private:
    struct OfRule
    {
        const Rule *rule = nullptr;
        QList<Finding> kept; // sorted only by `shorten`
        qint64 counted = 0;
    };

    static void shorten(OfRule *findings);

    std::map<std::string_view, OfRule> rules; // by their ids
};

} // namespace ORR::Companion
