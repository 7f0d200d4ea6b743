#pragma once

#include "companion/findings/finding_list.h"
#include "graph/dot_listener.h"

#include <QByteArray>

namespace ORR::Companion {

// Hears a text while it is read and finds what the reader takes for something else than it says:
// comments that become nodes, ports that become a part of a name, and so on. A text that is
// rejected in the end has what was found ahead of its fault.
class Misreadings : public Graph::DotListener
{
public:
    // The text that is read, with its line ends normalised, and where what is found goes, which is
    // not owned.
    Misreadings(const QByteArray &read, FindingList *findings) : text(read), found(findings) { }

    void subgraphClosed(Graph::DotSubgraph *subgraph, qsizetype brace) override;
    void subgraphOpened(Graph::DotSubgraph *subgraph, qsizetype keyword, qsizetype id) override;
    void nodeMentioned(Graph::DotNode *node, Graph::NodeMention mention, bool first,
                       qsizetype place) override;
    void attributeRead(const Graph::AttributeMention &attribute) override;

private:
    bool findComment(QByteArrayView name, qsizetype place);
    void findInName(QByteArrayView name, qsizetype place, bool endOfEdge);
    void findMinus(qsizetype place);
    void add(const Rule &rule, qsizetype place, const QString &sentence, const QString &suggestion);

    QByteArray text;
    FindingList *found;
    qsizetype lastCommentEnd = 0; // behind the last comment that was found
};

} // namespace ORR::Companion
