#pragma once

#include "companion/findings/finding_list.h"
#include "companion/syntax/comments.h"
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

    // Of what was heard last: whether the name at this place is a word of a comment, or one that
    // was told of. What else could be said of such a name follows from that.
    bool isInComment(qsizetype place) const
    {
        return place >= comment.offset && place < comment.end;
    }
    bool isMisread(qsizetype place) const { return place >= misread.offset && place < misread.end; }
    // Whether it is a port of the quoted name that was heard ahead of it.
    bool isPortOfQuoted(qsizetype place) const
    {
        return isMisread(place) && place > 0 && text.at(place) == ':' && text.at(place - 1) == '"';
    }

    void subgraphClosed(Graph::DotSubgraph *subgraph, qsizetype brace) override;
    void subgraphOpened(Graph::DotSubgraph *subgraph, qsizetype keyword, qsizetype id) override;
    void nodeMentioned(Graph::DotNode *node, Graph::NodeMention mention, bool first,
                       qsizetype place) override;
    void attributeRead(const Graph::AttributeMention &attribute) override;

private:
    void findInName(qsizetype place, bool isNode);
    void findInWord(QByteArrayView name, qsizetype place, bool isNode);
    bool findPort(QByteArrayView name, qsizetype place);
    void findQuote(QByteArrayView name, qsizetype place);
    void noteQuotes(qsizetype place);
    bool findPartedArrow(qsizetype place);
    void findMinus(qsizetype place);
    bool findTypographicQuote(QByteArrayView token, qsizetype place, const QString &what);
    void addComment(qsizetype place, const QString &sentence);
    void add(const Rule &rule, qsizetype place, const QString &sentence, const QString &suggestion);

    QByteArray text;
    FindingList *found;
    SourceRange comment; // the last one that was found
    SourceRange misread; // the last name that something was told of
    // The last quoted name or value, and the unquoted name that is glued to it.
    qsizetype lastQuoted = Graph::nowhere;
    qsizetype glued = Graph::nowhere;
};

} // namespace ORR::Companion
