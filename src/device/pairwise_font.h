#pragma once

#include <QRawFont>

#include <bitset>

namespace ORR::Graph {

// Characters of ASCII by their codes.
using AsciiSet = std::bitset<128>;

// What the tables of a font tell of the texts that it sets. In a text of nothing but such
// `characters`, each of them is its own glyph, and how far the next one stands from it depends on
// these two alone: the width of the text is a sum over its neighbours. Spaces and printable ASCII
// only.
struct PairwiseFont
{
    AsciiSet characters; // none for a font that can't be told of
    // Kerning may be halved between two glyphs, so that the sum holds only where advances are not
    // rounded to whole pixels.
    bool needsFractions = false;
};

// Of a font of the kinds TrueType and OpenType. What is on for any script or language counts for
// all texts, so that nothing hangs on which of them a text is taken for.
PairwiseFont pairwiseFont(const QRawFont &font);

} // namespace ORR::Graph
