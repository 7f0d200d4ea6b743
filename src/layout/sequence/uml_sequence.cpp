#include "layout/sequence/uml_sequence.h"

#include "device/graph_style.h"
#include "layout/sequence/grid_solver.h"
#include "layout/sequence/uml_collecting.h"
#include "layout/sequence/uml_painter.h"

namespace ORR::Graph::Layout {

QString UmlSequence::run(const LayoutContext &context)
{
    const auto [graph, device] = context;
    UmlDiagram diagram;
    UmlParts &parts = diagram.parts;
    const QString failure = collectUml(graph, parts);
    if (!failure.isNull())
        return failure;

    const GraphStyle style(graph, device);
    diagram.labels = measureLabels(parts, style);
    diagram.extents = extentsOf(parts);
    diagram.anchors = {solveGrid(parts.cols, columnClaims(parts, diagram.extents)),
                       solveGrid(parts.rows, rowClaims(parts, diagram.extents))};

    device->begin(diagram.anchors.columns.constLast(), diagram.anchors.rows.constLast());
    paintUml(diagram, style, device);
    return device->end();
}

} // namespace ORR::Graph::Layout
