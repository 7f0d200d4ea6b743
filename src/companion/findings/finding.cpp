#include "companion/findings/finding.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

bool holdsSeverity(const FileFindings &file, Severity severity)
{
    return std::any_of(file.findings.begin(), file.findings.end(),
                       [=](const Finding &finding) { return finding.rule->severity == severity; });
}

QString severityName(Severity severity)
{
    return severity == Severity::Error ? u"error"_s : u"warning"_s;
}

} // namespace ORR::Companion
