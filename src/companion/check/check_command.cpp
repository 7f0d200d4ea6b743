#include "companion/check/check_command.h"

#include "companion/check/check_text.h"
#include "companion/check/rules.h"
#include "companion/command/option_faults.h"
#include "companion/command/options.h"
#include "companion/command/streams.h"
#include "companion/findings/json_printer.h"
#include "companion/findings/sarif_printer.h"
#include "companion/findings/text_printer.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr char sentence[] = "Tell what is wrong with a graph, and where.";
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
    const auto app = commandLine(call, sentence, examples);
    app->add_option("-K", request->engine, "Check also what this engine asks for")
        ->type_name("ENGINE");
    app->add_option("--format", request->format, "text (if not given), json or sarif")
        ->type_name("FORMAT")
        ->check(isOneOf({u"text"_s, u"json"_s, u"sarif"_s}));
    app->add_flag("--werror", request->warningsAreErrors, "Fail for warnings, too");
    app->add_option("FILE", request->files, "What to read; none or - for standard input")
        ->type_name("");
    const std::optional<int> status = readOptions(app.get(), call);
    if (request->files.empty())
        request->files = {"-"};
    return status;
}

// The findings of one input, or nothing once the failure has been told.
std::optional<FileFindings> checkFile(const std::string &name, const CommandCall &call,
                                      const CheckOptions &options)
{
    const bool isInput = name == "-";
    const ReadInput input = readInput(call, name);
    if (!input.bytes) {
        const std::string shown = isInput ? "standard input" : "'" + name + "'";
        tell(call.name + ": " + shown + " can't be read: " + input.fault + '\n');
        return std::nullopt;
    }
    return FileFindings{isInput ? QByteArray() : QByteArray::fromStdString(name),
                        checkText(*input.bytes, options)};
}

QByteArray documentOf(const QList<FileFindings> &files, const std::string &format)
{
    if (format == "json")
        return findingsAsJson(files);
    return findingsAsSarif(files, {u"orr check"_s, QStringLiteral(ORR_VERSION), checkRules()});
}

int statusOf(const QList<FileFindings> &files, bool warningsAreErrors)
{
    const bool failed = std::any_of(files.begin(), files.end(), [=](const FileFindings &file) {
        return holdsSeverity(file, Severity::Error)
            || (warningsAreErrors && holdsSeverity(file, Severity::Warning));
    });
    return failed ? Failed : AllWell;
}

} // namespace

int runCheck(const CommandCall &call)
{
    CheckRequest request;
    if (const std::optional<int> status = readRequest(call, &request))
        return *status;
    if (std::count(request.files.begin(), request.files.end(), "-") > 1)
        return wrongUse(call, "standard input can be read once only");

    const CheckOptions options{QString::fromStdString(request.engine)};
    const TextForm form{printsToTerminal(), printsColors()};
    const bool isText = request.format == "text";
    QList<FileFindings> files;
    bool wroteAll = true;
    for (const std::string &name : request.files) {
        const std::optional<FileFindings> file = checkFile(name, call, options);
        if (!file)
            continue;
        files += *file;
        if (isText)
            wroteAll = wroteAll && print(call, findingsAsText(*file, form));
    }
    if (!isText)
        wroteAll = print(call, documentOf(files, request.format));
    if (!wroteAll || files.size() < qsizetype(request.files.size()))
        return WrongUse;
    return statusOf(files, request.warningsAreErrors);
}

} // namespace ORR::Companion
