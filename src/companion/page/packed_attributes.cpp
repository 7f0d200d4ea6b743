#include "companion/page/packed_attributes.h"

#include "companion/page/json_text.h"
#include "companion/page/packed_lists.h"

namespace ORR::Companion {

using namespace Graph;

void PackedAttributes::add(const DotObject *object, const AttributeMap &own)
{
    QByteArray set = QByteArray::number(writtenDefaults(given.defaultsOf(object)));
    for (const AttributeMap::Entry &entry : own) {
        const qsizetype name = numberOf(entry.name.text());
        set += ',' + QByteArray::number(name);
        valueList += (valueList.isEmpty() ? "" : ",") + packed(entry.value, name);
    }
    auto place = setPlaces.constFind(set);
    if (place == setPlaces.cend()) {
        place = setPlaces.insert(set, allSets.size());
        allSets.append('[' + set + ']');
    }
    if (runs.isEmpty() || runs.constLast().set != *place)
        runs.append({*place, 0});
    ++runs.last().count;
}

QByteArray PackedAttributes::setOfEach() const
{
    QByteArray list;
    for (const Run &run : runs) {
        list += (list.isEmpty() ? "" : ",") + QByteArray::number(run.set) + ','
            + QByteArray::number(run.count);
    }
    return '[' + list + ']';
}

QByteArray PackedAttributes::names() const
{
    QByteArray list;
    for (const QString &name : allNames)
        list += (list.isEmpty() ? "" : ",") + jsonText(name);
    return '[' + list + ']';
}

QByteArray PackedAttributes::sets() const
{
    return '[' + allSets.join(',') + ']';
}

QByteArray PackedAttributes::defaults() const
{
    return '[' + allDefaults.join(',') + ']';
}

QByteArray PackedAttributes::pairs(const AttributeMap &attributes)
{
    QByteArray list;
    for (const AttributeMap::Entry &entry : attributes) {
        list += (list.isEmpty() ? "" : ",") + QByteArray::number(numberOf(entry.name.text())) + ','
            + jsonText(entry.value);
    }
    return '[' + list + ']';
}

qsizetype PackedAttributes::numberOf(const QString &name)
{
    const auto place = nameNumbers.constFind(name);
    if (place != nameNumbers.cend())
        return *place;
    allNames.append(name);
    return *nameNumbers.insert(name, allNames.size() - 1);
}

// The number of defaults among those that are written, with all around them. Outer ones come first.
int PackedAttributes::writtenDefaults(int defaults)
{
    QList<int> missing;
    for (; defaults >= 0 && !defaultsPlaces.contains(defaults);
         defaults = given.defaults()[size_t(defaults)].outer)
        missing.append(defaults);
    int written = defaultsPlaces.value(defaults, -1);
    for (; !missing.isEmpty(); missing.removeLast()) {
        const QByteArray list =
            pairs(given.defaults()[size_t(missing.constLast())].attributes).sliced(1);
        allDefaults.append('[' + QByteArray::number(written) + (list == "]" ? "" : ",") + list);
        written = int(allDefaults.size() - 1);
        defaultsPlaces.insert(missing.constLast(), written);
    }
    return written;
}

// Whichever form is shorter.
QByteArray PackedAttributes::packed(const QString &value, qsizetype name)
{
    const QByteArray text = textAfter(&lastValues[name], value);
    const auto place = known.constFind(value);
    if (place != known.cend()) {
        const QByteArray number = QByteArray::number(*place);
        if (number.size() <= text.size())
            return number;
    }
    known.insert(value, textCount++);
    return text;
}

} // namespace ORR::Companion
