#include "layout/charts/circle_packing.h"

#include "layout/charts/circle_overlap.h"

#include <algorithm>
#include <cmath>

namespace ORR::Graph::Layout {

namespace {

constexpr double squareTolerance = 1e-6;
// In parts of the smaller circle's radius.
constexpr double partTolerance = 1e-6;
constexpr double mostOverlap = 1e-4;

constexpr double radiusOfNone = 1.0;
constexpr double largestRadius = 1e300;

// The packing as it is defined.
struct PlainRules
{
    static constexpr bool cutsChainOfTwo = true;
    static constexpr bool looksForPocket = false;

    static bool intersects(const PackCircle &a, const PackCircle &b)
    {
        const double sum = a.r + b.r;
        const double dx = b.x - a.x;
        const double dy = b.y - a.y;
        return sum * sum - squareTolerance > dx * dx + dy * dy;
    }

    // Places c so that it touches a and b, on the outer side of a chain that goes from a to b.
    static void placeTangent(const PackCircle &a, const PackCircle &b, PackCircle &c)
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
        const double cosA = (ra * ra + d * d - rb * rb) / (2 * ra * d);
        const double p = cosA * ra;
        const double s = std::sin(std::acos(cosA));
        c.x = (dx / d) * p + a.x + (dy / d) * s * ra;
        c.y = (dy / d) * p + a.y - (dx / d) * s * ra;
    }
};

// The packing that stands rounding at every size.
struct SturdyRules
{
    static constexpr bool cutsChainOfTwo = false;
    static constexpr bool looksForPocket = true;

    static bool intersects(const PackCircle &a, const PackCircle &b)
    {
        const double reach = a.r + b.r - partTolerance * std::min(a.r, b.r);
        const double dx = b.x - a.x;
        const double dy = b.y - a.y;
        return reach * reach > dx * dx + dy * dy;
    }

    // Measured from the smaller of a and b: next to the larger one's radius and the squares of it,
    // the digits that decide where small circles lie are lost.
    static void placeTangent(const PackCircle &a, const PackCircle &b, PackCircle &c)
    {
        const bool fromA = a.r <= b.r;
        const PackCircle &from = fromA ? a : b;
        const PackCircle &to = fromA ? b : a;
        const double dx = to.x - from.x;
        const double dy = to.y - from.y;
        const double d = std::sqrt(dx * dx + dy * dy);
        if (d <= 0.0) {
            c.x = a.x + c.r + a.r;
            c.y = a.y;
            return;
        }
        const double rFrom = c.r + from.r;
        const double rTo = c.r + to.r;
        const double cosine = (rFrom * rFrom + (d - rTo) * (d + rTo)) / (2 * rFrom * d);
        // Three circles in one line may seem to be out of reach by a rounding. What is not a
        // number, for two circles of no size, counts as such a line.
        const double p = std::fmax(-1.0, std::fmin(1.0, cosine)) * rFrom;
        const double s = std::sqrt((rFrom - p) * (rFrom + p));
        const double h = fromA ? s : -s;
        c.x = from.x + (dx / d) * p + (dy / d) * h;
        c.y = from.y + (dy / d) * p - (dx / d) * h;
    }
};

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

// Twice the area of the polygon of the centres of a part of the chain and of c, seen along the
// chain: above 0 if the polygon lies on the side of what is packed.
double doubledArea(const PackCircle &from, const PackCircle &to, const PackCircle &c)
{
    const auto cross = [&from](const PackCircle &p, const PackCircle &q) {
        return (p.x - from.x) * (q.y - from.y) - (q.x - from.x) * (p.y - from.y);
    };
    double area = cross(to, c);
    for (const PackCircle *p = &from; p != &to; p = p->next)
        area += cross(*p, *p->next);
    return area;
}

// Whether c, put against a and b, lies clear of the part of the chain between them.
bool isClear(const PackCircle &a, const PackCircle &b, PackCircle c)
{
    SturdyRules::placeTangent(a, b, c);
    for (const PackCircle *p = a.next; p != &b; p = p->next) {
        if (SturdyRules::intersects(*p, c))
            return false;
    }
    return true;
}

// Whether the chain is to be cut from a back to the circle that c intersects, and not from b forth
// to it. What is cut off has to lie in the pocket that c closes. The way on which the circle was
// found is the shorter one by the radii; about once in a thousand lists that is the outer one, and
// what comes later would be put over it. Where neither way is a pocket, c lies deep in what is
// packed, and the shorter way is as good as any.
bool cutsPocketBehind(const PackCircle &a, const PackCircle &b, const PackCircle &c,
                      const Intersection &found)
{
    const PackCircle &j = *found.circle;
    const auto isPocket = [&](bool behind) {
        return (behind ? doubledArea(j, a, c) : doubledArea(b, j, c)) <= 0.0;
    };
    const bool other = !found.behind;
    if (isPocket(found.behind) || !isPocket(other))
        return found.behind;
    const bool otherIsClear = other ? isClear(j, b, c) : isClear(a, j, c);
    return otherIsClear ? other : found.behind;
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
    Rules::placeTangent(*b, *a, *c);
    FrontChain chain(a, b, c);

    for (qsizetype i = 3; i < circles.size(); ++i) {
        c = &circles[i];
        a = chain.nearestToOrigin(a);
        b = a->next;
        for (;;) {
            Rules::placeTangent(*a, *b, *c);
            if (!Rules::cutsChainOfTwo && b->next == a)
                break;
            if (!chain.mayIntersect(*c, a, b, Rules::intersects))
                break;
            const Intersection found = firstIntersection<Rules>(*a, *b, *c);
            if (!found.circle)
                break;
            const bool behind =
                Rules::looksForPocket ? cutsPocketBehind(*a, *b, *c, found) : found.behind;
            PackCircle *&end = behind ? a : b;
            if (end == found.circle)
                return false; // nothing to cut: c would come to the same place again
            end = found.circle;
            chain.cut(a, b);
        }
        chain.insert(a, b, c);
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
        if (const auto e = searchEnclosingCircle(outlines(circles))) {
            const double radius = centre(circles, *e);
            if (!overlap(outlines(circles), mostOverlap))
                return radius;
        }
    }
    return packSturdily(circles);
}

} // namespace ORR::Graph::Layout
