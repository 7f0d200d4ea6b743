#include "layout/graflib/graflib_decl.h"

#include "graph/attribute_values.h"
#include "graph/numbers.h"
#include "graph/subgraph_walk.h"
#include "layout/graflib/decl_edges.h"
#include "layout/graflib/decl_grid.h"
#include "layout/graflib/graflib_names.h"
#include "layout/graflib/graflib_painter.h"

#include <QList>
#include <QMap>

#include <algorithm>

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;

namespace {

constexpr double edgeRoom = 16.0; // in every column gap of a graph that has edges
constexpr double stackToGrid = 4.0; // between the last node and the grid

const QString rowMode = u"row"_s;
const QString colMode = u"col"_s;

// The sizes of a grid's cells, by the number of the line that they stand in.
using Lines = QMap<int, QList<double>>;

double sum(const QList<double> &sizes, double gap)
{
    double total = 0.0;
    for (const double size : sizes)
        total += size;
    return total + double(sizes.size() - 1) * gap;
}

double largest(const QList<double> &sizes)
{
    double most = sizes.constFirst();
    for (const double size : sizes)
        most = most < size ? size : most;
    return most;
}

// Lines that run by themselves: as long as the longest of them. 0 without any.
double longestLine(const Lines &lines, double gap)
{
    if (lines.isEmpty())
        return 0.0;
    QList<double> lengths;
    for (const QList<double> &line : lines)
        lengths.append(sum(line, gap));
    return largest(lengths);
}

// Lines next to each other: each takes its largest entry. 0 without any.
double stackedLines(const Lines &lines, double gap)
{
    if (lines.isEmpty())
        return 0.0;
    QList<double> depths;
    for (const QList<double> &line : lines)
        depths.append(largest(line));
    return sum(depths, gap);
}

} // namespace

struct GraflibDecl::ContentPosition
{
    QChar vertical = u't';
    QChar horizontal = u'l';
};

struct GraflibDecl::GridSpacing
{
    double rowGap = 0.0;
    double columnGap = 0.0;
    double extra = 0.0; // once, behind the first column
};

int GraflibDecl::graphInteger(const DotSubgraph *subgraph, const QString &name) const
{
    return integerFrom(graph->graphAttribute(subgraph, name));
}

double GraflibDecl::graphNumber(const DotSubgraph *subgraph, const QString &name) const
{
    return numberFrom(graph->graphAttribute(subgraph, name));
}

double GraflibDecl::nodeNumber(const DotNode *node, const QString &name) const
{
    return numberFrom(graph->nodeAttribute(node, name));
}

GraflibDecl::ContentPosition GraflibDecl::contentPosition(const DotSubgraph *subgraph) const
{
    const QString text = graph->graphAttribute(subgraph, Names::contentPos);
    ContentPosition position;
    if (!text.isEmpty())
        position.vertical = text.at(0);
    if (text.size() == 2)
        position.horizontal = text.at(1);
    return position;
}

// Whether the graph's own edges touch both the first column and the top of the second one. The
// texts are compared as they stand: "00" is no "0" here.
bool GraflibDecl::spansFirstColumns(const DotSubgraph *subgraph) const
{
    bool first = false;
    bool second = false;
    const DotSubgraph *last = nullptr;
    const auto look = [&](const DotSubgraph *owner) {
        if (owner == subgraph || owner == last)
            return;
        last = owner;
        const QString col = graph->graphAttribute(owner, Names::col);
        first |= col == "0"_L1;
        second |= col == "1"_L1 && graph->graphAttribute(owner, Names::row) == "0"_L1;
    };
    for (const DotEdge *edge : subgraph->edges) {
        look(edge->tail->owner);
        look(edge->head->owner);
        if (first && second)
            return true;
    }
    return false;
}

GraflibDecl::GridSpacing GraflibDecl::gridSpacing(const DotSubgraph *subgraph) const
{
    GridSpacing spacing;
    spacing.rowGap = 2 * pointsFromInches(graph->graphAttribute(subgraph, Names::nodeSep));
    spacing.columnGap = spacing.rowGap;
    if (!subgraph->edges.isEmpty()) {
        spacing.columnGap += edgeRoom;
        spacing.extra = spansFirstColumns(subgraph) ? edgeRoom : 0.0;
    }
    return spacing;
}

