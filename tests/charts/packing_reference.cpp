#include "charts/packing_reference.h"

#include <algorithm>
#include <cmath>
#include <random>

using namespace ORR::Graph::Layout;

namespace {

constexpr int roundsPerCircle = 1000;

using Basis = QList<Circle>;

bool intersects(const PackCircle &a, const PackCircle &b)
{
    return (a.r + b.r) * (a.r + b.r) - 1e-6 > (b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y);
}

void placeTangent(const PackCircle &a, const PackCircle &b, PackCircle &c)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double d = std::sqrt(dx * dx + dy * dy);
    if (d <= 0) {
        c.x = a.x + c.r + a.r;
        c.y = a.y;
    } else {
        const double ra = c.r + a.r;
        const double rb = c.r + b.r;
        const double cosA = (ra * ra + d * d - rb * rb) / (2 * ra * d);
        const double p = cosA * ra;
        const double s = std::sin(std::acos(cosA));
        c.x = (dx / d) * p + a.x + (dy / d) * s * ra;
        c.y = (dy / d) * p + a.y - (dx / d) * s * ra;
    }
}

bool enclosesWeak(const Circle &a, const Circle &b)
{
    const double dr = a.r - b.r + std::max(std::max(a.r, b.r), 1.0) * 1e-9;
    return dr > 0 && dr * dr > (b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y);
}

bool enclosesNot(const Circle &a, const Circle &b)
{
    const double dr = a.r - b.r;
    return dr < 0 || dr * dr < (b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y);
}

bool enclosesWeakAll(const Circle &a, const Basis &basis)
{
    for (const Circle &b : basis) {
        if (!enclosesWeak(a, b))
            return false;
    }
    return true;
}

Circle encloseBasis2(const Circle &a, const Circle &b)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double dr = b.r - a.r;
    const double l = std::sqrt(dx * dx + dy * dy);
    Circle e;
    e.x = (a.x + b.x + dx / l * dr) / 2;
    e.y = (a.y + b.y + dy / l * dr) / 2;
    e.r = (l + a.r + b.r) / 2;
    return e;
}

Circle encloseBasis3(const Circle &a, const Circle &b, const Circle &c)
{
    const double a2 = a.x - b.x;
    const double a3 = a.x - c.x;
    const double b2 = a.y - b.y;
    const double b3 = a.y - c.y;
    const double c2 = b.r - a.r;
    const double c3 = c.r - a.r;
    const double d1 = a.x * a.x + a.y * a.y - a.r * a.r;
    const double d2 = d1 - b.x * b.x - b.y * b.y + b.r * b.r;
    const double d3 = d1 - c.x * c.x - c.y * c.y + c.r * c.r;
    const double ab = a3 * b2 - a2 * b3;
    const double xa = (b2 * d3 - b3 * d2) / (2 * ab) - a.x;
    const double xb = (b3 * c2 - b2 * c3) / ab;
    const double ya = (a3 * d2 - a2 * d3) / (2 * ab) - a.y;
    const double yb = (a2 * c3 - a3 * c2) / ab;
    const double A = xb * xb + yb * yb - 1;
    const double B = 2 * (a.r + xa * xb + ya * yb);
    const double C = xa * xa + ya * ya - a.r * a.r;
    double r = 0;
    if (std::fabs(A) <= 1e-6)
        r = -(C / B);
    else
        r = -((B + std::sqrt(B * B - 4 * A * C)) / (2 * A));
    Circle e;
    e.x = a.x + xa + xb * r;
    e.y = a.y + ya + yb * r;
    e.r = r;
    return e;
}

Circle encloseBasis(const Basis &basis)
{
    if (basis.size() == 1)
        return basis[0];
    if (basis.size() == 2)
        return encloseBasis2(basis[0], basis[1]);
    if (basis.size() == 3)
        return encloseBasis3(basis[0], basis[1], basis[2]);
    return {};
}

Basis extendBasis(const Basis &basis, const Circle &p)
{
    if (enclosesWeakAll(p, basis))
        return {p};
    for (const Circle &b : basis) {
        if (enclosesNot(p, b) && enclosesWeakAll(encloseBasis2(b, p), basis))
            return {b, p};
    }
    for (qsizetype i = 0; i < basis.size(); ++i) {
        for (qsizetype j = i + 1; j < basis.size(); ++j) {
            if (enclosesNot(encloseBasis2(basis[i], basis[j]), p)
                && enclosesNot(encloseBasis2(basis[i], p), basis[j])
                && enclosesNot(encloseBasis2(basis[j], p), basis[i])
                && enclosesWeakAll(encloseBasis3(basis[i], basis[j], p), basis))
                return {basis[i], basis[j], p};
        }
    }
    return {};
}

} // namespace

std::optional<Circle> encloseAsDefined(const QList<Circle> &circles)
{
    QList<Circle> list = circles;
    std::mt19937 generator;
    std::shuffle(list.begin(), list.end(), generator);
    Basis basis;
    Circle e;
    qsizetype i = 0;
    for (qsizetype rounds = 0; i < list.size(); ++rounds) {
        if (rounds > list.size() * roundsPerCircle)
            return {};
        const Circle p = list[i];
        if (e.r != 0 && enclosesWeak(e, p)) {
            ++i;
        } else {
            basis = extendBasis(basis, p);
            e = encloseBasis(basis);
            i = 0;
        }
    }
    return e;
}

std::optional<double> packAsDefined(QList<PackCircle> &circles)
{
    const qsizetype n = circles.size();
    if (n == 0)
        return 0.0;
    if (n == 1)
        return circles[0].r;
    PackCircle *a = &circles[0];
    PackCircle *b = &circles[1];
    a->x = -b->r;
    b->x = a->r;
    if (n == 2)
        return a->r + b->r;
    PackCircle *c = &circles[2];
    placeTangent(*b, *a, *c);
    a->next = c->previous = b;
    b->next = a->previous = c;
    c->next = b->previous = a;
    for (qsizetype i = 3; i < n; ++i) {
        c = &circles[i];
        PackCircle *best = a;
        for (PackCircle *walk = a->next; walk != a; walk = walk->next) {
            if (walk->x * walk->x + walk->y * walk->y < best->x * best->x + best->y * best->y)
                best = walk;
        }
        a = best;
        b = a->next;
        bool again = true;
        for (qsizetype rounds = 0; again; ++rounds) {
            if (rounds > n * roundsPerCircle)
                return {};
            again = false;
            placeTangent(*a, *b, *c);
            PackCircle *j = b->next;
            PackCircle *k = a->previous;
            double sj = b->r;
            double sk = a->r;
            do {
                if (sk < sj) {
                    if (intersects(*k, *c)) {
                        k->next = b;
                        b->previous = k;
                        a = k;
                        again = true;
                        break;
                    }
                    sk += k->r;
                    k = k->previous;
                } else {
                    if (intersects(*j, *c)) {
                        a->next = j;
                        j->previous = a;
                        b = j;
                        again = true;
                        break;
                    }
                    sj += j->r;
                    j = j->next;
                }
            } while (j != k->next);
        }
        c->previous = a;
        c->next = b;
        a->next = c;
        b->previous = c;
    }
    QList<Circle> plain;
    for (const PackCircle &circle : circles)
        plain.append(circle);
    const std::optional<Circle> e = encloseAsDefined(plain);
    if (!e)
        return {};
    for (PackCircle &circle : circles) {
        circle.x += -e->x;
        circle.y += -e->y;
    }
    return e->r;
}
