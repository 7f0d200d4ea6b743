#pragma once

#include "attributes/attribute_row.h"

#include <span>

// All tables of attributes, for whoever lists them: documents, checks, completions. An engine reads
// by its own.
namespace ORR::Graph::Layout {

// Those that several engines share come first. They live as long as the program.
std::span<const AttributeTable *const> attributeTables();

} // namespace ORR::Graph::Layout
