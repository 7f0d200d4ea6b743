#include "output/xdot.h"

#include "graph/dot_writer.h"
#include "graph/numbers.h"
#include "graph/subgraph_walk.h"
#include "output/xdot_path.h"
#include "output/xdot_text.h"

#include <QStringList>
#include <QTextStream>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// The ops that set colour and font ahead of each line of a text, each with a blank before it. The
// last one, of the font's style, is for other readers; the replay steps over it.
QString textPaint(const Device::Text *text)
{
    QString ops;
    const QString color = text->color() ? text->color()->name(0) : QString();
    if (!color.isEmpty())
        ops += " c "_L1 + xdotCounted(color);
    const Device::Font *font = text->font();
    ops += " F "_L1 + QString::number(font->size()) + u' ' + xdotCounted(font->family());
    if (font->style() != 0)
        ops += " t "_L1 + QString::number(font->style());
    return ops;
}

QRect textBox(QPoint topLeft, QSize size)
{
    return {topLeft,
            saturatedPoint(qint64(topLeft.x()) + size.width() - 1,
                           qint64(topLeft.y()) + size.height() - 1)};
}

// The replay refuses an edge without an attribute list. The label says nothing that the default
// does not say.
void giveEveryEdgeAttributes(DotSubgraph *root)
{
    for (const DotSubgraph *subgraph : subgraphsInPreorder(root)) {
        for (DotEdge *edge : subgraph->edges) {
            if (edge->attributes.isEmpty())
                edge->attributes.insert(u"label"_s, u""_s);
        }
    }
}

// The area that an ellipse counts for: as wide and as high as its radii. It is deliberately not
// twice that, although the ellipse is.
QRect ellipseBox(QPoint centre, int rx, int ry)
{
    const qint64 width = qint64(rx) - 1;
    const qint64 height = qint64(ry) - 1;
    const qint64 left = centre.x() - width / 2;
    const qint64 top = centre.y() - height / 2;
    return {saturatedPoint(left, top), saturatedPoint(left + width, top + height)};
}

} // namespace

XDot::XDot(const OutputTarget &outputTarget)
    : graph(std::make_unique<DotGraph>()), subgraphs{graph->root()}, target(outputTarget)
{
}

XDot::~XDot() = default;

void XDot::begin(int width, int pageHeight)
{
    height = pageHeight;
    graph->setGraphAttribute(graph->root(), u"bb"_s, u"0,0,%1,%2"_s.arg(width).arg(pageHeight));
    graph->setGraphAttribute(graph->root(), u"xdotversion"_s, u"1.2"_s);
}

QString XDot::end()
{
    giveEveryEdgeAttributes(graph->root());
    QString text;
    QTextStream stream(&text);
    writeDot(graph->root(), stream, false);
    if (!writeOutput(target, text.toUtf8()))
        return u"Unable to write to file\n"_s;
    return {};
}

XDotObject *XDot::openObject() const
{
    return objects.isEmpty() ? nullptr : objects.constLast();
}

XDotObject *XDot::takeOpenObject()
{
    return objects.isEmpty() ? nullptr : objects.takeLast();
}

void XDot::drawShape(Pen *pen, Color *fill, const QStringList &fields)
{
    XDotObject *object = openObject();
    QStringList op{xdotPaint(pen, fill, height)};
    op.append(fields);
    object->appendDrawing(op.join(u' '));
    if (pen && pen->width() != 1)
        object->attributes.insert(u"penwidth"_s, QString::number(pen->width()));
}

void XDot::drawShape(Pen *pen, Color *fill, const QStringList &fields, const QList<QPoint> &extent)
{
    drawShape(pen, fill, fields);
    XDotObject *object = openObject();
    for (const QPoint point : extent)
        object->includePoint(point);
}

// The letters of the first four shapes are "b ", "E " and so on with a blank of their own, so that
// two blanks stand behind them: `P  3 ...`. A polyline has one.
void XDot::drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    if (!openObject())
        return;
    drawShape(
        pen, fill,
        {fill ? u"b "_s : u"B "_s, QString::number(points.size()), xdotPoints(points, height)},
        points);
}

void XDot::drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill)
{
    if (!openObject())
        return;
    drawShape(pen, fill,
              {fill ? u"E "_s : u"e "_s, xdotPoint(centre, height), QString::number(rx),
               QString::number(ry)});
    openObject()->includeRect(ellipseBox(centre, rx, ry));
}

void XDot::drawPolyline(const QList<QPoint> &points, Pen *pen)
{
    if (!openObject())
        return;
    drawShape(pen, nullptr, {u"L"_s, QString::number(points.size()), xdotPoints(points, height)},
              points);
}

