#include "companion/check/attribute_rules.h"

#include "companion/check/attribute_passed_on.h"
#include "companion/check/attribute_uses.h"
#include "companion/check/attribute_values.h"
#include "companion/check/ordered_findings.h"
#include "companion/check/rules.h"
#include "companion/findings/nearest_word.h"
#include "companion/findings/quoted_text.h"
#include "graph/dot_tokenizer.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

using namespace Graph;

namespace {

AttributePlace placeOf(const CheckedList &list)
{
    switch (list.target) {
    case AttributeTarget::Node:
        return AttributePlace::Node;
    case AttributeTarget::Edge:
        return AttributePlace::Edge;
    case AttributeTarget::NodeDefaults:
        return AttributePlace::NodeDefaults;
    case AttributeTarget::EdgeDefaults:
        return AttributePlace::EdgeDefaults;
    case AttributeTarget::Subgraph:
        break;
    }
    return static_cast<const DotSubgraph *>(list.object)->parent ? AttributePlace::Cluster
                                                                 : AttributePlace::Root;
}

bool isPassedOn(const AttributeName &name)
{
    return std::any_of(std::begin(passedOnAttributes), std::end(passedOnAttributes),
                       [&](std::string_view passedOn) { return name.text() == latin1(passedOn); });
}

// An engine that has legends has a rule of its own for one in the wrong place.
bool isLegend(const AttributeName &name)
{
    return name == "legend"_attribute;
}

// The values that were found to be meant last. Short values that repeat are one text in memory.
class MeantValues
{
public:
    bool contains(const AttributeUse::At *use, const QString &value)
    {
        const Entry &entry = entryOf(value);
        return entry.use == use && entry.text == value.constData();
    }
    void insert(const AttributeUse::At *use, const QString &value)
    {
        entryOf(value) = {use, value.constData()};
    }

private:
    struct Entry
    {
        const AttributeUse::At *use = nullptr;
        const QChar *text = nullptr;
    };
    static constexpr size_t count = 1024;

    Entry &entryOf(const QString &value) { return entries[qHash(value.constData()) % count]; }

    std::array<Entry, count> entries;
};

class AttributeCheck
{
public:
    AttributeCheck(const CheckedText &checkedText, const QByteArray &textBytes,
                   const QString &engineName, FindingList *list)
        : text(checkedText), bytes(textBytes), uses(engineName),
          engine(uses.isOfEngine() ? engineName.toLower() : QString()),
          ofEngine(engine.isEmpty() ? QString() : " in "_L1 + engine),
          unknownAttributes(Rules::unknownAttribute, list),
          unreadAttributes(Rules::unreadAttribute, list),
          setAttributes(Rules::engineAttribute, list), badValues(Rules::badValue, list),
          senselessValues(Rules::senselessValue, list), unknownColors(Rules::unknownColor, list),
          unknownWords(Rules::unknownWord, list)
    {
    }

    void checkAll();

private:
    void check(const CheckedAttribute &attribute, AttributePlace place, const AttributeMap &values);
    void addUnknown(const CheckedAttribute &attribute, AttributePlace place);
    QString suggestionFor(const QString &name, AttributePlace place) const;
    void addSet(const CheckedAttribute &attribute, AttributePlace place, bool isTaken);
    void addUnread(const CheckedAttribute &attribute, AttributePlace place,
                   const AttributeUse &use);
    void checkValue(const CheckedAttribute &attribute, const AttributeUse::At &use,
                    const QString &value);
    template <typename IsFault>
    const AttributeRow *offended(const AttributeUse::At &use, const IsFault &isFault) const;
    bool isStill(const CheckedAttribute &attribute, const QString &value) const;
    OrderedFindings &findingsOf(const AttributeRow &row);
    Finding placed(Finding finding, qsizetype offset) const;