bool GraflibDecl::hasNegativeCell() const
{
    for (const DotSubgraph *subgraph : subgraphsInPreorder(graph->root())) {
        if (subgraph == graph->root())
            continue;
        if (graphInteger(subgraph, Names::row) < 0 || graphInteger(subgraph, Names::col) < 0)
            return true;
    }
    return false;
}

void GraflibDecl::addNodes(DotSubgraph *subgraph, double &width, double &height,
                           const GraflibPainter &painter) const
{
    const NumberPair margin = pointPairFromInches(graph->nodeDefault(subgraph, Names::margin));
    painter.measureNodes(subgraph->nodes, margin.first, margin.last);

    const bool atRight = contentPosition(subgraph).horizontal == u'r';
    for (const DotNode *node : std::as_const(subgraph->nodes)) {
        const double nodeWidth = nodeNumber(node, Names::width);
        double offset = pointsFromInches(graph->nodeAttribute(node, Names::xOffset));
        // Only the measure is turned round; the node itself still moves to the right.
        if (atRight)
            offset = -offset;
        width = std::max(width, nodeWidth + offset);
        height += nodeNumber(node, Names::height);
    }
    const double nodeSep = pointsFromInches(graph->graphAttribute(subgraph, Names::nodeSep));
    height += double(subgraph->nodes.size() - 1) * nodeSep;
    if (!subgraph->subgraphs.isEmpty())
        height += stackToGrid;
}

// `cells`: the measured sizes of the graph's subgraphs, in their order.
QSizeF GraflibDecl::measuredSize(DotSubgraph *subgraph, const QList<QSizeF> &cells,
                                 const GraflibPainter &painter) const
{
    // Where one axis runs freely, both are grouped by the attribute of the other one.
    const QString grid = graph->graphAttribute(subgraph, Names::grid);
    const QString &rowName = grid == colMode ? Names::col : Names::row;
    const QString &colName = grid == rowMode ? Names::row : Names::col;
    Lines rowHeights;
    Lines colWidths;
    for (qsizetype i = 0; i < cells.size(); ++i) {
        const DotSubgraph *cell = subgraph->subgraphs.at(i);
        rowHeights[graphInteger(cell, rowName)].append(cells.at(i).height());
        colWidths[graphInteger(cell, colName)].append(cells.at(i).width());
    }

    const GridSpacing spacing = gridSpacing(subgraph);
    double height = grid == colMode ? longestLine(rowHeights, spacing.rowGap)
                                    : stackedLines(rowHeights, spacing.rowGap);
    double width = grid == rowMode ? longestLine(colWidths, spacing.columnGap)
                                   : stackedLines(colWidths, spacing.columnGap);
    width += spacing.extra;
    if (!subgraph->nodes.isEmpty())
        addNodes(subgraph, width, height, painter);

    const NumberPair margin = pointPairFromInches(graph->graphAttribute(subgraph, Names::margin));
    width += 2 * margin.first;
    height += 2 * margin.last;
    return {width, height};
}

QSizeF GraflibDecl::measureGraph(DotSubgraph *top, const GraflibPainter &painter) const
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
            const QSizeF size = measuredSize(subgraph, open.takeLast(), painter);
            graph->setGraphAttribute(subgraph, Names::width, numberText(size.width()));
            graph->setGraphAttribute(subgraph, Names::height, numberText(size.height()));
            open.last().append(size);
        });
    return open.constFirst().constFirst();
}

