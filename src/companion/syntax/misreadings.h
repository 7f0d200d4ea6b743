#pragma once

#include "companion/syntax/syntax_findings.h"
#include "graph/dot_listener.h"

#include <QByteArray>

namespace ORR::Companion {

// Hears a text while it is read and finds what the reader takes for something else than it says:
// comments that become nodes, ports that become a part of a name, and so on. A text that is
// rejected in the end has what was found ahead of its fault.
class Misreadings : public Graph::DotListener
{
public:
    // The text that is read, with its line ends normalised, and where what is found goes, in the
    // order of the text. Not owned.
    Misreadings(const QByteArray &read, SyntaxFindings *findings) : text(read), found(findings) { }

    // Where the first word of the graph stands.
    qsizetype root() const { return rootPlace; }

    void subgraphClosed(Graph::DotSubgraph *subgraph, qsizetype brace) override;
    void subgraphOpened(Graph::DotSubgraph *subgraph, qsizetype keyword, qsizetype id) override;
    void nodeMentioned(Graph::DotNode *node, Graph::NodeMention mention, bool first,
                       qsizetype place) override;
    void attributeRead(const Graph::AttributeMention &attribute) override;

private:
    bool findComment(QByteArrayView name, qsizetype place);
    void findInName(QByteArrayView name, qsizetype place, bool endOfEdge);
    void findMinus(qsizetype place);
    void add(const SyntaxRule &rule, qsizetype place, const QString &message,
             const QString &suggestion);

    QByteArray text;
    SyntaxFindings *found;
    qsizetype rootPlace = 0;
    qsizetype lastCommentEnd = 0; // behind the last comment that was found
};

} // namespace ORR::Companion
