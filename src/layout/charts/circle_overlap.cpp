#include "layout/charts/circle_overlap.h"

#include "layout/charts/circle_box.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numeric>
#include <vector>

namespace ORR::Graph::Layout {

namespace {

constexpr size_t mostInLeaf = 8;

bool hasSize(const Circle &circle)
{
    return std::isfinite(circle.x) && std::isfinite(circle.y) && std::isfinite(circle.r)
        && circle.r > 0.0;
}

// Those that can overlap at all, within the size of 1: no sum of theirs overflows.
std::vector<Circle> scaledToUnit(const QList<Circle> &circles)
{
    std::vector<Circle> unit;
    std::copy_if(circles.cbegin(), circles.cend(), std::back_inserter(unit), hasSize);
    double largest = 0.0;
    for (const Circle &circle : unit)
        largest = std::max({largest, std::abs(circle.x), std::abs(circle.y), circle.r});
    const double scale = unitScale(largest);
    for (Circle &circle : unit)
        circle = {circle.x * scale, circle.y * scale, circle.r * scale};
    return unit;
}

bool isOverlap(const Circle &a, const Circle &b, double part)
{
    const double reach = a.r + b.r - part * std::min(a.r, b.r);
    const double dx = std::abs(a.x - b.x);
    const double dy = std::abs(a.y - b.y);
    return dx < reach && dy < reach && std::hypot(dx, dy) < reach; // its squares could underflow
}

// A tree in which every leaf has the same depth. The nodes lie in one list, level after level: the
// children of node i are 2i + 1 and 2i + 2.
class BoxTree
{
public:
    // Takes one circle or more.
    explicit BoxTree(std::vector<Circle> list) : circles(std::move(list))
    {
        while ((circles.size() >> depth) > mostInLeaf)
            ++depth;
        nodes.resize((size_t(2) << depth) - 1);
        firstLeaf = nodes.size() / 2;
        halve();
        for (size_t i = nodes.size(); i-- > 0;)
            nodes[i].box = boxOf(i);
    }

    bool anyOverlap(double part)
    {
        // Within a power of two of the radius they stay in the order of the tree, which is the one
        // of places: neighbours are found in the processor's caches.
        std::vector<std::pair<qint64, size_t>> order;
        order.reserve(circles.size());
        // What the scaling left nothing of has the lowest int for its power.
        for (size_t i = 0; i < circles.size(); ++i)
            order.emplace_back(-qint64(std::ilogb(circles[i].r)), i);
        std::sort(order.begin(), order.end());
        return std::any_of(order.begin(), order.end(),
                           [&](const auto &entry) { return overlapsSmaller(entry.second, part); });
    }

private:
    struct Node
    {
        size_t begin = 0; // its circles, the last one not included
        size_t end = 0;
        Box box;
    };

    void halve()
    {
        nodes[0].end = circles.size();
        for (size_t i = 0; i < firstLeaf; ++i) {
            const auto [begin, end, box] = nodes[i];
            const size_t middle = begin + (end - begin) / 2;
            const bool byX = std::bit_width(i + 1) % 2 != 0; // the level tells
            std::nth_element(
                circles.data() + begin, circles.data() + middle, circles.data() + end,
                [byX](const Circle &a, const Circle &b) { return byX ? a.x < b.x : a.y < b.y; });
            nodes[2 * i + 1] = {begin, middle, {}};
            nodes[2 * i + 2] = {middle, end, {}};
        }
    }

    // The boxes of its children are known.
    Box boxOf(size_t i) const
    {
        Box box;
        if (i < firstLeaf) {
            box = nodes[2 * i + 1].box;
            box.unite(nodes[2 * i + 2].box);
            return box;
        }
        for (size_t k = nodes[i].begin; k < nodes[i].end; ++k)
            box.unite(boxAround(circles[k], circles[k].r));
        return box;
    }

    bool overlapsSmaller(size_t index, double part)
    {
        const Circle &circle = circles[index];
        const Box box = boxAround(circle, circle.r);
        open.assign(1, 0);
        while (!open.empty()) {
            const size_t i = open.back();
            open.pop_back();
            if (i < firstLeaf) {
                for (const size_t child : {2 * i + 1, 2 * i + 2}) {
                    if (nodes[child].box.meets(box))
                        open.push_back(child);
                }
                continue;
            }
            for (size_t k = nodes[i].begin; k < nodes[i].end; ++k) {
                if (k != index && circles[k].r <= circle.r && isOverlap(circle, circles[k], part))
                    return true;
            }
        }
        return false;
    }

    std::vector<Circle> circles;
    std::vector<Node> nodes;
    std::vector<size_t> open; // nodes that a search has yet to visit
    size_t depth = 0;
    size_t firstLeaf = 0;
};

} // namespace

bool overlap(const QList<Circle> &circles, double part)
{
    std::vector<Circle> unit = scaledToUnit(circles);
    return !unit.empty() && BoxTree(std::move(unit)).anyOverlap(part);
}

} // namespace ORR::Graph::Layout
