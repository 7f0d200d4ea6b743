#include "companion/draw/draw_command.h"

#include "companion/command/command_line.h"
#include "companion/draw/draw_run.h"
#include "companion/draw/job_line.h"
#include "companion/findings/terminal_text.h"
#include "companion/jobs/worker.h"
#include "drawing/format_table.h"
#include "drawing/home_directory.h"
#include "output/files/file_name.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr char sentence[] = "Make many drawings, by several processes.";
constexpr char examples[] = "Examples:\n"
                            "  orr draw -K treemap -T svg,png *.dot\n"
                            "  orr draw -K treemap --changed -d . --report log.jsonl areas.dot";

constexpr double longestTime = 1e6; // seconds
constexpr int mostWorkers = 1024;

// The options as they were given.
struct DrawOptions
{
    std::string engine;
    std::string formats;
    std::string folder;
    std::string output;
    std::string jobs;
    std::string shard;
    std::string report;
    std::vector<std::string> files;
    bool beside = false;
    bool onlyChanged = false;
    int workers = 0;
    std::optional<double> scale;
    std::string background;
    bool embedded = false;
    std::string fonts;
    double timeLimit = 0;
    qint64 memoryLimit = 0;
};

// What every subcommand that draws files has.
void addSharedOptions(CommandLine *line, DrawOptions *options)
{
    line->add({"-K", "Engine; else the root's attribute layout", "ENGINE"}, &options->engine);
    line->add({"-T", "Formats, as svg,png (if not given, svg)", "FORMATS"}, &options->formats);
    line->addFlag({"-O", "Write beside the inputs, which is usual"}, &options->beside);
    line->add({"-d", "Write below this folder, at the same place", "DIR"}, &options->folder);
    line->add({"-o", "Write the only drawing", "FILE"}, &options->output);
    line->add({"--scale", "PNG, JPEG: so many times the pixels", "S",
               isNumber(smallestScale, largestScale)},
              &options->scale);
    line->add({"--background", "A colour below everything", "COLOUR"}, &options->background);
    line->addFlag({"--embed", "SVG: for a place within a page"}, &options->embedded);
    line->add({"-j", "Workers (as many as cores)", "N", isWholeNumber(1, mostWorkers)},
              &options->workers);
    line->add({"--timeout", "Seconds that a drawing may take", "S", isNumber(0.001, longestTime)},
              &options->timeLimit);
    line->add({"FILE", "What to draw"}, &options->files);
}

// What only `orr draw` has.
void addDrawOptions(CommandLine *line, DrawOptions *options)
{
    line->describe("-o", "Write the only drawing; - is standard output");
    line->describe("FILE", "What to draw; - for standard input, which needs -o");
    line->add({"--jobs", "Take jobs as JSON lines, answer on output", "FILE"}, &options->jobs);
    line->add(
        {"--memory", "Megabytes that a drawing may take", "MB", isWholeNumber(1, qint64(1) << 30)},
        &options->memoryLimit);
    line->add({"--fonts", "machine (usual) or pinned, which are alike anywhere", "FONTS",
               isOneOf({u"machine"_s, u"pinned"_s})},
              &options->fonts);
    line->addFlag({"--changed", "Draw only what has changed since"}, &options->onlyChanged);
    line->add({"--shard", "Draw this of so many equal parts", "I/N"}, &options->shard);
    line->add({"--report", "Write a JSON line for each drawing", "FILE"}, &options->report);
}

std::optional<int> readArguments(const CommandCall &call, const DrawUse &use, DrawOptions *options)
{
    CommandLine line(call, use.sentence, use.examples);
    line.keepHelpShort(); // its line of use names the inputs
    addSharedOptions(&line, options);
    use.addOptions(&line);
    return line.read();
}

std::optional<quint64> readNumber(const std::string &text)
{
    bool isNumber = false;
    const quint64 number = QByteArray::fromStdString(text).toULongLong(&isNumber);
    return isNumber && number > 0 ? std::optional(number) : std::nullopt;
}

