#include "companion/syntax/misreadings.h"

#include "companion/findings/quoted_text.h"
#include "companion/syntax/syntax_rules.h"
#include "graph/dot_tokenizer.h"

#include <algorithm>

namespace ORR::Companion {

using namespace Qt::StringLiterals;
using Graph::NodeMention;
using Graph::unquotedAt;

namespace {

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

// A letter of a name as programming languages have it; all beyond ASCII are letters.
bool isWordByte(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || isDigit(byte)
        || byte == '_' || static_cast<unsigned char>(byte) >= 0x80;
}

bool hasWordBytesOnly(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), isWordByte);
}

bool isWord(QByteArrayView bytes)
{
    return !bytes.isEmpty() && !isDigit(bytes.front()) && hasWordBytesOnly(bytes);
}

// Where the port begins in a name that looks like a node with one, and not like a name of a
// programming language (a::b), a time (12:30), a line of a file (a.c:12), a service (host:8080) or
// an address (http://x). -1 for none.
qsizetype portOf(QByteArrayView name)
{
    const qsizetype colon = name.indexOf(':');
    if (colon <= 0 || colon + 1 == name.size() || name.contains("::"))
        return -1;
    const QByteArrayView port = name.sliced(colon + 1);
    if (!isDigit(port.front()))
        return isWordByte(port.front()) || port.front() == '"' ? colon : -1;
    const bool isOneDigit = port.size() == 1 || port.at(1) == ':';
    return isOneDigit && isWord(name.first(colon)) ? colon : -1;
}

// One that opens a text elsewhere: U+201C to U+201E.
bool opensWithTypographicQuote(QByteArrayView token)
{
    return token.startsWith("\u201c") || token.startsWith("\u201d") || token.startsWith("\u201e");
}

// A name as a suggestion has it.
QString written(QByteArrayView name)
{
    constexpr qsizetype longest = 40;
    return QString::fromUtf8(name.first(std::min(name.size(), longest)));
}

} // namespace

void Misreadings::add(const Rule &rule, qsizetype place, const QString &sentence,
                      const QString &suggestion)
{
    const qsizetype length = std::max<qsizetype>(unquotedAt(text, place).size(), 1);
    found->add({&rule, sentence, suggestion, place, place + length});
}

void Misreadings::addComment(qsizetype place, const QString &sentence)
{
    comment = {place, commentEnd(text, place)};
    add(SyntaxRules::comment, place, u"there are no comments here: "_s + sentence,
        u"leave the comment out"_s);
}

// The blank of "- >" is lost, so that both are one name; with more of them they are two.
bool Misreadings::findPartedArrow(qsizetype place)
{
    qsizetype head = place + 1;
    while (head < text.size() && QByteArrayView(" \t\n").contains(text.at(head)))
        ++head;
    const QByteArrayView behind = unquotedAt(text, head);
    if (head == place + 1 || !behind.startsWith('>'))
        return false;
    misread.end = head + behind.size();
    add(SyntaxRules::arrowInName, place, u"'- >' makes no edge: it is read as a node"_s,
        u"write a -> b"_s);
    return true;
}

void Misreadings::findMinus(qsizetype place)
{
    const QByteArrayView name = unquotedAt(text, place);
    // The reader sees the byte behind the minus sign only as one that it steps over.
    const QString number =
        quotedText(name.size() > 1 ? name : QByteArrayView(text).sliced(place, 1));
    add(SyntaxRules::negativeNumber, place,
        u"the character behind the minus sign of "_s + number + u" is lost"_s,
        u"write it in quotes"_s);
}

bool Misreadings::findPort(QByteArrayView name, qsizetype place)
{
    const QString port = quotedText(name);
    // Behind a quoted name the port is a name of its own.
    const bool isBehindQuote = place > 0 && text.at(place - 1) == '"';
    if (isBehindQuote && name.startsWith(':') && !name.startsWith("::") && name.size() > 1) {
        add(SyntaxRules::port, place,
            u"there are no ports here: %1 is a node of its own"_s.arg(port),
            u"leave the port out, or put it into the quotes ahead of it"_s);
    } else if (const qsizetype colon = portOf(name); colon > 0) {
        // A quoted port may have blanks, which make it several names.
        const QString whole =
            name.contains('"') ? u"the whole name in quotes"_s : u"\"%1\""_s.arg(written(name));
        add(SyntaxRules::port, place, u"there are no ports here: %1 is one name"_s.arg(port),
            u"write %1, or %2 if the colon is meant"_s.arg(written(name.first(colon)), whole));
    } else {
        return false;
    }
    const qsizetype quote = name.indexOf('"');
    const qsizetype end = place + name.size();
    if (quote >= 0 && name.indexOf('"', quote + 1) < 0)
        misread.end = std::max(end, text.indexOf('"', end) + 1);
    return true;
}

// Has to hear of each name, and of each value that is quoted.
void Misreadings::noteQuotes(qsizetype place)
{
    if (text.at(place) == '"') {
        lastQuoted = place;
        glued = Graph::nowhere;
    } else if (lastQuoted >= 0 && text.at(place - 1) == '"'
               && Graph::identifierEnd(text, lastQuoted) == place) {
        glued = place;
    }
}

