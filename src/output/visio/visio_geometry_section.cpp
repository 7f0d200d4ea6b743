#include "output/visio/visio_geometry_section.h"

namespace ORR::Graph {

namespace {

void writeArc(VisioMarkup &section, const VisioCells &cells, const VisioRow &control,
              const VisioFrame &frame)
{
    cells.writePlace(section, "A", "B", control, frame);
    cells.whole(section, "C", 0);
    cells.writeArcRatio(section, control.extra,
                        frame.height() == 0.0 ? 0.0 : frame.width() / frame.height());
}

} // namespace

void writeGeometryRows(VisioMarkup &section, const VisioCells &cells, int firstNumber,
                       const VisioContent &content, const VisioFrame &frame)
{
    const QList<VisioRow> rows = content.geometry.allRows();
    VisioSpline spline;
    int number = firstNumber;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const VisioRow &row = rows.at(i);
        const char *type = visioRowType(row.kind);
        if (!type)
            continue;
        cells.openRow(section, type, number++);
        cells.writeRowPlace(section, row, frame, content.isEdge());
        if (row.kind == VisioRow::SplineStart) {
            spline = VisioSpline(row);
            cells.writeSplineStart(section, spline, VisioSpline::counted(rows, i));
        } else if (row.kind == VisioRow::SplineKnot) {
            spline.count();
            cells.whole(section, "A", spline.knot());
        } else if (row.kind == VisioRow::EllipticalArcTo && i + 1 < rows.size()) {
            writeArc(section, cells, rows.at(++i), frame);
        }
        cells.closeRow(section, type);
    }
}

} // namespace ORR::Graph
