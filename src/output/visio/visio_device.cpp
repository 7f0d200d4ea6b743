#include "output/visio/visio_device.h"

#include "graph/limits.h"
#include "output/visio/visio_device_path.h"

#include <memory>
#include <utility>

namespace ORR::Graph {

namespace {

template <typename Objects>
QList<VisioShape *> shapesOf(const Objects &objects)
{
    QList<VisioShape *> found;
    for (auto *object : objects) {
        if (auto *shape = dynamic_cast<VisioShape *>(object))
            found.append(shape);
    }
    return found;
}

} // namespace

VisioDevice::VisioDevice(const OutputTarget &outputTarget, const VisioCells &formatCells)
    : cells(formatCells), target(outputTarget), connects(cells.connectDepth())
{
}

void VisioDevice::drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    draw(pen, fill, [&](VisioGeometry &geometry) { geometry.addBezier(points); });
}

void VisioDevice::drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill)
{
    draw(pen, fill,
         [&](VisioGeometry &geometry) { geometry.addEllipse(centre, rx, ry, fill != nullptr); });
}

void VisioDevice::drawPolyline(const QList<QPoint> &points, Pen *pen)
{
    draw(pen, nullptr, [&](VisioGeometry &geometry) { geometry.addPolyline(points); });
}

void VisioDevice::drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    draw(pen, fill, [&](VisioGeometry &geometry) { geometry.addPolygon(points, fill != nullptr); });
}

void VisioDevice::drawRect(QPoint topLeft, QPoint bottomRight, int, Pen *pen, Color *fill)
{
    draw(pen, fill,
         [&](VisioGeometry &geometry) { geometry.addRect(topLeft, bottomRight, fill != nullptr); });
}

void VisioDevice::drawText(QPoint topLeft, Text *text)
{
    if (text)
        withShape([&](VisioShape *shape) { shape->addText(topLeft, text); });
}

Device::Path *VisioDevice::createPath()
{
    return new Visio::DevicePath;
}

void VisioDevice::drawPath(Path *path, Pen *pen, Color *fill)
{
    const std::unique_ptr<Path> owned(path);
    if (const auto *own = dynamic_cast<const Visio::DevicePath *>(path))
        draw(pen, fill, [&](VisioGeometry &geometry) { geometry.add(own->rows); });
}

void VisioDevice::endCluster()
{
    finishShape();
}

void VisioDevice::endEdge()
{
    finishShape();
}

void VisioDevice::endNode()
{
    finishShape();
}

bool VisioDevice::supportsObjects() const
{
    return true;
}

Device::Cluster *VisioDevice::createCluster(DotSubgraph *subgraph)
{
    VisioShape *shape = createShape(VisioKind::Cluster);
    clusters.add(subgraph, shape);
    return shape;
}

Device::Edge *VisioDevice::createEdge(DotEdge *)
{
    return createShape(VisioKind::Edge);
}

Device::Node *VisioDevice::createNode(DotNode *)
{
    return createShape(VisioKind::Node);
}

void VisioDevice::connectEdge(Edge *edge, Node *tail, Node *head)
{
    auto *shape = dynamic_cast<VisioShape *>(edge);
    if (!shape)
        return;
    const Ends ends{dynamic_cast<VisioShape *>(tail), dynamic_cast<VisioShape *>(head)};
    if (!shape->hasEnds() && !shape->isFinished())
        pending.insert(shape, ends);
    else
        glue(shape, ends);
}

void VisioDevice::finishShapes()
{
    while (!shapeStack.isEmpty())
        finishShape();
    tieContainers(
        clusters.shapes(), [this](VisioShape *shape) { return shapesOf(clusterObjects(shape)); },
        [this](VisioShape *shape) { return shapesOf(nodeObjects(shape)); });
}

void VisioDevice::forgetShapes()
{
    pageShapes.clear();
    clusters = VisioClusters();
    connects = VisioMarkup(cells.connectDepth());
}

