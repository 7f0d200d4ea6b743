#include "xdot/replay_support.h"

#include "device/xdot_render.h"
#include "graph/dot_parser.h"
#include "support/golden.h"
#include "support/recording_device.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

QString replayOn(const QByteArray &text, Device &device)
{
    std::unique_ptr<DotGraph> graph = parseDot(text);
    if (!graph)
        graph = std::make_unique<DotGraph>();
    return Graphviz::XDotRender(&device, graph.get()).render(text);
}

QStringList replayCalls(const QByteArray &text)
{
    RecordingDevice device;
    EXPECT_EQ(replayOn(text, device), u""_s);
    QStringList calls = device.calls();
    EXPECT_EQ(calls.takeLast(), u"end"_s);
    return calls;
}

QStringList nodeCalls(const QByteArray &attributes)
{
    const QStringList calls = replayCalls(page("n [" + attributes + "];"));
    EXPECT_EQ(calls.first(2), (QStringList{u"begin 108 58"_s, u"beginNode n"_s}));
    EXPECT_EQ(calls.constLast(), u"endNode"_s);
    return calls.sliced(2, calls.size() - 3);
}

QStringList drawCalls(const QByteArray &ops)
{
    return nodeCalls("_draw_=\"" + ops + "\"");
}

QStringList labelCalls(const QByteArray &ops)
{
    return nodeCalls("_ldraw_=\"" + ops + "\"");
}

QByteArray page(const QByteArray &statements)
{
    return "digraph \"g\" { graph [bb=\"0,0,100,50\", xdotversion=\"1.2\"]; " + statements + " }";
}
