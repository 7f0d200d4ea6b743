#include "companion/import/builds/object_path.h"

namespace ORR::Companion {

QByteArray readableOutput(QByteArrayView path)
{
    constexpr QByteArrayView between = "CMakeFiles/";
    QByteArray readable;
    while (!path.isEmpty()) {
        const qsizetype start = path.indexOf(between);
        if (start < 0 || (start > 0 && path[start - 1] != '/'))
            break;
        readable += path.first(start);
        path = path.sliced(start + between.size());
        const qsizetype end = path.indexOf(".dir/");
        if (end > 0 && !path.first(end).contains('/')) {
            readable += path.first(end);
            path = path.sliced(end + 4);
        }
    }
    readable += path;
    return readable;
}

} // namespace ORR::Companion