qsizetype VisioDevice::sizeOf(const PageShape &entry)
{
    constexpr qsizetype tags = 128;
    return (entry.shape ? entry.shape->size() : entry.markup.size()) + tags;
}

// Depth first over the nested shapes, without recursion.
void VisioDevice::appendShape(PageShape &entry, QByteArray &document)
{
    struct Open
    {
        VisioShape *shape;
        qsizetype nextChild;
    };
    if (!entry.shape) {
        document.append(std::exchange(entry.markup, QByteArray()));
        return;
    }
    if (entry.shape->parent())
        return;
    QList<Open> open;
    const auto start = [&](VisioShape *shape) {
        shape->appendStart(document);
        open.append({shape, 0});
    };
    start(entry.shape);
    while (!open.isEmpty()) {
        VisioShape *shape = open.constLast().shape;
        if (open.constLast().nextChild < shape->children().size()) {
            start(shape->children().at(open.last().nextChild++));
            continue;
        }
        // The formulas of an edge ask for its ends, also if nothing holds them.
        if (shape->isEdge() && !shape->hasWrittenEnds())
            shape->writeEnds(pageHeight);
        shape->appendCells(document);
        shape->appendEnd(document);
        shape->clear();
        open.removeLast();
    }
}

void VisioDevice::edgeGlued(VisioShape * /*edge*/) { }

VisioShape *VisioDevice::createShape(VisioKind kind)
{
    VisioShape *parent = cells.nests() && !shapeStack.isEmpty() ? shapeStack.constLast() : nullptr;
    if (parent && parent->level() >= Limits::deepestShapes)
        parent = nullptr;
    auto *shape = new VisioShape(takeId(), kind, parent, cells);
    pageShapes.push_back({shape, QByteArray()});
    shapeStack.append(shape);
    return shape;
}

// The shape of an object stays alive: the base owns it, and edges may still be glued to it. Null if
// none was open.
VisioShape *VisioDevice::finishShape()
{
    if (shapeStack.isEmpty())
        return nullptr;
    VisioShape *shape = shapeStack.takeLast();
    shape->finish(pageHeight);
    if (const auto found = pending.constFind(shape); found != pending.constEnd()) {
        glue(shape, *found);
        pending.erase(found);
    }
    return shape;
}

template <typename AddRows>
void VisioDevice::draw(Pen *pen, Color *fill, AddRows addRows)
{
    withShape([&](VisioShape *shape) { shape->draw(pen, fill, addRows); });
}

// Draws on the innermost open shape, or on one made for this primitive alone.
template <typename Draw>
void VisioDevice::withShape(Draw draw)
{
    if (!shapeStack.isEmpty()) {
        draw(shapeStack.constLast());
        return;
    }
    const std::unique_ptr<VisioShape> loose(createShape(VisioKind::Node));
    draw(loose.get());
    finishShape();
    PageShape entry{loose.get(), QByteArray()};
    QByteArray markup;
    markup.reserve(sizeOf(entry));
    appendShape(entry, markup);
    pageShapes.back() = {nullptr, markup};
}

void VisioDevice::glue(VisioShape *edge, const Ends &ends)
{
    if (!edge->hasEnds())
        return;
    const VisioMarkup tail = glued(edge, VisioEnd::Begin, ends.tail);
    const VisioMarkup head = glued(edge, VisioEnd::Finish, ends.head);
    edgeGlued(edge);
    appendConnects(tail, head);
}

// Glues one end and gives the record of it.
VisioMarkup VisioDevice::glued(VisioShape *edge, VisioEnd end, VisioShape *node)
{
    VisioMarkup record(cells.connectDepth());
    if (!node)
        return record;
    const int index = node->connectionIndex(edge->end(end), pageHeight);
    edge->glue(end, glueFormula(node->idText(), index));
    cells.writeConnect(record, edge->idText(), end, node->idText(), index);
    return record;
}

} // namespace ORR::Graph
