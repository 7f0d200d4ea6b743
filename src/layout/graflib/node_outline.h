#pragma once

#include <QList>
#include <QPoint>

#include <optional>
#include <variant>

namespace ORR::Graph::Layout {

// The outlines that a node of the Graflib layouts can have, in the order of the words of `shape`.
// There are no others: what is not in this list has no outline at all, which is less than "none"
// has.
enum class NodeShape { Hexagon, Octagon, Oval, Parallelogram, Rectangle, None };

// How an outline looks.
struct OutlineStyle
{
    NodeShape shape = NodeShape::None;
    bool isDouble = false; // a second figure inside the first
    bool rounded = false; // corners of a rectangle
    int fontSize = 0; // of the whole drawing; gives the radius of rounded corners
};

// How far the inner figure of a double outline lies inside the outer one, in points.
inline constexpr int doubleGap = 2;

// By how many points an outline makes its node wider than the label and its margins; a double one
// takes its gap on top of that, on all sides.
double outlineAllowance(const OutlineStyle &style);

// Two opposite corners of a node, in points of the page; not yet whole ones.
struct NodeBox
{
    double x0 = 0.0;
    double y0 = 0.0;
    double x1 = 0.0;
    double y1 = 0.0;
};

// What an outline is drawn as, in whole points of the page.
using Polygon = QList<QPoint>; // the first point stands at the end again
struct Ellipse
{
    QPoint centre;
    int rx;
    int ry;
};
struct RoundedRect
{
    QPoint topLeft;
    QPoint bottomRight;
    int radius;
};
using Figure = std::variant<Polygon, Ellipse, RoundedRect>;

struct Outline
{
    Figure outer;
    std::optional<Figure> inner; // of a double one; it is never filled
};

// The outline that fits the box; none for `None`. A box without height, or with numbers that are
// none, gives points somewhere and no failure.
std::optional<Outline> outlineOf(const OutlineStyle &style, const NodeBox &box);

} // namespace ORR::Graph::Layout
