#include "companion/check/attribute_uses.h"

#include "attributes/element_words.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

using namespace Graph;

namespace {

using enum AttributeElement;

bool isInherited(const AttributeRow &row)
{
    return row.lookup == AttributeLookup::Inherited;
}

// Whether subgraphs take what they have not from the defaults of nodes.
bool takesNodeDefaults(const AttributeRow &row, AttributeElements elements)
{
    return row.lookup == AttributeLookup::OwnOrNodeDefault && elements & (Root | Cluster);
}

// Whether a row that is read of the elements finds what stands at the place.
bool finds(const AttributeRow &row, AttributeElements elements, AttributePlace place)
{
    switch (place) {
    case AttributePlace::Root: // subgraphs inherit from it
        return elements & Root || (elements & Cluster && isInherited(row));
    case AttributePlace::Cluster:
        return bool(elements & Cluster);
    case AttributePlace::Node:
        return bool(elements & Node);
    case AttributePlace::Edge:
        return bool(elements & Edge);
    case AttributePlace::NodeDefaults:
        return (elements & Node && isInherited(row)) || takesNodeDefaults(row, elements);
    case AttributePlace::EdgeDefaults:
        return elements & Edge && isInherited(row);
    }
    return false;
}

// Whether a working value that passes write, or look up, may be met at the place.
bool finds(const WorkingRow &row, AttributePlace place)
{
    switch (place) {
    case AttributePlace::Root:
        return bool(row.elements & (Root | Cluster));
    case AttributePlace::Cluster:
        return bool(row.elements & Cluster);
    case AttributePlace::Node:
    case AttributePlace::NodeDefaults:
        return bool(row.elements & Node);
    case AttributePlace::Edge:
    case AttributePlace::EdgeDefaults:
        return bool(row.elements & Edge);
    }
    return false;
}

// What passes look up where they have written nothing.
struct TakenValue
{
    std::string_view engine;
    std::string_view name;
    AttributePlace place;
};
constexpr TakenValue takenValues[] = {
    // The chart begins there.
    {"flatbubble", "x", AttributePlace::Root},
    {"flatbubble", "y", AttributePlace::Root},
    // Those of a legend have no circle of their own.
    {"flatbubble", "r", AttributePlace::Cluster},
    {"flatbubble", "r", AttributePlace::Node},
    // Those that are too small have no slice.
    {"sunburst", "sweep", AttributePlace::Cluster},
    {"sunburst", "sweep", AttributePlace::Node},
    {"sunburst", "a0", AttributePlace::Node},
    {"sunburst", "r0", AttributePlace::Node},
    {"sunburst", "r1", AttributePlace::Node},
    // Nodes that head no row or no column, and groups with a bracket on the other side or on none.
    {"matrix", "x", AttributePlace::Node},
    {"matrix", "y", AttributePlace::Node},
    {"matrix", "x", AttributePlace::NodeDefaults},
    {"matrix", "y", AttributePlace::NodeDefaults},
    {"matrix", "xshift", AttributePlace::Cluster},
    {"matrix", "yshift", AttributePlace::Cluster},
};

bool isTaken(const WorkingRow &row, std::string_view engine, AttributePlace place)
{
    return std::any_of(std::begin(takenValues), std::end(takenValues),
                       [&](const TakenValue &taken) {
                           return taken.engine == engine && taken.place == place
                               && row.name.text() == latin1(taken.name);
                       });
}

QStringList wordsOf(AttributeElements elements, std::string_view ElementWords::*form)
{
    QStringList names;
    for (const ElementWords &words : elementWords()) {
        if (elements & words.element)
            names += latin1(words.*form);
    }
    return names;
}

} // namespace

AttributeUses::AttributeUses(const QString &engine)
{
    for (const Layout::EngineTables &tables : Layout::engineTables())
        isOne = isOne || engine.toLower() == latin1(tables.engine);
    for (const Layout::EngineTables &tables : Layout::engineTables()) {
        if (!isOne || engine.toLower() == latin1(tables.engine))
            addEngine(tables);
    }
    listNames();
}

