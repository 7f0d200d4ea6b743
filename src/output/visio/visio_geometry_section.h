#pragma once

#include "output/visio/visio_cells.h"

namespace ORR::Graph {

// Writes the rows of a geometry section, numbered from `firstNumber` on.
void writeGeometryRows(VisioMarkup &section, const VisioCells &cells, int firstNumber,
                       const VisioContent &content, const VisioFrame &frame);

} // namespace ORR::Graph
