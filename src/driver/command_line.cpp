#include "driver/command_line.h"

#include "drawing/format_table.h"
#include "drawing/layout_table.h"
#include "driver/toolkit_arguments.h"
#include "graph/message_text.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace ORR::Driver {

namespace {

constexpr QLatin1StringView layoutOption = "K"_L1;
constexpr QLatin1StringView formatOption = "T"_L1;
constexpr QLatin1StringView outputOption = "o"_L1;

QString translated(const char *text)
{
    return QCoreApplication::translate("main", text);
}

// "a, b or c"
QString alternatives(QStringList names)
{
    const QString last = names.takeLast();
    return u"%1 or %2"_s.arg(names.join(", "_L1), last);
}

} // namespace

void describeCommandLine(QCommandLineParser *parser)
{
    parser->setApplicationDescription(translated("Orrery Layout and Render Engines"));
    parser->addHelpOption();
    parser->addVersionOption();
    parser->addPositionalArgument(
        u"infile"_s, translated("Input dot file. Standard in if not provided"), QString());
    parser->addOptions({
        {layoutOption,
         translated("Use <layout> engine. Options are %1.")
             .arg(alternatives(Drawing::layoutNames())),
         translated("layout")},
        {formatOption,
         translated("Output in <format>. Options are %1. This can be automatically determined "
                    "from the output file name if provided.")
             .arg(Drawing::formatNamesForHelp().join(", "_L1)),
         translated("format")},
        {outputOption, translated("Output to <outfile>. Standard out if not provided"),
         translated("outfile")},
    });
}

CommandLine readCommandLine(const QStringList &arguments)
{
    QCommandLineParser parser;
    describeCommandLine(&parser);
    const QStringList ours = withoutToolkitArguments(arguments);
    // The parser would tell a fault itself, but with the argument as a terminal might obey it.
    if (!parser.parse(ours)) {
        const QString message =
            QCoreApplication::applicationName() + ": "_L1 + parser.errorText() + u'\n';
        std::fputs(Graph::printableMessage(message).toLocal8Bit().constData(), stderr);
        std::exit(EXIT_FAILURE);
    }
    parser.process(ours);
    const QStringList positional = parser.positionalArguments();
    return {!positional.isEmpty(),      positional.value(0),        parser.value(outputOption),
            parser.value(formatOption), parser.value(layoutOption), parser.helpText()};
}

} // namespace ORR::Driver
