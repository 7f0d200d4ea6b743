#pragma once

#include "layout/charts/chart_attributes.h"

// The attributes of the bar chart.
namespace ORR::Graph::Layout::BarAttributes {

using enum AttributeElement;
using enum AttributeLookup;
using ChartAttributes::area;

enum Rankdir { TopToBottom, BottomToTop, RightToLeft }; // the words of `rankdir`
inline constexpr AttributeWord rankdirWords[] = {
    {"TB", "bars grow downward and follow each other from left to right"},
    {"BT", "bars grow upward and follow each other from left to right"},
    {"RL", "bars grow to the left and follow each other from top to bottom"},
};
inline constexpr ChoiceAttribute<Root> rankdir{"rankdir"_attribute, Own,
                                               "to the right, from top to bottom",
                                               "direction of the bars", rankdirWords};
inline constexpr NumberAttribute<Root> width{
    "width"_attribute, Own, "points", "0", "wanted width, taken without its fraction; 0 for none"};
inline constexpr NumberAttribute<Root> height{
    "height"_attribute, Own, "points", "0",
    "wanted height, taken without its fraction; 0 for none"};

inline constexpr const AttributeRow *rows[] = {&area, &rankdir, &width, &height};
inline constexpr AttributeTable table{"bar", rows, {}};

} // namespace ORR::Graph::Layout::BarAttributes
