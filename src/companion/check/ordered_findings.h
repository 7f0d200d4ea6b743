#pragma once

#include "companion/findings/finding_list.h"

namespace ORR::Companion {

// The findings of one rule that one pass over a text makes, in the order of the text. Only those
// that may be told get a sentence: a million of them cost little more than their count.
class OrderedFindings
{
public:
    OrderedFindings(const Rule &rule, FindingList *list) : ofRule(&rule), findings(list) { }

    // `make` gives the finding at this place; it is asked only if the finding is told.
    template <typename Make>
    void add(qsizetype offset, const Make &make)
    {
        if (count++ < FindingList::mostOfRule)
            findings->add(make());
        else
            findings->add({ofRule, QString(), QString(), offset, -1});
    }

private:
    const Rule *ofRule;
    FindingList *findings;
    qsizetype count = 0;
};

} // namespace ORR::Companion
