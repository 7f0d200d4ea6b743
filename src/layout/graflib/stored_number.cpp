#include "layout/graflib/stored_number.h"

#include "graph/decimal.h"

namespace ORR::Graph::Layout {

double StoredNumber::throughText(double value)
{
    return numberThroughText(value);
}

bool StoredNumber::findDecade(double size)
{
    static constexpr Decade decades[] = {
        {1e-3, 1e-2, 1e8, 1e8, 1}, {1e-2, 1e-1, 1e7, 1e7, 1},  {1e-1, 1e0, 1e6, 1e6, 1},
        {1e0, 1e1, 1e5, 1e5, 1},   {1e1, 1e2, 1e4, 1e4, 1},    {1e2, 1e3, 1e3, 1e3, 1},
        {1e3, 1e4, 1e2, 1e2, 1},   {1e4, 1e5, 1e1, 1e1, 1},    {1e5, 1e6, 1, 1, 1},
        {1e6, 1e7, 1e-1, 1, 1e1},  {1e7, 1e8, 1e-2, 1, 1e2},   {1e8, 1e9, 1e-3, 1, 1e3},
        {1e9, 1e10, 1e-4, 1, 1e4}, {1e10, 1e11, 1e-5, 1, 1e5}, {1e11, 1e12, 1e-6, 1, 1e6},
    };
    for (const Decade &candidate : decades) {
        if (size >= candidate.start && size < candidate.end) {
            decade = candidate;
            return true;
        }
    }
    return false;
}

} // namespace ORR::Graph::Layout
