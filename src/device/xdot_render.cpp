#include "device/xdot_render.h"

#include "device/deferred_attributes.h"
#include "device/xdot_reader.h"
#include "graph/attribute_values.h"
#include "graph/dot_tokenizer.h"
#include "graph/numbers.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <memory>

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

bool isFiniteNumber(const QString &text)
{
    bool is = false;
    const double number = text.toDouble(&is);
    return is && std::isfinite(number);
}

} // namespace

QString XDotRender::render(const QByteArray &bytes)
{
    const std::unique_ptr<SavedRender> saved =
        qEnvironmentVariableIsSet("ORR_SAVE_RENDER") ? std::make_unique<SavedRender>() : nullptr;
    return replay(bytes);
}

QString XDotRender::render(const QByteArray &bytes, ReplayListener &hearer)
{
    listener = &hearer;
    return replay(bytes);
}

QString XDotRender::replay(const QByteArray &bytes)
{
    const QString message = parse(bytes) ? QString() : u"Unable to parse input xdot"_s;
    // Frames that a fault left open are dropped without the end of their objects.
    states.clear();
    const QString result = device->end();
    return message.isEmpty() ? result : message;
}

bool XDotRender::parse(const QByteArray &bytes)
{
    states.emplace_back();
    bbPending = true;
    DotTokenizer tokens(bytes);
    try {
        tokens.takeGraphHead();
        parseBody(tokens);
    } catch (int) {
        if (listener)
            listener->replayRejected(tokens.fault());
        return false;
    }
    return true;
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
        if (DeferredAttribute *attribute = deferred.find(name)) {
            attribute->value = tokens.text().toByteArray();
            attribute->place = tokens.offset();
        } else {
            if (listener)
                listener->attributeReplayed(name, tokens.offset());
            applyAttribute(name, tokens.text());
        }
        tokens.next();
        tokens.takeIf(DotToken::Comma);
    }
    tokens.takeIf(DotToken::Semicolon);
    replayDeferred(deferred);
}

void XDotRender::replayDeferred(const DeferredAttributes &deferred)
{
    replayOps(ReplayObjectKind::Drawing, deferred.drawing);
    if (!deferred.pos.value.isEmpty())
        state().posX = readerOf(deferred.pos).integer();
    if (!deferred.width.value.isEmpty())
        state().objectWidth = rounded(readerOf(deferred.width).real() * pointsPerInch);
    replayOps(ReplayObjectKind::Label, deferred.label);
    replayOps(ReplayObjectKind::HeadDrawing, deferred.headDrawing);
    replayOps(ReplayObjectKind::TailDrawing, deferred.tailDrawing);
    replayOps(ReplayObjectKind::HeadLabel, deferred.headLabel);
    replayOps(ReplayObjectKind::TailLabel, deferred.tailLabel);
}

// A reader of the value, after the listener was told that it comes.
XDotReader XDotRender::readerOf(const DeferredAttribute &attribute)
{
    if (listener)
        listener->attributeReplayed(attribute.name, attribute.place);
    return XDotReader(attribute.value, listener);
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
    if (listener)
        listener->pageRead(fields.size(),
                           std::all_of(fields.begin(), fields.end(), isFiniteNumber));
    canvasWidth = truncated(field(2) - field(0));
    canvasHeight = truncated(field(3) - field(1));
    constexpr qint64 bothMargins = qint64(2) * pageMargin;
    device->begin(saturated(canvasWidth + bothMargins), saturated(canvasHeight + bothMargins));
}

void XDotRender::replayOps(ReplayObjectKind kind, const DeferredAttribute &ops)
{
    if (ops.value.isEmpty())
        return;
    if (listener)
        listener->attributeReplayed(ops.name, ops.place);
    enterPlain(kind);
    replayDrawing(ops.value, state(), device, PageTransform{canvasHeight}, listener);
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
