#include "companion/syntax/misreadings.h"

#include "companion/findings/quoted_text.h"
#include "companion/syntax/source_tokens.h"
#include "companion/syntax/syntax_rules.h"
#include "graph/dot_tokenizer.h"

#include <algorithm>

namespace ORR::Companion {

using namespace Qt::StringLiterals;
using Graph::NodeMention;
using Graph::unquotedAt;

namespace {

// Whether a name that holds a colon looks like a node with a port, and not like a name of a
// programming language (a::b), a time (12:30) or a line of a file (a.c:12).
bool hasPort(QByteArrayView name)
{
    const qsizetype colon = name.indexOf(':');
    if (colon <= 0 || colon + 1 == name.size() || name.contains("::"))
        return false;
    const char next = name.at(colon + 1);
    return next < '0' || next > '9';
}

} // namespace

void Misreadings::add(const Rule &rule, qsizetype place, const QString &sentence,
                      const QString &suggestion)
{
    const qsizetype length = std::max<qsizetype>(unquotedAt(text, place).size(), 1);
    found->add({&rule, sentence, suggestion, place, place + length});
}

bool Misreadings::findComment(QByteArrayView name, qsizetype place)
{
    if (place < lastCommentEnd)
        return true;
    if (!beginsComment(name))
        return false;
    lastCommentEnd = commentEnd(text, place);
    add(SyntaxRules::comment, place, u"there are no comments here: this is read as nodes"_s,
        u"leave the comment out"_s);
    return true;
}

void Misreadings::findMinus(qsizetype place)
{
    const QByteArrayView name = unquotedAt(text, place);
    // The reader sees the byte behind the minus sign only as one that it steps over.
    const QString written =
        quotedText(name.size() > 1 ? name : QByteArrayView(text).sliced(place, 1));
    add(SyntaxRules::negativeNumber, place,
        u"the character behind the minus sign of "_s + written + u" is lost"_s,
        u"write it in quotes"_s);
}

void Misreadings::findInName(QByteArrayView name, qsizetype place, bool endOfEdge)
{
    if (name.startsWith("--")) {
        add(SyntaxRules::undirectedEdge, place, u"'--' makes no edge: it is read as a node"_s,
            u"write a -> b"_s);
    } else if (name.startsWith('-')) {
        findMinus(place);
    } else if (name.contains("->") || name.contains("--")) {
        if (name.contains("->"))
            add(SyntaxRules::arrowInName, place, quotedText(name) + u" is one name"_s,
                u"put a blank ahead of the arrow"_s);
    } else if (name.contains('[') || name.contains('{')) {
        add(SyntaxRules::bracketInName, place, quotedText(name) + u" is one name"_s,
            u"put a blank ahead of the bracket, or the name in quotes"_s);
    } else if (name.startsWith('<') && name.endsWith('>')) {
        add(SyntaxRules::htmlText, place, u"angle brackets quote nothing: they are read as text"_s,
            u"write the name in quotes"_s);
    } else if (endOfEdge && hasPort(name)) {
        add(SyntaxRules::port, place,
            u"there are no ports here: %1 is one name"_s.arg(quotedText(name)),
            u"leave the port out, or put the name in quotes"_s);
    }
}

void Misreadings::subgraphOpened(Graph::DotSubgraph *, qsizetype, qsizetype id)
{
    if (id >= 0)
        findInName(unquotedAt(text, id), id, false);
}

// Behind the last brace there is nothing, or what reads as the end of the text.
void Misreadings::subgraphClosed(Graph::DotSubgraph *subgraph, qsizetype brace)
{
    if (subgraph->parent)
        return;
    qsizetype next = brace + 1;
    while (next < text.size() && QByteArrayView(" \t\n").contains(text.at(next)))
        ++next;
    if (next < text.size() && (text.at(next) == '\0' || text.at(next) == '"'))
        add(SyntaxRules::unreadText, next, u"what stands from here on is not read"_s,
            u"leave it out"_s);
}

void Misreadings::nodeMentioned(Graph::DotNode *, NodeMention mention, bool, qsizetype place)
{
    const QByteArrayView name = unquotedAt(text, place);
    if (name.isEmpty() || findComment(name, place))
        return;
    findInName(name, place, mention != NodeMention::Statement);
}

void Misreadings::attributeRead(const Graph::AttributeMention &attribute)
{
    const QByteArrayView value = unquotedAt(text, attribute.valueOffset);
    if (value.isEmpty())
        return;
    if (value.startsWith('-'))
        findMinus(attribute.valueOffset);
    else if (value.startsWith('<') && value.endsWith('>'))
        add(SyntaxRules::htmlText, attribute.valueOffset,
            u"angle brackets quote nothing: they are read as text"_s,
            u"write the value in quotes"_s);
}

} // namespace ORR::Companion
