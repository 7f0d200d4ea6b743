#include "drawing/open_files.h"

#include <QVarLengthArray>

#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace ORR::Drawing {

bool canOpenFiles(int count)
{
    QVarLengthArray<int, 32> opened;
    while (opened.size() < count) {
        const int descriptor = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
        if (descriptor == -1)
            break;
        opened.append(descriptor);
    }
    for (const int descriptor : std::as_const(opened))
        ::close(descriptor);
    return opened.size() == count;
}

} // namespace ORR::Drawing
