#pragma once

#include "device/text_image.h"
#include "output/output.h"
#include "output/xdot_object.h"

#include <QList>
#include <QString>

#include <memory>

namespace ORR::Graph {

// The device that keeps structure: every primitive becomes text in a drawing attribute of the graph
// object that is being drawn, and `end` writes a DOT file (xdot 1.2) that the replay draws again.
// It builds a graph of its own from the object protocol and sees nothing of the input's attributes.
//
// What is drawn outside of any object is lost, and an object that is not ended by `end` is not in
// the file. Node ids come out as they are, see `writeDot` for what they have to look like.
//
//   attribute    of        meaning
//   bb           graph     "0,0,width,height" of the page, points
//   xdotversion  graph     "1.2"
//   _draw_       object    shapes, in the order of drawing
//   _ldraw_      object    texts
//   penwidth     object    width of the last pen that was not 1 wide; there is no op for it
//   rounded      object    corner radius of the last rectangle that had one, likewise
//   pos          n., cl.   "x,y", centre of what was drawn, in points of the page, y downward
//   width        n., cl.   extent of what was drawn, inches
//   height       n., cl.
//   label        cluster   empty
//
// The pen's width and the corner radius thus are those of the whole object, the last one holds.
class XDot : public TextImage
{
public:
    explicit XDot(const OutputTarget &outputTarget);
    ~XDot() override;

    void begin(int width, int height) override;
    // Writes the file. "Unable to write to file\n" if that fails.
    QString end() override;
    void drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill) override;
    void drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill) override;
    void drawPolyline(const QList<QPoint> &points, Pen *pen) override;
    void drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill) override;
    void drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill) override;
    void drawText(QPoint topLeft, Text *text) override;
    void drawRichText(QPoint topLeft, Text *text) override;
    Path *createPath() override;
    void drawPath(Path *path, Pen *pen, Color *fill) override;
    bool supportsExpanders() const override;
    void endCluster() override;
    void endEdge() override;
    void endNode() override;
    bool supportsObjects() const override;
    Cluster *createCluster(DotSubgraph *subgraph) override;
    Edge *createEdge(DotEdge *edge) override;
    Node *createNode(DotNode *node) override;
    void connectEdge(Edge *edge, Node *tail, Node *head) override;

private:
    // Null when nothing is open.
    XDotObject *openObject() const;
    XDotObject *takeOpenObject();
    // Appends the op and the attributes that go with every shape. `fields` stand behind the ops of
    // the paint with a blank before each.
    void drawShape(Pen *pen, Color *fill, const QStringList &fields);
    void drawShape(Pen *pen, Color *fill, const QStringList &fields, const QList<QPoint> &extent);
    void drawTextLines(QPoint topLeft, Text *text, bool rich);

    std::unique_ptr<DotGraph> graph; // what is written
    QList<XDotObject *> objects; // those that are open, innermost last
    QList<DotSubgraph *> subgraphs; // the open clusters; the first is the root
    OutputTarget target;
    int height = 0;
};

} // namespace ORR::Graph
