#include "companion/import/import_command.h"

#include "companion/command/command_line.h"
#include "companion/command/drawn_output.h"
#include "companion/command/streams.h"
#include "companion/findings/nearest_word.h"
#include "companion/import/import_format.h"
#include "companion/import/import_output.h"
#include "companion/import/strange_input.h"
#include "companion/import/trees/csv_columns.h"
#include "drawing/sudden_end.h"
#include "drawing/toolkit.h"
#include "graph/message_text.h"

#include <algorithm>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

namespace Files = std::filesystem;

constexpr char sentence[] = "Make a graph or a drawing of what another tool wrote.";
constexpr char examples[] = "The formats, with their engines and options: orr import --formats\n\n"
                            "Examples:\n"
                            "  du -ab . | orr import du -o sizes.svg\n"
                            "  orr import dot -o areas.html areas.dot";

struct Asked
{
    std::string format;
    std::vector<std::string> files;
    std::string output = "-";
    std::string engine;
    std::string size = "1200x800";
    int most = 2000;
    std::string title;
    ImportOptions options;
    bool listsFormats = false;
};

// The two numbers of "1200x800"; nothing if it is something else.
std::optional<std::pair<double, double>> sizeOf(const std::string &text)
{
    const QStringList parts = QString::fromStdString(text).split(u'x');
    bool isWidth = false;
    bool isHeight = false;
    const int width = parts.first().toInt(&isWidth);
    const int height = parts.last().toInt(&isHeight);
    constexpr int least = 100;
    constexpr int greatest = 100'000;
    if (parts.size() != 2 || !isWidth || !isHeight || std::min(width, height) < least
        || std::max(width, height) > greatest)
        return std::nullopt;
    return std::pair<double, double>(width, height);
}

QString sizeFault(const std::string &value)
{
    return sizeOf(value) ? QString()
                         : u"has to be WIDTHxHEIGHT in points, 100 to 100000 each, like 1200x800"_s;
}

std::optional<int> readArguments(const CommandCall &call, Asked *asked)
{
    CommandLine line(call, sentence, examples);
    ImportOptions &own = asked->options;
    line.keepHelpShort();
    line.add({"-o", "A graph (.dot), a drawing (.svg ...), a page (.html)", "FILE"},
             &asked->output);
    line.add({"-K", "Engine; else the best one for the format", "ENGINE"}, &asked->engine);
    line.add({"--size", "The page, in points; 1200x800", "WxH", {sizeFault}}, &asked->size);
    line.add(
        {"--max", "Things drawn, smaller ones together; 2000", "N", isWholeNumber(1, 1'000'000)},
        &asked->most);
    line.add({"--title", "Else what the data is called", "TITLE"}, &asked->title);
    line.add({"--by", "What is counted by, of some formats", "WORD"}, &own.by);
    line.add({"--layout", "Of dot: dot, neato, fdp, circo or kept", "NAME"}, &own.layout);
    line.add({"--path", "Of csv: these are columns, by name or number", "COLUMN"}, &own.path);
    line.add({"--area", "Likewise", "COLUMN"}, &own.area);
    line.add({"--color", "Likewise", "COLUMN"}, &own.color);
    line.add({"--separator", "Of csv: between columns, else found", "C"}, &own.separator);
    line.addFlag({"--formats", "List the formats"}, &asked->listsFormats);
    line.add({"FORMAT", "What the input is"}, &asked->format);
    line.add({"FILE", "Inputs; - or none for standard input"}, &asked->files);
    return line.read();
}

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

int listFormats(const CommandCall &call)
{
    QByteArray list;
    for (const ImportFormat &format : importFormats()) {
        list += QByteArray(format.name).leftJustified(10) + format.origin + '\n';
        list += QByteArray(10, ' ') + "drawn as " + words(format.engines).join(u", "_s).toUtf8();
        if (*format.area)
            list += QByteArray("; area: ") + format.area;
        if (*format.color)
            list += QByteArray("; colour: ") + format.color;
        if (*format.options)
            list += QByteArray("; takes ") + words(format.options).join(u", "_s).toUtf8();
        list += '\n';
    }
    return print(call, list) ? AllWell : WrongUse;
}

