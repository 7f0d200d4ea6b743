#pragma once

#include "layout/graflib/graflib_attributes.h"

// The attributes of the declaration engine, besides those of the drawing (graflib_attributes.h).
// Those of graphs are inherited, cells as well: a nested graph without a cell of its own takes the
// address of its parent.
namespace ORR::Graph::Layout::GfdeclAttributes {

using enum AttributeElement;
using enum AttributeLookup;
using GraflibAttributes::d1;
using GraflibAttributes::d2;
using GraflibAttributes::height;
using GraflibAttributes::lineD1;
using GraflibAttributes::lineD2;
using GraflibAttributes::width;

inline constexpr InchPairAttribute<Root> pad{"pad"_attribute, Own, "0",
                                             "border of the page; x, and y if there are two"};
inline constexpr IntegerAttribute<Root, Cluster> row{"row"_attribute, Inherited, "", "0",
                                                     "row of the cell in the parent, from 0 on"};
inline constexpr IntegerAttribute<Root, Cluster> col{"col"_attribute, Inherited, "", "0",
                                                     "column of the cell in the parent, from 0 on"};

inline constexpr AttributeWord gridWords[] = {
    // in the order of `GridMode`
    {"row", "every row runs by itself"},
    {"col", "every column runs by itself"},
};
inline constexpr ChoiceAttribute<Root, Cluster> grid{"grid"_attribute, Inherited,
                                                     "rows and columns line up",
                                                     "how the graph's subgraphs stand", gridWords};

inline constexpr InchesAttribute<Root, Cluster> nodeSep{
    "nodesep"_attribute, Inherited, "0", "gap between stacked nodes; cells have twice that"};
inline constexpr InchPairAttribute<Root, Cluster> margin{
    "margin"_attribute, Inherited, "0", "inset of the graph; x, and y if there are two"};
inline constexpr AttributeWord contentPosWords[] = {
    {"t", "as the first letter: at the top"},     {"m", "as the first letter: in the middle"},
    {"b", "as the first letter: at the bottom"},  {"l", "as the second letter: at the left"},
    {"c", "as the second letter: in the centre"}, {"r", "as the second letter: at the right"},
};
inline constexpr WordsAttribute<Root, Cluster> contentPos{
    "contentpos"_attribute, Inherited, "tl",
    "two letters: b, m or else top; c, r or else left; a single one is the vertical one",
    contentPosWords};
inline constexpr InchPairAttribute<Node> nodeMargin{
    "margin"_attribute, Inherited, "0",
    "room around the labels, from the node defaults of the graph; x, and y if there are two"};
inline constexpr InchesAttribute<Node> xOffset{"xoffset"_attribute, Inherited, "0",
                                               "shift to the right"};
inline constexpr TextAttribute<Edge> ltail{
    "ltail"_attribute, Inherited, "",
    "id of a subgraph at whose side the edge begins instead of at its tail"};
inline constexpr TextAttribute<Edge> lhead{
    "lhead"_attribute, Inherited, "",
    "id of a subgraph at whose side the edge ends instead of at its head"};

inline constexpr WorkingAttribute<Root> usedRankDir{
    "rankdir"_attribute, "", "always LR: the drawing has one orientation only"};

inline constexpr const AttributeRow *rows[] = {
    &pad, &row, &col, &grid, &nodeSep, &margin, &contentPos, &nodeMargin, &xOffset, &ltail, &lhead};
inline constexpr const WorkingRow *working[] = {&usedRankDir};
inline constexpr AttributeTable table{"gfdecl", rows, working};

} // namespace ORR::Graph::Layout::GfdeclAttributes