    const CheckedText &text;
    const QByteArray &bytes;
    AttributeUses uses;
    QString engine; // empty for all engines
    QString ofEngine; // " in treemap"; empty for all engines
    MeantValues meant;
    OrderedFindings unknownAttributes;
    OrderedFindings unreadAttributes;
    OrderedFindings setAttributes;
    OrderedFindings badValues;
    OrderedFindings senselessValues;
    OrderedFindings unknownColors;
    OrderedFindings unknownWords;
};

void AttributeCheck::checkAll()
{
    for (const CheckedList &list : text.lists()) {
        const AttributePlace place = placeOf(list);
        const AttributeMap &values = attributesOf(list);
        for (qsizetype i = list.first; i < text.endOf(list); ++i)
            check(text.attributes()[size_t(i)], place, values);
    }
}

void AttributeCheck::check(const CheckedAttribute &attribute, AttributePlace place,
                           const AttributeMap &values)
{
    const AttributeUse *use = uses.find(attribute.name);
    if (!use)
        return addUnknown(attribute, place);
    if (use->at(place).isRead) {
        if (const QString *value = values.find(attribute.name))
            checkValue(attribute, use->at(place), *value);
        return;
    }
    if (uses.isOfEngine() && isLegend(attribute.name))
        return;
    if (use->at(place).isSet)
        addSet(attribute, place, use->at(place).isTaken);
    else if (!use->readers)
        addUnknown(attribute, place); // its name is one for what engines hand on, elsewhere
    else
        addUnread(attribute, place, *use);
}

void AttributeCheck::addUnknown(const CheckedAttribute &attribute, AttributePlace place)
{
    // A name that has lost a character to its minus sign was told with the syntax.
    if (isPassedOn(attribute.name) || bytes.at(attribute.nameOffset) == '-')
        return;
    unknownAttributes.add(attribute.nameOffset, [&] {
        const QString &name = attribute.name.text();
        return placed(
            {&Rules::unknownAttribute,
             "unknown attribute %1 of %2%3"_L1.arg(quotedText(name), placeName(place), ofEngine),
             suggestionFor(name, place)},
            attribute.nameOffset);
    });
}

// What is known at the same place comes first: the name itself, then one that is near.
QString AttributeCheck::suggestionFor(const QString &name, AttributePlace place) const
{
    if (const QStringList engines = enginesThatRead(name, place); !engines.isEmpty())
        return "known in "_L1 + listed(engines);
    if (const QString near = didYouMean(name, uses.namesAt(place)); !near.isEmpty())
        return near;
    if (const AttributeReaders readers = readersOf(name); readers.elements)
        return "known of %1 in %2"_L1.arg(singleElementNames(readers.elements),
                                          listed(readers.engines));
    const QString near = nearestWord(name, uses.names());
    if (near.isEmpty())
        return {};
    return "did you mean '%1', which is known of %2?"_L1.arg(
        near, singleElementNames(uses.readersOf(near)));
}

void AttributeCheck::addSet(const CheckedAttribute &attribute, AttributePlace place, bool isTaken)
{
    setAttributes.add(attribute.nameOffset, [&] {
        const QString setter =
            engine.isEmpty() ? u"the engines themselves"_s : engine + " itself"_L1;
        return placed({&Rules::engineAttribute,
                       "attribute %1 of %2 is set by %3"_L1.arg(quotedText(attribute.name.text()),
                                                                placeName(place), setter),
                       isTaken ? u"the value given here counts only where none is set"_s
                               : u"the value given here is lost"_s},
                      attribute.nameOffset);
    });
}

void AttributeCheck::addUnread(const CheckedAttribute &attribute, AttributePlace place,
                               const AttributeUse &use)
{
    unreadAttributes.add(attribute.nameOffset, [&] {
        return placed({&Rules::unreadAttribute,
                       "attribute %1 of %2 is never read%3"_L1.arg(
                           quotedText(attribute.name.text()), placeName(place), ofEngine),
                       use.readers ? "it is read of "_L1 + elementNames(use.readers) : QString()},
                      attribute.nameOffset);
    });
}

void AttributeCheck::checkValue(const CheckedAttribute &attribute, const AttributeUse::At &use,
                                const QString &value)
{
    if (use.rows.empty() || meant.contains(&use, value))
        return;
    // A long value is looked at where it stands, not again for each one that it has replaced.
    constexpr qsizetype longValue = 64;
    if (value.size() > longValue && !isStill(attribute, value))
        return;
    const AttributeRow *const unread =
        offended(use, [&](const AttributeRow &row) { return !isMeant(row, value); });
    const AttributeRow *const senseless = unread
        ? nullptr
        : offended(use, [&](const AttributeRow &row) { return !isSensible(row, value); });
    if (!unread && !senseless) {
        meant.insert(&use, value);
        return;
    }
    // A number without quotes that has lost its minus sign was told with the syntax.
    if (bytes.at(attribute.valueOffset) == '-' || !isStill(attribute, value))
        return;
    OrderedFindings &findings = unread ? findingsOf(*unread) : senselessValues;
    findings.add(attribute.valueOffset, [&] {
        return placed(unread ? valueFinding(*unread, value) : senselessFinding(*senseless, value),
                      attribute.valueOffset);
    });
}

// The row that the value is a fault of. Where the engine is open, it has to be one for all.
template <typename IsFault>
const AttributeRow *AttributeCheck::offended(const AttributeUse::At &use,
                                             const IsFault &isFault) const
{
    const auto isOffended = [&](const AttributeRow *row) { return isFault(*row); };
    const auto first = std::find_if(use.rows.begin(), use.rows.end(), isOffended);
    if (first == use.rows.end())
        return nullptr;
    if (!uses.isOfEngine() && !std::all_of(use.rows.begin(), use.rows.end(), isOffended))
        return nullptr;
    return *first;
}

// Whether the value that holds in the end is the one that stands here.
bool AttributeCheck::isStill(const CheckedAttribute &attribute, const QString &value) const
{
    const qsizetype end = identifierEnd(bytes, attribute.valueOffset);
    const DotTokenizer token(bytes.sliced(attribute.valueOffset, end - attribute.valueOffset));
    return QString::fromUtf8(token.text()) == value;
}

OrderedFindings &AttributeCheck::findingsOf(const AttributeRow &row)
{
    switch (row.type) {
    case AttributeType::Color:
        return unknownColors;
    case AttributeType::Choice:
    case AttributeType::Words:
        return unknownWords;
    default:
        return badValues;
    }
}

Finding AttributeCheck::placed(Finding finding, qsizetype offset) const
{
    finding.offset = offset;
    finding.end = identifierEnd(bytes, offset);
    return finding;
}

} // namespace

void checkAttributes(const CheckedText &text, const QByteArray &bytes, const QString &engine,
                     FindingList *findings)
{
    AttributeCheck(text, bytes, engine, findings).checkAll();
}

} // namespace ORR::Companion
