// Writes the names of the attributes anew into the grammar of a folder with files for editors.
#include "tools/editors/grammar.h"
#include "tools/files.h"

#include <cstdio>

using namespace ORR::Docs;
using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: write_editor_files <folder>\n");
        return 2;
    }
    const QString path =
        QString::fromLocal8Bit(argv[1]) + u"/vscode/syntaxes/orrlayout-dot.tmLanguage.json"_s;
    const QString grammar = renewedGrammar(QString::fromUtf8(readFile(path)));
    if (!grammar.isEmpty())
        return writeFile(path, grammar.toUtf8()) ? 0 : 1;
    std::fprintf(stderr, "%s: there is no rule \"attribute\"\n", qPrintable(path));
    return 1;
}
