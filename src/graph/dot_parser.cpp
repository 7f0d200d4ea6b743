#include "graph/dot_parser.h"

#include "graph/dot_listener.h"
#include "graph/dot_texts.h"
#include "graph/dot_tokenizer.h"
#include "graph/limits.h"

#include <QSet>

#include <utility>

namespace ORR::Graph {

namespace {

// Nobody listens: whatever is done for a listener only is compiled away.
struct Nobody
{
    static constexpr bool listens = false;
};

struct Listening
{
    static constexpr bool listens = true;
    DotListener &listener;
};

// What attributes are given to, and the map that they go into.
struct Target
{
    AttributeMap &attributes;
    AttributeTarget kind;
    DotNode *node = nullptr;
    DotEdge *edge = nullptr;
    DotSubgraph *subgraph = nullptr;
};

struct MentionedNode
{
    DotNode *node;
    bool first;
    qsizetype place;
};

template <typename Audience>
class DotParser
{
public:
    DotParser(const QByteArray &input, Audience hearers) : tokens(input), audience(hearers) { }

    std::unique_ptr<DotGraph> parse();
    // After `parse` has thrown a rejection.
    DotFault fault() const { return tokens.fault(); }

private:
    void openRoot();
    void parseBody();
    void parseStatement();
    bool parseDefaults(QByteArrayView keyword);
    void openSubgraph();
    void closeSubgraph();
    void parseObject();
    void parseAttributes(const Target &target);
    void parseAttribute(const Target &target);
    QString takeValue();
    AttributeName takeName();
    MentionedNode takeNode();

    void tellNode(const MentionedNode &mentioned, NodeMention mention);
    bool givenBefore(const Target &target, const AttributeName &name);

