#include "output/pdf/pdf_device.h"

#include "device/rich_text.h"
#include "graph/numbers.h"
#include "output/graph_summary.h"
#include "output/link_address.h"
#include "output/painter_path.h"
#include "output/painter_values.h"
#include "output/pdf/pdf_completion.h"
#include "output/pixel_rect.h"

#include <QAbstractTextDocumentLayout>
#include <QPalette>
#include <QPolygon>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// Readers refuse a page that has more links.
constexpr qsizetype mostLinks = 10'000;

// What has no extent is painted by round caps only (ISO 32000-1, 8.5.3.2). With any other pen the
// toolkit's writer may end a path there that it has not begun, which readers complain about.
bool paintsPoints(const Device::Pen *pen)
{
    return pen && pen->style() == Device::Pen::Dotted;
}

// Each point once that follows itself.
QList<QPoint> withoutRepeats(QList<QPoint> points)
{
    points.erase(std::unique(points.begin(), points.end()), points.end());
    return points;
}

// The toolkit's writer makes links of anchors, whatever they lead to.
void removeAnchors(QTextDocument *document)
{
    QTextCursor cursor(document);
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        QList<QTextFragment> anchors;
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (it.fragment().charFormat().isAnchor())
                anchors.append(it.fragment());
        }
        for (const QTextFragment &anchor : std::as_const(anchors)) {
            QTextCharFormat format = anchor.charFormat();
            for (const auto property :
                 {QTextFormat::IsAnchor, QTextFormat::AnchorHref, QTextFormat::AnchorName})
                format.clearProperty(property);
            cursor.setPosition(anchor.position());
            cursor.setPosition(anchor.position() + anchor.length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(format);
        }
    }
}

} // namespace

Pdf::Pdf(const OutputTarget &outputTarget, const DrawingExtras &drawingExtras,
         const DotGraph *drawnGraph)
    : target(outputTarget), extras(drawingExtras), graph(drawnGraph)
{
}

// The painter goes before what it paints on.
Pdf::~Pdf()
{
    painter.reset();
}

void Pdf::begin(int width, int height)
{
    painter.reset();
    writer.reset();
    if (width <= 0 || height <= 0)
        return;
    bytes.clear();
    buffer.close();
    buffer.setBuffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    page = {width, height};
    writer = std::make_unique<QPdfWriter>(&buffer);
    writer->setPdfVersion(QPdfWriter::PdfVersion_1_6);
    writer->setResolution(pointsPerInch);
    writer->setPageSize(
        QPageSize(QSizeF(page), QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer->setPageMargins(QMarginsF());
    painter = std::make_unique<QPainter>(writer.get());
    painter->setRenderHint(QPainter::LosslessImageRendering, true);
    if (!extras.background.isEmpty())
        painter->fillRect(QRect({0, 0}, page), painterColor(color(extras.background)));
}

QString Pdf::end()
{
    const QByteArray file = finished();
    if (file.isEmpty() || !writeOutput(target, file))
        return u"Could not save drawing to file\n"_s;
    return {};
}

void Pdf::drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    constexpr qsizetype pointsPerCurve = 3;
    if (points.isEmpty())
        return;
    PainterPath *const path = new PainterPath;
    path->moveTo(points.constFirst());
    for (qsizetype i = pointsPerCurve; i < points.size(); i += pointsPerCurve)
        path->cubicTo(points.at(i - 2), points.at(i - 1), points.at(i));
    drawPath(path, pen, fill);
}

void Pdf::drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill)
{
    links.add(PdfLinkAreas::ShapeMark,
              QRectF(centre.x() - qreal(rx), centre.y() - qreal(ry), 2.0 * rx, 2.0 * ry));
    if (rx == 0 && ry == 0 && !paintsPoints(pen))
        return;
    PainterDevice::drawEllipse(centre, rx, ry, pen, fill);
}

