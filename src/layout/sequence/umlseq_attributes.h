#pragma once

#include "attributes/attribute_readers.h"

// The attributes of the sequence diagram. Its passes hand nothing on by attributes.
namespace ORR::Graph::Layout::UmlseqAttributes {

using enum AttributeElement;
using enum AttributeLookup;

enum NodeKind { Object, Activation, FoundMessage, Spacer }; // the words of a node's `uml`
inline constexpr AttributeWord nodeKindWords[] = {
    {"object", "a box with a label"},
    {"activation", "a bar on the lifeline, from its row to that of its return"},
    {"foundmessage", "a dot, where a message comes from out of nowhere"},
    {"spacer", "takes room and is not drawn; the end of a lifeline"},
};
inline constexpr ChoiceAttribute<Node> nodeKind{
    "uml"_attribute, Inherited, "no part of the diagram", "what the node is", nodeKindWords};

enum EdgeKind { Message, Return, LifeLine }; // the words of an edge's `uml`
inline constexpr AttributeWord edgeKindWords[] = {
    {"message", "an arrow to the row of its head; a hook if both ends have one column"},
    {"return", "the way back from an activation, on a row of its own, which ends the activation"},
    {"lifeline", "a line on the column of its tail, between two things on it"},
};
inline constexpr ChoiceAttribute<Edge> edgeKind{
    "uml"_attribute, Inherited, "no part of the diagram", "what the edge is", edgeKindWords};

enum SubgraphKind { CombinedFragment, Section }; // the words of a subgraph's `uml`
inline constexpr AttributeWord subgraphKindWords[] = {
    {"combinedfragment", "a frame with a title tag around its sections"},
    {"section", "a compartment of the fragment around it; its label is the guard"},
};
inline constexpr ChoiceAttribute<Cluster> subgraphKind{"uml"_attribute, Inherited,
                                                       "left out with everything in it",
                                                       "what the subgraph is", subgraphKindWords};

inline constexpr IntegerAttribute<Cluster, Node> row{"row"_attribute, Inherited, "", "0",
                                                     "row of the grid, from 0 to 999999"};
inline constexpr IntegerAttribute<Cluster, Node> col{
    "col"_attribute, Inherited, "", "0",
    "column of the grid, from 0 to 999999; sections have that of their fragment"};
inline constexpr IntegerAttribute<Node> nesting{
    "nesting"_attribute, Inherited, "", "0",
    "level of an activation among those of its lifeline, each 4 points further right"};
inline constexpr IntegerAttribute<Node> width{"width"_attribute, Inherited, "points", "0",
                                              "width of a spacer; -1 is that of its label"};
inline constexpr IntegerAttribute<Node> height{"height"_attribute, Inherited, "points", "0",
                                               "height of a spacer; -1 is that of its label"};
inline constexpr IntegerAttribute<Edge> returnRow{"row"_attribute, Inherited, "", "0",
                                                  "row of a return, from 0 to 999999"};

enum Visible { True }; // the word of `visible`
inline constexpr AttributeWord visibleWords[] = {{"true", "the return is drawn"}};
inline constexpr ChoiceAttribute<Edge> visible{
    "visible"_attribute, Inherited, "not drawn",
    "whether a return is drawn; one that is not takes the room of its label all the same",
    visibleWords};

inline constexpr const AttributeRow *rows[] = {&nodeKind,  &edgeKind, &subgraphKind, &row,
                                               &col,       &nesting,  &width,        &height,
                                               &returnRow, &visible};
inline constexpr AttributeTable table{"umlseq", rows, {}};

} // namespace ORR::Graph::Layout::UmlseqAttributes
