#pragma once

#include "device/text_image.h"

#include <QStringList>

// A device that writes down its calls, a line each, in a form made to be read and compared:
//
//   begin 640 480
//   rect 0,0 10,20 radius 3 pen #000000 solid 1 fill #FFFFFF
//   text 3,4 "label" Arial 12 #000000
//   beginNode a ... endNode
class RecordingDevice : public ORR::Graph::TextImage
{
public:
    // withObjects: whether the object protocol is asked for and recorded; withExpanders likewise.
    explicit RecordingDevice(bool withObjects = true, bool withExpanders = false);

    const QStringList &calls() const { return lines; }
    // All lines that start with the word.
    QStringList callsOf(const QString &word) const;
    QString log() const { return lines.join(u'\n') + u'\n'; }
    // What `end` is to return.
    void setResult(const QString &message) { result = message; }

    void begin(int width, int height) override;
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
    bool supportsExpanders() const override { return expanders; }
    void endCluster() override;
    void endEdge() override;
    void endNode() override;
    bool supportsObjects() const override { return objects; }
    Cluster *createCluster(ORR::Graph::DotSubgraph *subgraph) override;
    Edge *createEdge(ORR::Graph::DotEdge *edge) override;
    Node *createNode(ORR::Graph::DotNode *node) override;
    void connectEdge(Edge *edge, Node *tail, Node *head) override;

private:
    void recordText(const QString &word, QPoint topLeft, const Text *text);

    QStringList lines;
    bool objects;
    bool expanders;
    QString result;
};
