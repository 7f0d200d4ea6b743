#include "output/page_svg.h"

#include "device/text_image.h"
#include "graph/numbers.h"
#include "output/xml_text.h"

#include <algorithm>
#include <utility>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// Browsers give up at 512 elements within each other; the page around and rich texts need some.
constexpr qsizetype deepestPageGroups = 400;

} // namespace

PageSvg::PageSvg(const OutputTarget &target, QString title, QString rootId)
    : GroupedSvg(target, {}, deepestPageGroups), drawingTitle(std::move(title)),
      idOfRoot(std::move(rootId))
{
}

void PageSvg::begin(int width, int height)
{
    pageSize = QSize(std::max(width, 0), std::max(height, 0));
    if (!out.isOpen())
        return;
    out << "<svg id=\"drawing\" xmlns=\"http://www.w3.org/2000/svg\" width=\"" << pageSize.width()
        << "\" height=\"" << pageSize.height() << "\" viewBox=\"0 0 " << pageSize.width() << " "
        << pageSize.height() << "\" role=\"group\" aria-label=\""
        << xmlEscaped(drawingTitle, XmlForm::Attribute) << "\">\n";
}

Device::Cluster *PageSvg::createCluster(DotSubgraph *subgraph)
{
    const bool isRoot = subgraph && !subgraph->parent;
    beginGroup("cluster", isRoot ? idOfRoot : subgraph ? subgraph->id : QString(), subgraph);
    return nullptr;
}

Device::Edge *PageSvg::createEdge(DotEdge *edge)
{
    const bool hasEnds = edge && edge->tail && edge->head;
    beginGroup("edge", hasEnds ? edge->tail->id + "->"_L1 + edge->head->id : QString(), edge);
    return nullptr;
}

Device::Node *PageSvg::createNode(DotNode *node)
{
    beginGroup("node", node ? node->id : QString(), node);
    return nullptr;
}

void PageSvg::drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill)
{
    const QPoint corner(std::max(topLeft.x(), bottomRight.x()),
                        std::max(topLeft.y(), bottomRight.y()));
    const bool isSeen = corner.x() > topLeft.x() && corner.y() > topLeft.y();
    if (!isSeen || radius != 0) {
        GroupedSvg::drawRect(topLeft, corner, radius, pen, fill);
        return;
    }
    primitiveComes([&] {
        CoveredBox box;
        box.include(topLeft);
        box.include(corner);
        return box;
    });
    if (!out.isOpen())
        return;
    const int width = saturated(qint64(corner.x()) - topLeft.x());
    const int height = saturated(qint64(corner.y()) - topLeft.y());
    beginShape(fill);
    out << " <path d=\"M" << topLeft.x() << "," << topLeft.y() << "h" << width << "v" << height
        << "h" << -width << "z\"";
    endShape(pen, fill);
}

void PageSvg::drawText(QPoint topLeft, Text *text)
{
    if (out.isOpen() && text) {
        const QSize size = TextImage::textSize(text, false);
        middlesOfTexts.push_back(saturatedPoint(qint64(topLeft.x()) + size.width() / 2,
                                                qint64(topLeft.y()) + size.height() / 2));
    }
    GroupedSvg::drawText(topLeft, text);
}

void PageSvg::primitiveComes(const std::function<CoveredBox()> &box)
{
    if (!openObjects.empty())
        drawnObjects[openObjects.back()].box.unite(box());
}

void PageSvg::groupEnds()
{
    const CoveredBox box = drawnObjects[openObjects.back()].box;
    openObjects.pop_back();
    if (!openObjects.empty())
        drawnObjects[openObjects.back()].box.unite(box);
}

void PageSvg::beginGroup(QByteArrayView kind, const QString &id, const DotObject *object)
{
    if (!beginObject())
        return;
    const QString shown = withoutForbiddenXml(id);
    out << "<g data-kind=\"" << kind << "\" data-id=\"" << xmlEscaped(shown, XmlForm::Attribute)
        << "\">\n";
    openObjects.push_back(drawnObjects.size());
    drawnObjects.push_back({object, shown, {}});
}

} // namespace ORR::Graph
