#include "companion/draw/change_notes.h"

#include "driver/standard_streams.h"
#include "graph/limits.h"
#include "output/files/descriptor.h"
#include "output/files/file_name.h"
#include "output/output_file.h"

#include <QByteArrayList>
#include <QCryptographicHash>
#include <QLocale>

#include <fcntl.h>
#include <sys/stat.h>

namespace ORR::Companion {

namespace {

constexpr char firstLine[] = "orr draw notes 1\n";

QByteArray hashOf(QByteArrayView bytes)
{
    return QCryptographicHash::hash(bytes.toByteArray(), QCryptographicHash::Sha1).toHex();
}

// Size and time of change; empty if it is no file.
QByteArray stateOf(const QByteArray &output)
{
    struct stat status = {};
    if (::stat(output.constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return {};
    const qint64 time = status.st_mtim.tv_sec * qint64(1'000'000'000) + status.st_mtim.tv_nsec;
    return QByteArray::number(qint64(status.st_size)) + ' ' + QByteArray::number(time);
}

QByteArray contentOf(const QByteArray &file)
{
    const Graph::Descriptor opened(::open(file.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!opened)
        return {};
    return Driver::readToEnd(opened.number(), Graph::Limits::longestInput).value_or(QByteArray());
}

// In order and separated, and nothing for those that change nothing.
QByteArray extrasOf(const DrawingOptions &options)
{
    QByteArray extras;
    if (options.scale != 1.0)
        extras += " s" + QByteArray::number(options.scale, 'g', QLocale::FloatingPointShortest);
    if (!options.background.isEmpty())
        extras += " b" + options.background.toLower();
    if (options.embedded)
        extras += " e";
    return extras;
}

} // namespace

QByteArray stampOf(const QByteArray &input, const DrawingOptions &options)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(options.engine.toLower());
    hash.addData(' ' + QByteArray::number(options.format) + (options.htmlLabels ? " h" : "")
                 + extrasOf(options) + '\n');
    hash.addData(input);
    return hash.result().toHex();
}

ChangeNotes::ChangeNotes(const QByteArray &file_, const QByteArray &surroundings_)
    : file(file_), surroundings(surroundings_)
{
    load(contentOf(file));
}

bool ChangeNotes::holds(const QByteArray &output, const QByteArray &stamp) const
{
    const auto found = notes.find(output);
    return found != notes.end() && found->stamp == stamp && found->state == stateOf(output);
}

void ChangeNotes::note(const QByteArray &output, const QByteArray &stamp)
{
    const QByteArray state = stateOf(output);
    if (state.isEmpty())
        return;
    notes.insert(output, {stamp, state});
    isNew = true;
}

bool ChangeNotes::save() const
{
    if (!isNew)
        return true;
    QByteArray text = firstLine + surroundings + '\n';
    for (auto note = notes.cbegin(); note != notes.cend(); ++note)
        text += note->stamp + ' ' + note->state + ' ' + note.key().toPercentEncoding("/") + '\n';
    text += "end " + hashOf(text) + '\n';
    Graph::OutputFile output(Graph::fileNameText(file));
    return output.write(text) && output.commit();
}

void ChangeNotes::load(const QByteArray &text)
{
    const qsizetype last = text.lastIndexOf("\nend ") + 1;
    if (last == 0 || text.sliced(last) != "end " + hashOf(text.first(last)) + '\n')
        return;
    const QByteArrayList lines = text.first(last).split('\n');
    if (lines.size() < 2 || lines.at(0) + '\n' != firstLine || lines.at(1) != surroundings)
        return;
    notes.reserve(lines.size());
    for (const QByteArray &line : lines.sliced(2)) {
        const QByteArrayList fields = line.split(' ');
        if (fields.size() == 4)
            notes.insert(QByteArray::fromPercentEncoding(fields.at(3)),
                         {fields.at(0), fields.at(1) + ' ' + fields.at(2)});
    }
}

} // namespace ORR::Companion
