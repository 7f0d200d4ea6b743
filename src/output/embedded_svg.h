#pragma once

#include "output/grouped_svg.h"

#include <QHash>
#include <QSet>

namespace ORR::Graph {

// SVG for a place within a page. Besides what the other devices of SVG write, it has a `viewBox`,
// with which it takes the size that the page gives it, a title and a description, and a group for
// each object:
//
//   <g id="node-a" class="node"><a xlink:href="https://...">...</a></g>
//
// Groups lie within each other as objects do, to a depth that all readers take; deeper objects have
// none. What an object draws itself is its link (see `linkAddress`), what is in it is not.
// Gradients are defined once, under an id that is a hash of what they are, so that several drawings
// of a page may define the same ones.
class EmbeddedSvg : public GroupedSvg
{
public:
    // graph: for the title and the description; may be null, is not owned and must live as long.
    explicit EmbeddedSvg(const OutputTarget &target, const DrawingExtras &drawingExtras = {},
                         const DotGraph *drawnGraph = nullptr);

    void begin(int width, int height) override;
    // They keep nothing: null.
    Cluster *createCluster(DotSubgraph *subgraph) override;
    Edge *createEdge(DotEdge *edge) override;
    Node *createNode(DotNode *node) override;

protected:
    QByteArray defineGradient(const Color *color) override;
    // What the innermost object draws comes into its link.
    void primitiveComes(const std::function<CoveredBox()> &box) override;
    void groupEnds() override;

private:
    struct Group
    {
        QByteArray address; // of its link; empty for none
        bool isLinkOpen = false;
    };

    void beginGroup(QByteArrayView kind, const QByteArray &name, const DotObject *object);
    void closeLink();

    const DotGraph *graph;
    QList<Group> groups;
    QHash<QByteArray, int> ids; // of objects, and how often each was asked for
    QSet<QByteArray> gradients; // that are defined, by their ids
};

} // namespace ORR::Graph
