#pragma once

namespace ORR::Graph::Layout {

// The number that comes back when `value` is stored in an attribute: what `numberText` keeps of it.
// The same bits as through the text, but without making it where the arithmetic leaves no doubt.
double storedNumber(double value);

} // namespace ORR::Graph::Layout
