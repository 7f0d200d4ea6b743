#pragma once

#include "companion/import/reading/import_source.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QList>

#include <array>
#include <optional>

namespace ORR::Companion {

// How a test ended, the worst last.
enum class TestResult { Passed, Skipped, Failed, Error };
inline constexpr size_t testResultCount = 4;

struct TestCase
{
    QByteArrayList suites = {}; // the outermost first
    QByteArray className = {};
    QByteArray name = {};
    double seconds = 0;
    TestResult result = TestResult::Passed;
};

// What was read of reports.
struct TestReport
{
    QList<TestCase> cases = {};
    QList<ImportFault> notes = {}; // times below zero, which count as none
};

// Adds the cases of a report.
std::optional<ImportFault> readTestReport(ImportSource *source, TestReport *report);

} // namespace ORR::Companion
