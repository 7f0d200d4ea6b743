#include "companion/check/watched_drawing.h"

#include "attributes/paint_attributes.h"
#include "device/markup_reader.h"
#include "device/rich_text_images.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <limits>
#include <memory>

namespace ORR::Companion {

using namespace Graph;

namespace {

constexpr std::less<const DotObject *> byAddress; // an order also of objects of several arrays

constexpr size_t mostFamilies = 100; // of a text that names a million nobody reads more

// What a set of points covers.
class Bounds
{
public:
    void include(QPointF point)
    {
        left = std::min(left, point.x());
        top = std::min(top, point.y());
        right = std::max(right, point.x());
        bottom = std::max(bottom, point.y());
    }

    // Null if there is no point.
    QRectF rect() const
    {
        return left <= right ? QRectF(QPointF(left, top), QPointF(right, bottom)) : QRectF();
    }

private:
    static constexpr double infinity = std::numeric_limits<double>::infinity();
    double left = infinity;
    double top = infinity;
    double right = -infinity;
    double bottom = -infinity;
};

QRectF boundsOf(const QList<QPoint> &points)
{
    Bounds bounds;
    for (const QPoint &point : points)
        bounds.include(point);
    return bounds.rect();
}

// Covers the control points of curves and the whole ellipses of arcs: no less than what is drawn.
class WatchedPath : public Device::Path
{
public:
    void moveTo(const QPointF &point) override { current = point; }
    void lineTo(const QPointF &point) override { goTo({point}); }
    void closeSubpath() override { }
    void cubicTo(const QPointF &c1, const QPointF &c2, const QPointF &end) override
    {
        goTo({c1, c2, end});
    }
    void quadTo(const QPointF &c, const QPointF &end) override { goTo({c, end}); }
    void arcTo(const QPointF &topLeft, const QPointF &bottomRight, double, double) override
    {
        goTo({topLeft, bottomRight});
    }

    QRectF rect() const { return bounds.rect(); }

private:
    // A move alone draws nothing.
    void goTo(std::initializer_list<QPointF> points)
    {
        bounds.include(current);
        for (const QPointF &point : points)
            bounds.include(point);
        current = *std::prev(points.end());
    }

