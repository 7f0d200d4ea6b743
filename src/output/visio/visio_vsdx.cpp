#include "output/visio/visio_vsdx.h"

#include "graph/numbers.h"
#include "output/visio/visio_package.h"
#include "output/visio/visio_package_cells.h"

#include <QFile>

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

const VisioPackageCells packageCells;

} // namespace

VisioVSDX::VisioVSDX(const OutputTarget &outputTarget, const QString &templateDirectory)
    : VisioDevice(outputTarget, packageCells)
{
    takeId(); // the shapes are numbered from 1
    for (const QString &name : partNames)
        parts.insert(name, readPart(templateDirectory + u'/' + name));
}

void VisioVSDX::begin(int width, int height)
{
    const QDomNodeList pageCells = parts[pagesPart].elementsByTagName(u"Cell"_s);
    for (int i = 0; i < pageCells.count(); ++i) {
        QDomElement cell = pageCells.at(i).toElement();
        const QString name = cell.attribute(u"N"_s);
        if (name == "PageWidth"_L1)
            cell.setAttribute(u"V"_s, double(width) / pointsPerInch);
        else if (name == "PageHeight"_L1)
            cell.setAttribute(u"V"_s, double(height) / pointsPerInch);
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
    finishShapes();
    return saveVisioPackage(target, takeParts());
}

void VisioVSDX::connectEdge(Edge *edge, Node *tail, Node *head)
{
    if (dynamic_cast<VisioShape *>(tail) && dynamic_cast<VisioShape *>(head))
        VisioDevice::connectEdge(edge, tail, head);
}

void VisioVSDX::appendConnects(const VisioMarkup &tail, const VisioMarkup &head)
{
    connects.append(tail.markup());
    connects.append(head.markup());
}

void VisioVSDX::edgeGlued(VisioShape *edge)
{
    edge->writeEnds(pageHeight);
}

QByteArrayList VisioVSDX::takeShapes()
{
    QByteArrayList pieces;
    for (PageShape &entry : pageShapes) {
        QByteArray markup;
        markup.reserve(sizeOf(entry));
        appendShape(entry, markup);
        pieces.append(markup);
    }
    return pieces;
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
