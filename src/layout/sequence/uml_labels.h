#pragma once

#include "device/graph_style.h"
#include "device/text_block.h"
#include "layout/sequence/uml_parts.h"

#include <QList>

namespace ORR::Graph::Layout {

// The labels of a fragment and of its sections.
struct FragmentLabels
{
    TextBlock title;
    QList<TextBlock> sections;
};

// The labels of all parts, by their places in the lists of the parts; empty for a part that shows
// none and takes no room for one.
struct UmlLabels
{
    QList<FragmentLabels> fragments;
    QList<TextBlock> nodes;
    QList<TextBlock> edges;
};

// Lays out the labels, each once, and writes their sizes into the parts.
UmlLabels measureLabels(UmlParts &parts, const GraphStyle &style);

} // namespace ORR::Graph::Layout
