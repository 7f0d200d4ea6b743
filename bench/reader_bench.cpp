// How fast the reader takes in a text, and how fast attributes are looked up by their numbers, as
// engines do.
//
//   cmake --preset release -DORR_BENCH=ON && cmake --build --preset release --target reader_bench
//   build/release/bench/reader_bench
#include "graph/dot_listener.h"
#include "graph/dot_parser.h"

#include <benchmark/benchmark.h>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// About `megabytes` of what producers write: groups of ten labelled nodes and an edge each.
QByteArray generated(qsizetype megabytes)
{
    QByteArray text = "digraph {\n  graph [width=\"800\"];\n  node [fontsize=\"9\"];\n";
    for (int i = 0; text.size() < megabytes << 20; ++i) {
        const QByteArray n = QByteArray::number(i);
        if (i % 10 == 0)
            text += "  subgraph \"cluster_" + n + "\" {\n    graph [label=\"Group " + n + "\"];\n";
        text += "    n" + n + " [label=\"file_" + n + ".cpp\", area=\""
            + QByteArray::number(i % 977) + "\", fillcolor=\"#AABBCC\"];\n";
        if (i % 10 == 9)
            text +=
                "    n" + n + " -> n" + QByteArray::number(i - 1) + " [style=\"dashed\"];\n  }\n";
    }
    // The last group may be open.
    for (qsizetype open = text.count('{') - text.count('}'); open > 0; --open)
        text += "}\n";
    return text;
}

void readText(benchmark::State &state)
{
    const QByteArray text = generated(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        const auto graph = parseDot(text);
        if (!graph)
            state.SkipWithError("the text was rejected");
        benchmark::DoNotOptimize(graph.get());
    }
    state.SetBytesProcessed(state.iterations() * text.size());
}

// The reading alone, without taking the graph apart again.
void readAndKeep(benchmark::State &state)
{
    const QByteArray text = generated(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        auto graph = parseDot(text);
        if (!graph)
            state.SkipWithError("the text was rejected");
        state.PauseTiming();
        graph.reset();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * text.size());
}

// With a listener that does nothing with what it hears.
void readAndTell(benchmark::State &state)
{
    const QByteArray text = generated(state.range(0));
    DotListener listener;
    for ([[maybe_unused]] auto _ : state) {
        const DotReading reading = parseDot(text, listener);
        if (!reading.graph)
            state.SkipWithError("the text was rejected");
        benchmark::DoNotOptimize(reading.graph.get());
    }
    state.SetBytesProcessed(state.iterations() * text.size());
}

// Looks up an attribute that only the root has, from the given depth.
void lookUp(benchmark::State &state)
{
    DotGraph graph;
    DotSubgraph *subgraph = graph.root();
    for (int i = 0; i < state.range(0); ++i) {
        subgraph = graph.createSubgraph(subgraph, {});
        graph.setGraphAttribute(subgraph, u"area"_s, u"1"_s);
    }
    DotNode *node = graph.createNode(subgraph, u"label"_s, {});
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(graph.nodeAttribute(node, "fillcolor"_attribute));
    state.SetItemsProcessed(state.iterations());
}

} // namespace

BENCHMARK(readText)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(readAndKeep)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(readAndTell)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK(lookUp)->Arg(1)->Arg(10)->Arg(100);

BENCHMARK_MAIN();
