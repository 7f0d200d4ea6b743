#include "companion/check/check_text.h"

#include "companion/check/attribute_rules.h"
#include "companion/check/checked_text.h"
#include "companion/check/drawing_rules.h"
#include "companion/check/drawing_toolkit.h"
#include "companion/check/listener_pair.h"
#include "companion/check/object_rules.h"
#include "companion/check/replay_names.h"
#include "companion/check/rules.h"
#include "companion/findings/finding_list.h"
#include "companion/findings/locate.h"
#include "companion/findings/nearest_word.h"
#include "companion/findings/quoted_text.h"
#include "companion/syntax/misreadings.h"
#include "companion/syntax/rejections.h"
#include "drawing/job.h"
#include "drawing/layout_table.h"
#include "graph/dot_parser.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// Whether the text brings its layout, so that no engine is asked for.
bool isReplayed(const Graph::DotGraph &graph)
{
    return graph.root()->attributes.contains(u"xdotversion"_s);
}

void findUnknownEngine(const QString &engine, FindingList *findings)
{
    if (engine.isEmpty() || Drawing::chooseLayout(engine))
        return;
    const QStringList engines = Drawing::layoutNames();
    const QString suggestion = didYouMean(engine, engines);
    findings->add(
        {&Rules::unknownEngine, "unknown engine "_L1 + quotedText(engine),
         suggestion.isEmpty() ? "the engines are "_L1 + engines.join(", "_L1) : suggestion});
}

// What was found behind the place that is to blame follows from it: a comment that breaks the text
// has become nodes first, and a text without its closing quote has turned texts into names.
void findRejection(const Graph::DotFault &fault, const QByteArray &bytes, FindingList *findings)
{
    const Finding rejection = explained(fault, bytes);
    findings->removeFrom(rejection.offset);
    findings->add(rejection);
}

// It stays within reach, so that no leak checker takes it for lost.
void keepForever(std::unique_ptr<Graph::DotGraph> graph)
{
    static auto *const kept = new std::vector<Graph::DotGraph *>;
    kept->push_back(graph.release());
}

} // namespace

QList<Finding> checkText(const QByteArray &bytes, const CheckOptions &options)
{
    // Which texts are replayed, and so drawn, nobody knows before they are read.
    prepareDrawingToolkit();
    Graph::SourceText source(bytes);
    const QByteArray &text = source.bytes();
    FindingList findings;
    Misreadings misreadings(text, &findings);
    CheckedText checked(&misreadings);
    ListenerPair listeners(misreadings, checked);
    Graph::DotReading reading = Graph::parseDot(text, listeners);
    Graph::DotGraph *const graph = reading.graph.get();
    if (reading.fault)
        findRejection(*reading.fault, text, &findings);
    const std::function<QByteArray()> lastWords = [&] {
        FindingList soFar = findings;
        return options.lastWords ? options.lastWords(located(soFar.take(), &source)) : QByteArray();
    };
    const DrawingRules drawing(checked, text, graph, &findings, lastWords);
    if (graph && isReplayed(*graph)) {
        checkReplayedNames(checked, text, &findings);
        drawing.checkReplayed();
    } else {
        findUnknownEngine(options.engine, &findings);
        if (graph) {
            checkAttributes(checked, text, options.engine, &findings);
            checkObjects({checked, text, *graph, options.engine.toLower()}, &findings);
            drawing.checkLayout(options.engine);
        }
    }
    if (options.isLast)
        keepForever(std::move(reading.graph));
    return located(findings.take(), &source);
}

QString engineNamedBy(const QByteArray &bytes)
{
    prepareDrawingToolkit();
    const Drawing::Reading reading = Drawing::readGraph({.input = bytes});
    return reading.graph ? reading.graph->root()->attributes.value(u"layout"_s) : QString();
}

} // namespace ORR::Companion
