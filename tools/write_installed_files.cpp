// Writes what is installed beside the programs and says what their helps say: manual pages, what
// shells complete by, the attributes as JSON.
#include "tools/completions/completions.h"
#include "tools/editors/attribute_json.h"
#include "tools/files.h"
#include "tools/manual/command_pages.h"
#include "tools/manual/engines_page.h"

#include <QCoreApplication>

#include <cstdio>

using namespace ORR::Docs;
using namespace Qt::StringLiterals;

namespace {

bool writePage(const QString &folder, const ManualPage &page)
{
    if (!page.text.isEmpty())
        return writeFile(
            u"%1/man/man%2/%3"_s.arg(folder, QString::number(page.section), page.fileName()),
            page.text);
    std::fprintf(stderr, "%s has no prose\n", qPrintable(page.name));
    return false;
}

bool writeManual(const QString &folder, const QList<Command> &all, const ManualSetting &setting)
{
    bool wrote = writePage(folder, enginesPage(setting));
    for (const Command &command : all)
        wrote = writePage(folder, commandPage(command, all, setting)) && wrote;
    return wrote;
}

bool writeCompletions(const QString &folder, const QString &program, const QList<Command> &all)
{
    const QList<Command> own = commandsOf(program, all);
    return writeFile(folder + u"/bash-completion/completions/"_s + program, bashCompletions(own))
        && writeFile(folder + u"/zsh/vendor-completions/_"_s + program, zshCompletions(own))
        && writeFile(folder + u"/fish/vendor_completions.d/"_s + program + u".fish"_s,
                     fishCompletions(own));
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (argc != 5) {
        std::fprintf(stderr,
                     "usage: write_installed_files <folder> <prose> <version> <date>\n"
                     "Writes below the folder, what is to lie in share/.\n");
        return 2;
    }
    const QStringList arguments = QCoreApplication::arguments();
    const QString &folder = arguments.at(1);
    const QString &version = arguments.at(3);
    const QList<Command> all = commands();
    const bool wrote =
        writeManual(folder, all, {arguments.at(4), u"orrlayout "_s + version, arguments.at(2)})
        && writeCompletions(folder, u"orrlayout"_s, all) && writeCompletions(folder, u"orr"_s, all)
        && writeFile(folder + u"/orrlayout/attributes.json"_s, attributeJson(version));
    return wrote ? 0 : 1;
}
