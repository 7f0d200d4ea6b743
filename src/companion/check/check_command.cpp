#include "companion/check/check_command.h"

#include "companion/check/check_text.h"
#include "companion/check/drawing_toolkit.h"
#include "companion/check/rules.h"
#include "companion/command/command_line.h"
#include "companion/command/streams.h"
#include "companion/command/version.h"
#include "companion/findings/json_printer.h"
#include "companion/findings/sarif_printer.h"
#include "companion/findings/text_printer.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr char whatItDoes[] = "Tell what is wrong with a graph, and where.";
constexpr char examples[] = "Examples:\n"
                            "  orr check -K treemap areas.dot\n"
                            "  orr check --format sarif --werror *.dot >findings.sarif";

struct CheckRequest
{
    std::string engine;
    std::string format = "text";
    bool warningsAreErrors = false;
    std::vector<std::string> files;
};

std::optional<int> readRequest(const CommandCall &call, CheckRequest *request)
{
    CommandLine line(call, whatItDoes, examples);
    line.add({"-K", "Check also what this engine asks for", "ENGINE"}, &request->engine);
    line.add({"--format", "text (if not given), json or sarif", "FORMAT",
              isOneOf({u"text"_s, u"json"_s, u"sarif"_s})},
             &request->format);
    line.addFlag({"--werror", "Fail for warnings, too"}, &request->warningsAreErrors);
    line.add({"FILE", "What to read; none or - for standard input"}, &request->files);
    const std::optional<int> status = line.read();
    if (request->files.empty())
        request->files = {"-"};
    return status;
}

// One call, from file to file.
class CheckRun
{
public:
    CheckRun(const CommandCall &commandCall, const CheckRequest &checkRequest)
        : call(commandCall), request(checkRequest)
    {
    }

    int run();

private:
    void check(const std::string &name, bool isLast);
    void printText(const FileFindings &file);
    void tellOnce(const QString &fault);
    QByteArray documentOf(const QList<FileFindings> &all) const;

    bool isText() const { return request.format == "text"; }

    const CommandCall &call;
    const CheckRequest &request;
    const TextForm form{printsToTerminal(), printsColors()};
    QList<FileFindings> files;
    bool readAll = true;
    bool wroteAll = true;
    bool hasToldFault = false;
};

QByteArray CheckRun::documentOf(const QList<FileFindings> &all) const
{
    if (request.format == "json")
        return findingsAsJson(all);
    return findingsAsSarif(all,
                           {u"orr check"_s, QString::fromLatin1(programVersion), checkRules()});
}

void CheckRun::printText(const FileFindings &file)
{
    wroteAll = wroteAll && print(call, findingsAsText(file, form));
}

// Behind what was found all the same.
void CheckRun::tellOnce(const QString &fault)
{
    if (!fault.isEmpty() && !hasToldFault)
        tell(call.name + ": the drawing is not checked: " + fault.toStdString());
    hasToldFault = hasToldFault || !fault.isEmpty();
}

void CheckRun::check(const std::string &name, bool isLast)
{
    const bool isInput = name == "-";
    FileFindings file{isInput ? QByteArray() : QByteArray::fromStdString(name)};
    const ReadInput input = readInput(call, name);
    if (!input.bytes) {
        const std::string shown = isInput ? "standard input" : "'" + name + "'";
        tell(call.name + ": " + shown + " can't be read: " + input.fault + '\n');
        file.fault = QString::fromStdString(input.fault);
        readAll = false;
    } else {
        const auto lastWords = [&](const QList<Finding> &findings) {
            const FileFindings soFar{file.file, findings};
            return isText() ? findingsAsText(soFar, form) : documentOf(files + QList{soFar});
        };
        file.findings =
            checkText(*input.bytes, {QString::fromStdString(request.engine), lastWords, isLast});
    }
    files += file;
    if (isText()) {
        printText(file);
        tellOnce(drawingToolkitFault());
    }
}

int statusOf(const QList<FileFindings> &files, bool warningsAreErrors)
{
    const bool failed = std::any_of(files.begin(), files.end(), [=](const FileFindings &file) {
        return holdsSeverity(file, Severity::Error)
            || (warningsAreErrors && holdsSeverity(file, Severity::Warning));
    });
    return failed ? Failed : AllWell;
}

int CheckRun::run()
{
    for (const std::string &name : request.files)
        check(name, &name == &request.files.back());
    if (!isText()) {
        wroteAll = print(call, documentOf(files));
        tellOnce(drawingToolkitFault());
    }
    if (!readAll || !wroteAll)
        return WrongUse;
    return statusOf(files, request.warningsAreErrors);
}

} // namespace

int runCheck(const CommandCall &call)
{
    CheckRequest request;
    if (const std::optional<int> status = readRequest(call, &request))
        return *status;
    if (std::count(request.files.begin(), request.files.end(), "-") > 1)
        return wrongUse(call, "standard input can be read once only");
    const int status = CheckRun(call, request).run();
#ifdef __SANITIZE_ADDRESS__
    // What its fonts hold would be taken for lost.
    endDrawingToolkit();
#endif
    return status;
}

} // namespace ORR::Companion
