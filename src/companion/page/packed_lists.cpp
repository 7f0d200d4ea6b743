#include "companion/page/packed_lists.h"

#include "companion/page/json_text.h"

#include <algorithm>

namespace ORR::Companion {

namespace {

constexpr char16_t noneAlike = u'#';
constexpr qsizetype mostAlike = u'}' - u'#';

// The characters that two texts begin with, no pair of surrogates taken apart.
qsizetype alike(const QString &a, const QString &b)
{
    const qsizetype most = std::min({a.size(), b.size(), mostAlike});
    const auto differs = std::mismatch(a.cbegin(), a.cbegin() + most, b.cbegin()).first;
    const qsizetype count = differs - a.cbegin();
    return count > 0 && a.at(count - 1).isHighSurrogate() ? count - 1 : count;
}

} // namespace

QByteArray differences(const QList<int> &numbers, qsizetype width)
{
    QByteArray list;
    for (qsizetype i = 0; i < numbers.size(); ++i) {
        const int before = i < width ? 0 : numbers[i - width];
        list += (i == 0 ? "" : ",") + QByteArray::number(qint64(numbers[i]) - before);
    }
    return '[' + list + ']';
}

QByteArray textAfter(QString *last, const QString &text)
{
    const qsizetype count = alike(*last, text);
    *last = text;
    return jsonText(QChar(char16_t(noneAlike + count)) + text.sliced(count));
}

} // namespace ORR::Companion
