// Hostile ids of graphs, clusters, nodes and ports. They are written into xdot alone, and there as
// they are.
#include "device/xdot_render.h"
#include "graph/dot_parser.h"
#include "graph/subgraph_walk.h"
#include "markup/drawing.h"
#include "support/breaking_texts.h"
#include "support/golden.h"

#include <QTemporaryDir>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

// A graph that the engine draws, with the text in all of its ids.
QByteArray graphFor(Drawing::LayoutIndex layout, const QByteArray &text)
{
    const auto id = [&](const QByteArray &prefix) { return quotedInGraph(prefix + text); };
    const QByteArray ends[] = {
        id("n") + " [label=n area=4 shape=rectangle uml=object row=0 col=0]; ",
        id("m") + " [label=m area=2 shape=rectangle uml=object row=0 col=1]; " + id("n:p")
            + " [label=p area=1 shape=rectangle uml=object row=1 col=0]; ",
    };
    const auto cluster = [&](const QByteArray &prefix, const QByteArray &nodes) {
        return "subgraph " + id(prefix) + " { graph [label=c row=0 color=black"
            + (prefix == "c" ? " uml=combinedfragment col=0" : " uml=section col=1") + "]; " + nodes
            + "} ";
    };
    // Trees have no subgraphs, and in a sequence nothing stands in one that is no fragment.
    const QByteArray all = ends[0] + ends[1];
    const QByteArray nodes = layout == Drawing::LayoutIndex::GfTree ? all
        : layout == Drawing::LayoutIndex::UmlSeq ? all + cluster("c", cluster("d", {}))
                                                 : cluster("c", ends[0]) + cluster("d", ends[1]);
    return "digraph " + id("g") + " { " + nodes + id("n") + " -> " + id("m")
        + " [label=e uml=message lhead=" + id("c") + " ltail=" + id("d") + "]; " + id("m") + " -> "
        + id("n:p") + " [label=f uml=message]; }";
}

// What of the text can stand in an id without quotes.
QByteArray asPlainId(const QByteArray &text)
{
    QByteArray id;
    for (const char c : text) {
        if (!QByteArrayView("\t\n ,;=]}\"").contains(c))
            id += c;
    }
    return id;
}

QStringList idsOf(const QByteArray &dot)
{
    const std::unique_ptr<Graph::DotGraph> graph = Graph::parseDot(dot);
    EXPECT_TRUE(graph) << dot.toStdString();
    QStringList ids;
    if (!graph)
        return ids;
    for (const Graph::DotSubgraph *subgraph : subgraphsInPreorder(graph->root())) {
        ids += subgraph->id;
        for (const Graph::DotNode *node : subgraph->nodes)
            ids += node->id;
        for (const Graph::DotEdge *edge : subgraph->edges)
            ids += edge->tail->id + u"->"_s + edge->head->id;
    }
    return ids;
}

} // namespace

TEST(HostileStrings, in_ids_leave_no_trace_but_in_xdot)
{
    for (const Drawing::LayoutIndex layout : allLayouts()) {
        for (const Drawing::Format format : allFormats()) {
            if (format == Drawing::Format::XDot)
                continue;
            const ReadDrawing expected = drawingOf(format, layout, graphFor(layout, "x"));
            EXPECT_TRUE(isPicture(format) || expected.reading.drawn > 1);
            for (const QByteArray &text : breakingTexts())
                EXPECT_EQ(fileOf(format, layout, graphFor(layout, text)).bytes, expected.bytes)
                    << Drawing::layoutRow(layout).name.data() << ' ' << text.toStdString();
        }
    }
}

TEST(HostileStrings, in_ids_without_quotes_come_back_from_xdot)
{
    for (const Drawing::LayoutIndex layout : allLayouts()) {
        const QStringList plain =
            idsOf(fileOf(Drawing::Format::XDot, layout, graphFor(layout, "x")).bytes);
        EXPECT_GT(plain.size(), 2);
        for (const QByteArray &text : breakingTexts()) {
            const QByteArray id = asPlainId(text);
            const QByteArray xdot =
                fileOf(Drawing::Format::XDot, layout, graphFor(layout, id)).bytes;
            QStringList ids = idsOf(xdot);
            for (QString &each : ids)
                each.replace(QString::fromUtf8(id), u"x"_s);
            EXPECT_EQ(ids, plain) << xdot.toStdString();
            const ReadDrawing replayed = drawingOf(Drawing::Format::Svg, {}, xdot);
            EXPECT_GT(replayed.reading.drawn, 1);
        }
    }
}

// The file is whole, with the ids as they are.
TEST(HostileStrings, in_ids_with_quotes_stand_in_xdot_as_they_are)
{
    for (const Drawing::LayoutIndex layout : allLayouts()) {
        for (const QByteArray &text : breakingTexts()) {
            const QByteArray xdot =
                fileOf(Drawing::Format::XDot, layout, graphFor(layout, text)).bytes;
            EXPECT_TRUE(xdot.contains("n" + QString::fromUtf8(text).toUtf8() + ' '))
                << xdot.toStdString();
            EXPECT_TRUE(xdot.endsWith("}\n"));
        }
    }
}
