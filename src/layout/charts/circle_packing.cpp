#include "layout/charts/circle_packing.h"

#include <algorithm>
#include <cmath>

namespace ORR::Graph::Layout {

namespace {

constexpr double squareTolerance = 1e-6;
constexpr double relativeSquareTolerance = 1e-7;

constexpr double radiusOfNone = 1.0;
constexpr double largestRadius = 1e300;

// The packing as it is defined.
struct PlainRules
{
    static constexpr bool cutsChainOfTwo = true;

    static bool intersects(const PackCircle &a, const PackCircle &b)
    {
        const double sum = a.r + b.r;
        const double dx = b.x - a.x;
        const double dy = b.y - a.y;
        return sum * sum - squareTolerance > dx * dx + dy * dy;
    }
    static double cosine(double value) { return value; }
};

// The packing that stands rounding at every size.
struct SturdyRules
{
    static constexpr bool cutsChainOfTwo = false;

    static bool intersects(const PackCircle &a, const PackCircle &b)
    {
        const double sum = a.r + b.r;
        const double dx = b.x - a.x;
        const double dy = b.y - a.y;
        return sum * sum * (1.0 - relativeSquareTolerance) > dx * dx + dy * dy;
    }
    // Three circles in one line may seem to be out of reach by a rounding. What is not a number,
    // for two circles of no size, counts as such a line.
    static double cosine(double value) { return std::fmax(-1.0, std::fmin(1.0, value)); }
};

// Places c so that it touches a and b, on the outer side of a chain that goes from a to b.
template <typename Rules>
void placeTangent(const PackCircle &a, const PackCircle &b, PackCircle &c)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double d = std::sqrt(dx * dx + dy * dy);
    if (d <= 0.0) {
        c.x = a.x + c.r + a.r;
        c.y = a.y;
        return;
    }
    const double ra = c.r + a.r;
    const double rb = c.r + b.r;
    const double cosA = Rules::cosine((ra * ra + d * d - rb * rb) / (2 * ra * d));
    const double p = cosA * ra;
    const double s = std::sin(std::acos(cosA));
    c.x = (dx / d) * p + a.x + (dy / d) * s * ra;
    c.y = (dy / d) * p + a.y - (dx / d) * s * ra;
}

// The first circle of the chain that intersects c, as seen from c's place between a and b: both
// ways are followed in turn, always the one that has come less far.
struct Intersection
{
    PackCircle *circle = nullptr; // null if there is none
    bool behind = false; // found on the way back from a, not on the way forth from b
};

template <typename Rules>
Intersection firstIntersection(const PackCircle &a, const PackCircle &b, const PackCircle &c)
{
    PackCircle *j = b.next;
    PackCircle *k = a.previous;
    double sj = b.r;
    double sk = a.r;
    do {
        if (sk < sj) {
            if (Rules::intersects(*k, c))
                return {k, true};
            sk += k->r;
            k = k->previous;
        } else {
            if (Rules::intersects(*j, c))
                return {j, false};
            sj += j->r;
            j = j->next;
        }
    } while (j != k->next);
    return {};
}

double squaredNorm(const PackCircle &circle)
{
    return circle.x * circle.x + circle.y * circle.y;
}

// The circle of the chain whose centre is nearest to (0, 0), the first of equal ones from `start`
// on.
PackCircle *nearestToOrigin(PackCircle *start)
{
    PackCircle *nearest = start;
    double least = squaredNorm(*start);
    for (PackCircle *circle = start->next; circle != start; circle = circle->next) {
        const double distance = squaredNorm(*circle);
        if (distance < least) {
            least = distance;
            nearest = circle;
        }
    }
    return nearest;
}

void link(PackCircle *a, PackCircle *b)
{
    a->next = b;
    b->previous = a;
}

// Finds the centres of three circles or more. False if it would not end.
template <typename Rules>
bool packChain(QList<PackCircle> &circles)
{
    PackCircle *a = &circles[0];
    PackCircle *b = &circles[1];
    PackCircle *c = &circles[2];
    a->x = -b->r;
    b->x = a->r;
    a->y = b->y = 0.0;
    placeTangent<Rules>(*b, *a, *c);
    link(a, b);
    link(b, c);
    link(c, a);

    for (qsizetype i = 3; i < circles.size(); ++i) {
        c = &circles[i];
        a = nearestToOrigin(a);
        b = a->next;
        for (;;) {
            placeTangent<Rules>(*a, *b, *c);
            if (!Rules::cutsChainOfTwo && b->next == a)
                break;
            const Intersection found = firstIntersection<Rules>(*a, *b, *c);
            if (!found.circle)
                break;
            PackCircle *&end = found.behind ? a : b;
            if (end == found.circle)
                return false; // nothing to cut: c would come to the same place again
            end = found.circle;
            link(a, b);
        }
        link(a, c);
        link(c, b);
    }
    return true;
}

// Moves the circles so that the one around them has its centre at (0, 0); returns its radius.
double centre(QList<PackCircle> &circles, const Circle &e)
{
    for (PackCircle &circle : circles) {
        circle.x -= e.x;
        circle.y -= e.y;
    }
    return e.r;
}

QList<Circle> outlines(const QList<PackCircle> &circles)
{
    return QList<Circle>(circles.cbegin(), circles.cend());
}

double packSturdily(QList<PackCircle> &circles)
{
    double largest = 0.0;
    for (PackCircle &circle : circles) {
        circle.r = circle.r >= 0.0 ? std::min(circle.r, largestRadius) : radiusOfNone;
        largest = std::max(largest, circle.r);
    }
    const double scale = unitScale(largest);
    QList<PackCircle> unit = circles;
    for (PackCircle &circle : unit)
        circle.r *= scale;
    packChain<SturdyRules>(unit);
    const double radius = centre(unit, encloseCircles(outlines(unit)));
    for (qsizetype i = 0; i < circles.size(); ++i) {
        circles[i].x = unit.at(i).x / scale;
        circles[i].y = unit.at(i).y / scale;
    }
    return radius / scale;
}

} // namespace

double packSiblings(QList<PackCircle> &circles)
{
    if (circles.isEmpty())
        return 0.0;
    for (PackCircle &circle : circles)
        circle.x = circle.y = 0.0;
    if (circles.size() == 1)
        return circles.constFirst().r;
    if (circles.size() == 2) {
        circles[0].x = -circles[1].r;
        circles[1].x = circles[0].r;
        return circles[0].r + circles[1].r;
    }
    if (packChain<PlainRules>(circles)) {
        if (const auto e = searchEnclosingCircle(outlines(circles)))
            return centre(circles, *e);
    }
    return packSturdily(circles);
}

} // namespace ORR::Graph::Layout
