#include "layout/graflib/decl_grid.h"

#include <algorithm>
#include <numeric>

namespace ORR::Graph::Layout {

namespace {

using Order = QList<qsizetype>; // indices of cells

// The cells ordered by one key and then by another; cells of one address stay in their order, the
// one that counts last.
template <typename Key>
Order orderedBy(const QList<GridCell> &cells, Key key)
{
    Order order(cells.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&](qsizetype a, qsizetype b) { return key(cells.at(a)) < key(cells.at(b)); });
    return order;
}

bool sameAddress(const GridCell &a, const GridCell &b)
{
    return a.line == b.line && a.cross == b.cross;
}

int lastLine(const QList<GridCell> &cells)
{
    int last = 0;
    for (const GridCell &cell : cells)
        last = std::max(last, cell.line);
    return last;
}

// The largest entry of the line that the cells order[first] to order[end - 1] stand in. An entry
// that nothing stands in is 0, which matters where the sizes are negative.
double largestEntry(const QList<GridCell> &cells, const Order &order, qsizetype first,
                    qsizetype end)
{
    double largest = 0.0;
    qint64 next = 0; // the entry that comes next if none is left out
    for (qsizetype i = first; i < end; ++i) {
        const GridCell &cell = cells.at(order.at(i));
        if (i + 1 < end && sameAddress(cell, cells.at(order.at(i + 1))))
            continue;
        if (cell.cross == 0)
            largest = cell.size;
        else if (cell.cross > next && largest < 0.0)
            largest = 0.0;
        if (largest < cell.size)
            largest = cell.size;
        next = qint64(cell.cross) + 1;
    }
    return largest;
}

} // namespace

void alignedPositions(QList<GridCell> &cells, double start, double end, double gap, double extra)
{
    const Order order =
        orderedBy(cells, [](const GridCell &cell) { return std::pair(cell.line, cell.cross); });
    const int last = lastLine(cells);
    double position = start;
    for (qsizetype first = 0; first < order.size();) {
        const int line = cells.at(order.at(first)).line;
        qsizetype behind = first;
        while (behind < order.size() && cells.at(order.at(behind)).line == line)
            ++behind;

        const double from = position;
        const double largest = largestEntry(cells, order, first, behind);
        if (largest != 0.0) {
            position += largest + gap + extra;
            extra = 0.0;
        }
        for (; first < behind; ++first) {
            GridCell &cell = cells[order.at(first)];
            cell.from = from;
            cell.to = line == last ? end + gap : position;
        }
    }
}

void flowPositions(QList<GridCell> &cells, double start, double end, double gap, double extra)
{
    const Order order =
        orderedBy(cells, [](const GridCell &cell) { return std::pair(cell.cross, cell.line); });
    const int last = lastLine(cells);
    double position = start;
    for (qsizetype first = 0; first < order.size();) {
        const GridCell address = cells.at(order.at(first));
        if (first == 0 || cells.at(order.at(first - 1)).cross != address.cross)
            position = start;
        qsizetype behind = first;
        while (behind < order.size() && sameAddress(cells.at(order.at(behind)), address))
            ++behind;

        const double from = position;
        const double size = cells.at(order.at(behind - 1)).size;
        if (size != 0.0) {
            position += size + gap + extra;
            extra = 0.0;
        }
        for (; first < behind; ++first) {
            GridCell &cell = cells[order.at(first)];
            cell.from = from;
            cell.to = address.line == last ? end + gap : position;
        }
    }
}

} // namespace ORR::Graph::Layout