    QPointF current;
    Bounds bounds;
};

// A line has a size, a point has none.
bool hasSize(const QRectF &bounds)
{
    return bounds.width() > 0.0 || bounds.height() > 0.0;
}

bool touches(const QRectF &bounds, QSize page)
{
    return bounds.left() <= page.width() && bounds.right() >= 0.0 && bounds.top() <= page.height()
        && bounds.bottom() >= 0.0;
}

template <typename Object>
bool hasLabel(const DotGraph *graph, const Object *object)
{
    const QString *label = PaintAttributes::label.find(graph, object);
    return label && !label->isEmpty();
}

qint64 missingPicturesIn(const QString &html)
{
    qint64 missing = 0;
    MarkupReader reader(html);
    while (reader.next()) {
        const MarkupPiece &piece = reader.piece();
        if (piece.kind != MarkupPiece::Open || piece.name != QLatin1StringView("img"))
            continue;
        missing += std::count_if(piece.attributes.cbegin(), piece.attributes.cend(),
                                 [](const auto &attribute) {
                                     return attribute.first == QLatin1StringView("src")
                                         && picturePixels(attribute.second) == 0;
                                 });
    }
    return missing;
}

} // namespace

bool WatchedDrawing::draws(const DotNode *node) const
{
    return std::binary_search(drawnNodes.cbegin(), drawnNodes.cend(), node, byAddress);
}

bool WatchedDrawing::isUnlabelled(const DotObject *object) const
{
    return std::binary_search(unlabelledObjects.cbegin(), unlabelledObjects.cend(), object,
                              byAddress);
}

void WatchedDrawing::begin(int width, int height)
{
    begunPage = QSize(width, height);
}

QString WatchedDrawing::end()
{
    std::sort(drawnNodes.begin(), drawnNodes.end(), byAddress);
    std::sort(unlabelledObjects.begin(), unlabelledObjects.end(), byAddress);
    return {};
}

void WatchedDrawing::drawBezier(const QList<QPoint> &points, Pen *, Color *)
{
    watchShape(boundsOf(points));
}

void WatchedDrawing::drawEllipse(QPoint centre, int rx, int ry, Pen *, Color *)
{
    if (rx >= 0 && ry >= 0)
        watchShape(QRectF(centre - QPointF(rx, ry), centre + QPointF(rx, ry)));
}

void WatchedDrawing::drawPolyline(const QList<QPoint> &points, Pen *)
{
    watchShape(boundsOf(points));
}

void WatchedDrawing::drawPolygon(const QList<QPoint> &points, Pen *, Color *)
{
    watchShape(boundsOf(points));
}

// The box of an empty text ends ahead of its beginning.
void WatchedDrawing::drawRect(QPoint topLeft, QPoint bottomRight, int, Pen *, Color *)
{
    if (topLeft.x() < bottomRight.x() || topLeft.y() < bottomRight.y())
        watchShape(boundsOf({topLeft, bottomRight}));
}

void WatchedDrawing::drawText(QPoint topLeft, Text *text)
{
    if (text)
        watchText(topLeft, text, false);
}

void WatchedDrawing::drawRichText(QPoint topLeft, Text *text)
{
    if (!text)
        return;
    watchText(topLeft, text, true);
    if (!hasFonts)
        return;
    const QString html = text->text();
    if (richTexts.take(html) && richTextDocument(html, text->font()->qFont()))
        count(&missing, missingPicturesIn(html));
    else
        count(&tooDear, 1);
}

Device::Path *WatchedDrawing::createPath()
{
    return new WatchedPath;
}

void WatchedDrawing::drawPath(Path *path, Pen *, Color *)
{
    const std::unique_ptr<Path> owned(path);
    if (const auto *watched = dynamic_cast<const WatchedPath *>(path))
        watchShape(watched->rect());
}

void WatchedDrawing::endCluster()
{
    if (!openObjects.empty() && openObjects.back().cluster)
        close(openObjects.back().cluster);
}

void WatchedDrawing::endEdge()
{
    if (!openObjects.empty() && !openObjects.back().node && !openObjects.back().cluster)
        openObjects.pop_back();
}

void WatchedDrawing::endNode()
{
    if (!openObjects.empty() && openObjects.back().node)
        close(openObjects.back().node);
}

Device::Cluster *WatchedDrawing::createCluster(DotSubgraph *subgraph)
{
    open({.cluster = subgraph, .isOfLegend = subgraph == legend});
    return nullptr;
}

Device::Edge *WatchedDrawing::createEdge(DotEdge *)
{
    open({});
    return nullptr;
}

Device::Node *WatchedDrawing::createNode(DotNode *node)
{
    open({.node = node});
    return nullptr;
}

void WatchedDrawing::open(Open object)
{
    if (!openObjects.empty() && openObjects.back().isOfLegend)
        object.isOfLegend = true;
    openObjects.push_back(object);
}

template <typename Object>
void WatchedDrawing::close(const Object *object)
{
    if (graph && !openObjects.back().hasText && hasLabel(graph, object))
        unlabelledObjects.push_back(object);
    openObjects.pop_back();
}

void WatchedDrawing::watchShape(const QRectF &bounds)
{
    if (!hasSize(bounds))
        return;
    // A legend that is a cell of the chart as well has a shape of its own there.
    if (!openObjects.empty() && openObjects.back().cluster == legend)
        openObjects.back().isOfLegend = false;
    watch(bounds);
}

void WatchedDrawing::watchText(QPoint topLeft, const Text *text, bool rich)
{
    if (!openObjects.empty())
        openObjects.back().hasText = true;
    if (text->text().trimmed().isEmpty())
        return;
    watchFamily(text->font()->family());
    // Measuring takes longer than all the rest, and one text on the page is enough.
    const bool isMeasured = hasFonts && !hasPrimitiveOnPage;
    const QSize size = isMeasured ? textSize(text, rich) : QSize(1, 1);
    watch(QRectF(QPointF(topLeft), QSizeF(size)));
}

void WatchedDrawing::watchFamily(const QString &family)
{
    if (family == lastFamily || drawnFamilies.size() >= mostFamilies)
        return;
    lastFamily = family;
    drawnFamilies.try_emplace(family, innermostObject());
}

void WatchedDrawing::watch(const QRectF &bounds)
{
    if (!openObjects.empty()) {
        Open &innermost = openObjects.back();
        if (graph && innermost.node && !innermost.isDrawn)
            drawnNodes.push_back(innermost.node);
        innermost.isDrawn = true;
        if (innermost.isOfLegend)
            return;
    }
    hasPrimitive = true;
    if (!hasPrimitiveOnPage && begunPage)
        hasPrimitiveOnPage = touches(bounds, *begunPage);
}

const DotObject *WatchedDrawing::innermostObject() const
{
    if (openObjects.empty())
        return nullptr;
    const Open &innermost = openObjects.back();
    return innermost.node ? static_cast<const DotObject *>(innermost.node) : innermost.cluster;
}

void WatchedDrawing::count(Texts *counted, qint64 more) const
{
    if (counted->count == 0 && more > 0)
        counted->first = innermostObject();
    counted->count += more;
}

} // namespace ORR::Companion
