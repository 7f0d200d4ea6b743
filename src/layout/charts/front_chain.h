#pragma once

#include "layout/charts/circle_box.h"

#include <vector>

namespace ORR::Graph::Layout {

// A circle that is to be packed: its radius is given, its centre is found.
struct PackCircle : Circle
{
    PackCircle *next = nullptr; // neighbours on the front chain, while it is being built
    PackCircle *previous = nullptr;
    size_t run = 0; // its place on a long chain, for the chain alone
};

// The outline of what is packed: a ring of circles, which are not owned. Two questions to all of
// the chain are asked for each circle that is packed, and a chain may be as long as the list. So a
// long one is kept in runs of neighbours, each with a box around it, and a question looks into the
// runs that matter. The answers are those of asking every circle, to the last bit.
class FrontChain
{
public:
    // Makes a ring of the three.
    FrontChain(PackCircle *a, PackCircle *b, PackCircle *c);

    // The circle whose centre is nearest to (0, 0), the first of equal ones from `start` on. If
    // the distance of `start` is not a number, `start`.
    PackCircle *nearestToOrigin(PackCircle *start);

    // Whether any circle but a and b intersects c by the test, which holds only for circles whose
    // boxes meet but for roundings. A short chain does not look and says yes.
    template <typename Intersects>
    bool mayIntersect(const PackCircle &c, const PackCircle *a, const PackCircle *b,
                      Intersects intersects)
    {
        const Box box = roomyBox(c);
        for (Run &run : runs) {
            refresh(run);
            if (!run.box.meets(box))
                continue;
            const PackCircle *circle = run.first;
            for (size_t i = 0; i < run.count; ++i, circle = circle->next) {
                if (circle != a && circle != b && intersects(*circle, c))
                    return true;
            }
        }
        return runs.empty();
    }

    // Takes out what lies between a and b, along the chain.
    void cut(PackCircle *a, PackCircle *b);

    // Puts c between the neighbours a and b.
    void insert(PackCircle *a, PackCircle *b, PackCircle *c);

private:
    // Neighbours on the chain, from the first one on.
    struct Run
    {
        PackCircle *first = nullptr;
        size_t count = 0;
        bool stale = true; // what follows is to be computed anew
        double least = 0.0; // the smallest square of a distance from (0, 0)
        Box box;
    };

    // With more room than roundings take.
    static Box roomyBox(const PackCircle &circle);
    static PackCircle *walkToNearest(PackCircle *start);

    void makeRuns(PackCircle *start);
    void halve(size_t index);
    void takeOut(const PackCircle *circle);
    static void refresh(Run &run)
    {
        if (run.stale)
            compute(run);
    }
    static void compute(Run &run);
    static void include(Run &run, const PackCircle &circle);

    size_t size = 3;
    std::vector<Run> runs; // in no order; none while the chain is short
};

} // namespace ORR::Graph::Layout
