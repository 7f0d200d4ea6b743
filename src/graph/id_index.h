#pragma once

#include <QHashFunctions>
#include <QList>
#include <QString>
#include <QStringView>

#include <utility>
#include <vector>

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
        return places.empty() ? nullptr : places[placeOf(id, hashOf(id))].record;
    }

    void insert(Record *record)
    {
        if (2 * (count + 1) > qsizetype(places.size()))
            grow();
        const size_t hash = hashOf(record->id);
        Place &place = places[placeOf(record->id, hash)];
        if (!place.record)
            ++count;
        place = {hash, record};
    }

    // Where the newest record with this id is kept: null if there is none, which is to be replaced
    // at once by one that has the id.
    Record *&placeFor(QStringView id)
    {
        if (2 * (count + 1) > qsizetype(places.size()))
            grow();
        const size_t hash = hashOf(id);
        Place &place = places[placeOf(id, hash)];
        if (!place.record) {
            ++count;
            place.hash = hash;
        }
        return place.record;
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

    // With the seed of the process: nobody can prepare ids that all come to one place. Ids that
    // differ in their last digit only come to places side by side: producers number their nodes, so
    // that the next id is looked for where the memory is at hand.
    static size_t hashOf(QStringView id)
    {
        const size_t seed = QHashSeed::globalSeed();
        const char16_t last = id.isEmpty() ? u'\0' : id.back().unicode();
        if (last < u'0' || last > u'9')
            return qHash(id, seed);
        constexpr size_t room = 15;
        return (qHash(id.chopped(1), seed) & ~room) + (last - u'0');
    }

    // Where the id stands, or where it would go.
    size_t placeOf(QStringView id, size_t hash) const
    {
        const size_t mask = places.size() - 1;
        size_t i = hash & mask;
        while (places[i].record && (places[i].hash != hash || places[i].record->id != id))
            i = (i + 1) & mask;
        return i;
    }

    void grow()
    {
        constexpr size_t fewest = 16; // a power of two, as are all sizes
        const std::vector<Place> old =
            std::exchange(places, std::vector<Place>(places.empty() ? fewest : 2 * places.size()));
        const size_t mask = places.size() - 1;
        for (const Place &place : old) {
            if (!place.record)
                continue;
            size_t i = place.hash & mask;
            while (places[i].record)
                i = (i + 1) & mask;
            places[i] = place;
        }
    }

    std::vector<Place> places;
    qsizetype count = 0;
};

} // namespace ORR::Graph
