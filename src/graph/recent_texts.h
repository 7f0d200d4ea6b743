#pragma once

#include <QByteArrayView>

#include <array>
#include <cstdint>
#include <cstring>
#include <optional>

namespace ORR::Graph {

// The bytes of a short text as numbers: two are equal exactly if the texts are.
class ShortText
{
public:
    static constexpr qsizetype longest = 16;

    // Nothing for a text that is longer.
    static std::optional<ShortText> of(QByteArrayView bytes)
    {
        if (bytes.size() > longest)
            return std::nullopt;
        return ShortText(bytes.data(), bytes.size());
    }

    bool isAscii() const { return ((first | last) & 0x8080808080808080U) == 0; }
    // Some bits of it, well mixed.
    size_t mixed() const
    {
        const uint64_t product = (first ^ (last << 5U) ^ uint64_t(size)) * 0x9E3779B97F4A7C15U;
        return size_t(product >> 32U);
    }
    friend bool operator==(const ShortText &, const ShortText &) = default;

private:
    // The first eight bytes and the last, which may overlap, so that no byte beyond is touched.
    ShortText(const char *bytes, qsizetype count) : size(count)
    {
        if (count >= 8) {
            first = word<uint64_t>(bytes);
            last = word<uint64_t>(bytes + count - 8);
        } else if (count >= 4) {
            first = word<uint32_t>(bytes);
            last = word<uint32_t>(bytes + count - 4);
        } else if (count > 0) {
            first = word<uint8_t>(bytes) | uint64_t(word<uint8_t>(bytes + count / 2)) << 8U;
            last = word<uint8_t>(bytes + count - 1);
        }
    }

    template <typename Word>
    static Word word(const char *bytes)
    {
        Word value;
        std::memcpy(&value, bytes, sizeof value);
        return value;
    }

    uint64_t first = 0;
    uint64_t last = 0;
    qsizetype size = 0;
};

// Remembers what short texts of late were made into. Values repeat: colours, sizes and words of a
// vocabulary stand at thousands of objects, and are shared that way.
//
// A place serves many texts, one at a time. Something is kept for a text only when it comes again
// while the place is still its own, and a text that came often of late stays a while: those that
// come only once, like labels, cost nothing and push out nothing that is of use.
template <typename Made, size_t count>
class RecentTexts
{
public:
    // What the text was made into; by `make` if it is not remembered.
    template <typename Make>
    Made of(const ShortText &text, Make make)
    {
        Place &place = places[text.mixed() % count];
        if (place.text == text) {
            if (place.uses == 0)
                place.made = make();
            if (place.uses < mostUses)
                ++place.uses;
            return place.made;
        }
        if (place.uses > 0)
            --place.uses;
        else
            place.text = text;
        return make();
    }

private:
    static constexpr int mostUses = 3;

    struct Place
    {
        std::optional<ShortText> text;
        int uses = 0; // 0 while nothing is kept for the text
        Made made{};
    };
    std::array<Place, count> places;
};

} // namespace ORR::Graph
