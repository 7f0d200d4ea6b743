#pragma once

#include "device/text_image.h"
#include "output/visio/visio_container.h"
#include "output/visio/visio_markup.h"
#include "output/visio/visio_xml_shape.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

#include <deque>

namespace ORR::Graph {

// What the device keeps for a node: its shape, which belongs to the device.
class VisioXMLNode : public Device::Node
{
public:
    explicit VisioXMLNode(VisioXMLShape *nodeShape) : shape(nodeShape) { }

    VisioXMLShape *shape;
};

class VisioXMLEdge : public Device::Edge
{
public:
    explicit VisioXMLEdge(VisioXMLShape *edgeShape) : shape(edgeShape) { }

    VisioXMLShape *shape;
};

class VisioXMLCluster : public Device::Cluster, public VisioXMLNode
{
public:
    using VisioXMLNode::VisioXMLNode;
};

// Writes a drawing as one Visio XML file. Every graph object that is drawn becomes a shape, within
// the shape of the object that is open when it begins; a primitive outside of any becomes a shape
// of its own. Edges are glued to the shapes of their nodes, and clusters are containers of their
// members.
//
// `end` gives "Unable to write to file\n" if the file can't be opened or not be written to its end.
class VisioXML : public TextImage
{
public:
    explicit VisioXML(const QString &fileName);

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
    // Each end that is a node or a cluster of this device is glued. An edge that is still open and
    // has no line yet is glued when it is finished.
    void connectEdge(Edge *edge, Node *tail, Node *head) override;

private:
    struct PendingConnection
    {
        VisioXMLShape *tail; // null if there is none
        VisioXMLShape *head;
    };

    VisioXMLShape *createShape(VisioXMLShape::Kind kind);
    void finishShape();
    template <typename Draw>
    void draw(Pen *pen, Color *fill, Draw addPieces);
    template <typename Draw>
    void withShape(Draw draw);
    void connectShapes(VisioXMLShape *edge, const PendingConnection &ends);
    void writeRelationships();
    void appendShapes(QByteArray &document);
    QByteArray takeDocument();

    QString fileName;
    std::deque<VisioXMLShape> shapes; // all of them, in the order of their numbers
    QList<VisioXMLShape *> shapeStack; // the open ones, innermost last
    VisioClusters<VisioXMLCluster> clusters;
    VisioMarkup connects;
    QHash<VisioXMLShape *, PendingConnection> pending;
    int nextId = 0;
    int pageId = -1; // until the drawing begins
    int pageWidth = 0;
    int pageHeight = 0;
};

} // namespace ORR::Graph
