#include "layout/graflib/graflib_decl.h"

#include "graph/attribute_values.h"
#include "graph/numbers.h"
#include "graph/subgraph_walk.h"
#include "layout/graflib/decl_edges.h"
#include "layout/graflib/decl_places.h"
#include "layout/graflib/decl_sizes.h"
#include "layout/graflib/gfdecl_attributes.h"
#include "layout/graflib/graph_drawing.h"
#include "layout/graflib/node_size.h"

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;
namespace Rows = GfdeclAttributes;

namespace {

constexpr double edgeRoom = 16.0; // in every column gap of a graph that has edges

GridMode gridMode(const DotGraph *graph, const DotSubgraph *subgraph)
{
    const int word = Rows::grid.of(graph, subgraph);
    return word < 0 ? GridMode::Table : GridMode(word);
}

// Whether the graph's own edges touch both the first column and the top of the second one. The
// texts are compared as they stand: "00" is no "0" here.
bool spansFirstColumns(const DotGraph *graph, const DotSubgraph *subgraph)
{
    bool first = false;
    bool second = false;
    const DotSubgraph *last = nullptr;
    const auto look = [&](const DotSubgraph *owner) {
        if (owner == subgraph || owner == last)
            return;
        last = owner;
        const QString col = Rows::col.text(graph, owner);
        first |= col == "0"_L1;
        second |= col == "1"_L1 && Rows::row.text(graph, owner) == "0"_L1;
    };
    for (const DotEdge *edge : subgraph->edges) {
        look(edge->tail->owner);
        look(edge->head->owner);
        if (first && second)
            return true;
    }
    return false;
}

GridSpacing gridSpacing(const DotGraph *graph, const DotSubgraph *subgraph)
{
    GridSpacing spacing;
    spacing.rowGap = 2 * Rows::nodeSep.of(graph, subgraph);
    spacing.columnGap = spacing.rowGap;
    if (!subgraph->edges.isEmpty()) {
        spacing.columnGap += edgeRoom;
        spacing.extra = spansFirstColumns(graph, subgraph) ? edgeRoom : 0.0;
    }
    return spacing;
}

bool hasNegativeCell(const DotGraph *graph)
{
    for (const DotSubgraph *subgraph : subgraphsInPreorder(graph->root())) {
        if (subgraph == graph->root())
            continue;
        if (Rows::row.of(graph, subgraph) < 0 || Rows::col.of(graph, subgraph) < 0)
            return true;
    }
    return false;
}

template <typename Object>
QSizeF measuredSize(const DotGraph *graph, const Object *object)
{
    return {Rows::width.inheritedNumber(graph, object),
            Rows::height.inheritedNumber(graph, object)};
}

template <typename Object>
void storePlace(DotGraph *graph, Object *object, QPointF place)
{
    Rows::d1.setNumber(graph, object, place.x());
    Rows::d2.setNumber(graph, object, place.y());
}

// Writes `width` and `height` on a graph and all that is in it.
class Measuring
{
public:
    Measuring(DotGraph *dotGraph, NodeLabels &nodeLabels) : graph(dotGraph), labels(nodeLabels) { }

    QSizeF measure(DotSubgraph *top);

private:
    QList<MeasuredCell> cells(const DotSubgraph *subgraph, GridMode mode,
                              const QList<QSizeF> &sizes) const;
    QList<StackedNode> stack(const DotSubgraph *subgraph);
    QSizeF measured(const DotSubgraph *subgraph, const QList<QSizeF> &cellSizes);

