#include "device/xdot_render.h"

#include "device/xdot_reader.h"
#include "graph/attribute_values.h"
#include "graph/dot_tokenizer.h"
#include "graph/numbers.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace ORR::Graph::Graphviz {

using namespace Qt::StringLiterals;

namespace {

// Nothing is ever written to it.
struct SavedRender
{
    SavedRender() : file(QDir::homePath() + "/render.txt"_L1)
    {
        if (file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
            stream.setDevice(&file);
    }

    QFile file;
    QTextStream stream;
};

// The attributes of an object that are acted on behind its attribute list.
struct DeferredAttributes
{
    QByteArray drawing;
    QByteArray pos;
    QByteArray width;
    QByteArray label;
    QByteArray headDrawing;
    QByteArray tailDrawing;
    QByteArray headLabel;
    QByteArray tailLabel;

    // Null if the attribute is not one of these.
    QByteArray *find(QByteArrayView name)
    {
        const std::array<std::pair<QByteArrayView, QByteArray *>, 8> table{{
            {"_draw_", &drawing},
            {"_ldraw_", &label},
            {"_hdraw_", &headDrawing},
            {"_tdraw_", &tailDrawing},
            {"_hldraw_", &headLabel},
            {"_tldraw_", &tailLabel},
            {"pos", &pos},
            {"width", &width},
        }};
        for (const auto &[attribute, value] : table) {
            if (attribute == name)
                return value;
        }
        return nullptr;
    }
};

} // namespace

QString XDotRender::render(const QByteArray &bytes)
{
    const std::unique_ptr<SavedRender> saved =
        qEnvironmentVariableIsSet("ORR_SAVE_RENDER") ? std::make_unique<SavedRender>() : nullptr;
    QString message;
    try {
        parse(bytes);
    } catch (int) {
        message = u"Unable to parse input xdot"_s;
    }
    // Frames that a fault left open are dropped without the end of their objects.
    states.clear();
    const QString result = device->end();
    return message.isEmpty() ? result : message;
}

void XDotRender::parse(const QByteArray &bytes)
{
    states.emplace_back();
    bbPending = true;
    DotTokenizer tokens(bytes);
    tokens.takeGraphHead();
    parseBody(tokens);
}

// Bodies within bodies are counted, not recursed into: a subgraph's frame is left where its brace
// closes.
void XDotRender::parseBody(DotTokenizer &tokens)
{
    tokens.take(DotToken::OpenBrace);
    qsizetype openBodies = 1;
    for (;;) {
        if (!tokens.takeIf(DotToken::CloseBrace)) {
            if (parseStatement(tokens))
                ++openBodies;
            continue;
        }
        if (--openBodies == 0)
            return;
        leave();
    }
}

// True if the statement was the head of a subgraph: its body comes next.
bool XDotRender::parseStatement(DotTokenizer &tokens)
{
    tokens.expect(DotToken::Identifier);
    const QByteArrayView word = tokens.text();
    if (word == QByteArrayView("subgraph")) {
        openSubgraph(tokens);
        return true;
    }
    if (word == QByteArrayView("edge"))
        parseKeyword(tokens, ReplayObjectKind::Edge);
    else if (word == QByteArrayView("node"))
        parseKeyword(tokens, ReplayObjectKind::Node);
    else if (word == QByteArrayView("graph"))
        parseKeyword(tokens, ReplayObjectKind::Graph);
    else
        parseObject(tokens);
    return false;
}

void XDotRender::parseKeyword(DotTokenizer &tokens, ReplayObjectKind kind)
{
    tokens.next();
    if (kind == ReplayObjectKind::Edge)
        enterEdge({}, {});
    else if (kind == ReplayObjectKind::Node)
        enterNode({});
    else
        enterPlain(kind);
    parseObjectAttributes(tokens);
    leave();
}

void XDotRender::openSubgraph(DotTokenizer &tokens)
{
    tokens.next();
    enterCluster(tokens.takeIdentifierIfAny());
    tokens.take(DotToken::OpenBrace);
}

void XDotRender::parseObject(DotTokenizer &tokens)
{
    const QString id = tokens.takeIdentifier();
    if (tokens.takeIf(DotToken::Semicolon))
        return;
    if (tokens.takeIf(DotToken::Arrow)) {
        enterEdge(id, tokens.takeIdentifier());
    } else {
        tokens.expect(DotToken::OpenBracket);
        enterNode(id);
    }
    parseObjectAttributes(tokens);
    leave();
}

// The order of the replay is fixed, whatever the order of the text: settings first, so that they
// hold for all drawing; then the shapes; then place and size, which only the label asks for.
void XDotRender::parseObjectAttributes(DotTokenizer &tokens)
{
    tokens.take(DotToken::OpenBracket);
    DeferredAttributes deferred;
    while (!tokens.takeIf(DotToken::CloseBracket)) {
        tokens.expect(DotToken::Identifier);
        const QByteArray name = tokens.text().toByteArray();
        tokens.next();
        tokens.take(DotToken::Equals);
        tokens.expect(DotToken::Identifier);
        if (QByteArray *value = deferred.find(name))
            *value = tokens.text().toByteArray();
        else
            applyAttribute(name, tokens.text());
        tokens.next();
        tokens.takeIf(DotToken::Comma);
    }
    tokens.takeIf(DotToken::Semicolon);

    replayOps(ReplayObjectKind::Drawing, deferred.drawing);
    if (!deferred.pos.isEmpty())
        state().posX = XDotReader(deferred.pos).integer();
    if (!deferred.width.isEmpty())
        state().objectWidth = rounded(XDotReader(deferred.width).real() * pointsPerInch);
    replayOps(ReplayObjectKind::Label, deferred.label);
    replayOps(ReplayObjectKind::HeadDrawing, deferred.headDrawing);
    replayOps(ReplayObjectKind::TailDrawing, deferred.tailDrawing);
    replayOps(ReplayObjectKind::HeadLabel, deferred.headLabel);
    replayOps(ReplayObjectKind::TailLabel, deferred.tailLabel);
}

void XDotRender::applyAttribute(QByteArrayView name, QByteArrayView value)
{
    if (name == QByteArrayView("bb"))
        beginPage(value);
    else
        applySetting(state(), device, name, value);
}

// "left,bottom,right,top". Only the first counts: those of subgraphs follow it.
void XDotRender::beginPage(QByteArrayView bb)
{
    if (!bbPending)
        return;
    bbPending = false;
    const QStringList fields = QString::fromUtf8(bb).split(u',');
    const auto field = [&](qsizetype i) { return numberFrom(fields.value(i)); };
    canvasWidth = truncated(field(2) - field(0));
    canvasHeight = truncated(field(3) - field(1));
    constexpr qint64 bothMargins = qint64(2) * pageMargin;
    device->begin(saturated(canvasWidth + bothMargins), saturated(canvasHeight + bothMargins));
}

void XDotRender::replayOps(ReplayObjectKind kind, QByteArrayView ops)
{
    if (ops.isEmpty())
        return;
    enterPlain(kind);
    replayDrawing(ops, state(), device, PageTransform{canvasHeight});
    leave();
}

void XDotRender::enterPlain(ReplayObjectKind kind)
{
    states.push_back(state().inner(kind));
}

void XDotRender::enterNode(const QString &id)
{
    DotNode *node = graph->findNode(id);
    if (node)
        device->beginNode(node);
    enterPlain(ReplayObjectKind::Node);
    state().node = node;
}

void XDotRender::enterEdge(const QString &tail, const QString &head)
{
    DotEdge *edge = graph->takeEdge(graph->findNode(tail), graph->findNode(head));
    if (edge)
        device->beginEdge(edge);
    enterPlain(ReplayObjectKind::Edge);
    state().edge = edge;
}

void XDotRender::enterCluster(const QString &id)
{
    DotSubgraph *subgraph = graph->findSubgraph(id);
    if (subgraph)
        device->beginCluster(subgraph, withClusterMembers);
    enterPlain(ReplayObjectKind::Cluster);
    state().subgraph = subgraph;
}

void XDotRender::leave()
{
    const ReplayState &frame = state();
    switch (frame.kind) {
    case ReplayObjectKind::Label:
        placeTexts();
        break;
    case ReplayObjectKind::Edge:
        if (frame.edge) {
            // Engines connect an edge before its end; devices take both orders.
            device->endEdge();
            device->connect(frame.edge, frame.edge->tail, frame.edge->head);
        }
        break;
    case ReplayObjectKind::Node:
        if (frame.node)
            device->endNode();
        break;
    case ReplayObjectKind::Cluster:
        if (frame.subgraph)
            device->endCluster();
        break;
    default:
        break;
    }
    states.pop_back();
}

void XDotRender::placeTexts()
{
    const ReplayState &frame = state();
    int widest = 0;
    for (const PendingText &pending : frame.pendingTexts) {
        if (pending.leftAligned)
            widest = std::max(widest, pending.width);
    }
    int left = 0;
    if (widest < frame.objectWidth && frame.posX > 0) {
        const int half = widest / 2;
        left = truncated(frame.posX - half + 4.0);
    }
    for (const PendingText &pending : frame.pendingTexts) {
        const QPoint position(pending.leftAligned && left != 0 ? left : pending.position.x(),
                              pending.position.y());
        if (graph->htmlLabels() || pending.html)
            device->drawRichText(position, pending.text);
        else
            device->drawText(position, pending.text);
    }
}

} // namespace ORR::Graph::Graphviz
