#include "companion/check/check_text.h"

#include "companion/check/rules.h"
#include "companion/findings/finding_list.h"
#include "companion/findings/locate.h"
#include "companion/findings/nearest_word.h"
#include "companion/findings/quoted_text.h"
#include "drawing/layout_table.h"
#include "graph/dot_listener.h"
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

void findSyntaxError(const Graph::DotFault &fault, FindingList *findings)
{
    findings->add({&Rules::syntaxError, u"the text can't be read from here on"_s, QString(),
                   fault.offset, fault.end});
}

} // namespace

QList<Finding> checkText(const QByteArray &bytes, const CheckOptions &options)
{
    FindingList findings;
    Graph::DotListener listener;
    const Graph::DotReading reading = Graph::parseDot(bytes, listener);
    if (reading.fault)
        findSyntaxError(*reading.fault, &findings);
    if (!reading.graph || !isReplayed(*reading.graph))
        findUnknownEngine(options.engine, &findings);

    Graph::SourceText text(bytes);
    return located(findings.take(), &text);
}

} // namespace ORR::Companion
