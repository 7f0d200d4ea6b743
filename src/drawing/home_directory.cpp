#include "drawing/home_directory.h"

#include "drawing/debug_flag.h"
#include "graph/message_text.h"

#include <QDir>
#include <QFileInfo>

#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace ORR::Drawing {

namespace {

bool isProgramDirectory(const QString &directory)
{
    return directory.endsWith("/bin"_L1);
}

// Whatever the platform is called.
bool isPlatformDirectory(const QString &directory)
{
    return isProgramDirectory(directory.section(u'/', 0, -2));
}

// The roots that a directory with programs may belong to.
QStringList rootsOfProgramDirectory(const QString &directory)
{
    const QString prefix = QDir::cleanPath(directory + "/.."_L1);
    if (isProgramDirectory(directory))
        return {QDir(prefix).filePath(u"share/orrlayout"_s), prefix};
    if (isPlatformDirectory(directory))
        return {QDir::cleanPath(prefix + "/.."_L1), directory};
    return {directory};
}

// The search itself. A source gives the root that it leads to, or an empty text.
class Search
{
public:
    explicit Search(const HomeClues &searchClues) : clues(searchClues) { }

    HomeSearch run()
    {
        static constexpr std::array sources{
            Source{"$ORRHOME variable"_L1, &Search::fromVariable},
            Source{"Abs argv0"_L1, &Search::fromAbsoluteProgram},
            Source{"Rel argv0"_L1, &Search::fromRelativeProgram},
            Source{"argv0 on Path"_L1, &Search::fromProgramOnPath},
            Source{"bin on Path"_L1, &Search::fromProgramDirectoryOnPath},
        };
        trace += u"ORRHOME: Init argv0='%1' Cwd='%2'\n"_s.arg(clues.argv0, clues.workingDirectory);
        for (const Source &source : sources) {
            const QString root = (this->*source.root)();
            if (root.isEmpty())
                continue;
            trace += u"ORRHOME: [%1] from %2\n"_s.arg(root, source.name);
            return {root, trace};
        }
        return {QString(), trace};
    }

private:
    struct Source
    {
        QLatin1StringView name;
        QString (Search::*root)();
    };

    QString fromVariable()
    {
        return clues.orrHome.isEmpty() ? QString() : acceptedOf({absolute(clues.orrHome)});
    }

    QString fromAbsoluteProgram()
    {
        return clues.argv0.startsWith(u'/') ? fromProgram(clues.argv0) : QString();
    }

    QString fromRelativeProgram()
    {
        const bool isRelative = clues.argv0.contains(u'/') && !clues.argv0.startsWith(u'/');
        return isRelative ? fromProgram(absolute(clues.argv0)) : QString();
    }

    QString fromProgramOnPath()
    {
        if (clues.argv0.isEmpty() || clues.argv0.contains(u'/'))
            return {};
        for (const QString &directory : clues.path) {
            const QString program = absolute(QDir(directory).filePath(clues.argv0));
            const QFileInfo info(program);
            if (info.isFile() && info.isExecutable())
                return fromProgram(program);
        }
        return {};
    }

    QString fromProgramDirectoryOnPath()
    {
        for (const QString &entry : clues.path) {
            const QString directory = absolute(entry);
            if (!isProgramDirectory(directory) && !isPlatformDirectory(directory))
                continue;
            const QString root = fromDirectory(QFileInfo(directory).canonicalFilePath(), directory);
            if (!root.isEmpty())
                return root;
        }
        return {};
    }

    QString fromProgram(const QString &program)
    {
        const QString resolved = QFileInfo(program).canonicalFilePath();
        return fromDirectory(resolved.isEmpty() ? QString() : QFileInfo(resolved).path(),
                             QDir::cleanPath(QFileInfo(program).path()));
    }

    // A link may stand anywhere, and a `conf` near it may be anybody's: what it leads to goes
    // first.
    QString fromDirectory(const QString &resolved, const QString &named)
    {
        const QString root =
            resolved.isEmpty() ? QString() : acceptedOf(rootsOfProgramDirectory(resolved));
        if (!root.isEmpty() || resolved == named)
            return root;
        return acceptedOf(rootsOfProgramDirectory(named));
    }

    QString acceptedOf(const QStringList &roots)
    {
        for (const QString &root : roots) {
            const QString conf = QDir(root).filePath(u"conf"_s);
            if (QFileInfo(conf).isDir())
                return root;
            trace += u"ORRHOME: reject path for no '%1'\n"_s.arg(conf);
        }
        return {};
    }

    QString absolute(const QString &path) const
    {
        return QDir::cleanPath(QDir(clues.workingDirectory).absoluteFilePath(path));
    }

    const HomeClues &clues;
    QStringList trace;
};

} // namespace

HomeClues homeClues(const QString &argv0)
{
    return {argv0, QDir::currentPath(), qEnvironmentVariable("ORRHOME"),
            qEnvironmentVariable("PATH").split(u':')};
}

HomeSearch findHome(const HomeClues &clues)
{
    return Search(clues).run();
}

QString startHome(const QString &argv0)
{
    const HomeSearch search = findHome(homeClues(argv0));
    if (debugFlag(u"orrhome"_s, u"trace"_s)) {
        for (const QString &line : search.trace)
            std::fputs(Graph::printableMessage(line).toLocal8Bit().constData(), stderr);
    }
    return search.directory;
}

QString visioTemplateDirectory(const QString &homeDirectory)
{
    return homeDirectory.isEmpty() ? QString()
                                   : QDir(homeDirectory).filePath(u"conf/orrery/visio/empty"_s);
}

QString pinnedFontsFile(const QString &homeDirectory)
{
    return homeDirectory.isEmpty() ? QString() : QDir(homeDirectory).filePath(u"fonts.conf"_s);
}

} // namespace ORR::Drawing
