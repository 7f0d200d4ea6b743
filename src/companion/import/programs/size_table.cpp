#include "companion/import/programs/size_table.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/reading/written_number.h"

#include <QByteArrayList>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr std::array<QByteArrayView, 3> sumColumns{"text", "data", "bss"};

// "member   (ex archive)" becomes "archive/member".
QByteArray fileOf(QByteArrayView title)
{
    title = title.trimmed();
    const qsizetype in = title.lastIndexOf("(ex ");
    if (in < 0 || !title.endsWith(')'))
        return title.toByteArray();
    const QByteArrayView archive = title.sliced(in + 4).chopped(1);
    return archive.toByteArray() + '/' + title.first(in).trimmed().toByteArray();
}

bool isSumHeading(const QByteArrayList &words)
{
    return words.size() > qsizetype(sumColumns.size())
        && std::equal(sumColumns.begin(), sumColumns.end(), words.begin())
        && words.last() == "filename";
}

class SizeTableReader
{
public:
    explicit SizeTableReader(QList<SizedSection> *read) : sections(read) { }

    // What is wrong with a line; empty if nothing is.
    QString read(QByteArrayView line);

private:
    bool addSection(const QByteArrayList &words);
    bool addSums(const QByteArrayList &words, QByteArrayView line);

    QList<SizedSection> *sections;
    QByteArray file; // of the table of sections that is open
    qsizetype columns = 0; // of a table of files
};

bool SizeTableReader::addSection(const QByteArrayList &words)
{
    if (file.isEmpty() || words.size() < 2)
        return false;
    if (words.first() == "Total")
        return writtenSize(words.at(1)).has_value();
    if (words.size() < 3 || !writtenSize(words.last()))
        return false;
    const std::optional<double> size = writtenSize(words.at(words.size() - 2));
    if (size)
        sections->append({.file = file, .section = words.first(), .size = *size});
    return size.has_value();
}

bool SizeTableReader::addSums(const QByteArrayList &words, QByteArrayView line)
{
    if (words.size() < columns)
        return false;
    // Its name is all that is left, with blanks in it, too.
    const qsizetype tab = line.lastIndexOf('\t');
    const QByteArray name =
        tab < 0 ? words.sliced(columns - 1).join(' ') : fileOf(line.sliced(tab + 1));
    if (name == "(TOTALS)")
        return true;
    for (size_t i = 0; i < sumColumns.size(); ++i) {
        const std::optional<double> size = writtenSize(words.at(qsizetype(i)));
        if (!size)
            return false;
        sections->append({.file = name, .section = sumColumns[i].toByteArray(), .size = *size});
    }
    return true;
}

QString SizeTableReader::read(QByteArrayView line)
{
    const QByteArrayList words = line.toByteArray().simplified().split(' ');
    if (words.first().isEmpty())
        return {};
    if (isSumHeading(words)) {
        columns = words.size();
        file.clear();
        return {};
    }
    if (words == QByteArrayList{"section", "size", "addr"})
        return file.isEmpty() ? u"no name of a file is above this table"_s : QString();
    if (line.trimmed().endsWith(':') && !line.startsWith('.')) {
        file = fileOf(line.trimmed().chopped(1));
        columns = 0;
        return {};
    }
    if (columns > 0 ? addSums(words, line) : addSection(words))
        return {};
    return quotedText(line) + " is no line of a table of sizes"_L1;
}

} // namespace

bool isSizeTable(QByteArrayView beginning)
{
    const QByteArray text =
        beginning.first(std::min<qsizetype>(beginning.size(), 4096)).toByteArray().simplified();
    return text.contains(": section size addr ") || text.startsWith("text data bss ");
}

std::optional<ImportFault> readSizeTable(ImportSource *source, QList<SizedSection> *sections)
{
    SizeTableReader reader(sections);
    QByteArrayView line;
    while (source->nextLine(&line)) {
        const QString wrong = reader.read(line);
        if (!wrong.isEmpty())
            return source->faultHere(wrong);
    }
    return std::nullopt;
}

} // namespace ORR::Companion
