#include "companion/syntax/syntax_findings.h"

#include <algorithm>

namespace ORR::Companion {

void SyntaxFindings::add(const SyntaxFinding &finding)
{
    if (++counts[finding.rule] <= mostOfRule)
        findings.append(finding);
}

void SyntaxFindings::removeAt(qsizetype offset)
{
    findings.removeIf([&](const SyntaxFinding &finding) {
        if (finding.offset != offset)
            return false;
        --counts[finding.rule];
        return true;
    });
}

void SyntaxFindings::sortByPlace()
{
    std::stable_sort(
        findings.begin(), findings.end(),
        [](const SyntaxFinding &a, const SyntaxFinding &b) { return a.offset < b.offset; });
}

qint64 SyntaxFindings::more(const SyntaxRule *rule) const
{
    const auto kept = std::count_if(findings.begin(), findings.end(),
                                    [rule](const SyntaxFinding &f) { return f.rule == rule; });
    return counts.value(rule) - kept;
}

bool SyntaxFindings::holdsRejection() const
{
    return std::any_of(findings.begin(), findings.end(),
                       [](const SyntaxFinding &f) { return f.rule->rejection; });
}

} // namespace ORR::Companion
