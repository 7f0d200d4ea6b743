#include "output/embedded_svg.h"

#include "output/graph_summary.h"
#include "output/link_address.h"
#include "output/xml_text.h"

#include <QCryptographicHash>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// Readers of XML give up beyond some 256 elements within each other.
constexpr qsizetype deepestGroups = 100;

bool staysInId(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_'
        || c == '-';
}

// A part of an id that is valid in XML: every byte of UTF-8 but ASCII letters, digits, "_" and "-"
// stands as its two hexadecimal digits between dots. Different names give different parts, and none
// has an odd number of dots.
QByteArray idPart(const QString &name)
{
    QByteArray part;
    for (const char c : name.toUtf8()) {
        if (staysInId(c))
            part += c;
        else
            part += '.' + QByteArray(1, c).toHex() + '.';
    }
    return part;
}

QByteArray describing(const Device::Color *color)
{
    QStringList words{QString::number(color->type())};
    for (const double number : {color->start().x(), color->start().y(), color->stop().x(),
                                color->stop().y(), color->focalRadius(), color->radius()})
        words += numberText(number);
    for (int i = 0; i < color->stopCount(); ++i)
        words += {numberText(color->offset(i)), color->name(i)};
    return words.join(u' ').toUtf8();
}

} // namespace

EmbeddedSvg::EmbeddedSvg(const OutputTarget &target, const DrawingExtras &drawingExtras,
                         const DotGraph *drawnGraph)
    : SvgRichText(target, drawingExtras), graph(drawnGraph)
{
}

// Without the declaration of XML, which has no place within a page.
void EmbeddedSvg::begin(int width, int height)
{
    if (!out.isOpen())
        return;
    out << "<svg width=\"" << width << "\" height=\"" << height << "\" viewBox=\"0 0 " << width
        << " " << height << "\" xmlns=\"http://www.w3.org/2000/svg\" "
        << "xmlns:xlink=\"http://www.w3.org/1999/xlink\" version=\"1.1\">\n";
    if (const QString title = graphTitle(graph); !title.isEmpty())
        out << "<title>" << xmlEscaped(title, XmlForm::Text) << "</title>\n";
    if (graph)
        out << "<desc>" << xmlEscaped(graphCounts(graph), XmlForm::Text) << "</desc>\n";
    writeBackground(width, height);
}

QString EmbeddedSvg::end()
{
    while (!groups.isEmpty())
        endGroup();
    return SvgRichText::end();
}

void EmbeddedSvg::drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    openLink();
    SvgRichText::drawBezier(points, pen, fill);
}

void EmbeddedSvg::drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill)
{
    openLink();
    SvgRichText::drawEllipse(centre, rx, ry, pen, fill);
}

void EmbeddedSvg::drawPolyline(const QList<QPoint> &points, Pen *pen)
{
    openLink();
    SvgRichText::drawPolyline(points, pen);
}

void EmbeddedSvg::drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    openLink();
    SvgRichText::drawPolygon(points, pen, fill);
}

void EmbeddedSvg::drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill)
{
    openLink();
    SvgRichText::drawRect(topLeft, bottomRight, radius, pen, fill);
}

void EmbeddedSvg::drawText(QPoint topLeft, Text *text)
{
    openLink();
    SvgRichText::drawText(topLeft, text);
}

void EmbeddedSvg::drawRichText(QPoint topLeft, Text *text)
{
    openLink();
    SvgRichText::drawRichText(topLeft, text);
}

void EmbeddedSvg::drawPath(Path *path, Pen *pen, Color *fill)
{
    openLink();
    SvgRichText::drawPath(path, pen, fill);
}

void EmbeddedSvg::endCluster()
{
    endGroup();
}

void EmbeddedSvg::endEdge()
{
    endGroup();
}

void EmbeddedSvg::endNode()
{
    endGroup();
}

bool EmbeddedSvg::supportsObjects() const
{
    return true;
}

Device::Cluster *EmbeddedSvg::createCluster(DotSubgraph *subgraph)
{
    beginGroup("cluster", subgraph ? idPart(subgraph->id) : QByteArray(), subgraph);
    return nullptr;
}

Device::Edge *EmbeddedSvg::createEdge(DotEdge *edge)
{
    const bool hasEnds = edge && edge->tail && edge->head;
    beginGroup("edge",
               hasEnds ? idPart(edge->tail->id) + "--" + idPart(edge->head->id) : QByteArray(),
               edge);
    return nullptr;
}

Device::Node *EmbeddedSvg::createNode(DotNode *node)
{
    beginGroup("node", node ? idPart(node->id) : QByteArray(), node);
    return nullptr;
}

// Under its hash, it is the same gradient in every drawing that has one of this id.
QByteArray EmbeddedSvg::defineGradient(const Color *color)
{
    constexpr qsizetype length = 16; // digits; enough to tell all gradients of a page apart
    const QByteArray hash =
        QCryptographicHash::hash(describing(color), QCryptographicHash::Sha1).toHex();
    const QByteArray id = "gradient-" + hash.first(length);
    if (!gradients.contains(id)) {
        gradients.insert(id);
        writeGradient(color, id);
    }
    return id;
}

QString EmbeddedSvg::fragmentPrefix()
{
    return u"text-%1-"_s.arg(++richTextCount);
}

// An id that was there already, of an object that is drawn twice or has a namesake, gets a number
// behind a dot, which no first one can have.
void EmbeddedSvg::beginGroup(QByteArrayView kind, const QByteArray &name, const DotObject *object)
{
    closeLink();
    if (groups.size() >= deepestGroups) {
        ++deeperObjects;
        return;
    }
    QByteArray id = kind.toByteArray() + '-' + name;
    const int count = ++ids[id];
    if (count > 1)
        id += '.' + QByteArray::number(count);
    out << "<g id=\"" << id << "\" class=\"" << kind << "\">\n";
    groups.append({linkAddress(object)});
}

void EmbeddedSvg::endGroup()
{
    if (deeperObjects > 0) {
        --deeperObjects;
        return;
    }
    if (groups.isEmpty())
        return;
    closeLink();
    out << "</g>\n";
    groups.removeLast();
}

// What is drawn deeper than groups go is not what the last of them draws.
void EmbeddedSvg::openLink()
{
    if (groups.isEmpty() || deeperObjects > 0)
        return;
    Group &group = groups.last();
    if (group.address.isEmpty() || group.isLinkOpen)
        return;
    out << "<a xlink:href=\"" << xmlEscaped(QString::fromLatin1(group.address), XmlForm::Attribute)
        << "\">\n";
    group.isLinkOpen = true;
}

void EmbeddedSvg::closeLink()
{
    if (groups.isEmpty() || !groups.constLast().isLinkOpen)
        return;
    out << "</a>\n";
    groups.last().isLinkOpen = false;
}

} // namespace ORR::Graph
