#include "output/xdot_object.h"

#include "graph/attribute_values.h"
#include "graph/numbers.h"

#include <algorithm>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

const QString drawingName = u"_draw_"_s;
const QString labelName = u"_ldraw_"_s;

// The toolkit computes these two in int, which overflows for a wide rectangle.
qint64 widthOf(const QRect &rect)
{
    return qint64(rect.right()) - rect.left() + 1;
}

qint64 heightOf(const QRect &rect)
{
    return qint64(rect.bottom()) - rect.top() + 1;
}

bool isNull(const QRect &rect)
{
    return widthOf(rect) == 0 && heightOf(rect) == 0;
}

} // namespace

void XDotObject::appendDrawing(const QString &op)
{
    if (drawing.isEmpty()) {
        // Claims the place of the attribute among the others.
        attributes.insert(drawingName, {});
        drawing = op.trimmed();
        return;
    }
    drawing += u' ';
    drawing += op;
    while (drawing.back().isSpace())
        drawing.chop(1);
}

void XDotObject::appendLabel(const QString &op)
{
    if (label.isEmpty())
        attributes.insert(labelName, {});
    else
        label += u' ';
    label += op;
}

void XDotObject::includePoint(QPoint point)
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    bounds.getCoords(&left, &top, &right, &bottom);
    bounds.setCoords(std::min(left, point.x()), std::min(top, point.y()),
                     std::max(right, point.x()), std::max(bottom, point.y()));
}

void XDotObject::includeRect(const QRect &rect)
{
    if (isNull(bounds)) {
        bounds = rect;
        return;
    }
    if (isNull(rect))
        return;
    // A rectangle of negative extent covers what lies between its sides.
    const auto left = [](const QRect &r) { return widthOf(r) < 0 ? r.right() + 1 : r.left(); };
    const auto right = [](const QRect &r) { return widthOf(r) < 0 ? r.left() - 1 : r.right(); };
    const auto top = [](const QRect &r) { return heightOf(r) < 0 ? r.bottom() + 1 : r.top(); };
    const auto bottom = [](const QRect &r) { return heightOf(r) < 0 ? r.top() - 1 : r.bottom(); };
    bounds.setCoords(std::min(left(bounds), left(rect)), std::min(top(bounds), top(rect)),
                     std::max(right(bounds), right(rect)), std::max(bottom(bounds), bottom(rect)));
}

void XDotObject::setGeometryAttributes()
{
    if (!bounds.isValid())
        return;
    const QPoint centre = bounds.center();
    attributes.insert(u"pos"_s, u"%1,%2"_s.arg(centre.x()).arg(centre.y()));
    attributes.insert(u"width"_s, numberText(double(widthOf(bounds)) / pointsPerInch));
    attributes.insert(u"height"_s, numberText(double(heightOf(bounds)) / pointsPerInch));
}

void XDotObject::mergeIntoGraph()
{
    if (!graphObject)
        return;
    if (!drawing.isEmpty())
        attributes.insert(drawingName, drawing);
    if (!label.isEmpty())
        attributes.insert(labelName, label);
    mergeAttributes(graphObject->attributes, attributes);
}

} // namespace ORR::Graph