void AttributeUses::addEngine(const Layout::EngineTables &engine)
{
    for (const AttributeTable *table : engine.tables) {
        for (const AttributeRow *row : table->rows)
            addRow(*row, elementsRead(engine, *row));
        for (const WorkingRow *row : table->working)
            addWorking(*row, engine.engine);
    }
}

void AttributeUses::addRow(const AttributeRow &row, AttributeElements elements)
{
    if (!elements)
        return;
    AttributeUse &use = useOf(row.name);
    use.readers |= elements;
    for (size_t place = 0; place < attributePlaces; ++place) {
        if (!finds(row, elements, AttributePlace(place)))
            continue;
        use.places[place].isRead = true;
        std::vector<const AttributeRow *> &rows = use.places[place].rows;
        if (std::find(rows.begin(), rows.end(), &row) == rows.end())
            rows.push_back(&row); // several engines share it
    }
}

void AttributeUses::addWorking(const WorkingRow &row, std::string_view engine)
{
    AttributeUse &use = useOf(row.name);
    for (size_t i = 0; i < attributePlaces; ++i) {
        const auto place = AttributePlace(i);
        use.places[i].isSet |= finds(row, place);
        use.places[i].isTaken |= isTaken(row, engine, place);
    }
}

AttributeUse &AttributeUses::useOf(KnownAttribute name)
{
    AttributeUse *&use = bySpelling[&name.text()];
    if (!use) {
        use = &uses.emplace_back();
        known.push_back(name);
    }
    return *use;
}

void AttributeUses::listNames()
{
    for (size_t i = 0; i < known.size(); ++i) {
        const QString &name = known[i].text();
        if (uses[i].readers)
            allNames += name;
        for (size_t place = 0; place < attributePlaces; ++place) {
            if (!uses[i].places[place].rows.empty())
                placeNames[place] += name;
        }
    }
}

const AttributeUse *AttributeUses::find(const AttributeName &name) const
{
    return name.isKnown() ? bySpelling.value(&name.text()) : nullptr;
}

AttributeElements AttributeUses::readersOf(const QString &name) const
{
    for (size_t i = 0; i < known.size(); ++i) {
        if (known[i].text() == name)
            return uses[i].readers;
    }
    return {};
}

AttributeReaders readersOf(const QString &attribute)
{
    AttributeReaders readers;
    for (const Layout::EngineTables &tables : Layout::engineTables()) {
        const QString engine = latin1(tables.engine);
        const AttributeElements elements = AttributeUses(engine).readersOf(attribute);
        if (elements)
            readers.engines += engine;
        readers.elements |= elements;
    }
    return readers;
}

QStringList enginesThatRead(const QString &attribute, AttributePlace place)
{
    QStringList engines;
    for (const Layout::EngineTables &tables : Layout::engineTables()) {
        const QString engine = latin1(tables.engine);
        if (AttributeUses(engine).namesAt(place).contains(attribute))
            engines += engine;
    }
    return engines;
}

QString placeName(AttributePlace place)
{
    switch (place) {
    case AttributePlace::Root:
        return singleElementNames(Root);
    case AttributePlace::Cluster:
        return singleElementNames(Cluster);
    case AttributePlace::Node:
        return singleElementNames(Node);
    case AttributePlace::Edge:
        return singleElementNames(Edge);
    case AttributePlace::NodeDefaults:
        return "the %1 defaults"_L1.arg(elementName(Node));
    case AttributePlace::EdgeDefaults:
        return "the %1 defaults"_L1.arg(elementName(Edge));
    }
    return {};
}

QString elementNames(AttributeElements elements)
{
    return listed(wordsOf(elements, &ElementWords::many));
}

QString singleElementNames(AttributeElements elements)
{
    return listed(wordsOf(elements, &ElementWords::one));
}

QString listed(const QStringList &texts)
{
    if (texts.size() < 2)
        return texts.join(QString());
    return texts.first(texts.size() - 1).join(", "_L1) + " and "_L1 + texts.last();
}

} // namespace ORR::Companion
