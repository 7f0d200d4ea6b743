#pragma once

#include <QString>

namespace ORR::Graph {

// The colours and the font that a graph has where its input says nothing. Holds no data; there is
// one for the whole process.
class Palette
{
public:
    // The only palette. It is made on first use and never freed.
    static Palette &instance();

    virtual ~Palette() = default;

    virtual QString background() const; // "#FFFFFF": fill of nodes and graphs
    virtual QString foreground() const; // "#000000": lines of nodes and edges, and all text
    virtual QString fill() const; // the background
    virtual QString neutral() const; // "#D4D4D4"
    virtual QString none() const; // the empty text
    virtual QString fontName() const; // "Arial"
    virtual QString fontSize() const; // "12", in points
};

} // namespace ORR::Graph
