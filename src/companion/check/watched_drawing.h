#pragma once

#include "device/text_image.h"

#include <QRectF>
#include <QSize>

#include <map>
#include <optional>
#include <vector>

namespace ORR::Companion {

// A device that draws nothing and keeps what can be said of a drawing before it is made: how large
// it is, whether anything of it can be seen, what of which object is missing.
//
// Nothing is kept of a primitive. Of an object two facts are, which take memory in proportion
// to what is drawn.
class WatchedDrawing : public Graph::TextImage
{
public:
    // Of a layout. The legend, which may be null, explains a drawing and is none: what is drawn for
    // it does not count. Neither is owned.
    WatchedDrawing(const Graph::DotGraph *dotGraph, const Graph::DotSubgraph *legendSubgraph)
        : graph(dotGraph), legend(legendSubgraph)
    {
    }

    // Of a replay, of whose objects nothing is known but the first ones of texts. Without fonts no
    // text is measured: each has a size of its own, and none is rich.
    enum class Fonts { Missing, There };
    explicit WatchedDrawing(Fonts there) : hasFonts(there == Fonts::There) { }

    // What the drawing was begun with; nothing if it never was.
    std::optional<QSize> page() const { return begunPage; }

    // Whether there is a shape or a text that has a size, and whether one of them lies on the page,
    // if only in part.
    bool drawsSomething() const { return hasPrimitive; }
    bool showsSomething() const { return hasPrimitiveOnPage; }

    // Whether such a thing was drawn for the node, also one beside the page; whether the node or
    // the cluster has a label, and was ended without any text. Known once the drawing has ended.
    bool draws(const Graph::DotNode *node) const;
    bool isUnlabelled(const Graph::DotObject *object) const;
    bool hasUnlabelled() const { return !unlabelledObjects.empty(); }

    // Texts of a kind, and the object for which the first of them is drawn, null for none.
    struct Texts
    {
        qint64 count = 0;
        const Graph::DotObject *first = nullptr;
    };
    // Rich texts beyond their limits, which devices draw without their markup.
    const Texts &tooDearTexts() const { return tooDear; }
    // Pictures of the other rich texts that the texts don't hold, which are empty boxes.
    const Texts &missingPictures() const { return missing; }

    // The families of texts that are drawn, the first hundred, each with the object for which the
    // first such text is, null for none.
    using Families = std::map<QString, const Graph::DotObject *>;
    const Families &families() const { return drawnFamilies; }

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
    void endCluster() override;
    void endEdge() override;
    void endNode() override;
    bool supportsObjects() const override { return true; }
    Cluster *createCluster(Graph::DotSubgraph *subgraph) override;
    Edge *createEdge(Graph::DotEdge *edge) override;
    Node *createNode(Graph::DotNode *node) override;

private:
    // An object that was begun and not yet ended: a node, a cluster or, with neither, an edge.
    struct Open
    {
        const Graph::DotNode *node = nullptr;
        const Graph::DotSubgraph *cluster = nullptr;
        bool isOfLegend = false;
        bool isDrawn = false;
        bool hasText = false;
    };

    void open(Open object);
    template <typename Object>
    void close(const Object *object);
    void watchShape(const QRectF &bounds);
    void watchText(QPoint topLeft, const Text *text, bool rich);
    void watch(const QRectF &bounds);
    void watchFamily(const QString &family);
    const Graph::DotObject *innermostObject() const;
    void count(Texts *counted, qint64 more) const;

    const Graph::DotGraph *graph = nullptr; // null for a replay
    const Graph::DotSubgraph *legend = nullptr;
    bool hasFonts = true;
    std::optional<QSize> begunPage;
    bool hasPrimitive = false;
    bool hasPrimitiveOnPage = false;
    std::vector<Open> openObjects; // innermost last
    // Sorted by address in the end, which takes a fraction of the time of hashing them.
    std::vector<const Graph::DotObject *> drawnNodes;
    std::vector<const Graph::DotObject *> unlabelledObjects;
    Texts tooDear;
    Texts missing;
    Families drawnFamilies;
    QString lastFamily;
};

} // namespace ORR::Companion