// Of a file that was given where a format belongs, too.
std::string unknownFormat(const std::string &name)
{
    std::error_code ignored;
    if (Files::is_regular_file(name, ignored)) {
        ImportSource source(name);
        if (const ImportFormat *const likely = likelyFormat(source.beginning()))
            return '\'' + name + "' is no format but looks like " + likely->name + ": try '"
                + likely->name + ' ' + name + '\'';
    }
    QStringList names;
    for (const ImportFormat &format : importFormats())
        names += QString::fromLatin1(format.name);
    const QString meant = didYouMean(QString::fromStdString(name), names);
    return "there is no format '" + name + "'; "
        + (meant.isEmpty() ? "the formats are " + names.join(u", "_s).toStdString()
                           : meant.toStdString());
}

// An option that belongs to other formats; empty if there is none.
std::string strangeOption(const ImportOptions &options, const ImportFormat &format)
{
    const std::pair<const char *, const std::string &> all[] = {
        {"--layout", options.layout}, {"--by", options.by},
        {"--path", options.path},     {"--area", options.area},
        {"--color", options.color},   {"--separator", options.separator},
    };
    for (const auto &[name, value] : all) {
        if (!value.empty() && !words(format.options).contains(QLatin1StringView(name)))
            return std::string(name) + " is no option of " + format.name;
    }
    return {};
}

// Who names columns says that it is a table, whatever it looks like.
bool isSaidToBeTable(const ImportFormat &format, const ImportOptions &options)
{
    return words(format.options).contains("--path"_L1) && namesColumns(options);
}

// What is wrong with the call; empty if nothing is.
std::string contradiction(const Asked &asked, const ImportFormat *format)
{
    if (asked.format.empty())
        return "a format is missing";
    if (!format)
        return unknownFormat(asked.format);
    const QStringList engines = words(format->engines);
    const QString engine = QString::fromStdString(asked.engine).toLower();
    if (!engine.isEmpty() && !engines.contains(engine))
        return asked.format + " is drawn as " + engines.join(u", "_s).toStdString() + ", not as '"
            + asked.engine + '\'';
    if (importTarget(asked.output) == ImportTarget::Unknown)
        return '\'' + asked.output + "' ends in none of " + importSuffixes();
    std::error_code ignored;
    for (const std::string &file : asked.files) {
        if (file != "-" && asked.output != "-" && Files::equivalent(file, asked.output, ignored))
            return '\'' + asked.output + "' is an input and would be written over";
    }
    return strangeOption(asked.options, *format);
}

std::string shown(const std::string &source)
{
    return source == "-" ? "standard input" : source;
}

// "coverage.info:12: " or "tags.json: byte 120 ($.a[3]): ".
std::string shown(const ImportPlace &place)
{
    if (place.source.empty())
        return {};
    std::string text = shown(place.source);
    if (place.line > 0)
        text += ':' + std::to_string(place.line);
    if (place.offset >= 0)
        text += ": byte " + std::to_string(place.offset);
    if (!place.path.isEmpty())
        text += " (" + place.path.toStdString() + ')';
    return text + ": ";
}

void tellOf(const CommandCall &call, const ImportFault &fault)
{
    tell(call.name + ": " + shown(fault.place)
         + Graph::printableMessage(fault.sentence).toStdString() + '\n');
}

PictureRequest requestOf(const Asked &asked, const ImportFormat &format)
{
    const auto [width, height] = *sizeOf(asked.size);
    const QString engine = QString::fromStdString(asked.engine).toLower();
    return {.engine = engine.isEmpty() ? words(format.engines).first() : engine,
            .width = width,
            .height = height,
            .most = asked.most,
            .title = QString::fromStdString(asked.title)};
}

