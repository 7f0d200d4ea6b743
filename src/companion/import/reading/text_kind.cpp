#include "companion/import/reading/text_kind.h"

#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

bool isTagLetter(char c)
{
    const char small = char(c | 0x20);
    return small >= 'a' && small <= 'z';
}

// An object with a name or none in it, or an array with a value that is more than a word.
bool isJsonText(QByteArrayView text)
{
    const bool isObject = text.startsWith('{');
    if (!isObject && !text.startsWith('['))
        return false;
    const QByteArrayView inner = text.sliced(1).trimmed();
    const QByteArrayView follows = isObject ? "\"}" : "{[\"]";
    return !inner.isEmpty() && follows.contains(inner[0]);
}

// "<?xml", "<!DOCTYPE", or an element that is closed.
bool isXmlText(QByteArrayView text)
{
    if (text.startsWith("<?xml") || text.startsWith("<!"))
        return true;
    return text.size() > 1 && text[0] == '<' && isTagLetter(text[1]) && text.contains('>');
}

struct BinaryRow
{
    QByteArrayView begin;
    const char *kind;
};
constexpr BinaryRow binaryRows[] = {
    {"\x89PNG", "a PNG picture"},
    {"\xff\xd8\xff", "a JPEG picture"},
    {"GIF8", "a GIF picture"},
    {"%PDF-", "a PDF"},
    {"\x7f"
     "ELF",
     "a program or library (ELF)"},
    {"!<arch>\n", "an archive of objects (ar)"},
    {"\x1f\x8b", "a file that gzip packed; unpack it first"},
    {"\xfd"
     "7zXZ",
     "a file that xz packed; unpack it first"},
    {"\x28\xb5\x2f\xfd", "a file that zstd packed; unpack it first"},
    {"PK\x03\x04", "an archive (ZIP)"},
    {"PERFILE2", "a recording of perf, which 'perf script' makes text of"},
    {"SQLite format 3", "a database (SQLite)"},
    {"adcg", "counters of gcov, of which 'gcov --json-format' makes JSON"},
    {"oncg", "notes of gcov; 'gcov --json-format' makes JSON of them and of the counters"},
    {"\xff\xfe", "text in UTF-16; UTF-8 is read"},
    {"\xfe\xff", "text in UTF-16; UTF-8 is read"},
};

// The name of the element around all of an XML; empty if it is not in the beginning.
QString rootElement(QByteArrayView text)
{
    constexpr qsizetype longestName = 40;
    QXmlStreamReader reader(text.toByteArray());
    return reader.readNextStartElement() ? reader.qualifiedName().left(longestName).toString()
                                         : QString();
}

} // namespace

QString binaryKind(QByteArrayView beginning)
{
    for (const BinaryRow &row : binaryRows) {
        if (beginning.startsWith(row.begin))
            return QString::fromLatin1(row.kind);
    }
    return {};
}

QString structuredKind(QByteArrayView beginning)
{
    const QByteArrayView text = beginning.trimmed();
    if (isJsonText(text))
        return u"JSON"_s;
    if (!isXmlText(text))
        return {};
    const QString root = rootElement(text);
    return root.isEmpty() ? u"XML"_s : u"XML with <%1>"_s.arg(root);
}

QString notTabular(QByteArrayView beginning)
{
    const QByteArrayView text = beginning.trimmed();
    if (isJsonText(text))
        return u"JSON"_s;
    if (isXmlText(text))
        return u"XML"_s;
    return text.contains('\0') ? u"no text"_s : QString();
}

} // namespace ORR::Companion
