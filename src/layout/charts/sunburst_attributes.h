#pragma once

#include "layout/charts/chart_attributes.h"

// The attributes of the sunburst.
namespace ORR::Graph::Layout::SunburstAttributes {

using enum AttributeElement;
using enum AttributeLookup;
using ChartAttributes::area;
using ChartAttributes::totalArea;

inline constexpr NumberAttribute<Root> wholeSweep{
    "sweep"_attribute, Own, "degrees", "360",
    "whole angle of the rings; up to 180 the page holds the upper half only"};
inline constexpr NumberAttribute<Root> ringStep{"rstep"_attribute, Own, "points", "72",
                                                "width of a ring; 72 also unless it is above 0"};
inline constexpr NumberAttribute<Root> startAngle{"a0"_attribute, Own, "degrees", "0",
                                                  "angle at which all rings start"};
inline constexpr NumberAttribute<Root> innerRadius{
    "r0"_attribute, Own, "points", "0",
    "inner radius of the root's own disc, which is drawn where it is below r1"};
inline constexpr NumberAttribute<Root> startRadius{"r1"_attribute, Own, "points", "0",
                                                   "radius at which the first ring starts"};

// The passes read the root's own ones through these rows too. What was left out keeps those that
// the input gave it, and is then drawn by them.
inline constexpr WorkingAttribute<Root, Cluster, Node> sweep{"sweep"_attribute, "degrees",
                                                             "angle of the slice"};
inline constexpr WorkingAttribute<Root, Cluster, Node> a0{"a0"_attribute, "degrees",
                                                          "start of the slice"};
inline constexpr WorkingAttribute<Root, Cluster, Node> r0{"r0"_attribute, "points",
                                                          "inner radius of the slice"};
inline constexpr WorkingAttribute<Root, Cluster, Node> r1{"r1"_attribute, "points",
                                                          "outer radius of the slice"};

inline constexpr const AttributeRow *rows[] = {&wholeSweep,  &ringStep,    &startAngle,
                                               &innerRadius, &startRadius, &area};
inline constexpr const WorkingRow *working[] = {&totalArea, &sweep, &a0, &r0, &r1};
inline constexpr AttributeTable table{"sunburst", rows, working};

} // namespace ORR::Graph::Layout::SunburstAttributes
