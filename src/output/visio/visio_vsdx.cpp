#include "output/visio/visio_vsdx.h"

#include "output/visio/visio_device_path.h"
#include "output/visio/visio_package.h"

#include <QFile>

#include <memory>
#include <utility>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

const QString pagePart = u"visio/pages/page1.xml"_s;
const QString pagesPart = u"visio/pages/pages.xml"_s;

const QStringList partNames{
    u"visio/document.xml"_s,
    pagePart,
    pagesPart,
    u"[Content_Types].xml"_s,
    u"_rels/.rels"_s,
    u"visio/_rels/document.xml.rels"_s,
    u"visio/pages/_rels/pages.xml.rels"_s,
    u"visio/windows.xml"_s,
};

constexpr double pointsPerInch = 72.0;
constexpr int connectDepth = 2;

// In place of the shapes and the connections, which are text already, a document holds a
// processing instruction; in its own text it is replaced.
const QString shapesMark = u"orrlayout-shapes"_s;
const QString connectsMark = u"orrlayout-connects"_s;

QDomDocument readPart(const QString &path)
{
    QFile file(path);
    QDomDocument part;
    if (!file.open(QIODevice::ReadOnly) || !part.setContent(file.readAll()))
        return QDomDocument();
    return part;
}

void mark(QDomElement element, const QString &name)
{
    QDomDocument document = element.ownerDocument();
    element.appendChild(document.createProcessingInstruction(name, u"here"_s));
}

// Puts the pieces in place of the mark. It stands in the last piece that is there.
void replaceMark(QByteArrayList &text, const QString &name, const QByteArrayList &pieces)
{
    const QByteArray line = "<?" + name.toLatin1() + " here?>\n";
    const QByteArray whole = text.constLast();
    const qsizetype at = whole.lastIndexOf(line);
    if (at < 0)
        return;
    text.last() = whole.first(at);
    text.append(pieces);
    text.append(whole.sliced(at + line.size()));
}

// The Connect elements of one glued edge: its begin and its end, each at a connection point.
void addConnect(VisioMarkup &connects, const VisioShape &edge, const char *cell, int part,
                const VisioShape &node, int index)
{
    constexpr int firstConnectionPoint = 100;
    connects.empty("Connect",
                   {{"FromSheet", edge.idText()},
                    {"FromCell", cell},
                    {"FromPart", QByteArray::number(part)},
                    {"ToSheet", node.idText()},
                    {"ToCell", "Connections.X" + QByteArray::number(index + 1)},
                    {"ToPart", QByteArray::number(index + firstConnectionPoint)}});
}

} // namespace

VisioVSDX::VisioVSDX(const QString &file, const QString &templateDirectory)
    : fileName(file), connects(connectDepth)
{
    for (const QString &name : partNames)
        parts.insert(name, readPart(templateDirectory + u'/' + name));
}

void VisioVSDX::begin(int width, int height)
{
    const QDomNodeList cells = parts[pagesPart].elementsByTagName(u"Cell"_s);
    for (int i = 0; i < cells.count(); ++i) {
        QDomElement cell = cells.at(i).toElement();
        const QString name = cell.attribute(u"N"_s);
        if (name == "PageWidth"_L1)
            cell.setAttribute(u"V"_s, width / pointsPerInch);
        else if (name == "PageHeight"_L1)
            cell.setAttribute(u"V"_s, height / pointsPerInch);
    }
    QDomElement root = parts[pagePart].documentElement();
    if (shapes.isNull() && !root.isNull()) {
        shapes = parts[pagePart].createElement(u"Shapes"_s);
        root.appendChild(shapes);
    }
    pageHeight = height;
}

QString VisioVSDX::end()
{
    while (!shapeStack.isEmpty())
        finishShape(false);
    writeContainers();
    return saveVisioPackage(fileName, takeParts());
}

void VisioVSDX::drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    draw(pen, fill, [&](VisioGeometry &geometry) { geometry.addBezier(points); });
}

void VisioVSDX::drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill)
{
    draw(pen, fill,
         [&](VisioGeometry &geometry) { geometry.addEllipse(centre, rx, ry, fill != nullptr); });
}

void VisioVSDX::drawPolyline(const QList<QPoint> &points, Pen *pen)
{
    draw(pen, nullptr, [&](VisioGeometry &geometry) { geometry.addPolyline(points); });
}

void VisioVSDX::drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    draw(pen, fill, [&](VisioGeometry &geometry) { geometry.addPolygon(points, fill != nullptr); });
}

void VisioVSDX::drawRect(QPoint topLeft, QPoint bottomRight, int, Pen *pen, Color *fill)
{
    draw(pen, fill,
         [&](VisioGeometry &geometry) { geometry.addRect(topLeft, bottomRight, fill != nullptr); });
}

void VisioVSDX::drawText(QPoint topLeft, Text *text)
{
    if (!text)
        return;
    withShape([&](VisioShape *shape) { shape->addText(topLeft, text); });
}

Device::Path *VisioVSDX::createPath()
{
    return new Visio::DevicePath;
}

void VisioVSDX::drawPath(Path *path, Pen *pen, Color *fill)
{
    const std::unique_ptr<Path> owned(path);
    if (const auto *own = dynamic_cast<const Visio::DevicePath *>(path))
        draw(pen, fill, [&](VisioGeometry &geometry) { geometry.add(own->rows); });
}

void VisioVSDX::endCluster()
{
    finishShape(false);
}

void VisioVSDX::endEdge()
{
    finishShape(false);
}

void VisioVSDX::endNode()
{
    finishShape(false);
}

