#pragma once

#include "output/files/descriptor.h"

#include <QByteArray>

namespace ORR::Graph {

// Where a file is or is to be: the folder, held open, and the name in it, which is no symbolic
// link.
struct FilePlace
{
    Descriptor folder;
    QByteArray name;
    int error = 0; // of the system (`errno`) if there is no such place, otherwise 0
};

// Follows symbolic links to the place that the path means, whether or not there is a file yet.
// EPERM for a path through the files of processes: /dev/stdout and the like lead to what is open,
// whatever name it once had.
FilePlace findFilePlace(const QByteArray &path);

} // namespace ORR::Graph
