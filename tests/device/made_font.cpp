#include "device/made_font.h"

#include <QFile>
#include <QtEndian>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

constexpr int headerSize = 12;
constexpr int entrySize = 16;

} // namespace

QByteArray shorts(std::initializer_list<int> numbers)
{
    QByteArray bytes;
    for (const int number : numbers) {
        bytes.append(char(number >> 8));
        bytes.append(char(number & 0xFF));
    }
    return bytes;
}

QByteArray longNumber(qsizetype number)
{
    return shorts({int(number >> 16), int(number & 0xFFFF)});
}

FontTables tablesOfSans()
{
    QFile file(u"/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf"_s);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    FontTables tables;
    const int count = qFromBigEndian<quint16>(bytes.constData() + 4);
    for (int i = 0; i < count; ++i) {
        const char *entry = bytes.constData() + headerSize + i * entrySize;
        tables.insert(
            QByteArray(entry, 4),
            bytes.mid(qFromBigEndian<quint32>(entry + 8), qFromBigEndian<quint32>(entry + 12)));
    }
    return tables;
}

QByteArray fontFile(const FontTables &tables)
{
    QByteArray directory = longNumber(0x10000) + shorts({int(tables.size()), 0, 0, 0});
    QByteArray content;
    const qsizetype start = headerSize + entrySize * tables.size();
    for (auto table = tables.cbegin(); table != tables.cend(); ++table) {
        directory += table.key() + longNumber(0) + longNumber(start + content.size())
            + longNumber(table->size());
        content += *table + QByteArray((4 - table->size() % 4) % 4, '\0');
    }
    return directory + content;
}

QRawFont fontOf(const FontTables &tables)
{
    return QRawFont(fontFile(tables), 12);
}

int glyphOf(char16_t c)
{
    return int(fontOf(tablesOfSans()).glyphIndexesForString(QChar(c)).value(0));
}

QByteArray lookupTable(int kind, int flags, const QByteArray &subtable, const QByteArray &feature,
                       int required)
{
    const QByteArray scripts =
        shorts({1}) + "latn" + shorts({8}) + shorts({4, 0}) + shorts({0, required, 1, 0});
    const QByteArray features = shorts({1}) + feature + shorts({8}) + shorts({0, 1, 0});
    const int start = 10;
    const int featureStart = start + int(scripts.size());
    const int lookupStart = featureStart + int(features.size());
    return shorts({1, 0, start, featureStart, lookupStart}) + scripts + features
        + shorts({1, 4}) // one lookup
        + shorts({kind, flags, 1, 8}) + subtable;
}

QByteArray listed(int glyph)
{
    return shorts({1, 1, glyph});
}

} // namespace ORR::Graph
