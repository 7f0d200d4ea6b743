#include "graph/html_text.h"

#include <QRegularExpression>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

QString withoutTags(const QString &html)
{
    static const QRegularExpression tag(u"<[^>]*>"_s);
    QString text = html;
    text.replace("<br>"_L1, "\\n"_L1);
    text.remove(tag);
    return text;
}

QString withResolvedEntities(const QString &text)
{
    QString resolved = text;
    resolved.replace("&amp;"_L1, "&"_L1);
    resolved.replace("&lt;"_L1, "<"_L1);
    resolved.replace("&gt;"_L1, ">"_L1);
    resolved.replace("&quot;"_L1, "\""_L1);
    return resolved;
}

} // namespace ORR::Graph
