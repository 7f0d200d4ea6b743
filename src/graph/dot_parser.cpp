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
    QString takeIdentifier();
    QString attributeName(QByteArrayView bytes);
    DotNode *nodeNamed(const QString &id);

    void expect(DotToken kind) const
    {
        if (tokens.kind() != kind)
            throw DotParseError;
    }
    void take(DotToken kind)
    {
        expect(kind);
        tokens.next();
    }
    bool takeIf(DotToken kind)
    {
        if (tokens.kind() != kind)
            return false;
        tokens.next();
        return true;
    }

    DotTokenizer tokens;
    std::unique_ptr<DotGraph> graph = std::make_unique<DotGraph>();
    DotSubgraph *current = graph->root(); // the innermost open subgraph
    QHash<QByteArray, QString> attributeNames; // one text for all maps that use a name
};

std::unique_ptr<DotGraph> DotParser::parse()
{
    expect(DotToken::Identifier);
    if (tokens.text() != QByteArrayView("digraph"))
        throw DotParseError;
    tokens.next();
    takeIf(DotToken::Identifier);
    take(DotToken::OpenBrace);
    parseBody();
    expect(DotToken::End);
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
    expect(DotToken::Identifier);
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
    takeIf(DotToken::Semicolon);
}

void DotParser::openSubgraph()
{
    tokens.next();
    const QString id = tokens.kind() == DotToken::Identifier ? takeIdentifier() : QString();
    current = graph->createSubgraph(current, id);
    take(DotToken::OpenBrace);
}

void DotParser::closeSubgraph()
{
    tokens.next();
    current = current->parent;
    if (current)
        takeIf(DotToken::Semicolon);
}

void DotParser::parseObject()
{
    DotNode *node = nodeNamed(takeIdentifier());
    if (!takeIf(DotToken::Arrow)) {
        parseAttributes(node->attributes);
        return;
    }
    expect(DotToken::Identifier);
    DotNode *head = nodeNamed(takeIdentifier());
    parseAttributes(graph->createEdge(node, head, QString())->attributes);
}

void DotParser::parseAttributes(AttributeMap &target)
{
    if (!takeIf(DotToken::OpenBracket))
        return;
    AttributeMap attributes;
    while (!takeIf(DotToken::CloseBracket)) {
        expect(DotToken::Identifier);
        const QString name = attributeName(tokens.text());
        tokens.next();
        take(DotToken::Equals);
        expect(DotToken::Identifier);
        attributes.insert(name, takeIdentifier());
        takeIf(DotToken::Comma);
    }
    mergeAttributes(target, attributes);
}

QString DotParser::takeIdentifier()
{
    const QString text = QString::fromUtf8(tokens.text());
    tokens.next();
    return text;
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
