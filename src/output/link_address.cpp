#include "output/link_address.h"

#include <QString>

#include <algorithm>
#include <cstring>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// The limit of ISO 32000-1, Annex C, for a string.
constexpr qsizetype longestAddress = 32767;

bool isControl(QChar c)
{
    return c < u' ' || (c >= u'\u007f' && c <= u'\u009f');
}

// What stands before a colon that comes before all that ends a scheme (RFC 3986, 4.2).
QStringView schemeOf(QStringView address)
{
    const auto end = std::find_if(address.begin(), address.end(), [](QChar c) {
        return c == u':' || c == u'/' || c == u'?' || c == u'#';
    });
    if (end == address.end() || *end != u':')
        return {};
    return address.first(end - address.begin());
}

// Letters, digits and the punctuation of addresses stay, the percent sign of what is encoded
// already among it.
QByteArray encoded(const QString &address)
{
    static constexpr char staying[] =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"
        "-._~!#$%&'()*+,/:;=?@[]";
    QByteArray result;
    for (const char c : address.toUtf8()) {
        if (std::strchr(staying, c))
            result += c;
        else
            result += '%' + QByteArray(1, c).toHex().toUpper();
    }
    return result;
}

bool isOfWeb(QStringView address)
{
    return address.startsWith("http://"_L1, Qt::CaseInsensitive)
        || address.startsWith("https://"_L1, Qt::CaseInsensitive);
}

} // namespace

QByteArray linkAddress(const DotObject *object)
{
    if (!object)
        return {};
    static const AttributeName names[] = {u"url"_s, u"URL"_s};
    const QString *value = object->attributes.find(names[0]);
    if (!value)
        value = object->attributes.find(names[1]);
    const QString given = value ? value->trimmed() : QString();
    if (std::any_of(given.cbegin(), given.cend(), isControl))
        return {};
    const bool isRelative = !given.startsWith(u':') && schemeOf(given).isEmpty();
    if (!isRelative && !isOfWeb(given))
        return {};
    const QByteArray address = encoded(given);
    return address.size() <= longestAddress ? address : QByteArray();
}

} // namespace ORR::Graph
