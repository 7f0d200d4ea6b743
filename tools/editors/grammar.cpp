#include "tools/editors/grammar.h"

#include "layout/attribute_tables.h"

#include <QRegularExpression>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace ORR::Docs {

namespace {

QStringList attributeNames()
{
    QStringList names;
    for (const Graph::AttributeTable *table : Graph::Layout::attributeTables()) {
        for (const Graph::AttributeRow *row : table->rows)
            names += row->name.text();
    }
    names.sort();
    names.removeDuplicates();
    return names;
}

} // namespace

QString renewedGrammar(const QString &grammar)
{
    static const QRegularExpression rule(
        u"(\"attribute\": \\{[^}]*\"match\": \"[^\\n]*\\(\\?:)([A-Za-z0-9_|]+)(\\))"_s);
    const QRegularExpressionMatch found = rule.match(grammar);
    if (!found.hasMatch())
        return {};
    QString renewed = grammar;
    renewed.replace(found.capturedStart(2), found.capturedLength(2), attributeNames().join(u'|'));
    return renewed;
}

} // namespace ORR::Docs
