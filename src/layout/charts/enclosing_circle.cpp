#include "layout/charts/enclosing_circle.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <vector>

namespace ORR::Graph::Layout {

namespace {

constexpr double searchTolerance = 1e-9;
// Where even this one does not do, the circles are hardly numbers any more.
constexpr double largestTolerance = 1e-3;

// Below this the quadratic equation of three circles is taken for a linear one.
constexpr double flatEquation = 1e-6;

// The circles that determine the enclosing one, in the order in which they were found.
struct Basis
{
    std::array<const Circle *, 3> circles{};
    size_t size = 0;

    const Circle **begin() { return circles.data(); }
    const Circle *const *begin() const { return circles.data(); }
    const Circle *const *end() const { return circles.data() + size; }
    friend bool operator==(const Basis &, const Basis &) = default;
};

double squaredDistance(const Circle &a, const Circle &b)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    return dx * dx + dy * dy;
}

bool enclosesWeak(const Circle &a, const Circle &b, double tolerance)
{
    const double dr = a.r - b.r + std::max({a.r, b.r, 1.0}) * tolerance;
    return dr > 0.0 && dr * dr > squaredDistance(a, b);
}

bool enclosesNot(const Circle &a, const Circle &b)
{
    const double dr = a.r - b.r;
    return dr < 0.0 || dr * dr < squaredDistance(a, b);
}

bool enclosesWeakAll(const Circle &a, const Basis &basis, double tolerance)
{
    return std::all_of(basis.begin(), basis.end(),
                       [&](const Circle *b) { return enclosesWeak(a, *b, tolerance); });
}

Circle encloseBasis2(const Circle &a, const Circle &b)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double dr = b.r - a.r;
    const double l = std::sqrt(dx * dx + dy * dy);
    return {(a.x + b.x + dx / l * dr) / 2, (a.y + b.y + dy / l * dr) / 2, (l + a.r + b.r) / 2};
}

// The circle that touches three circles from outside: the problem of Apollonius.
Circle encloseBasis3(const Circle &a, const Circle &b, const Circle &c)
{
    const double x1 = a.x, y1 = a.y, r1 = a.r;
    const double x2 = b.x, y2 = b.y, r2 = b.r;
    const double x3 = c.x, y3 = c.y, r3 = c.r;
    const double a2 = x1 - x2;
    const double a3 = x1 - x3;
    const double b2 = y1 - y2;
    const double b3 = y1 - y3;
    const double c2 = r2 - r1;
    const double c3 = r3 - r1;
    const double d1 = x1 * x1 + y1 * y1 - r1 * r1;
    const double d2 = d1 - x2 * x2 - y2 * y2 + r2 * r2;
    const double d3 = d1 - x3 * x3 - y3 * y3 + r3 * r3;
    const double ab = a3 * b2 - a2 * b3;
    const double xa = (b2 * d3 - b3 * d2) / (2 * ab) - x1;
    const double xb = (b3 * c2 - b2 * c3) / ab;
    const double ya = (a3 * d2 - a2 * d3) / (2 * ab) - y1;
    const double yb = (a2 * c3 - a3 * c2) / ab;
    const double A = xb * xb + yb * yb - 1;
    const double B = 2 * (r1 + xa * xb + ya * yb);
    const double C = xa * xa + ya * ya - r1 * r1;
    const double r =
        std::abs(A) <= flatEquation ? -(C / B) : -((B + std::sqrt(B * B - 4 * A * C)) / (2 * A));
    return {x1 + xa + xb * r, y1 + ya + yb * r, r};
}

Circle encloseBasis(const Basis &basis)
{
    const auto &[a, b, c] = basis.circles;
    switch (basis.size) {
    case 1:
        return *a;
    case 2:
        return encloseBasis2(*a, *b);
    case 3:
        return encloseBasis3(*a, *b, *c);
    default:
        return {};
    }
}