// A quoted text that ends at a quote which is meant to open the next one leaves the quote behind
// that to a name: "a -> "b c";
void Misreadings::findQuote(QByteArrayView name, qsizetype place)
{
    const QString suggestion = u"look for a missing quote; write a quote within a name as \\\""_s;
    if (glued < 0) {
        add(SyntaxRules::quoteInName, place, quotedText(name) + u" is one name, with its quote"_s,
            suggestion);
        return;
    }
    const qsizetype lines =
        1 + QByteArrayView(text).sliced(lastQuoted, glued - lastQuoted).count('\n');
    const QString behind = quotedText(unquotedAt(text, glued));
    add(SyntaxRules::quoteInName, lastQuoted,
        lines > 1
            ? u"the text that opens here runs over %1 lines, and %2 is a name of its own"_s.arg(
                QString::number(lines), behind)
            : u"the text that opens here ends ahead of %1, which is a name of its own"_s.arg(
                behind),
        suggestion);
    glued = Graph::nowhere;
}

void Misreadings::findInWord(QByteArrayView name, qsizetype place, bool isNode)
{
    misread = {place, place + name.size()};
    if (name.startsWith("--")) {
        add(SyntaxRules::undirectedEdge, place, u"'--' makes no edge: it is read as a node"_s,
            u"write a -> b"_s);
    } else if (name.startsWith('-')) {
        if (!isNode || !findPartedArrow(place))
            findMinus(place);
    } else if (name.contains("<-")) {
        add(SyntaxRules::arrowInName, place,
            name == "<-" ? u"'<-' makes no edge: it is read as a node"_s
                         : quotedText(name) + u" is one name, and no edge"_s,
            u"write b -> a for an edge from b to a"_s);
    } else if (name.contains("->")) {
        add(SyntaxRules::arrowInName, place, quotedText(name) + u" is one name"_s,
            u"put a blank ahead of the arrow"_s);
    } else if (name.contains("--")) {
        add(SyntaxRules::undirectedEdge, place, quotedText(name) + u" is one name"_s,
            u"write a -> b, or the name in quotes"_s);
    } else if (name.contains('[') || name.contains('{')) {
        add(SyntaxRules::bracketInName, place, quotedText(name) + u" is one name"_s,
            u"put a blank ahead of the bracket, or the name in quotes"_s);
    } else if (name.startsWith('<') && name.endsWith('>')) {
        add(SyntaxRules::htmlText, place, u"angle brackets quote nothing: they are read as text"_s,
            u"write the name in quotes"_s);
    } else if (isNode && findPort(name, place)) {
        return;
    } else if (name.contains('"')) {
        findQuote(name, place);
    } else {
        misread = {};
    }
}

bool Misreadings::findTypographicQuote(QByteArrayView token, qsizetype place, const QString &what)
{
    if (!opensWithTypographicQuote(token) || isInComment(place) || isMisread(place))
        return false;
    misread = {place, place + token.size()};
    add(SyntaxRules::quoteInName, place,
        u"typographic quotes quote nothing: they are read as text"_s,
        u"write %1 in \"...\""_s.arg(what));
    return true;
}

// A comment may be glued to a name, which may have its own faults.
void Misreadings::findInName(qsizetype place, bool isNode)
{
    QByteArrayView name = unquotedAt(text, place);
    if (findTypographicQuote(name, place, u"the name"_s))
        return;
    // Nearly every name is done with here, in one pass.
    if (hasWordBytesOnly(name) || isInComment(place) || isMisread(place))
        return;
    const qsizetype start = commentInName(text, place);
    if (start == place)
        return addComment(place, u"this is read as nodes"_s);
    if (start < 0)
        return findInWord(name, place, isNode);
    name = name.first(start - place);
    findInWord(name, place, isNode);
    misread = {place, start};
    addComment(start, u"this is read as a part of the name"_s);
}

void Misreadings::subgraphOpened(Graph::DotSubgraph *, qsizetype, qsizetype id)
{
    if (id < 0)
        return;
    noteQuotes(id);
    findInName(id, false);
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

void Misreadings::nodeMentioned(Graph::DotNode *, NodeMention, bool, qsizetype place)
{
    noteQuotes(place);
    findInName(place, true);
}

void Misreadings::attributeRead(const Graph::AttributeMention &attribute)
{
    if (text.at(attribute.nameOffset) == '-' && !isInComment(attribute.nameOffset))
        findMinus(attribute.nameOffset);
    const qsizetype place = attribute.valueOffset;
    noteQuotes(place);
    const QByteArrayView value = unquotedAt(text, place);
    if (value.isEmpty() || isInComment(place) || findTypographicQuote(value, place, u"the value"_s))
        return;
    const qsizetype start =
        value.contains('/') ? commentInValue(text, place, attribute.name.text().toUtf8()) : -1;
    if (start >= 0)
        addComment(start, u"this is read as a part of the value"_s);
    else if (value.startsWith('-'))
        findMinus(place);
    else if (value.startsWith('<') && value.endsWith('>'))
        add(SyntaxRules::htmlText, place, u"angle brackets quote nothing: they are read as text"_s,
            u"write the value in quotes"_s);
    else if (value.endsWith('"') && value.count('"') == 1)
        add(SyntaxRules::quoteInName, place, quotedText(value) + u" is one value, with its quote"_s,
            u"look for a missing quote; write a quote within a value as \\\""_s);
}

} // namespace ORR::Companion
