#include "output/pdf/pdf_objects.h"

#include <QCryptographicHash>

#include <algorithm>
#include <utility>

namespace ORR::Graph {

namespace {

constexpr qsizetype entrySize = 20; // of the table of cross references
constexpr qsizetype offsetSize = 10; // of its first field

// The first reference behind the key in a text of PDF, past the blanks and the bracket of a list.
int referenceIn(QByteArrayView text, QByteArrayView key)
{
    qsizetype place = text.indexOf(key);
    if (place < 0)
        return 0;
    place += key.size();
    while (place < text.size() && QByteArrayView(" \r\n[").contains(text.at(place)))
        ++place;
    const QByteArrayView rest = text.sliced(place);
    const qsizetype end = rest.indexOf(' ');
    if (end < 0 || !rest.sliced(end).startsWith(" 0 R"))
        return 0;
    return rest.first(end).toInt();
}

// The number that follows, behind blanks; -1 for none. `place` is moved behind it.
qsizetype takeNumber(QByteArrayView text, qsizetype *place)
{
    while (*place < text.size() && QByteArrayView(" \r\n").contains(text.at(*place)))
        ++*place;
    const qsizetype start = *place;
    while (*place < text.size() && text.at(*place) >= '0' && text.at(*place) <= '9')
        ++*place;
    return *place > start ? text.sliced(start, *place - start).toLongLong() : -1;
}

// Where the objects begin, by number; 0 for what is none. Empty if there is no table.
QList<qsizetype> offsetsIn(QByteArrayView table)
{
    qsizetype place = QByteArrayView("xref").size();
    if (!table.startsWith("xref") || takeNumber(table, &place) != 0)
        return {};
    const qsizetype count = takeNumber(table, &place);
    ++place;
    if (count <= 0 || count > (table.size() - place) / entrySize)
        return {};
    QList<qsizetype> offsets(count, 0);
    for (qsizetype i = 0; i < count; ++i) {
        const QByteArrayView entry = table.sliced(place + i * entrySize, entrySize);
        if (entry.contains('n'))
            offsets[i] = entry.first(offsetSize).toLongLong();
    }
    return offsets;
}

// What stands between the two words around an object; null if they are not there.
QByteArray contentOf(QByteArrayView object)
{
    const qsizetype start = object.indexOf(" obj");
    const qsizetype end = object.lastIndexOf("endobj");
    if (start < 0 || end < start)
        return {};
    const qsizetype after = start + QByteArrayView(" obj").size();
    return object.sliced(after, end - after).toByteArray().trimmed();
}

} // namespace

std::optional<PdfObjects> PdfObjects::read(const QByteArray &file)
{
    const qsizetype startxref = file.lastIndexOf("startxref");
    qsizetype place = startxref + QByteArrayView("startxref").size();
    const qsizetype tablePlace = startxref < 0 ? -1 : takeNumber(file, &place);
    if (tablePlace <= 0 || tablePlace >= startxref)
        return std::nullopt;
    const QByteArrayView table = QByteArrayView(file).sliced(tablePlace, startxref - tablePlace);
    const QList<qsizetype> offsets = offsetsIn(table);
    if (offsets.isEmpty())
        return std::nullopt;

    // Each reaches to where the next one begins.
    QList<qsizetype> sorted = offsets;
    sorted.append(tablePlace);
    std::sort(sorted.begin(), sorted.end());
    PdfObjects objects;
    objects.contents.resize(offsets.size());
    for (qsizetype i = 0; i < offsets.size(); ++i) {
        const qsizetype start = offsets.at(i);
        if (start == 0)
            continue;
        const auto end = std::upper_bound(sorted.cbegin(), sorted.cend(), start);
        if (end == sorted.cend() || start > tablePlace)
            return std::nullopt;
        objects.contents[i] = contentOf(QByteArrayView(file).sliced(start, *end - start));
    }
    const auto first = std::upper_bound(sorted.cbegin(), sorted.cend(), qsizetype(0));
    objects.header = file.first(*first);
    const qsizetype trailer = table.lastIndexOf("trailer");
    if (trailer < 0)
        return std::nullopt;
    objects.rootNumber = referenceIn(table.sliced(trailer), "/Root");
    objects.infoNumber = referenceIn(table.sliced(trailer), "/Info");
    return objects;
}

QByteArray PdfObjects::content(int number) const
{
    return contents.value(number);
}

void PdfObjects::setContent(int number, const QByteArray &content)
{
    if (number > 0 && number < contents.size())
        contents[number] = content;
}

int PdfObjects::add(const QByteArray &content)
{
    contents.append(content);
    return int(contents.size()) - 1;
}

int PdfObjects::reference(int number, QByteArrayView key) const
{
    return referenceIn(contents.value(number), key);
}

QByteArray PdfObjects::written() const
{
    QByteArray file = header;
    QByteArray table = "xref\n0 " + QByteArray::number(contents.size()) + "\n0000000000 65535 f \n";
    for (qsizetype i = 1; i < contents.size(); ++i) {
        const QByteArray &content = contents.at(i);
        if (content.isEmpty()) {
            table += "0000000000 65535 f \n";
            continue;
        }
        table += QByteArray::number(file.size()).rightJustified(offsetSize, '0') + " 00000 n \n";
        file += QByteArray::number(i) + " 0 obj\n" + content + "\nendobj\n";
    }
    const QByteArray hash =
        '<' + QCryptographicHash::hash(file, QCryptographicHash::Md5).toHex() + '>';
    QByteArray trailer = "trailer\n<<\n/Size " + QByteArray::number(contents.size());
    if (infoNumber > 0)
        trailer += "\n/Info " + QByteArray::number(infoNumber) + " 0 R";
    trailer +=
        "\n/Root " + QByteArray::number(rootNumber) + " 0 R\n/ID [" + hash + hash + "]\n>>\n";
    const qsizetype place = file.size();
    return file + table + trailer + "startxref\n" + QByteArray::number(place) + "\n%%EOF\n";
}

} // namespace ORR::Graph
