#pragma once

#include "companion/syntax/syntax_rules.h"

#include <QHash>
#include <QList>

namespace ORR::Companion {

// The findings of one text. A text may have millions of one rule: the first hundred that come are
// kept, the others counted.
class SyntaxFindings
{
public:
    static constexpr qint64 mostOfRule = 100;

    void add(const SyntaxFinding &finding);
    // Forgets those that are kept at the offset.
    void removeAt(qsizetype offset);
    void sortByPlace();

    const QList<SyntaxFinding> &kept() const { return findings; }
    // How many more there are of the rule than are kept.
    qint64 more(const SyntaxRule *rule) const;
    bool holdsRejection() const;

private:
    QList<SyntaxFinding> findings;
    QHash<const SyntaxRule *, qint64> counts; // of all that came
};

} // namespace ORR::Companion
