#include "layout/charts/matrix_layout.h"

#include "device/graph_style.h"
#include "graph/subgraph_walk.h"
#include "layout/charts/chart_items.h"
#include "layout/charts/matrix_attributes.h"
#include "layout/charts/matrix_places.h"

#include <QHash>

namespace ORR::Graph::Layout {

namespace {

namespace Rows = MatrixAttributes;

// The labels of all that has one, measured once.
using LabelBlocks = QHash<const DotObject *, TextBlock>;

MatrixAxis axisOf(const DotGraph *graph, const DotSubgraph *subgraph)
{
    return MatrixAxis(Rows::axis.of(graph, subgraph) + 1);
}

// Numbers the headers in their order and measures all labels.
class HeaderNumbering
{
public:
    HeaderNumbering(const LayoutContext &context, const GraphStyle &graphStyle)
        : graph(context.graph), style(graphStyle)
    {
    }

    // What all labels together ask for.
    MatrixExtents number(DotSubgraph *root);

    qint64 xCount = 0;
    qint64 yCount = 0;
    LabelBlocks labels;

private:
    // A subgraph in the middle of its numbering: the counts at its start, and its members in the
    // order of their numbers.
    struct Level
    {
        DotSubgraph *subgraph;
        MatrixAxis axis;
        qint64 x0;
        qint64 y0;
        QList<ChartItem> members;
        qsizetype next = 0;
        MatrixExtents extents{};
    };

    Level enter(DotSubgraph *subgraph) const;
    void leave(Level &level);
    void numberNode(Level &level, DotNode *node);
    void measureGroupLabel(Level &level);

    DotGraph *graph;
    const GraphStyle &style;
};

MatrixExtents HeaderNumbering::number(DotSubgraph *root)
{
    QList<Level> open{enter(root)};
    for (;;) {
        Level &level = open.last();
        if (level.next < level.members.size()) {
            const ChartItem member = level.members.at(level.next++);
            if (member.subgraph)
                open.append(enter(member.subgraph));
            else
                numberNode(level, member.node);
            continue;
        }
        leave(level);
        const MatrixExtents extents = level.extents;
        open.removeLast();
        if (open.isEmpty())
            return extents;
        open.last().extents.include(extents);
    }
}

HeaderNumbering::Level HeaderNumbering::enter(DotSubgraph *subgraph) const
{
    Level level{subgraph, axisOf(graph, subgraph), xCount, yCount, {}};
    level.members.reserve(subgraph->subgraphs.size() + subgraph->nodes.size());
    for (DotSubgraph *child : std::as_const(subgraph->subgraphs))
        level.members.append({child, nullptr, 0.0});
    for (DotNode *node : std::as_const(subgraph->nodes))
        level.members.append({nullptr, node, 0.0});
    sortByIdNumber(level.members);
    return level;
}

void HeaderNumbering::numberNode(Level &level, DotNode *node)
{
    const TextBlock label = style.nodeLabel(node);
    if (!label.isEmpty()) {
        level.extents.includeHeader(level.axis, label.size());
        labels.insert(node, label);
    }
    if (level.axis != MatrixAxis::Rows)
        Rows::x.setInteger(graph, node, xCount++);
    if (level.axis != MatrixAxis::Columns)
        Rows::y.setInteger(graph, node, yCount++);
}

void HeaderNumbering::leave(Level &level)
{
    for (const DotEdge *edge : std::as_const(level.subgraph->edges)) {
        const TextBlock label = style.edgeLabel(edge);
        if (label.isEmpty())
            continue;
        level.extents.includeEdge(label.size());
        labels.insert(edge, label);
    }
    measureGroupLabel(level);
    Rows::x0.setInteger(graph, level.subgraph, level.x0);
    Rows::x1.setInteger(graph, level.subgraph, xCount);
    Rows::y0.setInteger(graph, level.subgraph, level.y0);
    Rows::y1.setInteger(graph, level.subgraph, yCount);
}

void HeaderNumbering::measureGroupLabel(Level &level)
{
    const TextBlock label = style.clusterLabel(level.subgraph);
    if (label.isEmpty())
        return;
    labels.insert(level.subgraph, label);
    const MatrixShift shift = addGroupLabel(level.extents, level.axis, xCount - level.x0,
                                            yCount - level.y0, label.size());
    if (shift.side == MatrixShift::AboveColumns)
        Rows::yShift.setInteger(graph, level.subgraph, shift.distance);
    else if (shift.side == MatrixShift::LeftOfRows)
        Rows::xShift.setInteger(graph, level.subgraph, shift.distance);
}

// Draws the groups, the headers and the squares.
class MatrixPainter
{
public:
    MatrixPainter(const LayoutContext &context, const GraphStyle &graphStyle,
                  const LabelBlocks &labelBlocks, const MatrixGrid &matrixGrid)
        : graph(context.graph), device(context.device), style(graphStyle), labels(labelBlocks),
          grid(matrixGrid)
    {
    }

