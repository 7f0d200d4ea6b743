#include "companion/syntax/check_syntax.h"

#include "companion/syntax/misreadings.h"
#include "companion/syntax/rejections.h"
#include "companion/syntax/replay_rules.h"
#include "graph/dot_parser.h"
#include "graph/source_text.h"

namespace ORR::Companion {

using Graph::operator""_attribute;

SyntaxFindings checkSyntax(const QByteArray &input)
{
    const QByteArray text = Graph::withLineFeeds(input);
    SyntaxFindings findings;
    Misreadings misreadings(text, &findings);
    const Graph::DotReading reading = Graph::parseDot(text, misreadings);
    if (reading.fault) {
        const SyntaxFinding rejection = explained(*reading.fault, text);
        // A comment that breaks the text has become nodes too, and is told once.
        findings.removeAt(rejection.offset);
        findings.add(rejection);
    } else if (reading.graph->root()->attributes.contains("xdotversion"_attribute)) {
        checkReplay(text, reading.graph.get(), misreadings.root(), &findings);
    }
    findings.sortByPlace();
    return findings;
}

} // namespace ORR::Companion
