#include "tools/attribute_words.h"

using namespace Qt::StringLiterals;

namespace ORR::Docs {

using namespace Graph;

QList<AttributeElement> elementsIn(AttributeElements elements)
{
    QList<AttributeElement> listed;
    for (const AttributeElement element : {AttributeElement::Root, AttributeElement::Cluster,
                                           AttributeElement::Node, AttributeElement::Edge}) {
        if (elements.testFlag(element))
            listed.append(element);
    }
    return listed;
}

QString elementText(AttributeElements elements)
{
    QStringList names;
    for (const AttributeElement element : elementsIn(elements))
        names += elementName(element);
    return names.join(u", "_s);
}

QString typeText(const AttributeRow &row)
{
    return row.unit.empty() ? typeName(row.type) : typeName(row.type) + u", "_s + latin1(row.unit);
}

QString lookupText(const AttributeRow &row)
{
    QStringList lookups;
    QList<AttributeElements> elements; // of each lookup
    for (const AttributeElement element : elementsIn(row.elements)) {
        const QString lookup = lookupName(row.lookup, element);
        if (lookups.isEmpty() || lookups.constLast() != lookup) {
            lookups += lookup;
            elements += AttributeElements();
        }
        elements.last() |= element;
    }
    if (lookups.size() == 1)
        return lookups.constFirst();
    for (qsizetype i = 0; i < lookups.size(); ++i)
        lookups[i].prepend(elementText(elements.at(i)) + u": "_s);
    return lookups.join(u"; "_s);
}

QString defaultText(const AttributeRow &row)
{
    return row.byDefault.empty() ? u"none"_s : QString(latin1(row.byDefault));
}

} // namespace ORR::Docs
