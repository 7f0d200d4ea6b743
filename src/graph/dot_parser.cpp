#include "graph/dot_parser.h"

#include "graph/dot_tokenizer.h"
#include "graph/limits.h"

namespace ORR::Graph {

namespace {

class DotParser
{
public:
    explicit DotParser(const QByteArray &input) : tokens(input) { }

    std::unique_ptr<DotGraph> parse();

private:
    void parseBody();
    void parseStatement();
    void openSubgraph();
    void closeSubgraph();
    void parseObject();
    void parseAttributes(AttributeMap &target);
    QString attributeName(QByteArrayView bytes);
    DotNode *nodeNamed(const QString &id);

    DotTokenizer tokens;
    std::unique_ptr<DotGraph> graph = std::make_unique<DotGraph>();
    DotSubgraph *current = graph->root(); // the innermost open subgraph
    QHash<QByteArray, QString> attributeNames; // one text for all maps that use a name
};

std::unique_ptr<DotGraph> DotParser::parse()
{
    tokens.takeGraphHead();
    tokens.take(DotToken::OpenBrace);
    parseBody();
    tokens.expect(DotToken::End);
    return std::move(graph);
}

// From behind the root's open brace to behind its close brace. The subgraphs that are open are
// `current` and its ancestors, so that no nesting is too deep.
void DotParser::parseBody()
{
    while (current) {
        if (tokens.kind() == DotToken::CloseBrace)
            closeSubgraph();
        else
            parseStatement();
    }
}

void DotParser::parseStatement()
{
    tokens.expect(DotToken::Identifier);
    const QByteArrayView word = tokens.text();
    if (word == QByteArrayView("subgraph")) {
        openSubgraph();
        return;
    }
    AttributeMap *defaults = word == QByteArrayView("edge") ? &current->edgeDefaults
        : word == QByteArrayView("node")                    ? &current->nodeDefaults
        : word == QByteArrayView("graph")                   ? &current->attributes
                                                            : nullptr;
    if (defaults) {
        tokens.next();
        parseAttributes(*defaults);
    } else {
        parseObject();
    }
    tokens.takeIf(DotToken::Semicolon);
}

void DotParser::openSubgraph()
{
    tokens.next();
    const QString id = tokens.takeIdentifierIfAny();
    current = graph->createSubgraph(current, id);
    tokens.take(DotToken::OpenBrace);
}

void DotParser::closeSubgraph()
{
    tokens.next();
    current = current->parent;
    if (current)
        tokens.takeIf(DotToken::Semicolon);
}

void DotParser::parseObject()
{
    DotNode *node = nodeNamed(tokens.takeIdentifier());
    if (!tokens.takeIf(DotToken::Arrow)) {
        parseAttributes(node->attributes);
        return;
    }
    DotNode *head = nodeNamed(tokens.takeIdentifier());
    parseAttributes(graph->createEdge(node, head, QString())->attributes);
}

void DotParser::parseAttributes(AttributeMap &target)
{
    if (!tokens.takeIf(DotToken::OpenBracket))
        return;
    AttributeMap attributes;
    while (!tokens.takeIf(DotToken::CloseBracket)) {
        tokens.expect(DotToken::Identifier);
        const QString name = attributeName(tokens.text());
        tokens.next();
        tokens.take(DotToken::Equals);
        attributes.insert(name, tokens.takeIdentifier());
        tokens.takeIf(DotToken::Comma);
    }
    mergeAttributes(target, attributes);
}

QString DotParser::attributeName(QByteArrayView bytes)
{
    const auto known =
        attributeNames.constFind(QByteArray::fromRawData(bytes.data(), bytes.size()));
    if (known != attributeNames.cend())
        return *known;
    const QString name = QString::fromUtf8(bytes);
    attributeNames.insert(bytes.toByteArray(), name);
    return name;
}

DotNode *DotParser::nodeNamed(const QString &id)
{
    DotNode *node = graph->findNode(id);
    return node ? node : graph->createNode(current, QString(), id);
}

} // namespace

std::unique_ptr<DotGraph> parseDot(const QByteArray &input)
{
    if (input.size() > Limits::longestInput)
        return nullptr;
    try {
        return DotParser(input).parse();
    } catch (...) {
        // Not only a rejection: a text that takes more memory than there is ends here as well.
        return nullptr;
    }
}

} // namespace ORR::Graph