std::optional<Shard> readShard(const std::string &text)
{
    if (text.empty())
        return Shard();
    const size_t slash = text.find('/');
    if (slash == std::string::npos)
        return std::nullopt;
    const auto index = readNumber(text.substr(0, slash));
    const auto count = readNumber(text.substr(slash + 1));
    if (!index || !count || *index > *count)
        return std::nullopt;
    return Shard{*index, *count};
}

// Where the system gives a process less than the machine has, it counts that.
int usualWorkers()
{
    const auto cores = int(std::thread::hardware_concurrency());
    return std::clamp(cores, 1, mostWorkers);
}

// What does not go together; empty if all does.
std::string contradiction(const DrawOptions &options)
{
    const int places = options.beside + !options.folder.empty() + !options.output.empty();
    if (places > 1)
        return "-O, -d and -o exclude each other";
    if (!options.jobs.empty() && !options.files.empty())
        return "--jobs names the inputs, and takes no others";
    if (!options.jobs.empty() && !options.output.empty())
        return "--jobs names the outputs, and takes no -o";
    if (options.jobs.empty() && options.files.empty() && options.output.empty())
        return "an input is missing";
    if (!options.output.empty() && options.files.size() > 1)
        return "-o takes one drawing only";
    if (options.output.empty() && std::ranges::count(options.files, "-") > 0)
        return "a drawing of standard input needs -o";
    if (options.output == "-" && options.onlyChanged)
        return "--changed looks at files, and -o - writes none";
    return {};
}

// Why nothing can be written below a folder; empty if it can.
std::string folderFault(const std::string &folder)
{
    struct stat status = {};
    if (::stat(folder.c_str(), &status) != 0)
        return std::strerror(errno);
    if (!S_ISDIR(status.st_mode))
        return std::strerror(ENOTDIR);
    return ::access(folder.c_str(), W_OK) == 0 ? std::string() : std::strerror(errno);
}

// The formats, by name or by the suffix of the only output. Gives what is wrong.
std::string readKinds(const DrawOptions &options, QList<DrawingOptions> *kinds)
{
    QStringList names = QString::fromStdString(options.formats).split(u',');
    if (options.formats.empty()) {
        const auto bySuffix = Drawing::chooseFromAllFormats(
            QString(), Graph::fileNameText(QByteArray::fromStdString(options.output)));
        if (!bySuffix && !options.output.empty() && options.output != "-")
            return "the format of '" + options.output + "' is not known; -T gives it";
        names = {bySuffix ? QString(Drawing::formatRow(*bySuffix).name) : u"svg"_s};
    }
    const auto formats = readFormats(names);
    if (const auto *const fault = std::get_if<QString>(&formats))
        return fault->toStdString();
    if (!options.engine.empty()) {
        const QString fault = engineFault(QString::fromStdString(options.engine));
        if (!fault.isEmpty())
            return fault.toStdString();
    }
    const char *const html = std::getenv("ORR_GVLAYOUT_USE_HTML");
    for (const qint32 format : std::get<QList<qint32>>(formats))
        *kinds += {QByteArray::fromStdString(options.engine), format,
                   html && std::strcmp(html, "1") == 0};
    if (!options.output.empty() && kinds->size() > 1)
        return "-o takes one format only";
    return {};
}

// What is asked for beside engines and formats. Gives what is wrong.
std::string readExtras(const DrawOptions &options, DrawRequest *request)
{
    AskedExtras &extras = request->extras;
    extras.scale = options.scale;
    if (options.embedded)
        extras.embedded = true;
    if (!options.background.empty()) {
        extras.background = QByteArray::fromStdString(options.background);
        const QString fault = backgroundFault(QString::fromStdString(options.background));
        if (!fault.isEmpty())
            return fault.toStdString();
    }
    // Jobs may name other formats.
    const QString unused = options.jobs.empty() ? unusedExtra(extras, request->kinds) : QString();
    if (!unused.isEmpty())
        return "--" + unused.toStdString();
    applyExtras(extras, &request->kinds);
    return {};
}

