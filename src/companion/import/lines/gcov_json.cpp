#include "companion/import/lines/gcov_json.h"

#include "companion/import/reading/json_value.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

QByteArray pathOf(const QByteArray &name, const QByteArray &folder)
{
    return name.startsWith('/') || folder.isEmpty() ? name : folder + '/' + name;
}

// Every line has these members, and newer versions write who they are.
bool isWrittenByGcov(QByteArrayView text)
{
    return text.contains("\"gcc_version\"")
        || (text.contains("\"line_number\"") && text.contains("\"unexecuted_block\""));
}

std::optional<ImportFault> readLines(const JsonDocument &document, JsonValue lines,
                                     qsizetype number, CoveredFiles *files, CountedNote *below)
{
    for (JsonValue line = lines.first(); !line.isMissing(); line = line.next()) {
        const double lineNumber = line["line_number"].number(-1);
        const JsonValue count = line["count"];
        // Beyond this a double skips whole numbers.
        if (!(lineNumber >= 0 && lineNumber < 0x1p53) || !count.isNumber())
            return document.faultAt(line, u"a line needs its \"line_number\" and \"count\""_s);
        if (count.number() < 0)
            below->add(document.faultAt(line, {}).place);
        files->addLine(number, quint64(lineNumber), count.number() > 0);
    }
    return std::nullopt;
}

std::optional<ImportFault> readDocument(const JsonDocument &document, CoveredFiles *files,
                                        CountedNote *below)
{
    const JsonValue root = document.root();
    if (!root["files"].isArray())
        return document.faultAt(root, u"there are no \"files\" as gcov writes them"_s);
    const QByteArray folder = root["current_working_directory"].bytes();
    for (JsonValue file = root["files"].first(); !file.isMissing(); file = file.next()) {
        if (!file["file"].isString() || !file["lines"].isArray())
            return document.faultAt(file, u"a file needs its name in \"file\" and its \"lines\""_s);
        const qsizetype number = files->file(pathOf(file["file"].bytes(), folder));
        if (const auto fault = readLines(document, file["lines"], number, files, below))
            return fault;
    }
    return std::nullopt;
}

} // namespace

bool isGcovJson(QByteArrayView beginning)
{
    return beginning.trimmed().startsWith('{') && isWrittenByGcov(beginning);
}

std::optional<ImportFault> readGcovJson(ImportSource *source, CoveredFiles *files,
                                        CountedNote *below)
{
    const QByteArray text = source->rest();
    qsizetype start = 0;
    while (start < text.size()) {
        // Only a document begins at the beginning of a line, whoever wrote it.
        const qsizetype feed = text.indexOf("\n{", start);
        const qsizetype end = feed < 0 ? text.size() : feed + 1;
        std::optional<ImportFault> fault;
        const std::optional<JsonDocument> document =
            JsonDocument::read(text.sliced(start, end - start), source->name(), &fault);
        const bool isFirstBelow = below->count == 0;
        if (document)
            fault = readDocument(*document, files, below);
        if (isFirstBelow && below->count > 0)
            below->first.offset += start;
        if (fault) {
            fault->place.offset += start;
            return fault;
        }
        start = end;
    }
    return std::nullopt;
}

} // namespace ORR::Companion
