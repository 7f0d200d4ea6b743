#include "companion/findings/finding_list.h"

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

auto order(const Finding &finding)
{
    return std::tie(finding.offset, finding.rule->id, finding.end, finding.sentence,
                    finding.suggestion);
}

bool isToldBefore(const Finding &a, const Finding &b)
{
    return order(a) < order(b);
}

bool isTwin(const Finding &a, const Finding &b)
{
    return order(a) == order(b);
}

Finding rest(const Rule *rule, qint64 count)
{
    Finding finding{rule, u"... and %1 more"_s.arg(count)};
    finding.more = count;
    return finding;
}

} // namespace

void FindingList::add(const Finding &finding)
{
    OfRule &ofRule = rules[finding.rule->id];
    ofRule.rule = finding.rule;
    ofRule.kept.append(finding);
    // Twice as many as are told, so that sorting them costs little for each.
    if (ofRule.kept.size() >= 2 * mostOfRule)
        shorten(&ofRule);
}

void FindingList::removeFrom(qsizetype offset)
{
    for (auto &[id, ofRule] : rules)
        ofRule.kept.removeIf([=](const Finding &finding) { return finding.offset >= offset; });
    std::erase_if(rules, [](const auto &entry) {
        return entry.second.kept.isEmpty() && entry.second.counted == 0;
    });
}

void FindingList::shorten(OfRule *findings)
{
    QList<Finding> &kept = findings->kept;
    std::sort(kept.begin(), kept.end(), isToldBefore);
    kept.erase(std::unique(kept.begin(), kept.end(), isTwin), kept.end());
    if (kept.size() <= mostOfRule)
        return;
    findings->counted += kept.size() - mostOfRule;
    kept.resize(mostOfRule);
}

QList<Finding> FindingList::take()
{
    QList<Finding> told;
    QList<Finding> rests;
    for (auto &[id, ofRule] : rules) {
        shorten(&ofRule);
        told += ofRule.kept;
        if (ofRule.counted > 0)
            rests += rest(ofRule.rule, ofRule.counted);
    }
    rules.clear();
    std::sort(told.begin(), told.end(), isToldBefore);
    return told + rests;
}

} // namespace ORR::Companion
