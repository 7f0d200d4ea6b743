#pragma once

#include "invariants/drawn_objects.h"

#include <optional>

// A part of a ring around a point, in degrees counter-clockwise from the right.
struct RingSlice
{
    double start = 0.0;
    double sweep = 0.0;
    double inner = 0.0; // radii
    double outer = 0.0;
};

// The area that an object covers: a circle, a slice, or else the box of its outline.
struct Figure
{
    enum Kind { Box, Circle, Slice };

    Kind kind = Box;
    QRectF box; // a circle fills its box
    RingSlice slice;
};

// That of the first shape that encloses an area; nothing where there is only text and lines.
std::optional<Figure> figureOf(const DrawnObject &object);

// Whether the child lies within the parent, or as a slice within its angle and outside of it, but
// for the rounding of their coordinates; a box by some points to the right as well.
bool isInside(const Figure &child, const Figure &parent, double leeway = 0.0);

// Whether two figures have no more in common than rounding makes.
bool areApart(const Figure &a, const Figure &b);
