#include "output/visio/visio_geometry_section.h"

#include "output/visio/visio_cells.h"
#include "output/visio/visio_spline.h"

namespace ORR::Graph {

namespace {

void writePlace(VisioMarkup &section, const char *xName, const char *yName, const VisioRow &row,
                const VisioFrame &frame)
{
    const QPointF position = frame.position(row.point());
    numberCell(section, xName, position.x(), "Width*" + visioShort(frame.xShare(position.x())));
    numberCell(section, yName, position.y(), "Height*" + visioShort(frame.yShare(position.y())));
}

// The arc is as wide as the shape in relation to its height, unless the control row says otherwise.
void writeArc(VisioMarkup &section, const VisioRow &control, const VisioFrame &frame)
{
    writePlace(section, "A", "B", control, frame);
    rawCell(section, "C", 0.0);
    if (control.extra != 0.0) {
        rawCell(section, "D", control.extra);
        return;
    }
    rawCell(section, "D", frame.height() == 0.0 ? 0.0 : frame.width() / frame.height(),
            "Width/Height");
}

} // namespace

void writeGeometryRows(VisioMarkup &section, int cellsBefore, const QList<VisioRow> &rows,
                       const VisioFrame &frame)
{
    VisioSpline spline;
    int number = cellsBefore;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const VisioRow &row = rows.at(i);
        const char *type = visioRowType(row.kind);
        if (!type)
            continue;
        section.open("Row", {{"T", type}, {"IX", QByteArray::number(number++)}});
        writePlace(section, "X", "Y", row, frame);
        if (row.kind == VisioRow::SplineStart) {
            spline = VisioSpline(row);
            const VisioSpline whole = VisioSpline::counted(rows, i);
            plainCell(section, "D", spline.degree());
            plainCell(section, "A", spline.knot());
            plainCell(section, "B", 0);
            if (whole.isOpen())
                plainCell(section, "C", whole.lastKnot());
        } else if (row.kind == VisioRow::SplineKnot) {
            spline.count();
            plainCell(section, "A", spline.knot());
        } else if (row.kind == VisioRow::EllipticalArcTo && i + 1 < rows.size()) {
            writeArc(section, rows.at(++i), frame);
        }
        section.close("Row");
    }
}

} // namespace ORR::Graph
