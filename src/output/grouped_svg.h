#pragma once

#include "output/covered_box.h"
#include "output/svg_rich_text.h"

#include <functional>

namespace ORR::Graph {

// What the devices of SVG share that write a group for each object: `<g ...>` and `</g>` around
// what `-T svg` has. Groups lie within each other as objects do, to a depth; deeper objects have
// none. Ids within rich texts are made different from those of all others.
class GroupedSvg : public SvgRichText
{
public:
    // deepest: so many groups lie within each other at most.
    GroupedSvg(const OutputTarget &target, const DrawingExtras &drawingExtras, qsizetype deepest)
        : SvgRichText(target, drawingExtras), mostGroups(deepest)
    {
    }

    // Closes the groups that are still open.
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

    void endCluster() override { endObject(); }
    void endEdge() override { endObject(); }
    void endNode() override { endObject(); }
    bool supportsObjects() const override { return true; }

protected:
    // Begins an object. Whether it has a group, the start tag of which is then to be written.
    bool beginObject();
    // Whether what is drawn now belongs to an object without a group.
    bool isBelowGroups() const { return deeperObjects > 0; }

    // Ahead of each primitive, for some more than once. `box` is what it covers, found when it is
    // asked for.
    virtual void primitiveComes(const std::function<CoveredBox()> &box) = 0;
    // Ahead of the end tag of the innermost group.
    virtual void groupEnds() = 0;

    QString fragmentPrefix() override;

private:
    void endObject();

    qsizetype mostGroups; // within each other
    qsizetype openGroups = 0;
    qsizetype deeperObjects = 0; // that are open and have no group
    int richTextCount = 0;
};

} // namespace ORR::Graph
