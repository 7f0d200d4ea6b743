#include "driver/command_line.h"
#include "driver/driver.h"
#include "driver/environment.h"
#include "driver/home_directory.h"
#include "driver/standard_streams.h"
#include "driver/sudden_end.h"
#include "output/files/file_name.h"

#include <QApplication>

#include <optional>

using namespace ORR::Driver;
using namespace Qt::StringLiterals;

// The application object: no window is ever shown, but measuring and painting text need it. With it
// start the libraries below the toolkit, and those complain on standard error of their own accord,
// about a cache that can't be written for example. It is never taken down, which takes longer than
// a small drawing; the end of the process does it.
static void startToolkit(int *argc, char **argv)
{
    std::optional<QuietStandardError> quiet;
    if (!wantsToolkitMessages())
        quiet.emplace();
    new QApplication(*argc, argv);
}

int main(int argc, char **argv)
{
    const StandardStreams streams = reserveStandardStreams();
    ignoreSignalsOfWriting();
    prepareForSuddenEnd();
    prepareToolkit();
    startToolkit(&argc, argv);

    startApplication(u"orrlayout"_s);
    QApplication::setApplicationVersion(QString::fromLatin1(applicationVersion));
    const QString home = startHome(QString::fromLocal8Bit(argv[0]));
    // Not as the application object has them: there, names that are no UTF-8 are no longer told
    // apart.
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(ORR::Graph::fileNameText(argv[i]));
    const int status = runDriver(readCommandLine(arguments), home, streams);
#ifdef __SANITIZE_ADDRESS__
    // What its fonts hold would be taken for lost.
    const QuietStandardError quiet;
    delete qApp;
#endif
    return status;
}
