#pragma once

#include "attributes/attribute_readers.h"
#include "attributes/working_attributes.h"

// The attributes of a chart's legend.
namespace ORR::Graph::Layout::LegendAttributes {

using enum AttributeElement;
using enum AttributeLookup;

inline constexpr AttributeWord sideWords[] = {
    // in the order of `LegendSide`, whose last one is the default
    {"top", "above the chart, its entries from left to right"},
    {"bottom", "below it, its entries from left to right"},
    {"left", "to the left of it, its entries downward"},
};
inline constexpr ChoiceAttribute<Root, Cluster> legend{
    "legend"_attribute, Own, "right",
    "makes the first subgraph that has it the legend, and says on which side of the chart it lies",
    sideWords};

inline constexpr WorkingAttribute<Root, Cluster, Node> x{"x"_attribute, "points",
                                                         "left side of the title or of an entry"};
inline constexpr WorkingAttribute<Root, Cluster, Node> y{"y"_attribute, "points",
                                                         "upper side of the title or of an entry"};

inline constexpr const AttributeRow *rows[] = {&legend};
inline constexpr const WorkingRow *working[] = {&x, &y};
inline constexpr AttributeTable table{"legend", rows, working};

} // namespace ORR::Graph::Layout::LegendAttributes
