#pragma once

#include "attributes/attribute_readers.h"

// The attributes of paint, font and label, which mean the same to every engine.
namespace ORR::Graph::PaintAttributes {

using enum AttributeElement;
using enum AttributeLookup;

inline constexpr TextAttribute<Root, Cluster, Node, Edge> label{
    "label"_attribute, Inherited, "",
    "text of the object; the escapes \\n, \\l and \\r end a line that is centred, at the left or "
    "at "
    "the right"};
inline constexpr ColorAttribute<Root, Cluster, Node, Edge> color{
    "color"_attribute, Inherited, "black", "colour of the lines, and of an edge's arrow heads"};
inline constexpr ColorAttribute<Root, Cluster, Node> fillColor{
    "fillcolor"_attribute, Inherited, "white",
    "fill; several colours with \";\" between are a gradient through them"};

inline constexpr AttributeWord styleWords[] = {
    {"radial", "a gradient runs outward and not along a line"},
    {"dashed", "lines are dashed"},
    {"dotted", "lines are dotted, unless they are dashed"},
};
inline constexpr WordsAttribute<Root, Cluster, Node, Edge> style{
    "style"_attribute, Inherited, "solid lines, linear gradients",
    "kind of the lines and of a gradient", styleWords};
inline constexpr NumberAttribute<Root, Cluster, Node, Edge> gradientAngle{
    "gradientAngle"_attribute, Inherited, "degrees", "0",
    "direction of a linear gradient, counter-clockwise from the right; where the focus of a radial "
    "one lies, unless it is 0"};
inline constexpr IntegerAttribute<Root, Cluster, Node, Edge> penWidth{
    "penwidth"_attribute, Inherited, "points", "1", "width of the lines; below 1 it is 1"};

inline constexpr TextAttribute<Root, Cluster, Node, Edge> fontName{
    "fontname"_attribute, Inherited, "Arial", "family of the font; without a size it is not taken"};
inline constexpr NumberAttribute<Root, Cluster, Node, Edge> fontSize{
    "fontsize"_attribute, Inherited, "points", "12",
    "size of the font, rounded to whole points; without a family it is not taken"};
inline constexpr ColorAttribute<Root, Cluster, Node, Edge> fontColor{
    "fontcolor"_attribute, Inherited, "black", "colour of the text; no gradient"};

inline constexpr const AttributeRow *rows[] = {&label,    &color,    &fillColor,
                                               &style,    &penWidth, &gradientAngle,
                                               &fontName, &fontSize, &fontColor};
inline constexpr AttributeTable table{"paint", rows, {}};

} // namespace ORR::Graph::PaintAttributes
