#include "driver/command_line.h"

#include "support/golden.h"

#include <gtest/gtest.h>

using namespace ORR::Driver;
using namespace Qt::StringLiterals;

TEST(CommandLine, help_is_worded_as_agreed)
{
    QCommandLineParser parser;
    describeCommandLine(&parser);
    const QString help = parser.helpText().simplified();
    const QStringList texts{
        u"Orrery Layout and Render Engines"_s,
        u"-K <layout> Use <layout> engine. Options are gftree, gfdecl, umlseq, matrix, flatbubble, "
        "sunburst, treemap or bar."_s,
        u"-T <format> Output in <format>. Options are xdot1.2, svg, vsdx, vdx, png, jpg. This can "
        "be automatically determined from the output file name if provided."_s,
        u"-o <outfile> Output to <outfile>. Standard out if not provided"_s,
        u"infile Input dot file. Standard in if not provided"_s,
    };
    qsizetype from = 0;
    for (const QString &text : texts) {
        const qsizetype place = help.indexOf(text, from);
        ASSERT_GE(place, from) << text.toStdString() << "\nin\n" << help.toStdString();
        from = place + text.size();
    }
}
