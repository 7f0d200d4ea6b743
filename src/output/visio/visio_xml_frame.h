#pragma once

#include "output/visio/visio_frame.h"
#include "output/visio/visio_geometry.h"
#include "output/visio/visio_markup.h"

#include <QByteArray>
#include <QList>
#include <QPointF>

namespace ORR::Graph {

// A length of points in inches, and any other number, with six significant digits.
QByteArray visioInches(double points);
QByteArray visioText(double value);

// Where a shape of the single-file format stands, in points, and the rows of its geometry. The
// format measures connectors a little differently from the package: which side of its line a point
// lies on is told in whole numbers, and how far it reaches to both sides by whole coordinates.
class VisioXMLFrame
{
public:
    VisioXMLFrame() = default;
    VisioXMLFrame(const QList<VisioRow> &rows, bool isEdge, int pageHeight);

    double width() const { return isEdge ? axis.length() : box.width(); }
    double height() const { return isEdge ? high - low : box.height(); }
    QPointF pin() const { return isEdge ? axis.middle() : box.pin(); } // on the page, y upward
    double angle() const { return isEdge ? axis.angle() : 0.0; } // in radians
    // The height of the pin, as a part of the height.
    double pinShare() const { return isEdge ? yShare(0.0 - low) : 0.5; }

    // The point, in device units, in the frame's coordinates.
    QPointF position(QPointF devicePoint) const;
    // A position as a part of the frame; 0 if the frame has no extent.
    double xShare(double x) const { return width() == 0.0 ? 0.0 : x / width(); }
    double yShare(double y) const { return height() == 0.0 ? 0.0 : y / height(); }

    // Writes the Geom group of the rows that the frame was made for.
    void writeGeometry(VisioMarkup &shape, const QList<VisioRow> &rows) const;

private:
    QPointF onPage(QPointF devicePoint) const;
    void writePlace(VisioMarkup &row, const VisioRow &place) const;
    void writeArc(VisioMarkup &row, const VisioRow &control) const;

    bool isEdge = false;
    int pageTop = 0;
    VisioFrame box; // of a node or cluster
    VisioAxis axis{QPointF(), QPointF()}; // of a connector
    double low = 0.0; // of a connector's rows, by their distance from the axis
    double high = 0.0;
};

} // namespace ORR::Graph
