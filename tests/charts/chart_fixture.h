#pragma once

#include "graph/dot_parser.h"
#include "layout/layout_context.h"
#include "support/golden.h"
#include "support/recording_device.h"

#include <gtest/gtest.h>

#include <QString>

#include <memory>

// The graph of a DOT text that is known to be good.
inline std::unique_ptr<ORR::Graph::DotGraph> graphOf(const QByteArray &dot)
{
    std::unique_ptr<ORR::Graph::DotGraph> graph = ORR::Graph::parseDot(dot);
    EXPECT_TRUE(graph) << dot.left(200).toStdString();
    return graph;
}

// What an engine draws of a DOT text, call by call.
template <typename Engine>
QStringList callsOfDrawing(const QByteArray &dot)
{
    const std::unique_ptr<ORR::Graph::DotGraph> graph = graphOf(dot);
    RecordingDevice device;
    EXPECT_EQ(Engine::run({graph.get(), &device}), QString());
    return device.calls();
}
