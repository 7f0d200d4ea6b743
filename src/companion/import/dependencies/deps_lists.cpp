#include "companion/import/dependencies/deps_lists.h"

#include "companion/import/reading/written_number.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr qsizetype longestToldLine = 80;

// Takes a word off the front, up to a separator or its closing quote.
QByteArray takeWord(QByteArrayView *line, bool tabsOnly)
{
    *line = line->trimmed();
    if (line->startsWith('"')) {
        const qsizetype end = line->indexOf('"', 1);
        if (end > 0) {
            const QByteArray word = line->sliced(1, end - 1).toByteArray();
            *line = line->sliced(end + 1);
            return word;
        }
    }
    qsizetype end = 0;
    while (end < line->size() && line->at(end) != '\t' && (tabsOnly || line->at(end) != ' '))
        ++end;
    const QByteArray word = line->first(end).trimmed().toByteArray();
    *line = line->sliced(end);
    return word;
}

bool readWeight(QByteArrayView text, double *weight)
{
    text = text.trimmed();
    if (text.isEmpty())
        return true;
    const std::optional<double> value = writtenAmount(text);
    *weight = value.value_or(0);
    return value.has_value();
}

// A name in quotes, or all that is there.
QByteArray wholeWord(QByteArrayView text)
{
    text = text.trimmed();
    if (text.size() >= 2 && text.startsWith('"') && text.endsWith('"'))
        text = text.sliced(1, text.size() - 2);
    return text.toByteArray();
}

} // namespace

bool readDepsLine(QByteArrayView line, DepsLine *read)
{
    // The arrow that stands by itself, as names may hold one.
    const qsizetype arrow = line.indexOf(" -> ");
    const bool hasTabs = line.contains('\t');
    if (arrow >= 0) {
        read->tail = wholeWord(line.first(arrow));
        QByteArrayView behind = line.sliced(arrow + 4);
        if (behind.trimmed().endsWith(';'))
            behind = behind.trimmed().chopped(1);
        if (hasTabs || behind.trimmed().startsWith('"')) {
            read->head = takeWord(&behind, true);
            return !read->tail.isEmpty() && !read->head.isEmpty()
                && readWeight(behind, &read->weight);
        }
        // A number behind a blank is how often, and anything else is part of the name.
        behind = behind.trimmed();
        const qsizetype blank = behind.lastIndexOf(' ');
        const QByteArrayView last = blank < 0 ? QByteArrayView() : behind.sliced(blank + 1);
        if (writtenNumber(last)) {
            if (!readWeight(last, &read->weight))
                return false;
            behind = behind.first(blank);
        }
        read->head = wholeWord(behind);
        return !read->tail.isEmpty() && !read->head.isEmpty();
    }
    read->tail = takeWord(&line, hasTabs);
    read->head = takeWord(&line, hasTabs);
    return !read->tail.isEmpty() && !read->head.isEmpty() && readWeight(line, &read->weight);
}

int shareOfDepsLines(QByteArrayView beginning)
{
    int lines = 0;
    int likely = 0;
    while (!beginning.isEmpty() && lines < 100) {
        const qsizetype end = beginning.indexOf('\n');
        const QByteArrayView line = end < 0 ? beginning : beginning.first(end);
        beginning = end < 0 ? QByteArrayView() : beginning.sliced(end + 1);
        if (line.trimmed().isEmpty() || line.trimmed().startsWith('#'))
            continue;
        ++lines;
        likely += line.contains(" -> ") ? 1 : 0;
    }
    return lines == 0 ? 0 : 100 * likely / lines;
}

void readDepsList(ImportSource &source, DepsReading *reading)
{
    QByteArrayView line;
    while (source.nextLine(&line)) {
        if (line.trimmed().isEmpty() || line.trimmed().startsWith('#'))
            continue;
        DepsLine read;
        if (!readDepsLine(line, &read)) {
            reading->fault = source.faultHere(
                u"'%1' is no dependency; a line is 'a -> b', or two names with a tab or a blank "
                "between, and maybe a finite number of 0 or more"_s.arg(
                    QString::fromUtf8(line.first(std::min(longestToldLine, line.size())))));
            return;
        }
        Dependencies &dependencies = reading->dependencies;
        const Dependencies::Item tail = dependencies.thing(read.tail);
        const Dependencies::Item head = dependencies.thing(read.head);
        if (tail == WeightTree::root || head == WeightTree::root) {
            reading->fault = source.faultHere(u"a name is nothing but '/' and '.'"_s);
            return;
        }
        dependencies.need(tail, head, read.weight);
    }
}

} // namespace ORR::Companion
