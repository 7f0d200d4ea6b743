#include "layout/charts/front_chain.h"

#include "graph/numbers.h"

#include <cmath>

namespace ORR::Graph::Layout {

namespace {

// A run of the square root of the chain's length would be best; this is that of some 65,000.
constexpr size_t mostInRun = 256;
constexpr size_t usualInRun = mostInRun / 2;
// Runs that have lost so many circles are made anew.
constexpr size_t leastInRun = usualInRun / 4;
// Below the first one a chain is asked circle by circle again.
constexpr size_t shortestRuns = 2 * mostInRun;
constexpr size_t firstRuns = 2 * shortestRuns;

// In parts of the numbers that a box is made of; the rounding of each of them is below 1e-15.
constexpr double room = 1e-12;

double squaredNorm(const PackCircle &circle)
{
    return circle.x * circle.x + circle.y * circle.y;
}

void link(PackCircle *a, PackCircle *b)
{
    a->next = b;
    b->previous = a;
}

} // namespace

FrontChain::FrontChain(PackCircle *a, PackCircle *b, PackCircle *c)
{
    link(a, b);
    link(b, c);
    link(c, a);
}

PackCircle *FrontChain::walkToNearest(PackCircle *start)
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

PackCircle *FrontChain::nearestToOrigin(PackCircle *start)
{
    if (runs.empty())
        return walkToNearest(start);
    double least = infinity;
    for (Run &run : runs) {
        refresh(run);
        least = std::min(least, run.least);
    }
    if (!(least < squaredNorm(*start)))
        return start;

    PackCircle *nearest = nullptr;
    for (const Run &run : runs) {
        if (run.least != least)
            continue;
        PackCircle *circle = run.first;
        for (size_t i = 0; i < run.count; ++i, circle = circle->next) {
            if (squaredNorm(*circle) != least)
                continue;
            if (nearest)
                return walkToNearest(start); // only the chain tells which of them comes first
            nearest = circle;
        }
    }
    return nearest;
}

void FrontChain::cut(PackCircle *a, PackCircle *b)
{
    for (const PackCircle *circle = a->next; circle != b; circle = circle->next) {
        --size;
        if (!runs.empty())
            takeOut(circle);
    }
    link(a, b);
    if (size < shortestRuns)
        runs.clear();
    else if (runs.size() * leastInRun > size)
        makeRuns(a);
}

void FrontChain::insert(PackCircle *a, PackCircle *b, PackCircle *c)
{
    link(a, c);
    link(c, b);
    ++size;
    if (runs.empty()) {
        if (size >= firstRuns)
            makeRuns(a);
        return;
    }
    c->run = a->run;
    Run &run = runs[c->run];
    ++run.count;
    include(run, *c);
    if (run.count > mostInRun)
        halve(c->run);
}

// Circles of negative sizes intersect like those of the same size above 0.
Box FrontChain::roomyBox(const PackCircle &circle)
{
    const double reach = std::abs(circle.r);
    return boxAround(circle, reach + room * (reach + std::abs(circle.x) + std::abs(circle.y)));
}

void FrontChain::makeRuns(PackCircle *start)
{
    runs.clear();
    PackCircle *circle = start;
    for (size_t i = 0; i < size; ++i, circle = circle->next) {
        if (i % usualInRun == 0)
            runs.emplace_back().first = circle;
        circle->run = runs.size() - 1;
        ++runs.back().count;
    }
}

// The second half becomes a run of its own.
void FrontChain::halve(size_t index)
{
    const size_t rest = runs[index].count / 2;
    Run second;
    second.first = runs[index].first;
    for (size_t i = 0; i < rest; ++i)
        second.first = second.first->next;
    second.count = runs[index].count - rest;
    PackCircle *circle = second.first;
    for (size_t i = 0; i < second.count; ++i, circle = circle->next)
        circle->run = runs.size();
    runs[index].count = rest;
    runs[index].stale = true;
    runs.push_back(second);
}

// Circles are taken out along the chain.
void FrontChain::takeOut(const PackCircle *circle)
{
    Run &run = runs[circle->run];
    if (run.first == circle)
        run.first = circle->next;
    --run.count;
    run.stale = true;
}

void FrontChain::compute(Run &run)
{
    run.stale = false;
    run.least = infinity;
    run.box = {};
    const PackCircle *circle = run.first;
    for (size_t i = 0; i < run.count; ++i, circle = circle->next)
        include(run, *circle);
}

void FrontChain::include(Run &run, const PackCircle &circle)
{
    run.least = std::min(run.least, squaredNorm(circle)); // what is not a number is passed over
    run.box.unite(roomyBox(circle));
}

} // namespace ORR::Graph::Layout
