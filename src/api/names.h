#pragma once

#include <cstddef>

// The names in the tables of engines and formats, in their order, as they were when the library was
// built. The library itself is not linked with the tables: they bring the toolkit with them.
namespace ORR::Api {

extern const char *const engineNames[];
extern const std::size_t engineCount;
extern const char *const formatNames[];
extern const std::size_t formatCount;

} // namespace ORR::Api
