#pragma once

#include "device/device.h"
#include "device/replay_listener.h"
#include "device/replay_ops.h"
#include "device/replay_state.h"
#include "graph/dot_graph.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <vector>

namespace ORR::Graph {
class DotTokenizer;
}

namespace ORR::Graph::Graphviz {

struct DeferredAttribute;
struct DeferredAttributes;
class XDotReader;

// Draws a graph that has its drawing already: walks its DOT text once more and turns the xdot
// drawing attributes of each object into calls on a device. The parsed graph only serves to find
// the objects again, for the object protocol of the device.
//
// The grammar is that of `parseDot` but stricter in three respects: a keyword and an edge need an
// attribute list, a node without one needs a semicolon, and no semicolon follows the brace that
// closes a subgraph.
//
//   attribute             effect, in the object's statement and on what is drawn there
//   bb                    the first one begins the drawing, with a margin of four points around
//   _draw_ _ldraw_ _hdraw_ _tdraw_ _hldraw_ _tldraw_
//                         drawn in this order; texts are drawn from `_ldraw_` only
//   pos                   x of the object, points; for left-aligned texts
//   width                 width of the object, inches; likewise
//   color                 pen colour, also of texts
//   fillcolor             fill
//   fontname, fontsize    font
//   penwidth              whole points, truncated
//   style                 "solid", "dashed", "dotted", or "bold" for a pen two points wide
//   rounded               corner radius: four-cornered polygons become rounded rectangles
//
// Left-aligned texts of an object narrower than its "width" are all moved to one left edge, so that
// the block of them is centred on "pos".
class XDotRender
{
public:
    // Neither is owned.
    XDotRender(Device *drawingDevice, DotGraph *dotGraph) : device(drawingDevice), graph(dotGraph)
    {
    }
    virtual ~XDotRender() = default;
    XDotRender(const XDotRender &) = delete;
    XDotRender &operator=(const XDotRender &) = delete;

    // Replays the text and ends the drawing; to be called once. The result is that of the device's
    // `end`, or "Unable to parse input xdot" for a text that breaks the grammar: what stands ahead
    // of the fault is in the file all the same. A text without "bb" never begins its drawing.
    //
    // If the environment has ORR_SAVE_RENDER, an empty "render.txt" is made in the home directory.
    QString render(const QByteArray &bytes);

    // The same replay, which tells the listener what it reads and what is wrong with it, and makes
    // no "render.txt".
    QString render(const QByteArray &bytes, ReplayListener &hearer);

private:
    QString replay(const QByteArray &bytes);
    bool parse(const QByteArray &bytes);
    void parseBody(DotTokenizer &tokens);
    bool parseStatement(DotTokenizer &tokens);
    void parseKeyword(DotTokenizer &tokens, ReplayObjectKind kind);
    void openSubgraph(DotTokenizer &tokens);
    void parseObject(DotTokenizer &tokens);
    void parseObjectAttributes(DotTokenizer &tokens);
    void replayDeferred(const DeferredAttributes &deferred);
    void applyAttribute(QByteArrayView name, QByteArrayView value);
    void beginPage(QByteArrayView bb);
    void replayOps(ReplayObjectKind kind, const DeferredAttribute &ops);
    XDotReader readerOf(const DeferredAttribute &attribute);
    void enterPlain(ReplayObjectKind kind);
    void enterNode(const QString &id);
    void enterEdge(const QString &tail, const QString &head);
    void enterCluster(const QString &id);
    void leave();
    void placeTexts();
    ReplayState &state() { return states.back(); }

    bool bbPending = true;
    Device *device;
    DotGraph *graph;
    ReplayListener *listener = nullptr;
    std::vector<ReplayState> states; // the frames, innermost last
    int canvasWidth = 0;
    int canvasHeight = 0;
    bool withClusterMembers = true;
};

} // namespace ORR::Graph::Graphviz
