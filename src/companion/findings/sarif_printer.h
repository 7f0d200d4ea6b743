#pragma once

#include "companion/findings/finding.h"

#include <span>

namespace ORR::Companion {

// Who found the findings.
struct SarifTool
{
    QString name;
    QString version;
    std::span<const Rule *const> rules; // all that it has; those of the findings are among them
};

// All findings as one log of the Static Analysis Results Interchange Format 2.1.0 (OASIS), which
// ends in a line feed: one run with the rules, an artifact for each input and a result for each
// finding. A relative name of a file is a relative URI, bytes that may not stand there
// percent-encoded; standard input is "%3Cstdin%3E". An input that can't be read is a notification
// of the invocation, which then has no success.
QByteArray findingsAsSarif(const QList<FileFindings> &files, const SarifTool &tool);

} // namespace ORR::Companion
