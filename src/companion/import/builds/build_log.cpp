#include "companion/import/builds/build_log.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/reading/written_number.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr QByteArrayView logHeading = "# ninja log v";

// Start and end in milliseconds, time of the file, output, hash of the command.
using Fields = std::array<QByteArrayView, 5>;

bool splitFields(QByteArrayView line, Fields *fields)
{
    for (QByteArrayView &field : *fields) {
        const qsizetype tab = line.indexOf('\t');
        const bool isLast = &field == &fields->back();
        if ((tab < 0) != isLast)
            return false;
        field = isLast ? line : line.first(tab);
        line = line.sliced(isLast ? line.size() : tab + 1);
    }
    return true;
}

// What is wrong with the first line; empty if nothing is.
QString versionFault(QByteArrayView line)
{
    if (!line.startsWith(logHeading))
        return quotedText(line) + " is not how a log of ninja begins: '# ninja log v5'"_L1;
    bool isNumber = false;
    const int version = line.sliced(logHeading.size()).trimmed().toInt(&isNumber);
    if (!isNumber || version < 5 || version > 7)
        return quotedText(line) + " tells of a version that isn't known; versions 5 to 7 are"_L1;
    return {};
}

} // namespace

bool BuildLog::looksLike(QByteArrayView beginning)
{
    return beginning.startsWith(logHeading);
}

std::optional<ImportFault> BuildLog::read(ImportSource *source, QList<ImportFault> *notes)
{
    QByteArrayView line;
    if (!source->nextLine(&line))
        return source->faultHere(u"it is empty"_s);
    if (const QString wrong = versionFault(line); !wrong.isEmpty())
        return source->faultHere(wrong);
    CountedNote backward;
    while (source->nextLine(&line)) {
        // Builds that are cut off and begin anew may leave a second heading.
        if (line.trimmed().isEmpty() || line.startsWith('#'))
            continue;
        bool isBackward = false;
        if (!readEntry(line, &isBackward)) {
            return source->faultHere(
                quotedText(line)
                + " is no entry of a log: start, end, time, output and hash between tabs"_L1);
        }
        if (isBackward)
            backward.add(source->place());
    }
    backward.tell(u"steps that end before they begin count as none"_s, notes);
    return std::nullopt;
}

bool BuildLog::readEntry(QByteArrayView line, bool *isBackward)
{
    Fields fields;
    if (!splitFields(line, &fields))
        return false;
    const auto &[start, end, changed, output, hash] = fields;
    const std::optional<double> from = writtenAmount(start);
    const std::optional<double> to = writtenAmount(end);
    if (!from || !to || !writtenNumber(changed) || output.isEmpty())
        return false;
    const QByteArray name = output.toByteArray();
    const QByteArray step =
        start.toByteArray() + ' ' + end.toByteArray() + ' ' + hash.toByteArray();
    // By a clock that was set back.
    *isBackward = *to < *from;
    const double milliseconds = *isBackward ? 0 : *to - *from;
    const auto known = places.constFind(name);
    if (known == places.cend()) {
        places.insert(name, entries.size());
        entries.append({.output = name, .step = step, .milliseconds = milliseconds});
    } else {
        entries[*known].step = step;
        entries[*known].milliseconds = milliseconds;
    }
    return true;
}

} // namespace ORR::Companion
