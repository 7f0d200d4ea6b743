#include "drawing/job.h"

#include "device/xdot_render.h"
#include "drawing/layout_table.h"
#include "graph/dot_parser.h"

#include <new>
#include <optional>

using namespace Qt::StringLiterals;

namespace ORR::Drawing {

namespace {

Outcome outOfMemory()
{
    return {Outcome::Memory, u"Out of memory\n"_s};
}

Outcome ofDrawing(const QString &message)
{
    return {message.isEmpty() ? Outcome::None : Outcome::Drawing, message};
}

} // namespace

Graph::OutputTarget inMemory(QByteArray *bytes, Format format)
{
    bytes->clear();
    return {bytes, u"drawing."_s + formatRow(format).name};
}

Reading readGraph(const Job &job)
try {
    Graph::DotReading reading = Graph::readDot(job.input);
    if (reading.fault && reading.fault->cause == Graph::DotFault::Cause::OutOfMemory)
        return {nullptr, outOfMemory()};
    if (!reading.graph)
        return {nullptr, {Outcome::Input, u"Unable to parse dot input\n"_s}};
    Graph::DotGraph *const graph = reading.graph.get();
    if (job.htmlLabels)
        graph->declareAttribute(graph->root(), u"htmllabels"_s, u"on"_s, QString());
    return {std::move(reading.graph), {}};
} catch (const std::bad_alloc &) {
    return {nullptr, outOfMemory()};
}

// The device is made before the engine is chosen, and is gone with its output closed in the end.
Outcome drawGraph(const Job &job, Graph::DotGraph *graph, const Graph::OutputTarget &target)
try {
    const std::unique_ptr<Graph::Device> device =
        formatRow(job.format).create({target, job.homeDirectory, job.extras, graph});
    if (graph->root()->attributes.contains(u"xdotversion"_s))
        return ofDrawing(Graph::Graphviz::XDotRender(device.get(), graph).render(job.input));
    const std::optional<LayoutIndex> layout = chooseLayout(job.engine);
    if (!layout)
        return {Outcome::Engine,
                u"Layout required and layout engine not provided/available.\n\n"_s};
    return ofDrawing(layoutRow(*layout).run({graph, device.get()}));
} catch (const std::bad_alloc &) {
    return outOfMemory();
}

Outcome draw(const Job &job, const Graph::OutputTarget &target)
{
    const Reading reading = readGraph(job);
    return reading.graph ? drawGraph(job, reading.graph.get(), target) : reading.outcome;
}

} // namespace ORR::Drawing
