#include "companion/import/reading/first_lines.h"

namespace ORR::Companion {

namespace {

constexpr qsizetype mostFirstLines = 40;

} // namespace

QList<QByteArrayView> firstLines(QByteArrayView beginning, char separator)
{
    QList<QByteArrayView> lines;
    while (!beginning.isEmpty() && lines.size() < mostFirstLines) {
        const qsizetype end = beginning.indexOf(separator);
        if (end < 0 && !lines.isEmpty())
            break;
        QByteArrayView line = end < 0 ? beginning : beginning.first(end);
        beginning = end < 0 ? QByteArrayView() : beginning.sliced(end + 1);
        if (line.endsWith('\r'))
            line.chop(1);
        if (!line.isEmpty())
            lines.append(line);
    }
    return lines;
}

} // namespace ORR::Companion
