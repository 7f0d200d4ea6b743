#include "companion/serve/serve_command.h"

#include "companion/command/command_line.h"
#include "companion/findings/nearest_word.h"
#include "companion/serve/serve_run.h"
#include "drawing/layout_table.h"

#include <cstdlib>
#include <cstring>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr char sentence[] = "Show a graph in a browser, and draw it again as it is written.";
constexpr char callsThatWork[] =
    "What is printed is the address, for this user alone. Ctrl-C ends it.\n\n"
    "Examples:\n"
    "  orr serve -K treemap areas.dot\n"
    "  orr serve --open --port 9000 calls.dot";

struct ServeOptions
{
    std::string engine;
    std::string port;
    bool opens = false;
    bool polls = false;
    std::string file;
};

std::optional<int> readArguments(const CommandCall &call, ServeOptions *options)
{
    CommandLine line(call, sentence, callsThatWork);
    line.add({"-K", "Engine; else the root's attribute layout", "ENGINE"}, &options->engine);
    line.add(
        {"--port", "Where to listen; 0 for any port that is free", "N", isWholeNumber(0, 65'535)},
        &options->port);
    line.addFlag({"--open", "Open it in a browser, by xdg-open"}, &options->opens);
    line.addFlag({"--poll", "Look for changes; on network file systems"}, &options->polls);
    line.add({"FILE", "What to draw and edit; it need not be there yet"}, &options->file);
    return line.read();
}

// What is wrong; empty if nothing is.
std::string contradiction(const ServeOptions &options)
{
    if (options.file == "-")
        return "standard input can't be edited; name a file, or none";
    const QString engine = QString::fromStdString(options.engine);
    if (engine.isEmpty() || Drawing::chooseLayout(engine))
        return {};
    const QStringList engines = Drawing::layoutNames();
    const QString meant = didYouMean(engine, engines);
    return "there is no engine '" + options.engine + "'; "
        + (meant.isEmpty() ? "the engines are " + engines.join(u", "_s).toStdString()
                           : meant.toStdString());
}

ServeUse useOf(const ServeOptions &options)
{
    const char *const html = std::getenv("ORR_GVLAYOUT_USE_HTML");
    ServeUse use;
    if (!options.file.empty())
        use.request.file = QByteArray::fromStdString(options.file);
    use.request.engine = QByteArray::fromStdString(options.engine).toLower();
    use.request.htmlLabels = html && std::strcmp(html, "1") == 0;
    use.request.polls = options.polls;
    if (!options.port.empty())
        use.port = quint16(std::stoul(options.port));
    use.opens = options.opens;
    return use;
}

} // namespace

int runServe(const CommandCall &call)
{
    ServeOptions options;
    if (const std::optional<int> status = readArguments(call, &options))
        return *status;
    const std::string wrong = contradiction(options);
    return wrong.empty() ? serve(call, useOf(options)) : wrongUse(call, wrong);
}

} // namespace ORR::Companion
