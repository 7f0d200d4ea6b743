#include "layout/graflib/decl_sizes.h"

#include <QMap>

#include <algorithm>

namespace ORR::Graph::Layout {

namespace {

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

QSizeF gridSize(const QList<MeasuredCell> &cells, GridMode mode, const GridSpacing &spacing)
{
    Lines rowHeights;
    Lines columnWidths;
    for (const MeasuredCell &cell : cells) {
        rowHeights[cell.row].append(cell.size.height());
        columnWidths[cell.column].append(cell.size.width());
    }
    const double height = mode == GridMode::ByColumns ? longestLine(rowHeights, spacing.rowGap)
                                                      : stackedLines(rowHeights, spacing.rowGap);
    const double width = mode == GridMode::ByRows ? longestLine(columnWidths, spacing.columnGap)
                                                  : stackedLines(columnWidths, spacing.columnGap);
    return {width + spacing.extra, height};
}

QSizeF sizeWithStack(QSizeF grid, bool hasCells, const QList<StackedNode> &stack, double nodeSep)
{
    double width = grid.width();
    double height = grid.height();
    for (const StackedNode &node : stack) {
        width = std::max(width, node.size.width() + node.offset);
        height += node.size.height();
    }
    height += double(stack.size() - 1) * nodeSep;
    if (hasCells)
        height += stackToGrid;
    return {width, height};
}

} // namespace ORR::Graph::Layout
