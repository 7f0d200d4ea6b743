#include "companion/findings/finding.h"

#include "companion/sample_findings.h"
#include "support/golden.h"

using namespace ORR::Companion;

TEST(HoldsSeverity, looks_at_all_findings)
{
    const FileFindings none{"a.dot", {}};
    const FileFindings warned{"a.dot", {findingAt(0), findingAt(1)}};
    const FileFindings failed{"a.dot", {findingAt(0), findingAt(1, -1, broken)}};
    EXPECT_FALSE(holdsSeverity(none, Severity::Warning));
    EXPECT_FALSE(holdsSeverity(none, Severity::Error));
    EXPECT_TRUE(holdsSeverity(warned, Severity::Warning));
    EXPECT_FALSE(holdsSeverity(warned, Severity::Error));
    EXPECT_TRUE(holdsSeverity(failed, Severity::Error));
}
