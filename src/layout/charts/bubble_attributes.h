#pragma once

#include "layout/charts/chart_attributes.h"

// The attributes of the flat bubble.
namespace ORR::Graph::Layout::BubbleAttributes {

using enum AttributeElement;
using enum AttributeLookup;

inline constexpr NumberAttribute<Node> radius{"radius"_attribute, Inherited, "points", "0",
                                              "radius before scaling"};
inline constexpr NumberAttribute<Node> area{
    "area"_attribute, Inherited, "square points", "0",
    "gives the radius sqrt(area / 3.14) where that is not above 0; the divisor is meant"};
inline constexpr NumberAttribute<Root> width{
    "width"_attribute, Own, "points", "0",
    "wanted diameter, if it is larger than height; labels may ask for more"};
inline constexpr NumberAttribute<Root> height{
    "height"_attribute, Own, "points", "0",
    "wanted diameter, if it is larger than width; labels may ask for more"};

// The passes read those of the root, and of the legend, as the input has them.
inline constexpr WorkingAttribute<Root, Cluster, Node> x{
    "x"_attribute, "points", "centre of the circle, from that of its parent, before scaling"};
inline constexpr WorkingAttribute<Root, Cluster, Node> y{
    "y"_attribute, "points", "centre of the circle, from that of its parent, before scaling"};
inline constexpr WorkingAttribute<Root, Cluster, Node> r{
    "r"_attribute, "points", "radius of the circle and 1, before scaling"};

inline constexpr const AttributeRow *rows[] = {&radius, &area, &width, &height};
inline constexpr const WorkingRow *working[] = {&x, &y, &r};
inline constexpr AttributeTable table{"flatbubble", rows, working};

} // namespace ORR::Graph::Layout::BubbleAttributes