// Has the process and its workers take the fonts that are asked for. Gives what is wrong.
std::string takeFonts(const std::string &fonts)
{
    if (fonts != "pinned")
        return {};
    const auto clues = Drawing::homeClues(QString::fromLocal8Bit(program_invocation_name));
    const QString file = Drawing::pinnedFontsFile(Drawing::findHome(clues).directory);
    if (!QFile::exists(file))
        return "--fonts: there is no fonts.conf in the installation";
    ::setenv("FONTCONFIG_FILE", QFile::encodeName(file).constData(), 1);
    return {};
}

std::optional<std::string> given(const std::string &text)
{
    return text.empty() ? std::nullopt : std::optional(text);
}

// The names of standard streams as this program has them.
void renameStreams(DrawOptions *options)
{
    for (std::string &file : options->files) {
        if (isStandardStream(QByteArray::fromStdString(file)))
            file.assign(1, '-');
    }
    if (isStandardStream(QByteArray::fromStdString(options->output)))
        options->output.assign(1, '-');
}

// Gives what is wrong.
std::string readRequest(const DrawOptions &options, DrawRequest *request)
{
    std::string fault = contradiction(options);
    if (fault.empty())
        fault = readKinds(options, &request->kinds);
    if (fault.empty())
        fault = readExtras(options, request);
    if (fault.empty())
        fault = takeFonts(options.fonts);
    if (!fault.empty())
        return fault;
    const std::optional<Shard> shard = readShard(options.shard);
    if (!shard)
        return "--shard: '" + options.shard + "' is no I/N with I from 1 to N";
    if (!options.folder.empty()) {
        fault = folderFault(options.folder);
        if (!fault.empty())
            return '\'' + options.folder + "' can't be written to: " + fault;
        request->folder = QByteArray::fromStdString(options.folder);
    }
    if (!options.output.empty())
        request->output = QByteArray::fromStdString(options.output);
    request->jobs = given(options.jobs);
    request->files = options.files;
    if (!request->jobs && request->files.empty())
        request->files = {"-"};
    request->workers = options.workers > 0 ? options.workers : usualWorkers();
    request->settings.timeLimit = std::chrono::milliseconds(std::llround(options.timeLimit * 1000));
    request->settings.memoryLimit = options.memoryLimit;
    request->settings.measuresMemory = !options.report.empty() || !options.jobs.empty();
    request->onlyChanged = options.onlyChanged;
    request->shard = *shard;
    request->report = given(options.report);
    return {};
}

std::optional<int> readRequestInto(const CommandCall &call, const DrawUse &use,
                                   DrawOptions *options, DrawRequest *request)
{
    if (const std::optional<int> status = readArguments(call, use, options))
        return status;
    renameStreams(options);
    // Names in it may hold line feeds.
    const std::string fault = terminalText(readRequest(*options, request)).toStdString();
    return fault.empty() ? std::nullopt : std::optional(wrongUse(call, fault));
}

} // namespace

int runDraw(const CommandCall &call)
{
    if (!call.arguments.empty() && call.arguments.front() == workerArgument)
        return runWorker(call);
    DrawOptions options;
    const DrawUse use{sentence, examples,
                      [&](CommandLine *line) { addDrawOptions(line, &options); }};
    DrawRequest request;
    if (const auto status = readRequestInto(call, use, &options, &request))
        return *status;
    return DrawRun(call, request).run();
}

std::optional<int> readDrawRequest(const CommandCall &call, const DrawUse &use,
                                   DrawRequest *request)
{
    DrawOptions options;
    return readRequestInto(call, use, &options, request);
}

} // namespace ORR::Companion
