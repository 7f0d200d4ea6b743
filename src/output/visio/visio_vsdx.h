#pragma once

#include "device/text_image.h"
#include "output/visio/visio_container.h"
#include "output/visio/visio_markup.h"
#include "output/visio/visio_shape.h"

#include <QByteArrayList>
#include <QDomDocument>
#include <QDomElement>
#include <QHash>
#include <QList>
#include <QMap>
#include <QString>

#include <vector>

namespace ORR::Graph {

// Writes a drawing as a Visio package: a zip file of XML parts. The parts of an empty drawing are
// read from a directory, shapes and connections go into its page, and all parts are zipped again.
//
// Every graph object that is drawn becomes one shape, and a primitive outside of any becomes a
// shape of its own. Shapes are not nested; clusters hold their members by formulas. Edges are glued
// to the shapes of their nodes, so that moving a node drags its edges along.
//
// A part that can't be read or is no XML stays empty, and the run goes on. `end` gives "Couldn't
// open output file for writing\n", or "Unable to save file. Error code %1\n" with the zip library's
// code.
class VisioVSDX : public TextImage
{
public:
    // templateDirectory: where the parts of the empty drawing are.
    VisioVSDX(const QString &fileName, const QString &templateDirectory);

    void begin(int width, int height) override;
    QString end() override;
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
    // Nothing unless all three are shapes. An edge that is still open and has no line yet is glued
    // when it is finished.
    void connectEdge(Edge *edge, Node *tail, Node *head) override;

private:
    // A shape of the page, in the order of the numbers. That of a loose primitive is written at
    // once and kept as text.
    struct PageShape
    {
        VisioShape *shape;
        QByteArray markup;
    };
    struct PendingConnection
    {
        VisioShape *edge;
        VisioShape *tail;
        VisioShape *head;
    };

    VisioShape *createShape(bool isEdge);
    void finishShape(bool loose);
    template <typename Draw>
    void draw(Pen *pen, Color *fill, Draw addRows);
    template <typename Draw>
    void withShape(Draw draw);
    void glue(const PendingConnection &connection);
    void writeContainers();
    QByteArrayList takeShapes();
    QMap<QString, QByteArrayList> takeParts();

    QMap<QString, QDomDocument> parts;
    QString fileName;
    QList<VisioShape *> shapeStack; // the open ones, innermost last
    VisioClusters<VisioShape> clusters;
    QDomElement shapes;
    int nextId = 1;
    int pageHeight = 0;

    std::vector<PageShape> pageShapes;
    VisioMarkup connects;
    QHash<VisioShape *, PendingConnection> pending;
};

} // namespace ORR::Graph
