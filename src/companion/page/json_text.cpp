#include "companion/page/json_text.h"

#include <QChar>

#include <cstdio>

namespace ORR::Companion {

namespace {

bool isEscaped(char32_t c)
{
    return c < U' ' || c == U'"' || c == U'\\' || c == U'<' || c == U'\u007f' || c == U'\u2028'
        || c == U'\u2029' || QChar::isSurrogate(c);
}

QByteArray escaped(char32_t c)
{
    if (c == U'"' || c == U'\\')
        return QByteArray("\\") + char(c);
    if (c == U'\n')
        return "\\n";
    char written[8];
    std::snprintf(written, sizeof written, "\\u%04x", unsigned(c));
    return written;
}

} // namespace

QByteArray jsonText(const QString &text)
{
    QByteArray json("\"");
    qsizetype start = 0; // of what is taken as it is
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPair =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (isPair) {
            ++i;
            continue;
        }
        const char32_t c = text.at(i).unicode();
        if (!isEscaped(c))
            continue;
        json += QStringView(text).sliced(start, i - start).toUtf8() + escaped(c);
        start = i + 1;
    }
    return json + QStringView(text).sliced(start).toUtf8() + '"';
}

} // namespace ORR::Companion
