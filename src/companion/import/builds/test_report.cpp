#include "companion/import/builds/test_report.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/reading/written_number.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

class ReportReader
{
public:
    ReportReader(ImportSource *source, TestReport *read)
        : name(source->name()), reader(source->rest()), report(read)
    {
        reader.setNamespaceProcessing(false);
    }

    std::optional<ImportFault> read();

private:
    QString startElement();
    void endElement();
    QString beginCase();
    QByteArray attribute(QLatin1StringView attributeName) const;
    QString readTime(const QByteArray &written, double *seconds);
    ImportFault faultHere(const QString &sentence) const;
    bool isWithinCase() const { return caseDepth > 0; }

    std::string name;
    QXmlStreamReader reader;
    TestReport *report;
    QByteArrayList suites;
    TestCase current;
    int depth = 0; // of the element that is open
    int caseDepth = 0; // of the case that is; 0 if none
    bool hasRoot = false;
};

std::optional<ImportFault> ReportReader::read()
{
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            const QString wrong = startElement();
            if (!wrong.isEmpty())
                return faultHere(wrong);
        } else if (token == QXmlStreamReader::EndElement) {
            endElement();
        }
    }
    if (!reader.hasError())
        return std::nullopt;
    QString words = reader.errorString();
    while (words.endsWith(u'.'))
        words.chop(1);
    return faultHere(u"this is no XML: "_s + words);
}

ImportFault ReportReader::faultHere(const QString &words) const
{
    return {{.source = name, .line = reader.lineNumber()}, words};
}

QByteArray ReportReader::attribute(QLatin1StringView attributeName) const
{
    return reader.attributes().value(attributeName).toUtf8();
}

// What is wrong; empty if nothing is.
QString ReportReader::startElement()
{
    ++depth;
    const QStringView element = reader.qualifiedName();
    const bool isSuite = element == u"testsuite";
    if (!std::exchange(hasRoot, true) && !isSuite && element != u"testsuites") {
        return '<' + element.toString()
            + "> is not how a report of JUnit begins: <testsuites> or <testsuite>"_L1;
    }
    if (isWithinCase()) {
        if (depth != caseDepth + 1)
            return {};
        const TestResult told = element == u"error" ? TestResult::Error
            : element == u"failure"                 ? TestResult::Failed
            : element == u"skipped"                 ? TestResult::Skipped
                                                    : TestResult::Passed;
        current.result = std::max(current.result, told);
    } else if (isSuite) {
        suites.append(attribute("name"_L1));
    } else if (element == u"testcase") {
        return beginCase();
    }
    return {};
}

QString ReportReader::beginCase()
{
    const QByteArray status = attribute("status"_L1);
    const QByteArray result = attribute("result"_L1);
    const bool isSkipped = status == "notrun" || status == "disabled" || result == "skipped";
    caseDepth = depth;
    current = {.suites = suites,
               .className = attribute("classname"_L1),
               .name = attribute("name"_L1),
               .result = isSkipped ? TestResult::Skipped : TestResult::Passed};
    return readTime(attribute("time"_L1), &current.seconds);
}

// A time may have commas between its thousands, and stand for nothing.
QString ReportReader::readTime(const QByteArray &written, double *seconds)
{
    QByteArray digits = written.trimmed();
    digits.replace(",", "");
    if (digits.isEmpty())
        return {};
    const std::optional<double> number = writtenNumber(digits);
    if (!number)
        return quotedText(QByteArrayView(written)) + " is no time in seconds"_L1;
    if (!std::isfinite(*number))
        return quotedText(QByteArrayView(written)) + " is too large for a number"_L1;
    if (*number < 0)
        report->notes.append(faultHere(u"a time below zero counts as none"_s));
    *seconds = std::max(0.0, *number);
    return {};
}

void ReportReader::endElement()
{
    if (isWithinCase() && depth == caseDepth) {
        report->cases.append(current);
        caseDepth = 0;
    } else if (!isWithinCase() && reader.qualifiedName() == u"testsuite" && !suites.isEmpty()) {
        suites.removeLast();
    }
    --depth;
}

} // namespace

std::optional<ImportFault> readTestReport(ImportSource *source, TestReport *report)
{
    return ReportReader(source, report).read();
}

} // namespace ORR::Companion
