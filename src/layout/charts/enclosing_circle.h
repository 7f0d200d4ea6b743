#pragma once

#include <QList>

#include <optional>

namespace ORR::Graph::Layout {

struct Circle
{
    double x = 0.0; // centre
    double y = 0.0;
    double r = 0.0; // radius
};

// The smallest circle around a set of circles, found in the manner of E. Welzl, "Smallest enclosing
// disks (balls and ellipsoids)" (1991), in the form that J. Matousek, M. Sharir and E. Welzl gave
// it in "A subexponential bound for linear programming" (1996): the circles are taken in a random
// order, and whenever one lies outside of the circle around the present basis of at most three, the
// basis is extended by it and the search starts anew.
//
// The random order comes from the standard generator at its default seed: the same circles in the
// same order give the same result on every run, down to the last bit.
//
// Whether a circle lies outside is decided with a tolerance of 1e-9 of the larger of the two radii
// and of 1. With that, rounding can send the search round in a circle for ever: where positions
// exceed radii by many powers of ten, and always where a radius is negative or not a number.
// `searchEnclosingCircle` sees that the search has come back to a basis that it had before, which
// is the one way of not ending, and gives null. Thus it gives what the plain search gives wherever
// the plain search ends.
std::optional<Circle> searchEnclosingCircle(const QList<Circle> &circles);

// The same with an answer for every input: where the search does not end, it is done again on a
// copy of the circles scaled to the size of 1, with the tolerance raised tenfold until it ends, and
// the radius is then taken from the circle that reaches out farthest, so that all of them lie
// inside. There, a negative radius counts as 0, and a circle that is not made of finite numbers is
// left out. For no circles, the circle at (0, 0) with radius 0.
Circle encloseCircles(const QList<Circle> &circles);

// The power of two by which the circles are to be multiplied to fit into the size of 1; 1 when
// there is nothing to measure by. Scaling by it changes no digit.
double unitScale(double largest);

} // namespace ORR::Graph::Layout
