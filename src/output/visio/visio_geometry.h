#pragma once

#include <QList>
#include <QPoint>
#include <QPointF>

#include <memory>

namespace ORR::Graph {

class VisioSubpathIndex;

// One row of a Geometry section: a point of the page in points, y downward. Turning y over and
// dividing into inches happens where cells are written.
struct VisioRow
{
    enum Kind {
        MoveTo = 0,
        LineTo = 1,
        SplineStart = 2, // the first control point of a spline
        SplineKnot = 3, // a further one
        EllipticalArcTo = 4, // the end of an arc
        ArcControl = 5, // a point on the arc; follows its end and is written into that row
    };

    double x = 0.0;
    double y = 0.0;
    int kind = MoveTo;
    // Kinds 2 and 3: the degree of the spline. Kind 5: width by height of the ellipse, 0.0 if it is
    // that of the shape. 0.0 else.
    double extra = 0.0;

    static VisioRow of(QPointF point, Kind kind, double extra);
    // With the extra that the kind has unless it is set otherwise.
    static VisioRow of(QPointF point, Kind kind);

    QPointF point() const { return {x, y}; }
    bool samePoint(const VisioRow &other) const { return x == other.x && y == other.y; }
};

// The geometry of one shape: its subpaths, and the arrow heads if it is a connector. `closed` says
// that the primitive comes with a fill.
class VisioGeometry
{
public:
    VisioGeometry();
    ~VisioGeometry();
    VisioGeometry(VisioGeometry &&) noexcept;
    VisioGeometry &operator=(VisioGeometry &&) noexcept;

    QList<QList<VisioRow>> subpaths;
    bool isEdge = false;
    int beginArrow = 0; // 0 for none
    int endArrow = 0;

    bool isEmpty() const { return subpaths.isEmpty(); }
    // The rows of all subpaths, one after the other.
    QList<VisioRow> allRows() const;
    // The ends of that list, which must not be empty.
    const VisioRow &firstRow() const { return subpaths.constFirst().constFirst(); }
    const VisioRow &lastRow() const { return subpaths.constLast().constLast(); }

    // Forgets all rows but the first and the last.
    void keepEnds();

    // Adds a subpath. The subpaths that stand are asked in turn whether they take the rows in; the
    // rows become a subpath of their own if none does. No rows are nothing.
    //
    // Only subpaths that could take them are asked, so that a shape of many subpaths costs no more
    // than its rows. A shape whose subpaths all share their pieces defeats that; after some twenty
    // million comparisons its further rows become subpaths unasked.
    void add(const QList<VisioRow> &rows);

    void addBezier(const QList<QPoint> &points);
    void addPolyline(const QList<QPoint> &points);
    // On a connector four points are an arrow head, and any other number of them is dropped.
    void addPolygon(const QList<QPoint> &points, bool closed);
    // On a connector an arrow head at the centre.
    void addEllipse(QPoint centre, int rx, int ry, bool closed);
    // On a connector an arrow head at the top left corner.
    void addRect(QPoint topLeft, QPoint bottomRight, bool closed);

    // The corners of a rectangle, back to the first.
    static QList<VisioRow> rectangleRows(QPointF topLeft, QPointF bottomRight);

private:
    void addArrowPolygon(const QList<QPoint> &points, bool closed);
    void addArrowMark(QPointF place, int arrow);
    void moveRow(VisioRow &row, QPointF place);
    bool mergedByScan(const QList<VisioRow> &rows);
    bool mergedByIndex(const QList<VisioRow> &rows);

    std::unique_ptr<VisioSubpathIndex> index; // made when there is enough to search
    qsizetype offeredRows = 0; // all rows so far, merged or not
    qint64 spent = 0; // row visits of merging
};

} // namespace ORR::Graph
