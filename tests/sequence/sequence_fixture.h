#pragma once

#include "device/graph_style.h"
#include "device/text_image.h"
#include "graph/dot_graph.h"
#include "graph/dot_parser.h"
#include "layout/sequence/uml_sequence.h"
#include "support/recording_device.h"

#include <memory>
#include <utility>

// A graph, a device and their style, to make single grid objects on.
struct Fixture
{
    ORR::Graph::DotGraph graph;
    RecordingDevice device;
    ORR::Graph::GraphStyle style{&graph, &device};

    ORR::Graph::DotNode *node(const QString &id, const QString &label = {})
    {
        return graph.createNode(graph.root(), label, id);
    }
    ORR::Graph::DotSubgraph *subgraph(const QString &id, const QString &label = {})
    {
        return graph.createCluster(graph.root(), label, id);
    }
    ORR::Graph::DotEdge *edge(ORR::Graph::DotNode *tail, ORR::Graph::DotNode *head,
                              const QString &label = {})
    {
        return graph.createEdge(tail, head, label);
    }

    // What the font gives for a line of a label, without any padding.
    QSize textSize(const QString &line)
    {
        return ORR::Graph::TextImage::textSize(line, device.defaultFont(), false);
    }
};

// The object, measured.
template <typename Object>
Object &&measured(Object &&object, const ORR::Graph::GraphStyle &style)
{
    object.measure(style);
    return std::forward<Object>(object);
}

// A whole DOT text that was drawn.
struct Drawing
{
    explicit Drawing(const QByteArray &dot) : graph(ORR::Graph::parseDot(dot))
    {
        if (graph)
            result = sequence.draw({graph.get(), &device});
    }

    QStringList calls(const QString &word) const { return device.callsOf(word); }

    std::unique_ptr<ORR::Graph::DotGraph> graph; // null if the text was rejected
    RecordingDevice device;
    ORR::Graph::Layout::UmlSequence sequence;
    QString result = QStringLiteral("not run");
};
