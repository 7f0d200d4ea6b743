#pragma once

#include "output/grouped_svg.h"

#include <QSize>

#include <vector>

namespace ORR::Graph {

// An object that was drawn.
struct DrawnObject
{
    // Not to be followed unless the graph has it: some engines make objects of their own for a
    // while. Null for none.
    const DotObject *object = nullptr;
    QString id; // as the drawing has it
    CoveredBox box; // of its own primitives and of those of the objects within it
};

// The drawing within a page that tells of its objects: the primitives of `-T svg`, but for
// rectangles, with a group for each object that names its kind and its id,
//
//   <g data-kind="node" data-id="a">...</g>
//
// and a list of these objects in the order of their groups. Groups lie within each other as objects
// do, to a depth that browsers take; deeper objects have none and are not listed. The id of an edge
// is "tail->head".
//
// Memory is in proportion to the objects.
class PageSvg : public GroupedSvg
{
public:
    // title: the name of the drawing for assistive software. rootId: that of the root, which has
    // none of its own.
    PageSvg(const OutputTarget &target, QString title, QString rootId);

    // Valid once the drawing has ended.
    const std::vector<DrawnObject> &objects() const { return drawnObjects; }
    QSize size() const { return pageSize; } // null if it was never begun
    // Of each plain text, a rich one beyond the limits among them, in the order of the drawing.
    const std::vector<QPoint> &textMiddles() const { return middlesOfTexts; }

    void begin(int width, int height) override;
    // They keep nothing: null.
    Cluster *createCluster(DotSubgraph *subgraph) override;
    Edge *createEdge(DotEdge *edge) override;
    Node *createNode(DotNode *node) override;
    // As a path, which a browser takes half the time to style; with a radius as it is. What
    // would have a side below zero is not seen in `-T svg`, and has a side of zero here.
    void drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill) override;
    void drawText(QPoint topLeft, Text *text) override;

protected:
    void primitiveComes(const std::function<CoveredBox()> &box) override;
    void groupEnds() override;

private:
    void beginGroup(QByteArrayView kind, const QString &id, const DotObject *object);

    QString drawingTitle;
    QString idOfRoot;
    QSize pageSize;
    std::vector<DrawnObject> drawnObjects;
    std::vector<QPoint> middlesOfTexts;
    std::vector<size_t> openObjects; // those with a group, innermost last
};

} // namespace ORR::Graph
