#pragma once

#include "layout/graflib/graflib_attributes.h"

// The attributes of the tree engine, besides those of the drawing (graflib_attributes.h).
namespace ORR::Graph::Layout::GftreeAttributes {

using enum AttributeElement;
using enum AttributeLookup;
using GraflibAttributes::d1;
using GraflibAttributes::d2;
using GraflibAttributes::expander;
using GraflibAttributes::height;
using GraflibAttributes::lineD1;
using GraflibAttributes::lineD2;
using GraflibAttributes::PlaceAttribute;
using GraflibAttributes::rankDir;
using GraflibAttributes::width;

enum CrossingWord { Compact };
inline constexpr AttributeWord crossingWords[] = {
    {"false", "compact: parents stand centred over their children, and no edge crosses another"},
};
inline constexpr ChoiceAttribute<Root> crossing{"crossing"_attribute, Own,
                                                "every level is centred by itself",
                                                "how the nodes are placed", crossingWords};

enum SortWord { ByLabel };
inline constexpr AttributeWord sortWords[] = {
    {"true", "by their labels, without regard to case"},
};
inline constexpr ChoiceAttribute<Root> sort{"sort"_attribute, Own, "in the order of the input",
                                            "order of siblings, or of the nodes of a level",
                                            sortWords};

inline constexpr InchesAttribute<Root> nodeSep{"nodesep"_attribute, Own, "0",
                                               "gap between the nodes of a level"};
inline constexpr InchesAttribute<Root> rankSep{"ranksep"_attribute, Own, "0", "gap between levels"};
inline constexpr InchPairAttribute<Root> pad{"pad"_attribute, Own, "0",
                                             "border of the page; x, and y if there are two"};
inline constexpr InchPairAttribute<Node> margin{
    "margin"_attribute, Inherited, "0",
    "room around the labels, from the node defaults of the root; x, and y if there are two"};
inline constexpr InchesAttribute<Edge> headSegment{
    "headsegment"_attribute, Inherited, "0",
    "straight run of the edges where they leave their tails, from the edge defaults of the root; "
    "compact placement only"};
inline constexpr InchesAttribute<Edge> tailSegment{
    "tailsegment"_attribute, Inherited, "0",
    "straight run of the edges where they come to their heads, from the edge defaults of the root; "
    "compact placement only"};
inline constexpr TextAttribute<Node> sortKey{"label"_attribute, Own, "", "the key of sort"};
inline constexpr IntegerAttribute<Node> givenLevel{
    "level"_attribute, Inherited, "", "not placed",
    "the level in which a node stands that the root does not reach"};

inline constexpr WorkingAttribute<Node> level{"level"_attribute, "",
                                              "number of the node's level, the root's is 0"};

inline constexpr const AttributeRow *rows[] = {&crossing, &sort,      &nodeSep,     &rankSep,
                                               &pad,      &margin,    &headSegment, &tailSegment,
                                               &sortKey,  &givenLevel};
inline constexpr const WorkingRow *working[] = {&level};
inline constexpr AttributeTable table{"gftree", rows, working};

} // namespace ORR::Graph::Layout::GftreeAttributes
