#include "companion/serve/request_head.h"

#include <algorithm>
#include <string_view>

namespace ORR::Companion {

namespace {

bool isLetterOrDigit(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

// A token of RFC 9110.
bool isToken(const QByteArray &text)
{
    constexpr std::string_view marks = "!#$%&'*+-.^_`|~";
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [&](char c) {
        return isLetterOrDigit(c) || marks.find(c) != std::string_view::npos;
    });
}

bool isValue(const QByteArray &text)
{
    return std::none_of(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) < ' ' && c != '\t') || c == 0x7f;
    });
}

bool isTarget(const QByteArray &text)
{
    return text.startsWith('/')
        && std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c <= '~'; });
}

// The line up to CR LF, which is taken off.
QByteArray takeLine(QByteArrayView *rest)
{
    const qsizetype end = rest->indexOf("\r\n");
    const QByteArray line = rest->first(end).toByteArray();
    *rest = rest->sliced(end + 2);
    return line;
}

} // namespace

QList<QByteArray> RequestHead::values(QByteArrayView name) const
{
    QList<QByteArray> found;
    for (const auto &[field, value] : fields) {
        if (field == name)
            found += value;
    }
    return found;
}

std::optional<RequestHead> requestHead(const QByteArray &bytes)
{
    if (!bytes.endsWith("\r\n\r\n"))
        return std::nullopt;
    QByteArrayView rest = bytes;
    const QList<QByteArray> words = takeLine(&rest).split(' ');
    if (words.size() != 3 || !isToken(words[0]) || !isTarget(words[1])
        || (words[2] != "HTTP/1.1" && words[2] != "HTTP/1.0"))
        return std::nullopt;
    RequestHead head{.method = words[0], .target = words[1]};
    for (QByteArray line = takeLine(&rest); !line.isEmpty(); line = takeLine(&rest)) {
        const qsizetype colon = line.indexOf(':');
        const QByteArray name = line.first(std::max<qsizetype>(colon, 0));
        const QByteArray value = line.sliced(colon + 1).trimmed();
        if (!isToken(name) || !isValue(value))
            return std::nullopt;
        head.fields.append({name.toLower(), value});
    }
    return rest.isEmpty() ? std::optional(head) : std::nullopt;
}

} // namespace ORR::Companion
