#pragma once

#include "device/graph_style.h"
#include "device/text_image.h"
#include "graph/dot_graph.h"
#include "graph/dot_parser.h"
#include "layout/sequence/uml_collecting.h"
#include "layout/sequence/uml_painter.h"
#include "layout/sequence/uml_sequence.h"
#include "support/recording_device.h"

#include <memory>

// A graph, a device and their style, to make single parts of a diagram on.
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

// The same with a diagram, to whose parts a test adds some.
struct DiagramFixture : Fixture
{
    ORR::Graph::Layout::UmlDiagram diagram;
    ORR::Graph::Layout::UmlParts &parts = diagram.parts;

    // The place of the node in the list.
    qsizetype add(const ORR::Graph::Layout::UmlNode &node)
    {
        parts.nodes.append(node);
        return parts.nodes.size() - 1;
    }
    // The size of a label of one line with its padding.
    QSize labelSize(const QString &line) { return ORR::Graph::Layout::paddedSize(textSize(line)); }

    // Measures all parts.
    void measure()
    {
        diagram.labels = ORR::Graph::Layout::measureLabels(parts, style);
        diagram.extents = ORR::Graph::Layout::extentsOf(parts);
    }
    // The calls that draw the parts, measured here, on those anchors.
    QStringList paint(const QList<int> &columns, const QList<int> &rows)
    {
        measure();
        diagram.anchors = {columns, rows};
        ORR::Graph::Layout::paintUml(diagram, style, &device);
        return device.calls();
    }
};

// A whole DOT text that was drawn.
struct Drawing
{
    explicit Drawing(const QByteArray &dot) : graph(ORR::Graph::parseDot(dot))
    {
        if (!graph)
            return;
        result = ORR::Graph::Layout::UmlSequence::run({graph.get(), &device});
        ORR::Graph::Layout::collectUml(graph.get(), parts);
    }

    QStringList calls(const QString &word) const { return device.callsOf(word); }

    std::unique_ptr<ORR::Graph::DotGraph> graph; // null if the text was rejected
    RecordingDevice device;
    ORR::Graph::Layout::UmlParts parts; // as they are before they are measured
    QString result = QStringLiteral("not run");
};
