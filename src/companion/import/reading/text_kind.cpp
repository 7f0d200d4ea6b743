#include "companion/import/reading/text_kind.h"

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

} // namespace

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
