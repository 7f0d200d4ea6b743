#pragma once

#include "output/visio/visio_frame.h"
#include "output/visio/visio_geometry.h"
#include "output/visio/visio_markup.h"

#include <QList>

namespace ORR::Graph {

// Writes the rows of a package's Geometry section. The section has some cells of its own already,
// and rows are numbered by what stands ahead of them in the section.
void writeGeometryRows(VisioMarkup &section, int cellsBefore, const QList<VisioRow> &rows,
                       const VisioFrame &frame);

} // namespace ORR::Graph
