#pragma once

#include "device/device.h"
#include "graph/dot_graph.h"

#include <QRect>

namespace ORR::Graph {

// What the xdot device keeps for a node, an edge or a cluster: the attributes that its record in
// the written graph will get, and the area that it has drawn on.
class XDotObject : public Device::Node, public Device::Edge, public Device::Cluster
{
public:
    XDotObject() = default;
    explicit XDotObject(const QString &nodeId) : id(nodeId) { }

    // Appends an op to "_draw_", with a blank between and none at either end of the whole.
    void appendDrawing(const QString &op);
    // Appends an op to "_ldraw_", with a blank between.
    void appendLabel(const QString &op);

    // Lets the bounds reach to the point. There is no fresh state: the bounds start as the empty
    // rectangle at the page origin, and so always hold the origin once they have grown. That is
    // meant.
    void includePoint(QPoint point);
    // Unites the bounds with the rectangle, as the toolkit's operator | does; empty bounds become
    // the rectangle.
    void includeRect(const QRect &rect);

    // Sets "pos", the centre of the bounds in points of the page, and "width" and "height", in
    // inches; nothing if the bounds are empty.
    void setGeometryAttributes();
    // Merges the attributes into those of the graph object, if there is one.
    void mergeIntoGraph();

    DotObject *graphObject = nullptr; // in the written graph; null until the object stands there
    DotNode *graphNode = nullptr; // the same, of a node
    AttributeMap attributes; // without the text of the two drawing attributes
    QRect bounds; // on the page, y downward
    QString id; // of a node

private:
    // Kept aside and stored once: to store the whole again with each op is quadratic.
    QString drawing;
    QString label;
};

} // namespace ORR::Graph
