#pragma once

#include <QHashFunctions>
#include <QList>
#include <QString>
#include <QStringView>

namespace ORR::Graph {

// Finds records by their `id`, of several with the same one the newest. Records stay where they
// are, keep their ids and are never taken out; nothing is owned.
//
// A table of places, twice as many as there are records at least, where a record stands in the
// first free one from that of its hash on (linear probing). The hash stands beside it, so that a
// search and a growing table hardly ever touch a record that is not meant: a graph spends more time
// here than anywhere else while it is read. Unlike the toolkit's hash it takes any view of a text.
template <typename Record>
class IdIndex
{
public:
    // The newest record with this id, or null.
    Record *find(QStringView id) const
    {
        return places.isEmpty() ? nullptr : places.at(placeOf(id, hashOf(id))).record;
    }

    void insert(Record *record)
    {
        if (2 * (count + 1) > places.size())
            grow();
        const size_t hash = hashOf(record->id);
        Place &place = places[placeOf(record->id, hash)];
        if (!place.record)
            ++count;
        place = {hash, record};
    }

    // All that can be found, in no promised order.
    QList<Record *> records() const
    {
        QList<Record *> all;
        all.reserve(count);
        for (const Place &place : places) {
            if (place.record)
                all.append(place.record);
        }
        return all;
    }

private:
    struct Place
    {
        size_t hash = 0;
        Record *record = nullptr;
    };

    // With the seed of the process: nobody can prepare ids that all come to one place.
    static size_t hashOf(QStringView id) { return qHash(id, QHashSeed::globalSeed()); }

    // Where the id stands, or where it would go.
    qsizetype placeOf(QStringView id, size_t hash) const
    {
        const size_t mask = size_t(places.size()) - 1;
        size_t i = hash & mask;
        while (
            places.at(qsizetype(i)).record
            && (places.at(qsizetype(i)).hash != hash || places.at(qsizetype(i)).record->id != id))
            i = (i + 1) & mask;
        return qsizetype(i);
    }

    void grow()
    {
        constexpr qsizetype fewest = 16; // a power of two, as are all sizes
        const QList<Place> old =
            std::exchange(places, QList<Place>(places.isEmpty() ? fewest : 2 * places.size()));
        const size_t mask = size_t(places.size()) - 1;
        for (const Place &place : old) {
            if (!place.record)
                continue;
            size_t i = place.hash & mask;
            while (places.at(qsizetype(i)).record)
                i = (i + 1) & mask;
            places[qsizetype(i)] = place;
        }
    }

    QList<Place> places;
    qsizetype count = 0;
};

} // namespace ORR::Graph
