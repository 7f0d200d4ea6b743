#include "graflib_support.h"

#include "graph/dot_parser.h"
#include "layout/graflib/graflib_decl.h"
#include "layout/graflib/graflib_tree.h"

#include <gtest/gtest.h>

using namespace ORR::Graph;

QString GraflibDrawing::ofNode(const QString &id, const QString &name) const
{
    const DotNode *node = graph->findNode(id);
    return node ? graph->nodeAttribute(node, name) : QStringLiteral("no such node");
}

QString GraflibDrawing::ofGraph(const QString &id, const QString &name) const
{
    const DotSubgraph *subgraph = id.isEmpty() ? graph->root() : graph->findSubgraph(id);
    return subgraph ? graph->graphAttribute(subgraph, name) : QStringLiteral("no such graph");
}

QString GraflibDrawing::ofEdge(const QString &tail, const QString &head, const QString &name) const
{
    const DotEdge *edge = graph->takeEdge(graph->findNode(tail), graph->findNode(head));
    return edge ? graph->edgeAttribute(edge, name) : QStringLiteral("no such edge");
}

double GraflibDrawing::number(const QString &nodeId, const QString &name) const
{
    return ofNode(nodeId, name).toDouble();
}

std::unique_ptr<DotGraph> parsed(const QByteArray &dot)
{
    auto graph = parseDot(dot);
    if (!graph) {
        ADD_FAILURE() << "the input of the test is rejected";
        graph = std::make_unique<DotGraph>();
    }
    return graph;
}

GraflibDrawing runTree(const QByteArray &dot, bool withExpanders)
{
    GraflibDrawing laid{parsed(dot), std::make_unique<RecordingDevice>(true, withExpanders), {}};
    laid.result = Layout::GraflibTree::run({laid.graph.get(), laid.device.get()});
    return laid;
}

GraflibDrawing runDecl(const QByteArray &dot, bool withExpanders)
{
    GraflibDrawing laid{parsed(dot), std::make_unique<RecordingDevice>(true, withExpanders), {}};
    laid.result = Layout::GraflibDecl::run({laid.graph.get(), laid.device.get()});
    return laid;
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the moved graph is the caller's
}

int RandomNumbers::below(int bound)
{
    state = state * 1664525u + 1013904223u;
    return static_cast<int>((quint64(state >> 8) * quint64(bound)) >> 24);
}
