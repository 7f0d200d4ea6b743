#pragma once

#include "attributes/attribute_readers.h"
#include "attributes/working_attributes.h"

// The attributes that several charts share.
namespace ORR::Graph::Layout::ChartAttributes {

using enum AttributeElement;
using enum AttributeLookup;

inline constexpr NumberAttribute<Node> area{"area"_attribute, Inherited, "", "0",
                                            "weight of the node"};

inline constexpr WorkingAttribute<Root, Cluster> totalArea{
    "area"_attribute, "", "the sum of the areas of all nodes in it"};

} // namespace ORR::Graph::Layout::ChartAttributes
