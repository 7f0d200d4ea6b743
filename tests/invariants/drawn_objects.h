#pragma once

#include "graph/dot_graph.h"
#include "support/recording_device.h"

#include <QHash>
#include <QList>
#include <QRectF>
#include <QSize>
#include <QString>
#include <QStringList>

// An arc of a path, in degrees counter-clockwise from the right.
struct DrawnArc
{
    QRectF ellipse;
    double start = 0.0;
    double sweep = 0.0;
};

// One primitive, without its paint.
struct DrawnShape
{
    QString word; // of the recording: rect, ellipse, text...
    QRectF box; // that holds it, its stroke aside
    QList<DrawnArc> arcs; // of a path
};

// What is drawn between the begin and the end of one object.
struct DrawnObject
{
    QString kind; // Cluster, Node or Edge; empty for the page
    QString id;
    qsizetype parent = -1; // position of the object around it
    QList<DrawnShape> shapes; // its own, without those of the objects in it
};

// A whole recording. The page is the first object and the parent of all that stand in no other.
struct Drawn
{
    QSize page;
    QList<DrawnObject> objects;
    QStringList faults; // calls that are in the wrong place, or hold what is no coordinate
};

// Puts what stands on the page by itself into the group that the graph has it in, if that is drawn:
// an engine may draw a group and its members one after the other.
void nestAsInGraph(Drawn *drawn, const ORR::Graph::DotGraph &graph);

// Records as its base does, and measures the texts.
class MeasuringDevice : public RecordingDevice
{
public:
    void drawText(QPoint topLeft, Text *text) override;
    void drawRichText(QPoint topLeft, Text *text) override;

    Drawn drawn() const;

private:
    QHash<qsizetype, QSize> textSizes; // by the position of the call
};