    void paint(DotSubgraph *root);

private:
    void paintGroup(DotSubgraph *subgraph);
    void paintBracket(const MatrixBracket &bracket, const TextBlock &label, Device::Pen *pen);
    void paintNode(DotNode *node);
    void paintEdge(DotEdge *edge);

    // Null if there is none.
    const TextBlock *labelOf(const DotObject *object) const
    {
        const auto found = labels.constFind(object);
        return found == labels.cend() ? nullptr : &*found;
    }

    DotGraph *graph;
    Device *device;
    const GraphStyle &style;
    const LabelBlocks &labels;
    MatrixGrid grid;
};

void MatrixPainter::paint(DotSubgraph *root)
{
    walkSubgraphs(
        root,
        [&](DotSubgraph *subgraph) {
            if (subgraph != root) {
                device->beginCluster(subgraph, false);
                paintGroup(subgraph);
            }
            return true;
        },
        [&](DotSubgraph *subgraph) {
            for (DotNode *node : std::as_const(subgraph->nodes))
                paintNode(node);
            for (DotEdge *edge : std::as_const(subgraph->edges))
                paintEdge(edge);
            if (subgraph != root)
                device->endCluster();
        });
}

void MatrixPainter::paintGroup(DotSubgraph *subgraph)
{
    const MatrixSpan span{Rows::x0.integer(subgraph), Rows::x1.integer(subgraph),
                          Rows::y0.integer(subgraph), Rows::y1.integer(subgraph)};
    Device::Pen *pen = style.clusterPen(subgraph);
    if (span.hasArea() && !Rows::style.holds(graph, subgraph, Rows::Invisible)) {
        const MatrixArea area = grid.area(span);
        device->drawRect(area.topLeft, area.bottomRight, 0, pen,
                         style.clusterFill(subgraph, nullptr));
    }
    const TextBlock *label = labelOf(subgraph);
    if (!label)
        return;
    if (Rows::xShift.find(subgraph))
        paintBracket(grid.rowBracket(span, Rows::xShift.integer(subgraph), label->size()), *label,
                     pen);
    else if (Rows::yShift.find(subgraph))
        paintBracket(grid.columnBracket(span, Rows::yShift.integer(subgraph), label->size()),
                     *label, pen);
}

void MatrixPainter::paintBracket(const MatrixBracket &bracket, const TextBlock &label,
                                 Device::Pen *pen)
{
    TextBlock::draw(label, bracket.label, device);
    device->drawPolyline({bracket.first.topLeft, bracket.first.bottomRight}, pen);
    device->drawPolyline({bracket.last.topLeft, bracket.last.bottomRight}, pen);
}

void MatrixPainter::paintNode(DotNode *node)
{
    device->beginNode(node);
    if (const TextBlock *label = labelOf(node)) {
        const QSize size = label->size();
        if (Rows::y.find(node))
            TextBlock::draw(*label, grid.rowHeader(Rows::y.integer(node), size), device);
        else if (Rows::x.find(node))
            TextBlock::draw(*label, grid.columnHeader(Rows::x.integer(node), size), device);
    }
    device->endNode();
}

void MatrixPainter::paintEdge(DotEdge *edge)
{
    device->beginEdge(edge);
    const int column = Rows::x.inheritedInteger(graph, edge->head);
    const int row = Rows::y.inheritedInteger(graph, edge->tail);
    const MatrixArea square = grid.square(column, row);
    device->drawRect(square.topLeft, square.bottomRight, 0, style.edgePen(edge, false),
                     style.edgeFill(edge, nullptr));
    if (const TextBlock *label = labelOf(edge))
        TextBlock::draw(*label, grid.labelInSquare(column, row, label->size()), device);
    device->endEdge();
    device->connect(edge, edge->tail, edge->head);
}

} // namespace

QString MatrixLayout::run(const LayoutContext &context)
{
    const auto [graph, device] = context;
    const GraphStyle style(graph, device);
    HeaderNumbering numbering(context, style);
    const MatrixGrid grid(numbering.number(graph->root()));
    const QSize page = grid.page(numbering.xCount, numbering.yCount);
    device->begin(page.width(), page.height());
    MatrixPainter(context, style, numbering.labels, grid).paint(graph->root());
    return device->end();
}

} // namespace ORR::Graph::Layout
