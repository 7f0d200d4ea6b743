#include "output/visio/visio_xml_frame.h"

#include "graph/numbers.h"
#include "output/visio/visio_cells.h"
#include "output/visio/visio_spline.h"

#include <algorithm>

namespace ORR::Graph {

namespace {

constexpr double pointsPerInch = 72.0;

double across(const VisioAxis &axis, QPointF pagePoint)
{
    const double distance = axis.away(pagePoint);
    return truncated(axis.side(pagePoint)) < 0 ? -distance : distance;
}

QPointF wholePoint(QPointF point)
{
    return {double(rounded(point.x())), double(rounded(point.y()))};
}

void writeShare(VisioMarkup &row, const char *name, const char *base, double share, double value)
{
    row.text(name, {{"F", base + visioText(share)}}, visioInches(value));
}

void writeNumber(VisioMarkup &row, const char *name, int value)
{
    row.text(name, {}, QByteArray::number(value));
}

} // namespace

QByteArray visioInches(double points)
{
    return visioShort(points / pointsPerInch);
}

QByteArray visioText(double value)
{
    return visioShort(value);
}

VisioXMLFrame::VisioXMLFrame(const QList<VisioRow> &rows, bool edge, int pageHeight)
    : isEdge(edge), pageTop(pageHeight)
{
    if (!isEdge) {
        box = VisioFrame(rows, false, pageHeight);
        return;
    }
    if (rows.isEmpty())
        return;
    axis = VisioAxis(onPage(rows.constFirst().point()), onPage(rows.constLast().point()));
    const VisioAxis whole(onPage(wholePoint(rows.constFirst().point())),
                          onPage(wholePoint(rows.constLast().point())));
    for (const VisioRow &row : rows) {
        const double value = across(whole, onPage(wholePoint(row.point())));
        low = std::min(low, value);
        high = std::max(high, value);
    }
}

QPointF VisioXMLFrame::position(QPointF devicePoint) const
{
    if (!isEdge)
        return box.position(devicePoint);
    const QPointF point = onPage(devicePoint);
    return {axis.along(point), across(axis, point) - low};
}

void VisioXMLFrame::writeGeometry(VisioMarkup &shape, const QList<VisioRow> &rows) const
{
    shape.open("Geom", {{"IX", "0"}});
    if (isEdge)
        shape.text("NoFill", {}, "1");
    VisioSpline spline;
    int written = 0;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const VisioRow &row = rows.at(i);
        const char *type = visioRowType(row.kind);
        if (!type)
            continue;
        shape.open(type, {{"IX", QByteArray::number(++written)}});
        writePlace(shape, row);
        if (row.kind == VisioRow::SplineStart) {
            spline = VisioSpline(row);
            writeNumber(shape, "A", spline.knot());
            writeNumber(shape, "B", 0);
            writeNumber(shape, "C", VisioSpline::counted(rows, i).lastKnot());
            writeNumber(shape, "D", spline.degree());
        } else if (row.kind == VisioRow::SplineKnot) {
            spline.count();
            writeNumber(shape, "A", spline.knot());
        } else if (row.kind == VisioRow::EllipticalArcTo && i + 1 < rows.size()) {
            writeArc(shape, rows.at(++i));
        }
        shape.close(type);
    }
    shape.close("Geom");
}

QPointF VisioXMLFrame::onPage(QPointF devicePoint) const
{
    return {devicePoint.x(), pageTop - devicePoint.y()};
}

// A connector's places are formulas alone, which the application works out when it opens the file.
void VisioXMLFrame::writePlace(VisioMarkup &row, const VisioRow &place) const
{
    const QPointF at = position(place.point());
    if (!isEdge) {
        writeShare(row, "X", "Width*", xShare(at.x()), at.x());
        writeShare(row, "Y", "Height*", yShare(at.y()), at.y());
        return;
    }
    row.text("X", {{"F", "Width*" + visioText(xShare(at.x()))}}, QByteArray());
    row.text("Y", {{"F", "Height*" + visioText(yShare(at.y()))}}, QByteArray());
}

// The value of D is that of the arc itself where it differs from the shape's.
void VisioXMLFrame::writeArc(VisioMarkup &row, const VisioRow &control) const
{
    const QPointF at = position(control.point());
    writeShare(row, "A", "Width*", xShare(at.x()), at.x());
    writeShare(row, "B", "Height*", yShare(at.y()), at.y());
    writeNumber(row, "C", 0);
    const double ofShape = height() == 0.0 ? 0.0 : width() / height();
    row.text("D", {{"F", "Width/Height"}},
             visioText(control.extra != 0.0 ? control.extra : ofShape));
}

} // namespace ORR::Graph
