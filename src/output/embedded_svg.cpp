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
    : GroupedSvg(target, drawingExtras, deepestGroups), graph(drawnGraph)
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

// An id that was there already, of an object that is drawn twice or has a namesake, gets a number
// behind a dot, which no first one can have.
void EmbeddedSvg::beginGroup(QByteArrayView kind, const QByteArray &name, const DotObject *object)
{
    closeLink();
    if (!beginObject())
        return;
    QByteArray id = kind.toByteArray() + '-' + name;
    const int count = ++ids[id];
    if (count > 1)
        id += '.' + QByteArray::number(count);
    out << "<g id=\"" << id << "\" class=\"" << kind << "\">\n";
    groups.append({linkAddress(object)});
}

void EmbeddedSvg::groupEnds()
{
    closeLink();
    groups.removeLast();
}

// What is drawn deeper than groups go is not what the last of them draws.
void EmbeddedSvg::primitiveComes(const std::function<CoveredBox()> & /*box*/)
{
    if (groups.isEmpty() || isBelowGroups())
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