void XDot::drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    if (!openObject())
        return;
    drawShape(
        pen, fill,
        {fill ? u"P "_s : u"p "_s, QString::number(points.size()), xdotPoints(points, height)},
        points);
}

void XDot::drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill)
{
    XDotObject *object = openObject();
    if (!object)
        return;
    if (radius != 0)
        object->attributes.insert(u"rounded"_s, QString::number(radius));
    drawPolygon(
        {topLeft, {bottomRight.x(), topLeft.y()}, bottomRight, {topLeft.x(), bottomRight.y()}}, pen,
        fill);
}

void XDot::drawText(QPoint topLeft, Text *text)
{
    drawTextLines(topLeft, text, false);
}

void XDot::drawRichText(QPoint topLeft, Text *text)
{
    if (!text)
        return;
    if (richTexts.take(text->text()))
        drawTextLines(topLeft, text, true);
    else
        drawText(topLeft, Device::text(withoutMarkup(text->text()), text->font(), text->color()));
}

// Each line is an op of its own, centred: x is the middle of the line and y its baseline, taken to
// lie the font's size below the top.
void XDot::drawTextLines(QPoint topLeft, Text *text, bool rich)
{
    XDotObject *object = openObject();
    if (!object || !text)
        return;
    const QString paint = textPaint(text);
    const QSize size = textSize(text, rich);
    const QStringList lines = text->text().split(u'\n');
    const bool single = lines.size() == 1;
    const int step = single ? 0 : fontLineSpacing(text->font());
    const QString op = rich ? u" H "_s : u" T "_s;
    qint64 y = topLeft.y();
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString &line = lines.at(i);
        const int width = single ? size.width() : textSize(line, text->font(), rich).width();
        y += i == 0 ? text->font()->size() : step;
        const QPoint point(truncated(width * 0.5 + topLeft.x()), saturated(y));
        const QString entry = paint + op + xdotPoint(point, height) + " 0 "_L1
            + QString::number(width) + u' ' + xdotCounted(line);
        object->appendLabel(entry.sliced(1));
    }
    object->includeRect(textBox(topLeft, size));
}

Device::Path *XDot::createPath()
{
    return new XDotPath(height);
}

void XDot::drawPath(Path *path, Pen *pen, Color *fill)
{
    const std::unique_ptr<Path> owned(path);
    const auto *drawn = dynamic_cast<const XDotPath *>(path);
    if (!drawn || !openObject())
        return;
    drawShape(pen, fill, {(fill ? u"D "_s : u"d "_s) + xdotCounted(drawn->text())},
              drawn->boundingPoints());
}

bool XDot::supportsExpanders() const
{
    return true;
}

void XDot::endCluster()
{
    XDotObject *object = takeOpenObject();
    if (!object)
        return;
    if (subgraphs.size() > 1)
        subgraphs.removeLast();
    object->setGeometryAttributes();
    object->mergeIntoGraph();
}

void XDot::endEdge()
{
    if (XDotObject *object = takeOpenObject())
        object->mergeIntoGraph();
}

void XDot::endNode()
{
    XDotObject *object = takeOpenObject();
    if (!object)
        return;
    if (!object->graphObject) {
        object->graphNode = graph->createNode(subgraphs.constLast(), {}, object->id);
        object->graphObject = object->graphNode;
    }
    object->setGeometryAttributes();
    object->mergeIntoGraph();
}

bool XDot::supportsObjects() const
{
    return true;
}

Device::Cluster *XDot::createCluster(DotSubgraph *subgraph)
{
    auto *object = new XDotObject;
    objects.append(object);
    object->attributes.insert(u"label"_s, u""_s);
    DotSubgraph *cluster = graph->createCluster(subgraphs.constLast(), {}, subgraph->id);
    object->graphObject = cluster;
    subgraphs.append(cluster);
    return object;
}

Device::Edge *XDot::createEdge(DotEdge *)
{
    auto *object = new XDotObject;
    objects.append(object);
    return object;
}

Device::Node *XDot::createNode(DotNode *node)
{
    auto *object = new XDotObject(node ? node->id : QString());
    objects.append(object);
    return object;
}

// The edge is known to the written graph from here on. If it was ended before, this is the moment
// that stores its attributes; if it is still open, `endEdge` stores them once more.
void XDot::connectEdge(Edge *edge, Node *tail, Node *head)
{
    auto *object = dynamic_cast<XDotObject *>(edge);
    const auto *tailObject = dynamic_cast<const XDotObject *>(tail);
    const auto *headObject = dynamic_cast<const XDotObject *>(head);
    if (!object || !tailObject || !headObject)
        return;
    if (!object->graphObject && tailObject->graphNode && headObject->graphNode)
        object->graphObject = graph->createEdge(tailObject->graphNode, headObject->graphNode, {});
    object->mergeIntoGraph();
}

} // namespace ORR::Graph
