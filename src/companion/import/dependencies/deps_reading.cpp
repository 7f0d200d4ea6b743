#include "companion/import/dependencies/deps_reading.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

std::optional<ImportFault> weightFault(const Dependencies &dependencies, const std::string &source)
{
    constexpr double largest = std::numeric_limits<double>::max(); // of an edge a sum ends there
    double sum = 0;
    for (const Dependencies::Edge &edge : dependencies.edges())
        sum += edge.weight < largest ? edge.weight : std::numeric_limits<double>::infinity();
    if (std::isfinite(sum))
        return std::nullopt;
    return {{{.source = source}, u"its numbers add up to more than a number can hold"_s}};
}

} // namespace ORR::Companion
