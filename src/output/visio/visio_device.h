#pragma once

#include "device/text_image.h"
#include "output/output.h"
#include "output/visio/visio_container.h"
#include "output/visio/visio_markup.h"
#include "output/visio/visio_shape.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

#include <vector>

namespace ORR::Graph {

// What both Visio devices are: every graph object that is drawn becomes one shape, and a primitive
// outside of any becomes a shape of its own. Edges are glued to the shapes of their nodes, so that
// moving a node drags its edges along, and clusters hold their members by formulas. What is written
// around the shapes, and how their cells are spelled, is the format's.
class VisioDevice : public TextImage
{
public:
    void drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill) override;
    void drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill) override;
    void drawPolyline(const QList<QPoint> &points, Pen *pen) override;
    void drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill) override;
    // The radius of the corners has no place in a shape's geometry.
    void drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill) override;
    void drawText(QPoint topLeft, Text *text) override;
    Path *createPath() override;
    void drawPath(Path *path, Pen *pen, Color *fill) override;
    void endCluster() override;
    void endEdge() override;
    void endNode() override;
    bool supportsObjects() const override;
    Cluster *createCluster(DotSubgraph *subgraph) override;
    Edge *createEdge(DotEdge *edge) override;
    Node *createNode(DotNode *node) override;
    // Each end that is a shape is glued. An edge that is still open and has no line yet is glued
    // when it is finished.
    void connectEdge(Edge *edge, Node *tail, Node *head) override;

protected:
    // A shape of the page, in the order of the numbers. That of a loose primitive is written at
    // once and kept as text.
    struct PageShape
    {
        VisioShape *shape;
        QByteArray markup;
    };

    // The cells are not owned and outlive the device.
    VisioDevice(const OutputTarget &outputTarget, const VisioCells &formatCells);

    // The number of the next sheet.
    int takeId() { return nextId++; }
    // Finishes what is open, and ties the containers.
    void finishShapes();
    // Drops all shapes and connections.
    void forgetShapes();
    // About the bytes of the shape, without those within it.
    static qsizetype sizeOf(const PageShape &entry);
    // Appends a shape of the page with all those within it, and forgets their markup.
    void appendShape(PageShape &entry, QByteArray &document);

    // The records of a glued edge, each empty if there is none, in the order of the format.
    virtual void appendConnects(const VisioMarkup &tail, const VisioMarkup &head) = 0;
    // The edge has just been glued.
    virtual void edgeGlued(VisioShape *edge);

    const VisioCells &cells;
    OutputTarget target;
    std::vector<PageShape> pageShapes;
    VisioMarkup connects;
    int pageHeight = 0; // in points, from the beginning of the drawing on

private:
    struct Ends
    {
        VisioShape *tail; // null if there is none
        VisioShape *head;
    };

    VisioShape *createShape(VisioKind kind);
    VisioShape *finishShape();
    template <typename AddRows>
    void draw(Pen *pen, Color *fill, AddRows addRows);
    template <typename Draw>
    void withShape(Draw draw);
    void glue(VisioShape *edge, const Ends &ends);
    VisioMarkup glued(VisioShape *edge, VisioEnd end, VisioShape *node);

    int nextId = 0;
    QList<VisioShape *> shapeStack; // the open ones, innermost last
    VisioClusters clusters;
    QHash<VisioShape *, Ends> pending; // edges to be glued when they are finished
};

} // namespace ORR::Graph
