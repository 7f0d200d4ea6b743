#pragma once

#include "output/drawing_extras.h"
#include "output/output.h"
#include "output/painter_device.h"
#include "output/pdf/pdf_link_areas.h"

#include <QBuffer>
#include <QPdfWriter>

namespace ORR::Graph {

// Writes the drawing as PDF 1.6 when it ends: one page of its size, text as text, in fonts that are
// embedded as far as they are used, rich text as a document is painted, and a link over each object
// that has an address (see `linkAddress`), as far as readers take them. What was drawn the same way
// is the same file.
//
// A page has 14,400 units at most on a side. That of a larger drawing has a unit of so many points
// that its size stays; the toolkit's writer sees to it.
class Pdf : public PainterDevice
{
public:
    // graph: for the title of the document; may be null, is not owned and must live as long.
    explicit Pdf(const OutputTarget &outputTarget, const DrawingExtras &drawingExtras = {},
                 const DotGraph *drawnGraph = nullptr);
    ~Pdf() override;

    void begin(int width, int height) override;
    // "Could not save drawing to file\n" if nothing was begun, the page has a side of zero or less,
    // or the output did not take every byte.
    QString end() override;
    // Smooth, unlike that of the base.
    void drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill) override;
    void drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill) override;
    void drawPolyline(const QList<QPoint> &points, Pen *pen) override;
    void drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill) override;
    void drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill) override;
    void drawText(QPoint topLeft, Text *text) override;
    void drawRichText(QPoint topLeft, Text *text) override;
    void drawPath(Path *path, Pen *pen, Color *fill) override;

    void endCluster() override;
    void endEdge() override;
    void endNode() override;
    bool supportsObjects() const override;
    // They keep nothing: null.
    Cluster *createCluster(DotSubgraph *subgraph) override;
    Edge *createEdge(DotEdge *edge) override;
    Node *createNode(DotNode *node) override;

private:
    QByteArray finished();

    OutputTarget target;
    DrawingExtras extras;
    const DotGraph *graph;
    QSize page; // of the drawing, in points
    QByteArray bytes;
    QBuffer buffer; // into them
    std::unique_ptr<QPdfWriter> writer; // while there is a page
    PdfLinkAreas links;
};

} // namespace ORR::Graph
