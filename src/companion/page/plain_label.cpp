#include "companion/page/plain_label.h"

#include "device/rich_text.h"

namespace ORR::Companion {

namespace {

bool endsLine(QStringView label, qsizetype i)
{
    const bool isEscaped = i > 0 && label.at(i - 1) == u'\\';
    return label.at(i) == u'\\' && !isEscaped && i + 1 < label.size()
        && QStringView(u"nlr").contains(label.at(i + 1));
}

} // namespace

QString plainLabel(const QString &label, bool isHtml)
{
    if (isHtml)
        return Graph::withoutMarkup(label);
    if (!label.contains(u'\\'))
        return label;
    QString plain;
    plain.reserve(label.size());
    for (qsizetype i = 0; i < label.size(); ++i) {
        const bool ends = endsLine(label, i);
        plain += ends ? u'\n' : label.at(i);
        i += ends ? 1 : 0;
    }
    if (plain.endsWith(u'\n'))
        plain.chop(1);
    return plain;
}

} // namespace ORR::Companion
