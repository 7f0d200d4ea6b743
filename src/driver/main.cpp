#include "drawing/environment.h"
#include "drawing/held_standard_error.h"
#include "drawing/home_directory.h"
#include "drawing/sudden_end.h"
#include "drawing/toolkit.h"
#include "driver/command_line.h"
#include "driver/driver.h"
#include "driver/standard_streams.h"
#include "output/files/file_name.h"

#include <QCoreApplication>

using namespace ORR::Drawing;
using namespace ORR::Driver;
using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    const StandardStreams streams = reserveStandardStreams();
    ignoreSignalsOfWriting();
    prepareForSuddenEnd();
    prepareToolkit();
    startToolkit(argv[0]);

    startApplication(u"orrlayout"_s);
    QCoreApplication::setApplicationVersion(QString::fromLatin1(applicationVersion));
    const QString home = startHome(QString::fromLocal8Bit(argv[0]));
    // Not as the application object has them: there, names that are no UTF-8 are no longer told
    // apart.
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(ORR::Graph::fileNameText(argv[i]));
    const int status = runDriver(readCommandLine(arguments), home, streams);
#ifdef __SANITIZE_ADDRESS__
    // What its fonts hold would be taken for lost.
    const HeldStandardError held;
    delete qApp;
#endif
    return status;
}
