#pragma once

#include "attributes/attribute_readers.h"
#include "attributes/working_attributes.h"

// The attributes of the matrix.
namespace ORR::Graph::Layout::MatrixAttributes {

using enum AttributeElement;
using enum AttributeLookup;

// In the order of `MatrixAxis`, behind its default.
inline constexpr AttributeWord axisWords[] = {
    {"x", "nodes are headers of columns"},
    {"y", "nodes are headers of rows"},
};
inline constexpr ChoiceAttribute<Root, Cluster> axis{
    "axis"_attribute, Inherited, "both", "what the nodes of the subgraph are headers of",
    axisWords};

enum GroupStyle { Invisible }; // the words of `style`
inline constexpr AttributeWord styleWords[] = {
    {"invisible", "the group has no rectangle"},
};
inline constexpr WordsAttribute<Cluster> style{"style"_attribute, Inherited, "visible",
                                               "whether a group shows its rectangle", styleWords};

// What an element is, is told by those of its own; one that the input brings along counts like a
// written one.
inline constexpr WorkingAttribute<Node> x{"x"_attribute, "", "column, from 0"};
inline constexpr WorkingAttribute<Node> y{"y"_attribute, "", "row, from 0"};
inline constexpr WorkingAttribute<Root, Cluster> x0{"x0"_attribute, "", "first column"};
inline constexpr WorkingAttribute<Root, Cluster> x1{"x1"_attribute, "",
                                                    "the column behind the last one"};
inline constexpr WorkingAttribute<Root, Cluster> y0{"y0"_attribute, "", "first row"};
inline constexpr WorkingAttribute<Root, Cluster> y1{"y1"_attribute, "",
                                                    "the row behind the last one"};
inline constexpr WorkingAttribute<Root, Cluster> xShift{
    "xshift"_attribute, "points",
    "how far left of the headers the bracket of a group of rows stands"};
inline constexpr WorkingAttribute<Root, Cluster> yShift{
    "yshift"_attribute, "points",
    "how far above the headers the bracket of a group of columns stands"};

inline constexpr const AttributeRow *rows[] = {&axis, &style};
inline constexpr const WorkingRow *working[] = {&x, &y, &x0, &x1, &y0, &y1, &xShift, &yShift};
inline constexpr AttributeTable table{"matrix", rows, working};

} // namespace ORR::Graph::Layout::MatrixAttributes