void Pdf::drawPolyline(const QList<QPoint> &points, Pen *pen)
{
    links.add(PdfLinkAreas::LineMark, QPolygonF(QPolygon(points)).boundingRect());
    PainterDevice::drawPolyline(paintsPoints(pen) ? points : withoutRepeats(points), pen);
}

void Pdf::drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill)
{
    links.add(PdfLinkAreas::ShapeMark, QPolygonF(QPolygon(points)).boundingRect());
    if (withoutRepeats(points).size() > 1 || paintsPoints(pen))
        PainterDevice::drawPolygon(points, pen, fill);
}

void Pdf::drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill)
{
    const QRectF rect = pixelRect(topLeft, bottomRight);
    links.add(PdfLinkAreas::ShapeMark, rect.normalized());
    if (!rect.isNull() || paintsPoints(pen))
        PainterDevice::drawRect(topLeft, bottomRight, radius, pen, fill);
}

void Pdf::drawText(QPoint topLeft, Text *text)
{
    if (text && !text->text().isEmpty())
        links.add(PdfLinkAreas::TextMark, QRectF(topLeft, QSizeF(sizeOfText(text))));
    PainterDevice::drawText(topLeft, text);
}

void Pdf::drawRichText(QPoint topLeft, Text *text)
{
    if (!painter || !text)
        return;
    const Font *font = text->font() ? text->font() : defaultFont();
    const std::unique_ptr<QTextDocument> document =
        richTexts.take(text->text()) ? richTextDocument(text->text(), font->qFont()) : nullptr;
    if (!document) {
        drawText(topLeft, Device::text(withoutMarkup(text->text()), text->font(), text->color()));
        return;
    }
    removeAnchors(document.get());
    const QSizeF size = document->documentLayout()->documentSize();
    links.add(PdfLinkAreas::TextMark, QRectF(topLeft, size));
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setBrush(QPalette::All, QPalette::Text, painterColor(text->color()));
    painter->save();
    painter->translate(topLeft);
    document->documentLayout()->draw(painter.get(), context);
    painter->restore();
}

void Pdf::drawPath(Path *path, Pen *pen, Color *fill)
{
    std::unique_ptr<Path> owned(path);
    if (const auto *outline = dynamic_cast<const PainterPath *>(path)) {
        const QRectF box = outline->path().controlPointRect();
        links.add(PdfLinkAreas::LineMark, box);
        if (box.isNull() && !paintsPoints(pen))
            return;
    }
    PainterDevice::drawPath(owned.release(), pen, fill);
}

void Pdf::endCluster()
{
    links.end();
}

void Pdf::endEdge()
{
    links.end();
}

void Pdf::endNode()
{
    links.end();
}

bool Pdf::supportsObjects() const
{
    return true;
}

Device::Cluster *Pdf::createCluster(DotSubgraph *subgraph)
{
    links.begin(linkAddress(subgraph), false);
    return nullptr;
}

Device::Edge *Pdf::createEdge(DotEdge *edge)
{
    links.begin(linkAddress(edge), true);
    return nullptr;
}

Device::Node *Pdf::createNode(DotNode *node)
{
    links.begin(linkAddress(node), false);
    return nullptr;
}

// The file, complete; empty if there is none.
QByteArray Pdf::finished()
{
    if (!writer)
        return {};
    painter.reset();
    writer.reset();
    buffer.close();
    PdfCompletion completion{.title = graphTitle(graph), .height = page.height()};
    // A line has an area that a pointer finds.
    constexpr double margin = 1.0;
    const QRectF whole(QPointF(0, 0), QSizeF(page));
    for (const PdfLinkAreas::Area &area : links.areas()) {
        const QRectF box = area.box.adjusted(-margin, -margin, margin, margin).intersected(whole);
        if (!box.isEmpty() && completion.links.size() < mostLinks)
            completion.links.append({box, area.address});
    }
    return completedPdf(bytes, completion);
}

} // namespace ORR::Graph
