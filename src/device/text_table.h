#pragma once

#include "device/device.h"

#include <QHash>
#include <QString>

#include <deque>
#include <utility>
#include <vector>

namespace ORR::Graph {

// All texts by what they are made of. There is one for nearly every object, each of them new: so
// they are their own keys, in a table of places, at least twice as many as there are texts, where
// one stands in the first free place from that of its hash on (linear probing).
class Device::TextTable
{
public:
    Text *text(const QString &string, Font *font, Color *color)
    {
        if (2 * (texts.size() + 1) > places.size())
            grow();
        const QString colorName = nameOf(color);
        const size_t hash = qHashMulti(QHashSeed::globalSeed(), string, font, colorName);
        const auto isMeant = [&](const Text &text) {
            return text.string == string && text.textFont == font
                && nameOf(text.textColor) == colorName;
        };
        size_t i = hash & (places.size() - 1);
        while (places[i].text && !(places[i].hash == hash && isMeant(*places[i].text)))
            i = (i + 1) & (places.size() - 1);
        if (!places[i].text)
            places[i] = {hash, &texts.emplace_back(string, font, color)};
        return places[i].text;
    }

private:
    struct Place
    {
        size_t hash = 0;
        Text *text = nullptr;
    };

    // Two gradients that start with the same stop share a text: texts never take a gradient.
    static QString nameOf(const Color *color) { return color ? color->name(0) : QString(); }

    void grow()
    {
        constexpr size_t fewest = 16; // a power of two, as are all sizes
        std::vector<Place> grown(places.empty() ? fewest : 2 * places.size());
        for (const Place &place : places) {
            if (!place.text)
                continue;
            size_t i = place.hash & (grown.size() - 1);
            while (grown[i].text)
                i = (i + 1) & (grown.size() - 1);
            grown[i] = place;
        }
        places = std::move(grown);
    }

    std::vector<Place> places;
    std::deque<Text> texts;
};

} // namespace ORR::Graph
