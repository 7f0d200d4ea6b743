#include "graph/dot_parser.h"

#include "graph/dot_tokenizer.h"
#include "graph/limits.h"

#include <algorithm>

namespace ORR::Graph {

namespace {

// Values repeat: colours, sizes and words of a vocabulary stand at thousands of objects. A short
// one is looked for among the last that were read, and shares the text of the one that it equals.
constexpr size_t recentCount = 1024;
constexpr qsizetype longestShared = 16;

bool isPlain(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return c >= 0; });
}

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
    QString takeValue();
    AttributeName takeName();
    DotNode *takeNode();

    DotTokenizer tokens;
    std::unique_ptr<DotGraph> graph = std::make_unique<DotGraph>();
    DotSubgraph *current = graph->root(); // the innermost open subgraph
    QHash<QByteArray, AttributeName> names; // those met so far
    QList<QString> recentValues = QList<QString>(recentCount);
    QString nodeId; // room that one id after the other is read into
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
    DotNode *node = takeNode();
    if (!tokens.takeIf(DotToken::Arrow)) {
        parseAttributes(node->attributes);
        return;
    }
    DotNode *head = takeNode();
    parseAttributes(graph->createEdge(node, head, QString())->attributes);
}

void DotParser::parseAttributes(AttributeMap &target)
{
    if (!tokens.takeIf(DotToken::OpenBracket))
        return;
    while (!tokens.takeIf(DotToken::CloseBracket)) {
        const AttributeName name = takeName();
        tokens.take(DotToken::Equals);
        target.insert(name, takeValue());
        tokens.takeIf(DotToken::Comma);
    }
}

QString DotParser::takeValue()
{
    tokens.expect(DotToken::Identifier);
    const QByteArrayView bytes = tokens.text();
    if (bytes.isEmpty() || bytes.size() > longestShared || !isPlain(bytes))
        return tokens.takeIdentifier();
    QString &recent = recentValues[qsizetype(qHash(bytes) % recentCount)];
    if (recent != QLatin1StringView(bytes))
        recent = QString::fromLatin1(bytes);
    tokens.next();
    return recent;
}

AttributeName DotParser::takeName()
{
    tokens.expect(DotToken::Identifier);
    const QByteArrayView bytes = tokens.text();
    auto known = names.constFind(QByteArray::fromRawData(bytes.data(), bytes.size()));
    if (known == names.cend())
        known = names.insert(bytes.toByteArray(), QString::fromUtf8(bytes));
    tokens.next();
    return *known;
}

// The node of the next id, made if it is the first time.
DotNode *DotParser::takeNode()
{
    tokens.expect(DotToken::Identifier);
    const QByteArrayView bytes = tokens.text();
    if (isPlain(bytes)) {
        nodeId.resize(bytes.size());
        std::copy(bytes.begin(), bytes.end(), nodeId.begin());
    } else {
        nodeId = QString::fromUtf8(bytes);
    }
    tokens.next();
    DotNode *node = graph->findNode(nodeId);
    if (node)
        return node;
    return graph->createNode(current, {}, QString(nodeId.constData(), nodeId.size()));
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