bool VisioVSDX::supportsObjects() const
{
    return true;
}

Device::Cluster *VisioVSDX::createCluster(DotSubgraph *subgraph)
{
    VisioShape *shape = createShape(false);
    clusters.add(subgraph, shape);
    return shape;
}

Device::Edge *VisioVSDX::createEdge(DotEdge *)
{
    return createShape(true);
}

Device::Node *VisioVSDX::createNode(DotNode *)
{
    return createShape(false);
}

void VisioVSDX::connectEdge(Edge *edge, Node *tail, Node *head)
{
    const PendingConnection connection{dynamic_cast<VisioShape *>(edge),
                                       dynamic_cast<VisioShape *>(tail),
                                       dynamic_cast<VisioShape *>(head)};
    if (!connection.edge || !connection.tail || !connection.head)
        return;
    if (connection.edge->geometry.isEmpty() && !connection.edge->isFinished())
        pending.insert(connection.edge, connection);
    else
        glue(connection);
}

VisioShape *VisioVSDX::createShape(bool isEdge)
{
    auto *shape = new VisioShape(nextId++, isEdge);
    pageShapes.push_back({shape, QByteArray()});
    shapeStack.append(shape);
    return shape;
}

// The shape of an object stays alive: the base owns it, and edges may still be glued to it.
void VisioVSDX::finishShape(bool loose)
{
    if (shapeStack.isEmpty())
        return;
    VisioShape *shape = shapeStack.takeLast();
    shape->finish(pageHeight);
    if (const auto found = pending.constFind(shape); found != pending.constEnd()) {
        glue(*found);
        pending.erase(found);
    }
    if (!loose)
        return;
    PageShape &entry = pageShapes.back();
    entry.markup = shape->takeMarkup();
    entry.shape = nullptr;
    delete shape;
}

template <typename Draw>
void VisioVSDX::draw(Pen *pen, Color *fill, Draw addRows)
{
    withShape([&](VisioShape *shape) {
        addRows(shape->geometry);
        shape->touch();
        shape->addPen(pen);
        shape->addFill(fill);
    });
}

// Draws on the innermost open shape, or on one made for this primitive alone.
template <typename Draw>
void VisioVSDX::withShape(Draw draw)
{
    const bool loose = shapeStack.isEmpty();
    draw(loose ? createShape(false) : shapeStack.constLast());
    if (loose)
        finishShape(true);
}

void VisioVSDX::glue(const PendingConnection &connection)
{
    constexpr int beginPart = 9;
    constexpr int endPart = 12;
    VisioShape &edge = *connection.edge;
    if (edge.geometry.isEmpty())
        return;
    const int tail = connection.tail->connectionIndex(edge.geometry.firstRow().point(), pageHeight);
    const int head = connection.head->connectionIndex(edge.geometry.lastRow().point(), pageHeight);
    edge.setEnds(pageHeight, glueFormula(connection.tail->idText(), tail + 1),
                 glueFormula(connection.head->idText(), head + 1));
    addConnect(connects, edge, "BeginX", beginPart, *connection.tail, tail);
    addConnect(connects, edge, "EndX", endPart, *connection.head, head);
}

void VisioVSDX::writeContainers()
{
    tieContainers(
        clusters.shapes(),
        [this](VisioShape *shape) { return visioShapesOf<VisioShape>(clusterObjects(shape)); },
        [this](VisioShape *shape) { return visioShapesOf<VisioShape>(nodeObjects(shape)); },
        [](const VisioShape *shape) { return shape->idText(); },
        [](VisioShape *shape, const QByteArray &entries) { shape->setContainer(entries); },
        [](VisioShape *shape, const QByteArray &entries) { shape->setRelationships(entries); });
}

QByteArrayList VisioVSDX::takeShapes()
{
    QByteArrayList markup;
    for (PageShape &entry : pageShapes) {
        if (!entry.shape) {
            markup.append(std::exchange(entry.markup, QByteArray()));
            continue;
        }
        // The formulas of an edge ask for its ends, also if nothing holds them.
        if (entry.shape->geometry.isEdge && !entry.shape->hasEnds())
            entry.shape->setEnds(pageHeight, QByteArray(), QByteArray());
        markup.append(entry.shape->takeMarkup());
    }
    return markup;
}

QMap<QString, QByteArrayList> VisioVSDX::takeParts()
{
    QDomDocument &page = parts[pagePart];
    QDomElement root = page.documentElement();
    if (!pageShapes.empty() && !shapes.isNull())
        mark(shapes, shapesMark);
    // Without a page to draw on there are no shapes that could be connected.
    if (connects.size() > 0 && !shapes.isNull()) {
        QDomElement element = root.firstChildElement(u"Connects"_s);
        if (element.isNull()) {
            element = page.createElement(u"Connects"_s);
            root.appendChild(element);
        }
        mark(element, connectsMark);
    }
    QMap<QString, QByteArrayList> written;
    for (auto part = parts.constBegin(); part != parts.constEnd(); ++part)
        written.insert(part.key(), {part.value().toByteArray(1)});
    QByteArrayList &text = written[pagePart];
    // Connections stand behind the shapes, unless the empty page has a place for them already.
    const QByteArray whole = text.constLast();
    if (whole.lastIndexOf(connectsMark.toLatin1()) > whole.lastIndexOf(shapesMark.toLatin1())) {
        replaceMark(text, shapesMark, takeShapes());
        replaceMark(text, connectsMark, {connects.markup()});
    } else {
        replaceMark(text, connectsMark, {connects.markup()});
        replaceMark(text, shapesMark, takeShapes());
    }
    return written;
}

} // namespace ORR::Graph
