#include "output/visio/visio_xml.h"

#include "graph/limits.h"
#include "output/output_file.h"
#include "output/visio/visio_device_path.h"

#include <memory>
#include <utility>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

constexpr char documentNamespace[] = "http://schemas.microsoft.com/visio/2003/core";
constexpr int connectDepth = 4; // document, pages, page, connects

// Elements without content keep a start and an end tag: some readers take a closed tag for a start.
void addEmpty(VisioMarkup &markup, const char *name)
{
    markup.text(name, {}, QByteArray());
}

VisioXMLShape *shapeOf(Device::Node *node)
{
    const auto *own = dynamic_cast<const VisioXMLNode *>(node);
    return own ? own->shape : nullptr;
}

} // namespace

VisioXML::VisioXML(const QString &file) : fileName(file), connects(connectDepth) { }

void VisioXML::begin(int width, int height)
{
    if (pageId < 0)
        pageId = nextId++;
    pageWidth = width;
    pageHeight = height;
}

QString VisioXML::end()
{
    while (!shapeStack.isEmpty())
        finishShape();
    if (pageId < 0) {
        // There was never a page to draw on.
        shapes.clear();
        clusters = VisioClusters<VisioXMLCluster>();
        connects = VisioMarkup(connectDepth);
        begin(0, 0);
    }
    writeRelationships();
    return writeOutputFile(fileName, takeDocument()) ? QString() : u"Unable to write to file\n"_s;
}

void VisioXML::drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    draw(pen, fill, [&](VisioGeometry &pieces) { pieces.addBezier(points); });
}

void VisioXML::drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill)
{
    draw(pen, fill,
         [&](VisioGeometry &pieces) { pieces.addEllipse(centre, rx, ry, fill != nullptr); });
}

void VisioXML::drawPolyline(const QList<QPoint> &points, Pen *pen)
{
    draw(pen, nullptr, [&](VisioGeometry &pieces) { pieces.addPolyline(points); });
}

void VisioXML::drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    draw(pen, fill, [&](VisioGeometry &pieces) { pieces.addPolygon(points, fill != nullptr); });
}

void VisioXML::drawRect(QPoint topLeft, QPoint bottomRight, int, Pen *pen, Color *fill)
{
    draw(pen, fill,
         [&](VisioGeometry &pieces) { pieces.addRect(topLeft, bottomRight, fill != nullptr); });
}

void VisioXML::drawText(QPoint topLeft, Text *text)
{
    if (text)
        withShape([&](VisioXMLShape *shape) { shape->addText(topLeft, text); });
}

Device::Path *VisioXML::createPath()
{
    return new Visio::DevicePath;
}

void VisioXML::drawPath(Path *path, Pen *pen, Color *fill)
{
    const std::unique_ptr<Path> owned(path);
    if (const auto *own = dynamic_cast<const Visio::DevicePath *>(path))
        draw(pen, fill, [&](VisioGeometry &pieces) { pieces.add(own->rows); });
}

void VisioXML::endCluster()
{
    finishShape();
}

void VisioXML::endEdge()
{
    finishShape();
}

void VisioXML::endNode()
{
    finishShape();
}

bool VisioXML::supportsObjects() const
{
    return true;
}

Device::Cluster *VisioXML::createCluster(DotSubgraph *subgraph)
{
    auto *cluster = new VisioXMLCluster(createShape(VisioXMLShape::Cluster));
    clusters.add(subgraph, cluster);
    return cluster;
}

Device::Edge *VisioXML::createEdge(DotEdge *)
{
    return new VisioXMLEdge(createShape(VisioXMLShape::Edge));
}

Device::Node *VisioXML::createNode(DotNode *)
{
    return new VisioXMLNode(createShape(VisioXMLShape::Node));
}

void VisioXML::connectEdge(Edge *edge, Node *tail, Node *head)
{
    const auto *own = dynamic_cast<const VisioXMLEdge *>(edge);
    if (!own)
        return;
    const PendingConnection ends{shapeOf(tail), shapeOf(head)};
    if (own->shape->pieces().isEmpty() && !own->shape->isFinished())
        pending.insert(own->shape, ends);
    else
        connectShapes(own->shape, ends);
}

VisioXMLShape *VisioXML::createShape(VisioXMLShape::Kind kind)
{
    VisioXMLShape *parent = shapeStack.isEmpty() ? nullptr : shapeStack.constLast();
    if (parent && parent->level() >= Limits::deepestShapes)
        parent = nullptr;
    VisioXMLShape *shape = &shapes.emplace_back(nextId++, kind, parent);
    shapeStack.append(shape);
    return shape;
}

void VisioXML::finishShape()
{
    if (shapeStack.isEmpty())
        return;
    VisioXMLShape *shape = shapeStack.takeLast();
    shape->finish(pageHeight);
    if (const auto found = pending.constFind(shape); found != pending.constEnd()) {
        connectShapes(shape, *found);
        pending.erase(found);
    }
}

