#include "companion/check/object_places.h"

#include <algorithm>
#include <functional>
#include <tuple>

namespace ORR::Companion {

namespace {

bool isSame(const ObjectPlace &a, const ObjectPlace &b)
{
    return a.grid == b.grid && a.row == b.row && a.col == b.col && a.level == b.level;
}

bool liesBefore(const ObjectPlace &a, const ObjectPlace &b)
{
    if (a.grid != b.grid)
        return std::less<>()(a.grid, b.grid);
    return std::tie(a.row, a.col, a.level, a.number) < std::tie(b.row, b.col, b.level, b.number);
}

} // namespace

std::vector<SharedPlace> sharedPlaces(std::vector<ObjectPlace> places)
{
    std::sort(places.begin(), places.end(), liesBefore);
    std::vector<SharedPlace> shared;
    size_t first = 0;
    for (size_t i = 1; i < places.size(); ++i) {
        if (isSame(places[first], places[i]))
            shared.push_back({places[i], places[first].number});
        else
            first = i;
    }
    std::sort(shared.begin(), shared.end(), [](const SharedPlace &a, const SharedPlace &b) {
        return a.later.number < b.later.number;
    });
    return shared;
}

} // namespace ORR::Companion
