#pragma once

#include "output/visio/visio_geometry.h"

#include <QList>
#include <QPointF>

namespace ORR::Graph {

// The line from the begin to the end of a connector, which its own coordinates run along. Points
// are in points of the page, y upward.
class VisioAxis
{
public:
    VisioAxis(QPointF begin, QPointF end);

    double length() const { return extent; }
    QPointF middle() const { return from + direction * 0.5; }
    // In radians, counter-clockwise.
    double angle() const;

    // How far the point's foot on the line lies from the begin. Never negative: a point behind the
    // begin counts forward, and that is meant.
    double along(QPointF point) const;
    // How far the point lies from its foot.
    double away(QPointF point) const;
    // Below 0 for a point on the right of the line.
    double side(QPointF point) const;

private:
    // The foot, as a multiple of the direction.
    double foot(QPointF point) const;

    QPointF from;
    QPointF direction;
    double extent;
};

// Where a shape stands on the page and what its own coordinates are. A shape's run from the lower
// left corner of the box of all its rows; a connector's along its axis, from the lowest row on.
class VisioFrame
{
public:
    // How a connector is measured: as it is, or by whole coordinates where it is told how far its
    // rows reach to both sides, and which side of the line a point lies on in whole numbers.
    enum Measure { Exact, Whole };

    VisioFrame() = default;
    VisioFrame(const QList<VisioRow> &rows, bool isEdge, int pageHeight, Measure measure);

    double width() const { return extentX; }
    double height() const { return extentY; }
    QPointF pin() const { return middle; } // on the page, y upward
    double angle() const { return turn; } // in radians
    // The height of the pin, as a part of the height.
    double pinShare() const { return pinHeight; }

    // The point, in device units, in the frame's coordinates.
    QPointF position(QPointF devicePoint) const;
    // A position as a part of the frame; 0 if the frame has no extent.
    double xShare(double x) const { return extentX == 0.0 ? 0.0 : x / extentX; }
    double yShare(double y) const { return extentY == 0.0 ? 0.0 : y / extentY; }

private:
    void frameConnector(const QList<VisioRow> &rows);
    void frameBox(const QList<VisioRow> &rows);
    QPointF onPage(QPointF devicePoint) const
    {
        return {devicePoint.x(), pageTop - devicePoint.y()};
    }
    double across(const VisioAxis &line, QPointF pagePoint) const;

    Measure measure = Exact;
    double extentX = 0.0;
    double extentY = 0.0;
    QPointF middle;
    double turn = 0.0;
    double pinHeight = 0.0;
    double pageTop = 0.0;
    bool connector = false;
    QPointF corner; // of a box
    VisioAxis axis{QPointF(), QPointF()}; // of a connector
    double lineOffset = 0.0; // how high the axis lies in the frame
};

} // namespace ORR::Graph
