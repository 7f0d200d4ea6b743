#include "companion/check/attribute_uses.h"

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

// The same of a working value, which passes look up in either way.
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
            addWorking(*row);
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

void AttributeUses::addWorking(const WorkingRow &row)
{
    AttributeUse &use = useOf(row.name);
    for (size_t place = 0; place < attributePlaces; ++place)
        use.places[place].isRead |= finds(row, AttributePlace(place));
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

QStringList enginesThatRead(const QString &attribute)
{
    QStringList engines;
    for (const Layout::EngineTables &tables : Layout::engineTables()) {
        const QString engine = latin1(tables.engine);
        if (AttributeUses(engine).names().contains(attribute))
            engines += engine;
    }
    return engines;
}

QString placeName(AttributePlace place)
{
    switch (place) {
    case AttributePlace::Root:
        return u"the graph"_s;
    case AttributePlace::Cluster:
        return u"a subgraph"_s;
    case AttributePlace::Node:
        return u"a node"_s;
    case AttributePlace::Edge:
        return u"an edge"_s;
    case AttributePlace::NodeDefaults:
        return u"the node defaults"_s;
    case AttributePlace::EdgeDefaults:
        return u"the edge defaults"_s;
    }
    return {};
}

QString elementNames(AttributeElements elements)
{
    QStringList names;
    if (elements & Root)
        names += u"the graph"_s;
    if (elements & Cluster)
        names += u"subgraphs"_s;
    if (elements & Node)
        names += u"nodes"_s;
    if (elements & Edge)
        names += u"edges"_s;
    return listed(names);
}

QString listed(const QStringList &texts)
{
    if (texts.size() < 2)
        return texts.join(QString());
    return texts.first(texts.size() - 1).join(", "_L1) + " and "_L1 + texts.last();
}

} // namespace ORR::Companion
