#pragma once

#include "graph/dot_graph.h"
#include "support/golden.h"
#include "support/recording_device.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

// A graph that went through an engine, and what was drawn of it.
struct GraflibDrawing
{
    std::unique_ptr<ORR::Graph::DotGraph> graph;
    std::unique_ptr<RecordingDevice> device;
    QString result;

    // Attributes as the passes read them.
    QString ofNode(const QString &id, const QString &name) const;
    QString ofGraph(const QString &id, const QString &name) const; // the root for an empty id
    QString ofEdge(const QString &tail, const QString &head, const QString &name) const;
    double number(const QString &nodeId, const QString &name) const;

    QString beginCall() const { return device->callsOf(QStringLiteral("begin")).value(0); }
};

// A device for large inputs, that draws and records nothing.
class SilentDevice : public ORR::Graph::TextImage
{
public:
    void begin(int, int) override { }
    QString end() override { return {}; }
    void drawEllipse(QPoint, int, int, Pen *, Color *) override { }
    void drawPolyline(const QList<QPoint> &, Pen *) override { }
    void drawPolygon(const QList<QPoint> &, Pen *, Color *) override { }
    void drawRect(QPoint, QPoint, int, Pen *, Color *) override { }
    void drawText(QPoint, Text *) override { }
    Path *createPath() override { return nullptr; }
    void drawPath(Path *path, Pen *, Color *) override { delete path; }
};

std::unique_ptr<ORR::Graph::DotGraph> parsed(const QByteArray &dot);
GraflibDrawing runTree(const QByteArray &dot, bool withExpanders = false);
GraflibDrawing runDecl(const QByteArray &dot, bool withExpanders = false);

// Random numbers from 0 to below `bound`, the same on every machine.
class RandomNumbers
{
public:
    explicit RandomNumbers(quint32 seed) : state(seed * 2654435761u + 1) { }
    int below(int bound);
    bool oneIn(int chances) { return below(chances) == 0; }

private:
    quint32 state;
};
