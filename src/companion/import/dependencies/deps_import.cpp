#include "companion/import/dependencies/deps_import.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/dependencies/deps_builds.h"
#include "companion/import/dependencies/deps_lists.h"
#include "companion/import/dependencies/deps_packages.h"

#include <QFileInfo>

#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// The bytes of JSON, if it is of a form that is read; else it is told what is missing.
void readDepsJson(const QByteArray &text, const std::string &name, DepsReading *reading)
{
    const auto document = JsonDocument::read(text, name, &reading->fault);
    if (!document)
        return;
    const JsonValue root = document->root();
    const QString folder = QFileInfo(QString::fromStdString(name)).path();
    if (root.isArray())
        readCompileCommands(*document, folder, reading);
    else if (!root["lockfileVersion"].isMissing())
        readNpmLock(*document, reading);
    else if (!root["packages"].isMissing() || !root["resolve"].isMissing())
        readCargoMetadata(*document, reading);
    else if (!root["objects"].isMissing() && root["cmake"].isObject())
        readCMakeReplies(folder, reading);
    else
        reading->fault = document->faultAt(
            root,
            u"this is none of: npm's lock file, 'cargo metadata', compile_commands.json, an index "
            "of CMake's file API"_s);
}

bool isFolder(const std::string &name)
{
    return name != "-" && QFileInfo(QString::fromStdString(name)).isDir();
}

void readDepsFolder(const std::string &name, const ImportOptions &options, DepsReading *reading)
{
    const QString folder = QString::fromStdString(name);
    const QString commands = folder + u"/compile_commands.json"_s;
    const QString replies = folder + u"/.cmake/api/v1/reply"_s;
    const bool hasCommands = QFileInfo(commands).isFile();
    if (options.by == "files" && !hasCommands) {
        reading->fault = {{.source = name}, u"there is no compile_commands.json in it"_s};
    } else if (options.by != "targets" && hasCommands) {
        ImportSource source(commands.toStdString());
        readDepsJson(source.rest(), source.name(), reading);
    } else {
        readCMakeReplies(QFileInfo(replies).isDir() ? replies : folder, reading);
    }
}

// "main.o: main.cpp a.h \".
bool looksLikeMakeRules(QByteArrayView beginning)
{
    const qsizetype end = beginning.indexOf('\n');
    const QByteArrayView line = end < 0 ? beginning : beginning.first(end);
    const qsizetype colon = line.indexOf(": ");
    const QByteArrayView target = colon < 0 ? QByteArrayView() : line.first(colon);
    return (target.endsWith(".o") || target.endsWith(".obj") || target.endsWith(".d"))
        && !line.contains(": #deps ");
}

bool looksLikeNinjaDeps(QByteArrayView beginning)
{
    const qsizetype end = beginning.indexOf('\n');
    return (end < 0 ? beginning : beginning.first(end)).contains(": #deps ");
}

// The sentence of a fault if `--by` asks for what an input does not have.
QString strangeWish(const ImportSource &source, const std::string &by)
{
    if (!by.empty() && by != "targets" && by != "files")
        return u"--by can be targets or files, of the folder of a build, not "_s
            + quotedText(QByteArrayView(by));
    if (!by.empty() && !isFolder(source.name()))
        return u"--by is for the folder of a build, and this is a file"_s;
    return {};
}

void readDepsSource(ImportSource &source, const ImportOptions &options, DepsReading *reading)
{
    if (const QString wish = strangeWish(source, options.by); !wish.isEmpty()) {
        reading->fault = {{.source = source.name()}, wish};
        return;
    }
    if (isFolder(source.name())) {
        readDepsFolder(source.name(), options, reading);
        return;
    }
    const QByteArrayView beginning = source.beginning();
    const QByteArrayView trimmed = beginning.trimmed();
    if (trimmed.startsWith('{') || trimmed.startsWith('['))
        readDepsJson(source.rest(), source.name(), reading);
    else if (looksLikeNinjaDeps(trimmed))
        readNinjaDeps(source, reading);
    else if (looksLikeMakeRules(trimmed))
        readMakeRules(source.rest(), {}, reading);
    else
        readDepsList(source, reading);
}

} // namespace

int likenessOfDeps(QByteArrayView beginning)
{
    const QByteArrayView trimmed = beginning.trimmed();
    if (trimmed.startsWith('{')) {
        const bool isNpm = trimmed.contains("\"lockfileVersion\"");
        const bool isCargo =
            trimmed.contains("\"packages\"") && trimmed.contains("\"manifest_path\"");
        const bool isCMake = trimmed.contains("\"cmake\"") && trimmed.contains("\"objects\"");
        return isNpm || isCMake ? 95 : isCargo ? 90 : 0;
    }
    if (trimmed.startsWith('['))
        return trimmed.contains("\"directory\"") && trimmed.contains("\"file\"") ? 90 : 0;
    if (looksLikeNinjaDeps(trimmed) || looksLikeMakeRules(trimmed))
        return 80;
    const bool isGraph = trimmed.startsWith("digraph") || trimmed.startsWith("strict")
        || trimmed.startsWith("graph");
    return isGraph ? 0 : shareOfDepsLines(trimmed) * 7 / 10;
}

ImportResult readDeps(std::vector<ImportSource> &sources, const ImportOptions &options)
{
    DepsReading reading;
    for (ImportSource &source : sources) {
        readDepsSource(source, options, &reading);
        if (reading.fault)
            return {.fault = reading.fault};
    }
    if (reading.dependencies.thingCount() == 0) {
        const std::string name = sources.empty() ? "-" : sources.front().name();
        return {.fault = ImportFault{{.source = name}, u"nothing in it depends on anything"_s},
                .notes = reading.notes};
    }
    if (const auto fault = weightFault(reading.dependencies, sources.front().name()))
        return {.fault = fault, .notes = reading.notes};
    return {.picture = std::make_unique<DependencyPicture>(std::move(reading.dependencies),
                                                           reading.meaning),
            .notes = reading.notes};
}

} // namespace ORR::Companion