    DotTokenizer tokens;
    Audience audience;
    std::unique_ptr<DotGraph> graph = std::make_unique<DotGraph>();
    DotSubgraph *current = graph->root(); // the innermost open subgraph
    DotTexts texts;
    QSet<std::pair<int, QString>> givenToRoot; // by target; kept for a listener only
};

template <typename Audience>
std::unique_ptr<DotGraph> DotParser<Audience>::parse()
{
    openRoot();
    parseBody();
    tokens.expect(DotToken::End);
    return std::move(graph);
}

template <typename Audience>
void DotParser<Audience>::openRoot()
{
    const qsizetype keyword = tokens.offset();
    QString name;
    const qsizetype id = tokens.takeGraphHead(&name);
    graph->setName(name);
    tokens.take(DotToken::OpenBrace);
    if constexpr (Audience::listens)
        audience.listener.subgraphOpened(current, keyword, id);
}

// From behind the root's open brace to behind its close brace. The subgraphs that are open are
// `current` and its ancestors, so that no nesting is too deep.
template <typename Audience>
void DotParser<Audience>::parseBody()
{
    while (current) {
        if (tokens.is(DotToken::CloseBrace))
            closeSubgraph();
        else
            parseStatement();
    }
}

template <typename Audience>
void DotParser<Audience>::parseStatement()
{
    tokens.expect(DotToken::Identifier);
    const QByteArrayView word = tokens.text();
    if (word == QByteArrayView("subgraph")) {
        openSubgraph();
        return;
    }
    if (!parseDefaults(word))
        parseObject();
    tokens.takeIf(DotToken::Semicolon);
}

// False if the word is none of the keywords that set defaults.
template <typename Audience>
bool DotParser<Audience>::parseDefaults(QByteArrayView keyword)
{
    const auto set = [this](AttributeMap &map, AttributeTarget kind) {
        if constexpr (Audience::listens)
            audience.listener.keywordRead(kind, current, tokens.offset());
        tokens.next();
        parseAttributes({.attributes = map, .kind = kind, .subgraph = current});
        return true;
    };
    if (keyword == QByteArrayView("edge"))
        return set(current->edgeDefaults, AttributeTarget::EdgeDefaults);
    if (keyword == QByteArrayView("node"))
        return set(current->nodeDefaults, AttributeTarget::NodeDefaults);
    if (keyword == QByteArrayView("graph"))
        return set(current->attributes, AttributeTarget::Subgraph);
    return false;
}

template <typename Audience>
void DotParser<Audience>::openSubgraph()
{
    const qsizetype keyword = tokens.offset();
    tokens.next();
    const qsizetype idPlace = tokens.kind() == DotToken::Identifier ? tokens.offset() : nowhere;
    const QString id = tokens.takeIdentifierIfAny();
    current = graph->createSubgraph(current, id);
    tokens.take(DotToken::OpenBrace);
    if constexpr (Audience::listens)
        audience.listener.subgraphOpened(current, keyword, idPlace);
}

template <typename Audience>
void DotParser<Audience>::closeSubgraph()
{
    if constexpr (Audience::listens)
        audience.listener.subgraphClosed(current, tokens.offset());
    tokens.next();
    current = current->parent;
    if (current)
        tokens.takeIf(DotToken::Semicolon);
}

template <typename Audience>
void DotParser<Audience>::parseObject()
{
    const MentionedNode node = takeNode();
    if (!tokens.takeIf(DotToken::Arrow)) {
        tellNode(node, NodeMention::Statement);
        parseAttributes({.attributes = node.node->attributes,
                         .kind = AttributeTarget::Node,
                         .node = node.node});
        return;
    }
    tellNode(node, NodeMention::Tail);
    const MentionedNode head = takeNode();
    tellNode(head, NodeMention::Head);
    DotEdge *edge = graph->createEdge(node.node, head.node, QString());
    if constexpr (Audience::listens)
        audience.listener.edgeRead(edge, node.place, head.place);
    parseAttributes({.attributes = edge->attributes, .kind = AttributeTarget::Edge, .edge = edge});
}

template <typename Audience>
void DotParser<Audience>::parseAttributes(const Target &target)
{
    if (!tokens.takeIf(DotToken::OpenBracket))
        return;
    while (!tokens.takeIf(DotToken::CloseBracket))
        parseAttribute(target);
}

template <typename Audience>
void DotParser<Audience>::parseAttribute(const Target &target)
{
    const qsizetype namePlace = tokens.offset();
    const AttributeName name = takeName();
    tokens.take(DotToken::Equals);
    const qsizetype valuePlace = tokens.offset();
    const QString value = takeValue();
    if constexpr (Audience::listens) {
        const bool replaces = givenBefore(target, name);
        target.attributes.insert(name, value);
        audience.listener.attributeRead({.target = target.kind,
                                         .node = target.node,
                                         .edge = target.edge,
                                         .subgraph = target.subgraph,
                                         .name = name,
                                         .value = value,
                                         .nameOffset = namePlace,
                                         .valueOffset = valuePlace,
                                         .replaces = replaces});
    } else {
        target.attributes.insert(name, value);
    }
    tokens.takeIf(DotToken::Comma);
}

// Whether the text gave a value before. The root has some from the start, so that what the text
// gives to it is noted.
template <typename Audience>
bool DotParser<Audience>::givenBefore(const Target &target, const AttributeName &name)
{
    if (target.subgraph != graph->root())
        return target.attributes.contains(name);
    const std::pair key(int(target.kind), name.text());
    const bool before = givenToRoot.contains(key);
    givenToRoot.insert(key);
    return before;
}

template <typename Audience>
void DotParser<Audience>::tellNode(const MentionedNode &mentioned, NodeMention mention)
{
    if constexpr (Audience::listens)
        audience.listener.nodeMentioned(mentioned.node, mention, mentioned.first, mentioned.place);
}

template <typename Audience>
QString DotParser<Audience>::takeValue()
{
    tokens.expect(DotToken::Identifier);
    const QString value = texts.value(tokens.text());
    tokens.next();
    return value;
}

template <typename Audience>
AttributeName DotParser<Audience>::takeName()
{
    tokens.expect(DotToken::Identifier);
    AttributeName name = texts.name(tokens.text());
    tokens.next();
    return name;
}

// The node of the next id, made if it is the first time.
template <typename Audience>
MentionedNode DotParser<Audience>::takeNode()
{
    tokens.expect(DotToken::Identifier);
    MentionedNode mentioned{nullptr, false, tokens.offset()};
    mentioned.node = graph->findOrCreateNode(current, texts.id(tokens.text()), &mentioned.first);
    tokens.next();
    return mentioned;
}

// The fault of a text that cannot be read as a whole.
DotFault wholeText(DotFault::Cause cause)
{
    return {
        .cause = cause, .offset = 0, .end = 0, .found = DotToken::End, .text = {}, .expected = {}};
}

template <typename Audience>
DotReading readingOf(const QByteArray &input, Audience audience)
{
    if (input.size() > Limits::longestInput)
        return {nullptr, wholeText(DotFault::Cause::TooLong)};
    try {
        DotParser parser(input, audience);
        try {
            return {parser.parse(), std::nullopt};
        } catch (int) {
            return {nullptr, parser.fault()};
        }
    } catch (...) {
        // A text that takes more memory than there is.
        return {nullptr, wholeText(DotFault::Cause::OutOfMemory)};
    }
}

} // namespace

std::unique_ptr<DotGraph> parseDot(const QByteArray &input)
{
    return readDot(input).graph;
}

DotReading readDot(const QByteArray &input)
{
    return readingOf(input, Nobody());
}

DotReading parseDot(const QByteArray &input, DotListener &listener)
{
    return readingOf(input, Listening{listener});
}

} // namespace ORR::Graph
