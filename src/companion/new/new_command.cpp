#include "companion/new/new_command.h"

#include "companion/command/command_line.h"
#include "companion/command/streams.h"
#include "companion/examples/examples.h"
#include "companion/findings/nearest_word.h"
#include "drawing/sudden_end.h"
#include "output/files/file_name.h"
#include "output/output.h"

#include <algorithm>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr char sentence[] = "Write a small input for an engine, to begin with.";
constexpr char examplesOfUse[] = "Examples:\n"
                                 "  orr new treemap -o sizes.dot\n"
                                 "  orr new umlseq | orrlayout -K umlseq -o login.svg";

QStringList enginesOfStarters()
{
    QStringList names;
    for (const Example &starter : starters())
        names += QString::fromLatin1(starter.engine);
    return names;
}

const Example *starterOf(const QString &engine)
{
    const auto all = starters();
    const auto found = std::find_if(all.begin(), all.end(), [&](const Example &starter) {
        return QString::fromLatin1(starter.engine) == engine;
    });
    return found == all.end() ? nullptr : &*found;
}

std::string missing(const std::string &engine)
{
    const QStringList engines = enginesOfStarters();
    const QString meant = didYouMean(QString::fromStdString(engine), engines);
    const std::string all = "the engines are " + engines.join(u", "_s).toStdString();
    if (engine.empty())
        return "an engine is missing; " + all;
    return "there is no engine '" + engine + "'; " + (meant.isEmpty() ? all : meant.toStdString());
}

// A file that is there is somebody's work: it is never written over.
int write(const CommandCall &call, const std::string &output, const QByteArray &text)
{
    if (output == "-")
        return print(call, text) ? AllWell : WrongUse;
    std::error_code ignored;
    const bool isThere = std::filesystem::exists(std::filesystem::symlink_status(output, ignored));
    if (!isThere
        && Graph::writeOutput(Graph::fileNameText(QByteArray::fromStdString(output)), text))
        return AllWell;
    tell(call.name + ": '" + output + (isThere ? "' is there already\n" : "' can't be written\n"));
    return WrongUse;
}

} // namespace

int runNew(const CommandCall &call)
{
    std::string engine;
    std::string output = "-";
    CommandLine line(call, sentence, examplesOfUse);
    line.add({"-o", "Where to write, if nothing is there yet", "FILE"}, &output);
    line.add({"ENGINE", "What the input is for"}, &engine);
    if (const std::optional<int> status = line.read())
        return *status;
    const Example *const starter = starterOf(QString::fromStdString(engine).toLower());
    if (!starter)
        return wrongUse(call, missing(engine));
    Drawing::prepareForSuddenEnd();
    return write(call, output, QByteArray(starter->text.data(), qsizetype(starter->text.size())));
}

} // namespace ORR::Companion
