// Reads a graph and takes it apart again, for the time that the reader alone takes: read_graph FILE
#include "graph/dot_parser.h"

#include <QFile>

#include <cstdlib>

int main(int count, char **arguments)
{
    QFile file(QString::fromLocal8Bit(count > 1 ? arguments[1] : ""));
    if (!file.open(QIODevice::ReadOnly))
        return EXIT_FAILURE;
    return ORR::Graph::parseDot(file.readAll()) ? EXIT_SUCCESS : EXIT_FAILURE;
}
