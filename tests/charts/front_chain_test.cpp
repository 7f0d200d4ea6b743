#include "layout/charts/front_chain.h"

#include <gtest/gtest.h>

#include <cmath>
#include <deque>
#include <random>

using namespace ORR::Graph::Layout;

namespace {

using Random = std::mt19937_64;

PackCircle *nearestAsDefined(PackCircle *start)
{
    const auto norm = [](const PackCircle &c) { return c.x * c.x + c.y * c.y; };
    PackCircle *nearest = start;
    for (PackCircle *walk = start->next; walk != start; walk = walk->next) {
        if (norm(*walk) < norm(*nearest))
            nearest = walk;
    }
    return nearest;
}

bool intersects(const PackCircle &a, const PackCircle &b)
{
    return std::hypot(a.x - b.x, a.y - b.y) < a.r + b.r;
}

bool intersectsAny(const PackCircle &c, PackCircle *a, PackCircle *b)
{
    for (const PackCircle *walk = b->next; walk != a; walk = walk->next) {
        if (intersects(*walk, c))
            return true;
    }
    return false;
}

int lengthOf(const PackCircle *start)
{
    int length = 1;
    for (const PackCircle *walk = start->next; walk != start; walk = walk->next)
        ++length;
    return length;
}

// A chain that is not as any packing has it, but winds about like one. Places are on a grid, so
// that many circles are as near to (0, 0) as others, and some are nowhere; the radii of neighbours
// on the grid reach each other or just do not.
class RandomChain
{
public:
    RandomChain() : chain(add({}), add({}), add({})) { at = &circles.front(); }

    PackCircle *add(const Circle &near)
    {
        circles.emplace_back();
        place(circles.back(), near);
        return &circles.back();
    }

    void place(PackCircle &circle, const Circle &near)
    {
        std::uniform_int_distribution<int> offset(-2, 2);
        std::uniform_int_distribution<int> radius(30, 60);
        circle.x = (std::isnan(near.x) ? 0.0 : near.x) + 100.0 * offset(random);
        circle.y = near.y + 100.0 * offset(random);
        circle.r = radius(random);
        if (random() % 500 == 0)
            circle.x = std::nan("");
    }

    void step(int count)
    {
        for (int i = int(random() % size_t(count)); i > 0; --i)
            at = at->next;
    }

    void insert() { chain.insert(at, at->next, add(*at)); }

    // Leaves three circles at least.
    void cut(int count)
    {
        count = std::min(count, lengthOf(at) - 3);
        PackCircle *end = at->next;
        for (int i = 0; i < count; ++i)
            end = end->next;
        chain.cut(at, end);
    }

    void check()
    {
        ASSERT_EQ(chain.nearestToOrigin(at), nearestAsDefined(at));
        PackCircle c;
        place(c, circles[random() % circles.size()]);
        const bool any = intersectsAny(c, at, at->next);
        const bool mayBe = chain.mayIntersect(c, at, at->next, intersects);
        yes += mayBe;
        no += !mayBe;
        ASSERT_TRUE(mayBe || !any);
        // As short as that it may say yes to anything.
        ASSERT_TRUE(lengthOf(at) <= 1024 || mayBe == any);
    }

    Random random{1};
    std::deque<PackCircle> circles;
    FrontChain chain;
    PackCircle *at;
    int yes = 0;
    int no = 0;
};

} // namespace

TEST(FrontChain, answers_as_walking_round_it_does_while_it_grows_and_is_cut)
{
    RandomChain chain;
    for (int round = 0; round < 3000; ++round) {
        chain.step(4);
        chain.insert();
    }
    for (int round = 0; round < 1500; ++round) {
        chain.step(200);
        chain.insert();
        chain.cut(int(chain.random() % 4));
        ASSERT_NO_FATAL_FAILURE(chain.check());
    }
    EXPECT_GT(chain.yes, 50);
    EXPECT_GT(chain.no, 50);
}

TEST(FrontChain, answers_as_walking_round_it_does_when_nearly_all_is_cut)
{
    RandomChain chain;
    for (int again = 0; again < 3; ++again) {
        while (lengthOf(chain.at) < 4000) {
            for (int i = 0; i < 100; ++i)
                chain.insert();
            chain.step(3000);
        }
        while (lengthOf(chain.at) > 10) {
            chain.cut(int(chain.random() % 300));
            chain.step(500);
            ASSERT_NO_FATAL_FAILURE(chain.check());
        }
    }
}

TEST(FrontChain, takes_the_first_of_equally_near_circles)
{
    std::deque<PackCircle> circles(5000);
    for (PackCircle &circle : circles)
        circle = {{3.0, 4.0, 1.0}};
    circles[71].x = 100.0;
    FrontChain chain(&circles[0], &circles[1], &circles[2]);
    for (size_t i = 3; i < circles.size(); ++i)
        chain.insert(&circles[i - 1], &circles[0], &circles[i]);
    EXPECT_EQ(chain.nearestToOrigin(&circles[70]), &circles[70]);
    EXPECT_EQ(chain.nearestToOrigin(&circles[71]), &circles[72]);
}
