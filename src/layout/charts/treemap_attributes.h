#pragma once

#include "layout/charts/chart_attributes.h"

// The attributes of the treemap.
namespace ORR::Graph::Layout::TreemapAttributes {

using enum AttributeElement;
using enum AttributeLookup;
using ChartAttributes::area;
using ChartAttributes::totalArea;

inline constexpr NumberAttribute<Root> width{"width"_attribute, Own, "points", "640",
                                             "width of the chart; a legend comes on top of it"};
inline constexpr NumberAttribute<Root> height{"height"_attribute, Own, "points", "480",
                                              "height of the chart; a legend comes on top of it"};
inline constexpr NumberPairAttribute<Root, Cluster> margin{
    "margin"_attribute, Inherited, "points", "5",
    "inner margins: the first number left and right, the last one above and below"};

inline constexpr WorkingAttribute<Root> usedWidth{"width"_attribute, "points",
                                                  "width of the chart"};
inline constexpr WorkingAttribute<Root> usedHeight{"height"_attribute, "points",
                                                   "height of the chart"};
inline constexpr WorkingAttribute<Root> x{"x"_attribute, "points", "always 0"};
inline constexpr WorkingAttribute<Root> y{"y"_attribute, "points", "always 0"};

inline constexpr const AttributeRow *rows[] = {&width, &height, &area, &margin};
inline constexpr const WorkingRow *working[] = {&totalArea, &usedWidth, &usedHeight, &x, &y};
inline constexpr AttributeTable table{"treemap", rows, working};

} // namespace ORR::Graph::Layout::TreemapAttributes
