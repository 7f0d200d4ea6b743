#include "output/grouped_svg.h"

#include "device/text_image.h"
#include "output/painter_path.h"
#include "output/svg_path.h"

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// Besides the text of the path keeps its outline, to find what it covers.
class OutlinedSvgPath : public SvgPath
{
public:
    void moveTo(const QPointF &point) override
    {
        SvgPath::moveTo(point);
        outline.moveTo(point);
    }
    void lineTo(const QPointF &point) override
    {
        SvgPath::lineTo(point);
        outline.lineTo(point);
    }
    void closeSubpath() override
    {
        SvgPath::closeSubpath();
        outline.closeSubpath();
    }
    void cubicTo(const QPointF &c1, const QPointF &c2, const QPointF &end) override
    {
        SvgPath::cubicTo(c1, c2, end);
        outline.cubicTo(c1, c2, end);
    }
    void quadTo(const QPointF &c, const QPointF &end) override
    {
        SvgPath::quadTo(c, end);
        outline.quadTo(c, end);
    }
    void arcTo(const QPointF &topLeft, const QPointF &bottomRight, double startAngle,
               double sweepAngle) override
    {
        SvgPath::arcTo(topLeft, bottomRight, startAngle, sweepAngle);
        outline.arcTo(topLeft, bottomRight, startAngle, sweepAngle);
    }

    QRectF bounds() const { return outline.path().boundingRect(); }

private:
    PainterPath outline;
};

CoveredBox boxOf(const QList<QPoint> &points)
{
    CoveredBox box;
    for (const QPoint point : points)
        box.include(point);
    return box;
}

CoveredBox boxAround(QPoint centre, int rx, int ry)
{
    CoveredBox box;
    const auto place = [](int middle, int reach) { return saturated(qint64(middle) + reach); };
    box.include({place(centre.x(), -rx), place(centre.y(), -ry)});
    box.include({place(centre.x(), rx), place(centre.y(), ry)});
    return box;
}

CoveredBox boxOf(const QRectF &rect)
{
    CoveredBox box;
    box.include({rounded(rect.left()), rounded(rect.top())});
    box.include({rounded(rect.right()), rounded(rect.bottom())});
    return box;
}

// That of the text as it was measured.
CoveredBox boxOf(QPoint topLeft, const Device::Text *text, bool rich)
{
    CoveredBox box;
    const QSize size = TextImage::textSize(text, rich);
    if (!text || size.isEmpty())
        return box;
    box.include(topLeft);
    box.include({saturated(qint64(topLeft.x()) + size.width()),
                 saturated(qint64(topLeft.y()) + size.height())});
    return box;
}

} // namespace

QString GroupedSvg::end()
{
    deeperObjects = 0;
    while (openGroups > 0)
        endObject();
    return SvgRichText::end();
}

void GroupedSvg::drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    primitiveComes([&] { return boxOf(points); });
    SvgRichText::drawBezier(points, pen, fill);
}

void GroupedSvg::drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill)
{
    primitiveComes([&] { return boxAround(centre, rx, ry); });
    SvgRichText::drawEllipse(centre, rx, ry, pen, fill);
}

void GroupedSvg::drawPolyline(const QList<QPoint> &points, Pen *pen)
{
    primitiveComes([&] { return boxOf(points); });
    SvgRichText::drawPolyline(points, pen);
}

void GroupedSvg::drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    primitiveComes([&] { return boxOf(points); });
    SvgRichText::drawPolygon(points, pen, fill);
}

void GroupedSvg::drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill)
{
    primitiveComes([&] { return boxOf(QList{topLeft, bottomRight}); });
    SvgRichText::drawRect(topLeft, bottomRight, radius, pen, fill);
}

void GroupedSvg::drawText(QPoint topLeft, Text *text)
{
    primitiveComes([&] { return boxOf(topLeft, text, false); });
    SvgRichText::drawText(topLeft, text);
}

void GroupedSvg::drawRichText(QPoint topLeft, Text *text)
{
    primitiveComes([&] { return boxOf(topLeft, text, true); });
    SvgRichText::drawRichText(topLeft, text);
}

Device::Path *GroupedSvg::createPath()
{
    return new OutlinedSvgPath;
}

void GroupedSvg::drawPath(Path *path, Pen *pen, Color *fill)
{
    primitiveComes([&] {
        const auto *outlined = dynamic_cast<const OutlinedSvgPath *>(path);
        return outlined ? boxOf(outlined->bounds()) : CoveredBox();
    });
    SvgRichText::drawPath(path, pen, fill);
}

bool GroupedSvg::beginObject()
{
    if (openGroups >= mostGroups) {
        ++deeperObjects;
        return false;
    }
    ++openGroups;
    return true;
}

QString GroupedSvg::fragmentPrefix()
{
    return u"text-%1-"_s.arg(++richTextCount);
}

void GroupedSvg::endObject()
{
    if (deeperObjects > 0) {
        --deeperObjects;
        return;
    }
    if (openGroups == 0)
        return;
    groupEnds();
    out << "</g>\n";
    --openGroups;
}

} // namespace ORR::Graph