// The places of the subgraphs, in their order. x and y: where the grid starts.
QList<QRectF> GraflibDecl::placeCells(DotSubgraph *subgraph, const QRectF &rect, double x,
                                      double y) const
{
    QList<GridCell> cols;
    QList<GridCell> rows;
    for (const DotSubgraph *cell : std::as_const(subgraph->subgraphs)) {
        const int row = graphInteger(cell, Names::row);
        const int col = graphInteger(cell, Names::col);
        cols.append({col, row, graphNumber(cell, Names::width)});
        rows.append({row, col, graphNumber(cell, Names::height)});
    }
    const GridSpacing spacing = gridSpacing(subgraph);
    const QString grid = graph->graphAttribute(subgraph, Names::grid);
    const auto horizontal = grid == rowMode ? flowPositions : alignedPositions;
    const auto vertical = grid == colMode ? flowPositions : alignedPositions;
    horizontal(cols, x, rect.right(), spacing.columnGap, spacing.extra);
    vertical(rows, y, rect.bottom(), spacing.rowGap, 0.0);

    QList<QRectF> places;
    places.reserve(cols.size());
    for (qsizetype i = 0; i < cols.size(); ++i) {
        const double extra = cols.at(i).line == 0 ? spacing.extra : 0.0;
        places.append(QRectF(
            QPointF(cols.at(i).from, rows.at(i).from),
            QPointF(cols.at(i).to - spacing.columnGap - extra, rows.at(i).to - spacing.rowGap)));
    }
    return places;
}

void GraflibDecl::placeGraph(DotSubgraph *top, const QRectF &place) const
{
    struct Task
    {
        DotSubgraph *subgraph;
        QRectF place;
    };
    QList<Task> tasks{{top, place}};
    while (!tasks.isEmpty()) {
        const auto [subgraph, given] = tasks.takeLast();
        const double margin =
            pointPairFromInches(graph->graphAttribute(subgraph, Names::margin)).first;
        // The vertical sides stay: content at the top starts on the first line of its place.
        const QRectF rect = given.adjusted(margin, 0.0, -margin, 0.0);
        const ContentPosition position = contentPosition(subgraph);
        const double width = graphNumber(subgraph, Names::width);
        const double height = graphNumber(subgraph, Names::height);

        double x = rect.left();
        if (position.horizontal == u'c')
            x = rect.center().x() - width * 0.5;
        else if (position.horizontal == u'r')
            x = rect.right() - width;
        double y = rect.top();
        if (position.vertical == u'b')
            y = rect.bottom() - height;
        else if (position.vertical == u'm')
            y = rect.center().y() - height * 0.5;
        graph->setGraphAttribute(subgraph, Names::d1, numberText(x));
        graph->setGraphAttribute(subgraph, Names::d2, numberText(y));

        const double nodeSep = pointsFromInches(graph->graphAttribute(subgraph, Names::nodeSep));
        for (DotNode *node : std::as_const(subgraph->nodes)) {
            double nodeX = x;
            if (position.horizontal == u'r')
                nodeX = rect.right() - nodeNumber(node, Names::width);
            else if (position.horizontal == u'c')
                nodeX = rect.center().x() - nodeNumber(node, Names::width) * 0.5;
            nodeX += pointsFromInches(graph->nodeAttribute(node, Names::xOffset));
            graph->setNodeAttribute(node, Names::d1, numberText(nodeX));
            graph->setNodeAttribute(node, Names::d2, numberText(y));
            y += nodeNumber(node, Names::height) + nodeSep;
        }
        if (!subgraph->nodes.isEmpty())
            y += stackToGrid - nodeSep;
        if (subgraph->subgraphs.isEmpty())
            continue;

        const QList<QRectF> places = placeCells(subgraph, rect, x, y);
        for (qsizetype i = 0; i < places.size(); ++i)
            tasks.append({subgraph->subgraphs.at(i), places.at(i)});
        // Of the two measures only the width is replaced by what the graph really fills.
        if (margin != 0.0)
            graph->setGraphAttribute(subgraph, Names::width, numberText(rect.width()));
    }
}

QString GraflibDecl::run(const LayoutContext &context)
{
    DotGraph *graph = context.graph;
    DotSubgraph *root = graph->root();
    const GraflibDecl engine(context);
    if (engine.hasNegativeCell())
        return u"Negative row or col in a declaration grid\n"_s;

    graph->setGraphAttribute(root, Names::rankDir, u"LR"_s);
    const GraflibPainter painter(graph, context.device);
    const NumberPair pad = pointPairFromInches(graph->graphAttribute(root, Names::pad));
    const QSizeF size = engine.measureGraph(root, painter);
    engine.placeGraph(root, QRectF(QPointF(pad.first, pad.last), size));
    routeEdges(graph, root);

    QString result;
    painter.render(result, {size.width() + 2 * pad.first, size.height() + 2 * pad.last});
    return result;
}

} // namespace ORR::Graph::Layout
