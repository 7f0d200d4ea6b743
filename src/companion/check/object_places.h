#pragma once

#include <cstddef>
#include <vector>

namespace ORR::Companion {

// Where an object stands on a grid.
struct ObjectPlace
{
    const void *grid; // whose cells they are; null where there is one grid only
    int row;
    int col;
    int level; // of what may stand beside each other in one cell
    size_t number; // of the object, in the order of the text
};

// An object on a place that an earlier one has already.
struct SharedPlace
{
    ObjectPlace later;
    size_t earlier; // the number of the first one
};

// All of them, in the order of the text.
std::vector<SharedPlace> sharedPlaces(std::vector<ObjectPlace> places);

} // namespace ORR::Companion
