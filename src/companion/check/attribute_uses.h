#pragma once

#include "layout/attribute_tables.h"

#include <QHash>
#include <QStringList>

#include <array>
#include <deque>
#include <vector>

namespace ORR::Companion {

// What a text can give an attribute to.
enum class AttributePlace : quint8 { Root, Cluster, Node, Edge, NodeDefaults, EdgeDefaults };
inline constexpr size_t attributePlaces = 6;

// What the engine makes of one attribute.
struct AttributeUse
{
    struct At
    {
        bool isRead = false;
        bool isSet = false; // by passes of the engine that hand it on
        bool isTaken = false; // and where a pass sets none, what the text gives is taken for it
        std::vector<const Graph::AttributeRow *> rows; // by which it is read
    };

    const At &at(AttributePlace place) const { return places[size_t(place)]; }

    std::array<At, attributePlaces> places;
    Graph::AttributeElements readers; // the elements of which the engine reads it anywhere
};

// The attributes of an engine, or of all engines together.
class AttributeUses
{
public:
    // All engines where the name is none of them; `isOfEngine` then is false.
    explicit AttributeUses(const QString &engine);
    AttributeUses(const AttributeUses &) = delete;
    AttributeUses &operator=(const AttributeUses &) = delete;

    bool isOfEngine() const { return isOne; }

    // What is made of the attribute; null if nothing is. Valid as long as the list.
    const AttributeUse *find(const Graph::AttributeName &name) const;

    // The names that are read by rows, at a place or at all, in no order of meaning but always the
    // same.
    const QStringList &namesAt(AttributePlace place) const { return placeNames[size_t(place)]; }
    const QStringList &names() const { return allNames; }

    // The elements of which an attribute of the name is read by rows.
    Graph::AttributeElements readersOf(const QString &name) const;

private:
    void addEngine(const Graph::Layout::EngineTables &engine);
    void addRow(const Graph::AttributeRow &row, Graph::AttributeElements elements);
    void addWorking(const Graph::WorkingRow &row, std::string_view engine);
    AttributeUse &useOf(Graph::KnownAttribute name);
    void listNames();

    bool isOne = false;
    std::deque<AttributeUse> uses;
    std::vector<Graph::KnownAttribute> known; // by the numbers of `uses`
    // By where the spelling of the name stands: nothing but names of the vocabulary is looked up.
    QHash<const QString *, AttributeUse *> bySpelling;
    QStringList allNames;
    std::array<QStringList, attributePlaces> placeNames;
};

// The engines that read an attribute of the name by a row, and of which elements they do.
struct AttributeReaders
{
    QStringList engines;
    Graph::AttributeElements elements;
};
AttributeReaders readersOf(const QString &attribute);
// Those of them that read what stands at the place.
QStringList enginesThatRead(const QString &attribute, AttributePlace place);

// "the graph", "a subgraph", "a node", "an edge", "the node defaults", "the edge defaults"
QString placeName(AttributePlace place);

// "the graph, subgraphs and nodes"; of one each "the graph, a subgraph and a node".
QString elementNames(Graph::AttributeElements elements);
QString singleElementNames(Graph::AttributeElements elements);

// The texts as a person lists them: "a, b and c".
QString listed(const QStringList &texts);

} // namespace ORR::Companion
