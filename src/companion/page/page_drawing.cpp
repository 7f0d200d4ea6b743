#include "companion/page/page_drawing.h"

#include "companion/page/compact_drawing.h"
#include "companion/page/dark_classes.h"
#include "companion/page/given_attributes.h"
#include "companion/page/page_data.h"
#include "companion/page/page_document.h"
#include "device/xdot_render.h"
#include "drawing/held_standard_error.h"
#include "drawing/job.h"
#include "drawing/layout_table.h"
#include "output/graph_summary.h"
#include "output/page_svg.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// The message is empty for success.
QString draw(const QByteArray &input, Graph::DotGraph *graph,
             std::optional<Drawing::LayoutIndex> engine, Graph::Device *device)
{
#ifndef __SANITIZE_ADDRESS__
    // The libraries of pictures complain there about those that an input holds.
    const Drawing::HeldStandardError held;
#endif
    return engine ? Drawing::layoutRow(*engine).run({graph, device})
                  : Graph::Graphviz::XDotRender(device, graph).render(input);
}

QString titleOf(const PageRequest &request, const Graph::DotGraph *graph)
{
    for (const QString &title : {request.title, Graph::graphTitle(graph)}) {
        if (const QString line = title.simplified(); !line.isEmpty())
            return line;
    }
    return request.fallbackTitle;
}

QString engineFault(const QString &engine)
{
    return engine.isEmpty() ? u"no engine is given: -K names one, or \"layout\" of the graph"_s
                            : u"there is no engine '"_s + engine + u'\'';
}

} // namespace

MadePage makePage(const PageRequest &request)
{
    const Drawing::Reading reading =
        Drawing::readGraph({.input = request.input, .htmlLabels = request.htmlLabels});
    Graph::DotGraph *const graph = reading.graph.get();
    if (!graph)
        return {{}, reading.outcome.message.trimmed()};
    const bool isReplayed = graph->root()->attributes.contains(u"xdotversion"_s);
    const QString named =
        request.engine.isEmpty() ? graph->root()->attributes.value(u"layout"_s) : request.engine;
    const auto engine = isReplayed ? std::nullopt : Drawing::chooseLayout(named);
    if (!isReplayed && !engine)
        return {{}, engineFault(named)};

    const GivenAttributes given(*graph);
    PageContent content{.title = titleOf(request, graph)};
    const QString name = graph->name();
    Graph::PageSvg device(&content.drawing, content.title, name.isEmpty() ? content.title : name);
    if (const QString fault = draw(request.input, graph, engine, &device); !fault.isEmpty())
        return {{}, fault.trimmed()};
    const QString engineName = engine ? QString(Drawing::layoutRow(*engine).name) : QString();
    content.rules =
        addDarkClasses(&content.drawing, device.textMiddles(), engineName == u"matrix"_s);
    compactDrawing(&content.drawing);
    content.data = pageData(engineName, *graph, given, device);
    return {pageDocument(content), {}};
}

} // namespace ORR::Companion
