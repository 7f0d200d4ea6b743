#include "companion/page/page_command.h"

#include "companion/command/command_line.h"
#include "companion/command/drawn_output.h"
#include "companion/command/streams.h"
#include "companion/findings/nearest_word.h"
#include "companion/page/page_drawing.h"
#include "drawing/layout_table.h"
#include "drawing/sudden_end.h"
#include "drawing/toolkit.h"
#include "graph/message_text.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

namespace Files = std::filesystem;

constexpr char sentence[] = "Draw a graph as a page to look into with a browser.";
constexpr char examples[] = "The page is one file and needs no other: zoom, search, read, list.\n\n"
                            "Examples:\n"
                            "  orr page -K treemap areas.dot\n"
                            "  orr page -K treemap -o - --title Sizes <areas.dot >sizes.html";

struct PageOptions
{
    std::string engine;
    std::string output;
    std::string title;
    std::string file = "-";
};

std::optional<int> readArguments(const CommandCall &call, PageOptions *options)
{
    CommandLine line(call, sentence, examples);
    line.add({"-K", "Engine; else the root's attribute layout", "ENGINE"}, &options->engine);
    line.add({"-o", "Where to write; - is standard output", "FILE"}, &options->output);
    line.add({"--title", "Else the root's label, or a name", "TITLE"}, &options->title);
    line.add({"FILE", "What to draw, written beside it; - for the streams"}, &options->file);
    return line.read();
}

// Without -o a page goes beside its input, or where the input of a stream would go on to.
std::string outputOf(const PageOptions &options)
{
    if (!options.output.empty() || options.file == "-")
        return options.output.empty() ? "-" : options.output;
    return Files::path(options.file).replace_extension("html").native();
}

bool isSameFile(const std::string &a, const std::string &b)
{
    std::error_code ignored;
    return a != "-" && b != "-" && Files::equivalent(a, b, ignored);
}

// What is wrong; empty if nothing is.
std::string contradiction(const PageOptions &options)
{
    const QString engine = QString::fromStdString(options.engine);
    if (!engine.isEmpty() && !Drawing::chooseLayout(engine)) {
        const QStringList engines = Drawing::layoutNames();
        const QString meant = didYouMean(engine, engines);
        return "there is no engine '" + options.engine + "'; "
            + (meant.isEmpty() ? "the engines are " + engines.join(u", "_s).toStdString()
                               : meant.toStdString());
    }
    const std::string output = outputOf(options);
    if (isSameFile(options.file, output))
        return '\'' + output + "' is the input and would be written over";
    return {};
}

std::string shown(const std::string &file)
{
    return file == "-" ? "standard input" : '\'' + file + '\'';
}

PageRequest requestOf(const PageOptions &options, const QByteArray &input)
{
    const char *const html = std::getenv("ORR_GVLAYOUT_USE_HTML");
    const std::string stem = Files::path(options.file).stem().native();
    return {.input = input,
            .engine = QString::fromStdString(options.engine),
            .title = QString::fromStdString(options.title),
            .fallbackTitle = options.file == "-" ? u"Drawing"_s : QString::fromStdString(stem),
            .htmlLabels = html && std::strcmp(html, "1") == 0};
}

} // namespace

int runPage(const CommandCall &call)
{
    PageOptions options;
    if (const std::optional<int> status = readArguments(call, &options))
        return *status;
    const std::string wrong = contradiction(options);
    if (!wrong.empty())
        return wrongUse(call, wrong);
    Drawing::prepareForSuddenEnd();
    Drawing::prepareToolkit();
    const ReadInput input = readInput(call, options.file);
    if (!input.bytes) {
        tell(call.name + ": " + shown(options.file) + " can't be read: " + input.fault + '\n');
        return WrongUse;
    }
    if (!startDrawing(call))
        return Failed;
    const MadePage page = makePage(requestOf(options, *input.bytes));
    if (page.document.isEmpty()) {
        tell(call.name + ": " + shown(options.file) + ": "
             + Graph::printableMessage(page.fault).toStdString() + '\n');
        return Failed;
    }
    return writeDrawn(call, outputOf(options), page.document);
}

} // namespace ORR::Companion