// Opens all; the status to end with if that is not possible.
std::optional<int> open(const CommandCall &call, const std::vector<std::string> &files,
                        std::vector<ImportSource> *sources)
{
    for (const std::string &file : files) {
        if (file == "-" && !call.hasInput) {
            tell(call.name + ": standard input can't be read: it is closed\n");
            return WrongUse;
        }
        sources->emplace_back(file);
        if (const std::string fault = sources->back().fault(); !fault.empty()) {
            std::string message = call.name;
            message.append(": '").append(file).append("' can't be read: ").append(fault);
            tell(message.append("\n"));
            return WrongUse;
        }
    }
    return std::nullopt;
}

// A fault in an input that looks like something else is most often that; the fault may say it.
void tellOf(const CommandCall &call, ImportFault fault, const QList<StrangeInput> &strange)
{
    const bool isOfJson = fault.place.offset >= 0;
    for (const StrangeInput &one : strange) {
        const bool isTold =
            fault.sentence.contains("looks like"_L1) || (isOfJson && one.kind == "JSON"_L1);
        if (one.source == fault.place.source && !isTold)
            fault.sentence += u"; the input looks like "_s + one.looks();
    }
    tellOf(call, fault);
}

// Nothing of the format that was asked for can be in it.
void tellOf(const CommandCall &call, const StrangeInput &strange, const ImportFormat &format)
{
    std::string message =
        call.name + ": " + shown(strange.source) + " looks like " + strange.looks().toStdString();
    if (strange.likely) {
        message += "; try 'orr import " + std::string(strange.likely->name) + '\'';
        if (words(format.options).contains("--path"_L1))
            message += ", or name its columns by --path and --area";
    }
    tell(message + '\n');
}

int import(const CommandCall &call, const Asked &asked, const ImportFormat &format,
           std::vector<ImportSource> &sources, const QList<StrangeInput> &strange)
{
    const PictureRequest request = requestOf(asked, format);
    ImportOptions options = asked.options;
    options.engine = request.engine;
    const ImportResult result = format.read(sources, options);
    for (const ImportSource &source : sources) {
        if (!source.fault().empty()) {
            tell(call.name + ": " + shown(source.name()) + " can't be read: " + source.fault()
                 + '\n');
            return WrongUse;
        }
    }
    for (const ImportFault &note : result.notes)
        tellOf(call, note);
    if (result.fault || !result.picture) {
        tellOf(call, result.fault.value_or(ImportFault{{}, u"there is nothing to draw"_s}),
               strange);
        return Failed;
    }
    const WrittenGraph graph = result.picture->write(request);
    for (const QString &note : graph.notes)
        tell(call.name + ": " + Graph::printableMessage(note).toStdString() + '\n');
    const ImportedBytes made = importedBytes(graph, request, asked.output);
    if (made.bytes.isEmpty()) {
        tell(call.name + ": " + Graph::printableMessage(made.fault).toStdString() + '\n');
        return Failed;
    }
    return writeDrawn(call, asked.output, made.bytes);
}

} // namespace

int runImport(const CommandCall &call)
{
    Asked asked;
    if (const std::optional<int> status = readArguments(call, &asked))
        return *status;
    if (asked.listsFormats)
        return listFormats(call);
    const ImportFormat *const format = importFormat(QString::fromStdString(asked.format));
    const std::string wrong = contradiction(asked, format);
    if (!wrong.empty())
        return wrongUse(call, wrong);
    if (asked.files.empty())
        asked.files.emplace_back("-");
    Drawing::prepareForSuddenEnd();
    Drawing::prepareToolkit();
    CommandCall inner = call;
    inner.name += std::string(" ") + format->name;
    std::vector<ImportSource> sources;
    if (const std::optional<int> status = open(inner, asked.files, &sources))
        return *status;
    const QList<StrangeInput> strange = isSaidToBeTable(*format, asked.options)
        ? QList<StrangeInput>()
        : strangeInputs(sources, *format);
    for (const StrangeInput &one : strange) {
        if (one.isSure) {
            tellOf(inner, one, *format);
            return Failed;
        }
    }
    if (!startDrawing(inner))
        return Failed;
    return import(inner, asked, *format, sources, strange);
}

} // namespace ORR::Companion
