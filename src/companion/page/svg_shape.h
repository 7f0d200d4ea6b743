#pragma once

#include "companion/page/svg_tags.h"

#include <QPainterPath>
#include <QRectF>
#include <QTransform>

namespace ORR::Companion {

// The outline of a shape in the plane of the drawing.
struct SvgShape
{
    QRectF box; // of its points, without the width of pens
    QPainterPath outline; // empty if it is its box

    bool contains(const QPointF &point) const
    {
        return box.contains(point) && (outline.isEmpty() || outline.contains(point));
    }
};

// Whether a tag draws something with an outline.
bool isShape(const SvgTag &tag);

// That of such a tag; numbers that are none are left out.
SvgShape shapeOf(const SvgTag &tag, const QTransform &plane);

} // namespace ORR::Companion
