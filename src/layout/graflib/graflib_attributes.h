#pragma once

#include "attributes/attribute_readers.h"
#include "attributes/working_attributes.h"
#include "layout/graflib/frame_attribute.h"
#include "layout/graflib/polyline_attribute.h"

// The attributes of the drawing of graphs, nodes and edges that both Graflib engines share.
namespace ORR::Graph::Layout::GraflibAttributes {

using enum AttributeElement;
using enum AttributeLookup;

enum Direction { LeftToRight, RightToLeft, BottomToTop }; // the words of `rankdir`
inline constexpr AttributeWord directionWords[] = {
    {"LR", "from left to right"},
    {"RL", "from right to left"},
    {"BT", "from bottom to top"},
};
inline constexpr ChoiceAttribute<Root> rankDir{
    "rankdir"_attribute, Own, "from top to bottom",
    "which way the layout runs, and thus which of d1 and d2 is the x of the page", directionWords};
inline constexpr IntegerAttribute<Root> fontSize{
    "fontsize"_attribute, Own, "points", "12",
    "what the sizes of expanders and of round corners go by; a whole number"};
inline constexpr ColorAttribute<Root> expandColor{"expandcolor"_attribute, Own, "black",
                                                  "colour of the expanders"};

// The words of `shape` stand in the order of `NodeShape`.
inline constexpr AttributeWord shapeWords[] = {
    {"hexagon", "pointed at the left and at the right"},
    {"octagon", "a rectangle without its corners"},
    {"oval", "an ellipse"},
    {"parallelogram", "its upper side further to the right"},
    {"rectangle", "with round corners if the style says so"},
    {"none", "no outline, yet slash and expander are drawn"},
};
inline constexpr ChoiceAttribute<Node> shape{"shape"_attribute, Inherited,
                                             "neither outline nor slash nor expander",
                                             "outline of the node", shapeWords};

enum PeripheriesWord { Double };
inline constexpr AttributeWord peripheriesWords[] = {
    {"2", "two lines, the inner one 2 points inside, for which the node grows by 4"},
};
inline constexpr ChoiceAttribute<Node> peripheries{"peripheries"_attribute, Inherited, "one line",
                                                   "lines of the outline", peripheriesWords};

enum StyleWord { Rounded, Invisible };
inline constexpr AttributeWord styleWords[] = {
    {"rounded", "a rectangle has round corners"},
    {"invis", "the node is measured and placed but not drawn"},
};
inline constexpr WordsAttribute<Node> style{"style"_attribute, Inherited, "square, drawn",
                                            "what the drawing of the node has besides its paint",
                                            styleWords};

enum SwitchWord { On };
inline constexpr AttributeWord slashWords[] = {{"true", "from bottom left to top right"}};
inline constexpr ChoiceAttribute<Node> slash{"slash"_attribute, Inherited, "not",
                                             "crosses the node out", slashWords};
inline constexpr AttributeWord expanderWords[] = {
    {"true", "a round glyph, on devices that want it"},
};
inline constexpr ChoiceAttribute<Node> expander{
    "expander"_attribute, Inherited, "none",
    "marks the side at which the edges leave the node; a tree keeps room for it", expanderWords};

enum ArrowWord { Normal };
inline constexpr AttributeWord arrowWords[] = {{"normal", "a triangle, which lies horizontally"}};
inline constexpr ChoiceAttribute<Edge> arrowHead{"arrowhead"_attribute, Inherited, "none",
                                                 "arrow at the head", arrowWords};

inline constexpr ColorAttribute<Root, Cluster> frame{
    "color"_attribute, Inherited, "none",
    "neither empty nor \"none\": the graph has a frame, in the colour that it or else the default "
    "of "
    "its nodes has"};
inline constexpr FrameColor frameColor{"color"_attribute, "black", "colour of the frame's lines"};
inline constexpr FrameColor frameFill{"fillcolor"_attribute, "white",
                                      "fill of the frame; of a gradient its first colour"};
inline constexpr AttributeWord frameStyleWords[] = {
    {"rounded", "round corners"},
    {"dashed", "lines are dashed"},
    {"dotted", "lines are dotted, unless they are dashed"},
};
inline constexpr FrameWords frameStyle{"style"_attribute, "square, solid lines",
                                       "corners and lines of the frame", frameStyleWords};
inline constexpr FrameInteger framePenWidth{"penwidth"_attribute, "points", "1",
                                            "width of the frame's lines; below 1 it is 1"};
inline constexpr FrameChoice framePeripheries{"peripheries"_attribute, "one line",
                                              "lines of the frame", peripheriesWords};
inline constexpr FrameChoice frameSlash{"slash"_attribute, "not", "crosses the frame out",
                                        slashWords};
inline constexpr FrameChoice frameExpander{"expander"_attribute, "none", "an expander at the frame",
                                           expanderWords};

// Places and sizes. `d1` runs along the direction of the layout and `d2` across it.
using PlaceAttribute = WorkingAttribute<Root, Cluster, Node>;
inline constexpr PlaceAttribute d1{"d1"_attribute, "points", "place of the near side along"};
inline constexpr PlaceAttribute d2{"d2"_attribute, "points", "place of the near side across"};
inline constexpr PlaceAttribute width{"width"_attribute, "points", "width on the page"};
inline constexpr PlaceAttribute height{"height"_attribute, "points", "height on the page"};
inline constexpr PolylineAttribute lineD1{"d1"_attribute, "points",
                                          "the four places of the edge's points along, with single "
                                          "blanks between; without four it has no line"};
inline constexpr PolylineAttribute lineD2{"d2"_attribute, "points",
                                          "the four places of the edge's points across"};

inline constexpr const AttributeRow *rows[] = {
    &rankDir,       &fontSize,         &expandColor, &shape,         &peripheries, &style,
    &slash,         &expander,         &frame,       &frameColor,    &frameFill,   &frameStyle,
    &framePenWidth, &framePeripheries, &frameSlash,  &frameExpander, &arrowHead};
inline constexpr const WorkingRow *working[] = {&width, &height, &d1, &d2, &lineD1, &lineD2};
inline constexpr AttributeTable table{"graflib", rows, working};

} // namespace ORR::Graph::Layout::GraflibAttributes