template <typename Draw>
void VisioXML::draw(Pen *pen, Color *fill, Draw addPieces)
{
    withShape([&](VisioXMLShape *shape) {
        addPieces(shape->pieces());
        shape->setPaint(pen, fill);
    });
}

// Draws on the innermost open shape, or on that of a node made for this primitive alone.
template <typename Draw>
void VisioXML::withShape(Draw draw)
{
    if (!shapeStack.isEmpty()) {
        draw(shapeStack.constLast());
        return;
    }
    const std::unique_ptr<Node> loose(createNode(nullptr));
    draw(shapeOf(loose.get()));
    endNode();
}

void VisioXML::connectShapes(VisioXMLShape *edge, const PendingConnection &ends)
{
    constexpr int firstConnectionPoint = 100;
    constexpr int beginPart = 9;
    constexpr int endPart = 12;
    if (edge->pieces().isEmpty())
        return;
    const auto glued = [&](VisioXMLShape::End end, VisioXMLShape *node, const VisioRow &row) {
        VisioMarkup connect(connectDepth);
        if (!node)
            return connect;
        const int index = node->addConnection(row.point(), pageHeight);
        const bool begin = end == VisioXMLShape::Begin;
        edge->glue(end, glueFormula(node->idText(), index + 1));
        connect.empty("Connect",
                      {{"ToPart", QByteArray::number(index + firstConnectionPoint)},
                       {"ToSheet", node->idText()},
                       {"FromPart", QByteArray::number(begin ? beginPart : endPart)},
                       {"FromSheet", edge->idText()},
                       {"FromCell", begin ? "BeginX" : "EndX"},
                       {"ToCell", "Connections.X" + QByteArray::number(index + 1)}});
        return connect;
    };
    const VisioMarkup tail = glued(VisioXMLShape::Begin, ends.tail, edge->pieces().firstRow());
    const VisioMarkup head = glued(VisioXMLShape::Finish, ends.head, edge->pieces().lastRow());
    connects.append(head.markup());
    connects.append(tail.markup());
}

void VisioXML::writeRelationships()
{
    tieContainers(
        clusters.shapes(),
        [this](VisioXMLCluster *cluster) {
            return visioShapesOf<VisioXMLCluster>(clusterObjects(cluster));
        },
        [this](VisioXMLCluster *cluster) {
            return visioShapesOf<VisioXMLNode>(nodeObjects(cluster));
        },
        [](const VisioXMLNode *node) { return node->shape->idText(); },
        [](VisioXMLCluster *cluster, const QByteArray &entries) {
            cluster->shape->setRelationships(entries);
        },
        [](VisioXMLNode *node, const QByteArray &entries) {
            node->shape->setRelationships(entries);
        });
}

// Depth first over the nested shapes, without recursion.
void VisioXML::appendShapes(QByteArray &document)
{
    struct Open
    {
        VisioXMLShape *shape;
        qsizetype nextChild;
    };
    QList<Open> open;
    const auto start = [&](VisioXMLShape *shape) {
        shape->appendStart(document);
        open.append({shape, 0});
    };
    for (VisioXMLShape &top : shapes) {
        if (top.parent())
            continue;
        start(&top);
        while (!open.isEmpty()) {
            VisioXMLShape *shape = open.constLast().shape;
            if (open.constLast().nextChild < shape->children().size()) {
                start(shape->children().at(open.last().nextChild++));
                continue;
            }
            if (shape->isEdge())
                shape->writeEnds(pageHeight);
            shape->appendCells(document);
            shape->appendEnd(document);
            shape->clear();
            open.removeLast();
        }
    }
}

QByteArray VisioXML::takeDocument()
{
    VisioMarkup head(0);
    head.open("VisioDocument", {{"xmlns", documentNamespace}});
    addEmpty(head, "StyleSheets");
    addEmpty(head, "Masters");
    head.open("Pages");
    head.open("Page", {{"ID", QByteArray::number(pageId)}, {"NameU", "Page-1"}});
    head.open("PageSheet");
    head.open("PageProps");
    head.text("PageWidth", {}, visioInches(pageWidth));
    head.text("PageHeight", {}, visioInches(pageHeight));
    head.close("PageProps");
    head.close("PageSheet");
    head.open("Shapes");

    VisioMarkup tail(connectDepth);
    tail.close("Shapes");
    tail.open("Connects");
    tail.append(std::exchange(connects, VisioMarkup(connectDepth)).markup());
    tail.close("Connects");
    tail.close("Page");
    tail.close("Pages");
    tail.close("VisioDocument");

    constexpr qsizetype tagsOfShape = 128;
    qsizetype size = head.size() + tail.size() + tagsOfShape;
    for (const VisioXMLShape &shape : shapes)
        size += shape.size() + tagsOfShape;
    QByteArray document;
    document.reserve(size);
    document.append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    document.append(head.markup());
    appendShapes(document);
    document.append(tail.markup());
    return document;
}

} // namespace ORR::Graph
