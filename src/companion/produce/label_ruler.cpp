#include "companion/produce/label_ruler.h"

#include "device/text_image.h"

#include <QStringList>

#include <algorithm>

namespace ORR::Companion {

using namespace Qt::StringLiterals;

namespace {

// Longer names are not worth measuring: nobody reads them in a cell.
constexpr qsizetype longestMeasured = 400;

constexpr QChar ellipsis = u'\u2026';

// So many characters of a line, with the middle left out; of surrogates both or none.
QString shortened(const QString &line, qsizetype kept)
{
    qsizetype head = (kept + 1) / 2;
    qsizetype tail = line.size() - kept / 2;
    if (head > 0 && line[head - 1].isHighSurrogate())
        --head;
    if (tail < line.size() && line[tail].isLowSurrogate())
        ++tail;
    return line.first(head) + ellipsis + line.sliced(tail);
}

// Whether a name may be parted before this character.
bool beginsPart(const QString &name, qsizetype i)
{
    const QChar before = name[i - 1];
    const QChar here = name[i];
    if (here == u'.')
        return true;
    if (before == u'_' || before == u'-' || before == u' ' || before == u'/' || before == u':')
        return here != before;
    return here.isUpper() && before.isLower();
}

QStringList partsOf(const QString &name)
{
    QStringList parts;
    qsizetype start = 0;
    for (qsizetype i = 1; i < name.size(); ++i) {
        if (!beginsPart(name, i))
            continue;
        parts.append(name.sliced(start, i - start));
        start = i;
    }
    parts.append(name.sliced(start));
    return parts;
}

} // namespace

LabelRuler::LabelRuler(int fontSize)
    : font(QLatin1StringView(family), fontSize, 0), points(fontSize)
{
    height = font.sizeOf(u" "_s).height();
    leading = Graph::TextImage::fontLeading(&font);
}

QSize LabelRuler::sizeOf(const QString &label) const
{
    if (!label.contains(u'\n'))
        return font.sizeOf(label);
    QSize whole;
    const QStringList lines = label.split(u'\n');
    for (const QString &line : lines) {
        const QSize one = font.sizeOf(line);
        whole = {std::max(whole.width(), one.width()), std::max(whole.height(), 0) + one.height()};
    }
    return whole + QSize(0, leading * int(lines.size() - 1));
}

QString LabelRuler::elided(const QString &line, int width, int least) const
{
    const bool isShort = line.size() <= longestMeasured;
    if (isShort && widthOf(line) <= width)
        return line;
    qsizetype fits = 0;
    qsizetype tooLong = std::min(line.size(), longestMeasured);
    while (tooLong - fits > 1) {
        const qsizetype middle = (fits + tooLong) / 2;
        (widthOf(shortened(line, middle)) <= width ? fits : tooLong) = middle;
    }
    return fits < least ? QString() : shortened(line, fits);
}

QString LabelRuler::wrapped(const QString &word, QSize room, int mostLines) const
{
    if (height > room.height() || word.isEmpty() || word.size() > longestMeasured)
        return {};
    if (const QSize whole = font.sizeOf(word);
        whole.width() <= room.width() && whole.height() <= room.height())
        return word;
    QString label;
    QString line;
    int lines = 1;
    for (const QString &part : partsOf(word)) {
        if (widthOf(line + part) <= room.width()) {
            line += part;
            continue;
        }
        if (line.isEmpty() || ++lines > mostLines)
            return {};
        label += line + u'\n';
        line = part;
    }
    label += line;
    const QSize size = sizeOf(label);
    return size.width() <= room.width() && size.height() <= room.height() ? label : QString();
}

} // namespace ORR::Companion
