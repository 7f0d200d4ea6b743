#include "output/visio/visio_geometry.h"

#include "graph/limits.h"
#include "output/visio/visio_subpath_index.h"

namespace ORR::Graph {

namespace {

enum Arrow {
    FilledHead = 4,
    FilledDot = 10,
    FilledBox = 11,
    OpenHead = 14,
    OpenDot = 20,
    OpenBox = 21,
};

constexpr double splineDegree = 3.0;
constexpr qsizetype arrowHeadPoints = 4;

// From here on searching pays for keeping an index.
constexpr qsizetype scannedSubpaths = 8;
constexpr qsizetype scannedRows = 64;

double squaredDistance(QPointF a, QPointF b)
{
    const QPointF d = a - b;
    return d.x() * d.x() + d.y() * d.y();
}

// The point nearest to `place`; the first one among equals.
QPointF nearestPoint(const QList<QPoint> &points, QPointF place)
{
    QPointF nearest = points.constFirst();
    double least = squaredDistance(nearest, place);
    for (const QPoint point : points) {
        if (least == 0.0)
            break;
        const double distance = squaredDistance(point, place);
        if (distance < least) {
            nearest = point;
            least = distance;
        }
    }
    return nearest;
}

qsizetype indexOfPoint(const QList<VisioRow> &rows, const VisioRow &wanted, qsizetype from)
{
    for (qsizetype i = from; i < rows.size(); ++i) {
        if (rows.at(i).samePoint(wanted))
            return i;
    }
    return -1;
}

QList<VisioRow> rowsOf(const QList<QPoint> &points, VisioRow::Kind second, VisioRow::Kind further)
{
    QList<VisioRow> rows;
    rows.reserve(points.size());
    for (qsizetype i = 0; i < points.size(); ++i) {
        rows.append(VisioRow::of(points.at(i),
                                 i == 0       ? VisioRow::MoveTo
                                     : i == 1 ? second
                                              : further));
    }
    return rows;
}

} // namespace

VisioRow VisioRow::of(QPointF point, Kind kind, double extra)
{
    return {point.x(), point.y(), kind, extra};
}

VisioRow VisioRow::of(QPointF point, Kind kind)
{
    const bool spline = kind == SplineStart || kind == SplineKnot;
    return of(point, kind, spline ? splineDegree : 0.0);
}

VisioGeometry::VisioGeometry() = default;
VisioGeometry::~VisioGeometry() = default;
VisioGeometry::VisioGeometry(VisioGeometry &&) noexcept = default;
VisioGeometry &VisioGeometry::operator=(VisioGeometry &&) noexcept = default;

QList<VisioRow> VisioGeometry::allRows() const
{
    if (subpaths.size() == 1)
        return subpaths.constFirst();
    QList<VisioRow> rows;
    for (const QList<VisioRow> &subpath : subpaths)
        rows.append(subpath);
    return rows;
}

void VisioGeometry::keepEnds()
{
    index.reset();
    if (!isEmpty())
        subpaths = {{firstRow(), lastRow()}};
}

void VisioGeometry::add(const QList<VisioRow> &rows)
{
    if (rows.isEmpty())
        return;
    const bool few = subpaths.size() < scannedSubpaths && offeredRows < scannedRows;
    offeredRows += rows.size();
    if (spent < Limits::mostRowVisits && (few ? mergedByScan(rows) : mergedByIndex(rows)))
        return;
    subpaths.append(rows);
    if (index)
        index->added(rows);
}

bool VisioGeometry::mergedByScan(const QList<VisioRow> &rows)
{
    for (QList<VisioRow> &subpath : subpaths) {
        const qsizetype i = indexOfPoint(subpath, rows.constFirst(), 0);
        const qsizetype j = indexOfPoint(subpath, rows.constLast(), qMax<qsizetype>(i, 0));
        spent += i < 0 || j < 0 ? subpath.size() : qMax(i, j);
        if (mergeSubpath(rows, subpath, i, j) != SubpathMerge::None)
            return true;
    }
    return false;
}

bool VisioGeometry::mergedByIndex(const QList<VisioRow> &rows)
{
    if (!index) {
        index = std::make_unique<VisioSubpathIndex>(subpaths);
        for (const QList<VisioRow> &subpath : std::as_const(subpaths))
            spent += subpath.size() * VisioSubpathIndex::costOfRow;
    }
    int candidate = -1;
    while (spent < Limits::mostRowVisits && (candidate = index->candidate(rows, candidate)) >= 0) {
        QList<VisioRow> &subpath = subpaths[candidate];
        const qsizetype i = index->indexOf(subpath, candidate, rows.constFirst(), 0);
        const qsizetype j =
            index->indexOf(subpath, candidate, rows.constLast(), qMax<qsizetype>(i, 0));
        spent += VisioSubpathIndex::costOfSearch + rows.size();
        index->leaves(subpath, candidate);
        const SubpathMerge merge = mergeSubpath(rows, subpath, i, j);
        index->returns(subpath, candidate, merge, rows.size());
        if (merge == SubpathMerge::Inserted)
            spent += subpath.size() * VisioSubpathIndex::costOfRow;
        if (merge != SubpathMerge::None)
            return true;
    }
    return false;
}

void VisioGeometry::addBezier(const QList<QPoint> &points)
{
    add(rowsOf(points, VisioRow::SplineStart, VisioRow::SplineKnot));
}

void VisioGeometry::addPolyline(const QList<QPoint> &points)
{
    add(rowsOf(points, VisioRow::LineTo, VisioRow::LineTo));
}

void VisioGeometry::addPolygon(const QList<QPoint> &points, bool closed)
{
    if (!isEdge)
        addPolyline(points);
    else if (points.size() == arrowHeadPoints)
        addArrowPolygon(points, closed);
}

void VisioGeometry::addEllipse(QPoint centre, int rx, int ry, bool closed)
{
    if (isEdge) {
        addArrowMark(centre, closed ? FilledDot : OpenDot);
        return;
    }
    const QPointF c = centre;
    const QPointF left(c.x() - rx, c.y());
    const QPointF right(c.x() + rx, c.y());
    add({VisioRow::of(left, VisioRow::MoveTo), VisioRow::of(right, VisioRow::EllipticalArcTo),
         VisioRow::of({c.x(), c.y() - ry}, VisioRow::ArcControl),
         VisioRow::of(left, VisioRow::EllipticalArcTo),
         VisioRow::of({c.x(), c.y() + ry}, VisioRow::ArcControl)});
}

void VisioGeometry::addRect(QPoint topLeft, QPoint bottomRight, bool closed)
{
    if (isEdge)
        addArrowMark(topLeft, closed ? FilledBox : OpenBox);
    else
        add(rectangleRows(topLeft, bottomRight));
}

QList<VisioRow> VisioGeometry::rectangleRows(QPointF topLeft, QPointF bottomRight)
{
    return {VisioRow::of(topLeft, VisioRow::MoveTo),
            VisioRow::of({bottomRight.x(), topLeft.y()}, VisioRow::LineTo),
            VisioRow::of(bottomRight, VisioRow::LineTo),
            VisioRow::of({topLeft.x(), bottomRight.y()}, VisioRow::LineTo),
            VisioRow::of(topLeft, VisioRow::LineTo)};
}

// The arrow is drawn by the reader, from the end of the line on; so the line ends where the head
// was drawn. A head that comes before any line is that of the end.
void VisioGeometry::addArrowPolygon(const QList<QPoint> &points, bool closed)
{
    const int arrow = closed ? FilledHead : OpenHead;
    if (isEmpty()) {
        endArrow = arrow;
        return;
    }
    const QPointF tip = points.constFirst();
    const bool atEnd =
        squaredDistance(tip, lastRow().point()) <= squaredDistance(tip, firstRow().point());
    VisioRow &row = atEnd ? subpaths.last().last() : subpaths.first().first();
    moveRow(row, nearestPoint(points, row.point()));
    (atEnd ? endArrow : beginArrow) = arrow;
}

void VisioGeometry::addArrowMark(QPointF place, int arrow)
{
    const bool atBegin = !isEmpty()
        && squaredDistance(place, lastRow().point()) > squaredDistance(place, firstRow().point());
    (atBegin ? beginArrow : endArrow) = arrow;
}

void VisioGeometry::moveRow(VisioRow &row, QPointF place)
{
    if (row.point() == place)
        return;
    row.x = place.x();
    row.y = place.y();
    index.reset();
}

} // namespace ORR::Graph
