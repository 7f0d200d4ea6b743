#pragma once

#include "layout/graflib/node_outline.h"
#include "layout/layout_context.h"

#include <QPointF>
#include <QSize>
#include <QString>

namespace ORR::Graph::Layout {

// How far an expander sticks out of its node along the layout, in points. The same on every device,
// whether or not it draws expanders.
int expanderExtent(const DotGraph *graph);

// The top left corner of the glyph at a node. `direction` is a word of `rankdir`, -1 for none of
// them: the glyph sits at the side where the edges leave.
QPointF expanderPlace(const NodeBox &box, QSize glyph, int direction);

// The round glyph on nodes that can be expanded, for devices that want it.
class Expander
{
public:
    // Measures the glyph if the device wants it.
    explicit Expander(const LayoutContext &context);

    bool isWanted() const { return wanted; }
    void draw(const NodeBox &box) const;

private:
    Device *device;
    bool wanted;
    int direction;
    int fontSize;
    QString color;
    QSize glyph;
};

} // namespace ORR::Graph::Layout