// The basis of the circle around `basis` and p. Empty if rounding hides it.
Basis extendBasis(const Basis &basis, const Circle &p, double tolerance)
{
    if (enclosesWeakAll(p, basis, tolerance))
        return {{&p}, 1};
    for (const Circle *b : basis) {
        if (enclosesNot(p, *b) && enclosesWeakAll(encloseBasis2(*b, p), basis, tolerance))
            return {{b, &p}, 2};
    }
    for (size_t i = 0; i + 1 < basis.size; ++i) {
        for (size_t j = i + 1; j < basis.size; ++j) {
            const Circle &bi = *basis.circles[i];
            const Circle &bj = *basis.circles[j];
            if (enclosesNot(encloseBasis2(bi, bj), p) && enclosesNot(encloseBasis2(bi, p), bj)
                && enclosesNot(encloseBasis2(bj, p), bi)
                && enclosesWeakAll(encloseBasis3(bi, bj, p), basis, tolerance))
                return {{&bi, &bj, &p}, 3};
        }
    }
    return {};
}

std::optional<Circle> search(const std::vector<Circle> &circles, double tolerance)
{
    Basis basis;
    Circle e;
    // What the search does next follows from its basis alone. It is compared with the one of an
    // earlier moment, and moments that lie ever farther apart find a round of any length (R. P.
    // Brent, "An improved Monte Carlo factorization algorithm", 1980). The empty basis is where it
    // starts.
    Basis landmark;
    qint64 extensions = 0;
    qint64 nextLandmark = 1;
    for (size_t i = 0; i < circles.size();) {
        const Circle &p = circles[i];
        if (e.r != 0.0 && enclosesWeak(e, p, tolerance)) {
            ++i;
            continue;
        }
        basis = extendBasis(basis, p, tolerance);
        if (basis.size == 0 || basis == landmark)
            return {};
        if (++extensions == nextLandmark) {
            landmark = basis;
            nextLandmark *= 2;
        }
        e = encloseBasis(basis);
        i = 0;
    }
    return e;
}

std::vector<Circle> shuffled(const QList<Circle> &circles)
{
    std::vector<Circle> copy(circles.cbegin(), circles.cend());
    std::shuffle(copy.begin(), copy.end(), std::mt19937());
    return copy;
}

bool isFinite(const Circle &circle)
{
    return std::isfinite(circle.x) && std::isfinite(circle.y) && std::isfinite(circle.r);
}

// The middle of the box around the centres: a last resort, and no smallest circle.
Circle middleOf(const std::vector<Circle> &circles)
{
    const auto [left, right] = std::minmax_element(
        circles.begin(), circles.end(), [](const Circle &a, const Circle &b) { return a.x < b.x; });
    const auto [top, bottom] = std::minmax_element(
        circles.begin(), circles.end(), [](const Circle &a, const Circle &b) { return a.y < b.y; });
    return {(left->x + right->x) / 2, (top->y + bottom->y) / 2, 0.0};
}

Circle encloseSturdily(std::vector<Circle> circles)
{
    std::erase_if(circles, [](const Circle &circle) { return !isFinite(circle); });
    double largest = 0.0;
    for (const Circle &circle : circles)
        largest = std::max({largest, std::abs(circle.x), std::abs(circle.y), circle.r});
    if (circles.empty())
        return {};

    const double scale = unitScale(largest);
    for (Circle &circle : circles) {
        // A radius of 0 is what the search takes for no circle at all.
        circle = {circle.x * scale, circle.y * scale, std::max(circle.r * scale, searchTolerance)};
    }
    std::optional<Circle> found;
    for (double t = searchTolerance; !found && t <= largestTolerance; t *= 10.0)
        found = search(circles, t);
    Circle e = found && isFinite(*found) ? *found : middleOf(circles);
    for (const Circle &circle : circles)
        e.r = std::max(e.r, std::sqrt(squaredDistance(e, circle)) + circle.r);
    return {e.x / scale, e.y / scale, e.r / scale};
}

} // namespace

std::optional<Circle> searchEnclosingCircle(const QList<Circle> &circles)
{
    return search(shuffled(circles), searchTolerance);
}

Circle encloseCircles(const QList<Circle> &circles)
{
    const std::vector<Circle> order = shuffled(circles);
    const std::optional<Circle> found = search(order, searchTolerance);
    return found ? *found : encloseSturdily(order);
}

double unitScale(double largest)
{
    if (!std::isfinite(largest) || !(largest > 0.0))
        return 1.0;
    int exponent = 0;
    std::frexp(largest, &exponent);
    // Both ends of the range keep a reciprocal that is a normal number.
    return std::ldexp(1.0, -std::clamp(exponent, -1000, 1000));
}

} // namespace ORR::Graph::Layout
