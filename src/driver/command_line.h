#pragma once

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

namespace ORR::Driver {

// What the program was asked to do. An empty text stands for what was not given.
struct CommandLine
{
    bool hasInputFile = false; // standard input is read otherwise
    QString inputFile; // file names are texts as `Graph::fileNameText` gives them
    QString outputFile; // empty for standard output
    QString format; // as it was given
    QString layout; // as it was given
    QString help; // the help text, for messages that show it
};

inline constexpr char applicationVersion[] = "(Build 1262)";

// Declares the options and the argument to a parser. The application object must stand, since the
// help text names the program.
void describeCommandLine(QCommandLineParser *parser);

// Reads the command line, from the program's name on. Ends the process for a call for help or
// version and for what the parser does not know.
CommandLine readCommandLine(const QStringList &arguments);

} // namespace ORR::Driver