    DotGraph *graph;
    NodeLabels &labels;
};

// Where one axis runs freely, both are grouped by the attribute of the other one.
QList<MeasuredCell> Measuring::cells(const DotSubgraph *subgraph, GridMode mode,
                                     const QList<QSizeF> &sizes) const
{
    const auto &row = mode == GridMode::ByColumns ? Rows::col : Rows::row;
    const auto &column = mode == GridMode::ByRows ? Rows::row : Rows::col;
    QList<MeasuredCell> cells;
    cells.reserve(sizes.size());
    for (qsizetype i = 0; i < sizes.size(); ++i) {
        const DotSubgraph *cell = subgraph->subgraphs.at(i);
        cells.append({row.of(graph, cell), column.of(graph, cell), sizes.at(i)});
    }
    return cells;
}

// Measures the graph's own nodes.
QList<StackedNode> Measuring::stack(const DotSubgraph *subgraph)
{
    const NumberPair margin = Rows::nodeMargin.defaultOf(graph, subgraph);
    measureNodes(graph, subgraph, labels, {margin.first, margin.last});

    const bool atRight = contentPosition(Rows::contentPos.text(graph, subgraph)).horizontal == u'r';
    QList<StackedNode> stack;
    stack.reserve(subgraph->nodes.size());
    for (const DotNode *node : subgraph->nodes) {
        const double offset = Rows::xOffset.of(graph, node);
        // Only the measure is turned round; the node itself still moves to the right.
        stack.append({measuredSize(graph, node), atRight ? -offset : offset});
    }
    return stack;
}

// `cellSizes`: those of the graph's subgraphs, in their order.
QSizeF Measuring::measured(const DotSubgraph *subgraph, const QList<QSizeF> &cellSizes)
{
    const GridMode mode = gridMode(graph, subgraph);
    QSizeF size = gridSize(cells(subgraph, mode, cellSizes), mode, gridSpacing(graph, subgraph));
    if (!subgraph->nodes.isEmpty())
        size = sizeWithStack(size, !cellSizes.isEmpty(), stack(subgraph),
                             Rows::nodeSep.of(graph, subgraph));
    const NumberPair margin = Rows::margin.of(graph, subgraph);
    return {size.width() + 2 * margin.first, size.height() + 2 * margin.last};
}

QSizeF Measuring::measure(DotSubgraph *top)
{
    // For every graph that the walk is in: the sizes of its subgraphs so far. On top of the stack
    // stands that of `top` when all is done.
    QList<QList<QSizeF>> open{{}};
    walkSubgraphs(
        top,
        [&](DotSubgraph *) {
            open.append(QList<QSizeF>());
            return true;
        },
        [&](DotSubgraph *subgraph) {
            const QSizeF size = measured(subgraph, open.takeLast());
            Rows::width.setNumber(graph, subgraph, size.width());
            Rows::height.setNumber(graph, subgraph, size.height());
            open.last().append(size);
        });
    return open.constFirst().constFirst();
}

// A graph that is to be placed.
struct Placing
{
    DotSubgraph *subgraph;
    QRectF place;
};

// Writes the places of the graph's own nodes and gives back where the grid starts.
QPointF placeStack(DotGraph *graph, const DotSubgraph *subgraph, const QRectF &place,
                   QPointF corner, ContentPosition position)
{
    QList<StackedNode> stack;
    stack.reserve(subgraph->nodes.size());
    for (const DotNode *node : subgraph->nodes)
        stack.append({measuredSize(graph, node), Rows::xOffset.of(graph, node)});
    const StackPlaces places =
        stackPlaces(stack, place, corner, position, Rows::nodeSep.of(graph, subgraph));
    for (qsizetype i = 0; i < stack.size(); ++i)
        storePlace(graph, subgraph->nodes.at(i), places.nodes.at(i));
    return places.gridCorner;
}

QList<QRectF> placeGrid(const DotGraph *graph, const DotSubgraph *subgraph, const QRectF &place,
                        QPointF corner)
{
    QList<AddressedCell> cells;
    cells.reserve(subgraph->subgraphs.size());
    for (const DotSubgraph *cell : subgraph->subgraphs)
        cells.append(
            {Rows::row.of(graph, cell), Rows::col.of(graph, cell), measuredSize(graph, cell)});
    return cellPlaces(cells, corner, place, gridMode(graph, subgraph),
                      gridSpacing(graph, subgraph));
}

// Writes `d1` and `d2` on a graph and its own nodes, and gives back the places of its subgraphs.
QList<QRectF> placeOne(DotGraph *graph, DotSubgraph *subgraph, const QRectF &given)
{
    const double margin = Rows::margin.of(graph, subgraph).first;
    const QRectF place = placeWithinMargin(given, margin);
    const ContentPosition position = contentPosition(Rows::contentPos.text(graph, subgraph));
    const QPointF corner = contentCorner(place, measuredSize(graph, subgraph), position);
    storePlace(graph, subgraph, corner);
    const QPointF gridCorner = placeStack(graph, subgraph, place, corner, position);
    if (subgraph->subgraphs.isEmpty())
        return {};
    const QList<QRectF> places = placeGrid(graph, subgraph, place, gridCorner);
    // Of the two measures only the width is replaced by what the graph really fills.
    if (margin != 0.0)
        Rows::width.setNumber(graph, subgraph, place.width());
    return places;
}

// Places a graph and all that is in it.
void placeGraph(DotGraph *graph, DotSubgraph *top, const QRectF &place)
{
    QList<Placing> tasks{{top, place}};
    while (!tasks.isEmpty()) {
        const Placing task = tasks.takeLast();
        const QList<QRectF> places = placeOne(graph, task.subgraph, task.place);
        for (qsizetype i = 0; i < places.size(); ++i)
            tasks.append({task.subgraph->subgraphs.at(i), places.at(i)});
    }
}

} // namespace

QString GraflibDecl::run(const LayoutContext &context)
{
    DotGraph *graph = context.graph;
    DotSubgraph *root = graph->root();
    if (hasNegativeCell(graph))
        return u"Negative row or col in a declaration grid\n"_s;

    Rows::usedRankDir.setText(graph, root, u"LR"_s);
    const GraphStyle style(graph, context.device);
    NodeLabels labels(style);
    const NumberPair pad = Rows::pad.of(graph, root);
    const QSizeF size = Measuring(graph, labels).measure(root);
    placeGraph(graph, root, QRectF(QPointF(pad.first, pad.last), size));
    routeEdges(graph, root);
    return drawGraph(context, style, labels,
                     {size.width() + 2 * pad.first, size.height() + 2 * pad.last});
}

} // namespace ORR::Graph::Layout
