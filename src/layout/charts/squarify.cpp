#include "layout/charts/squarify.h"

#include "graph/numbers.h"

#include <algorithm>
#include <set>

namespace ORR::Graph::Layout {

namespace {

// No value above this, divided by any thickness, comes out as zero.
constexpr double smallestSafe = 1e-15;

bool liesAcross(const QRectF &rect)
{
    return rect.width() < rect.height();
}

// The side that a row fills.
double rowSide(const QRectF &rect)
{
    return liesAcross(rect) ? rect.width() : rect.height();
}

qsizetype resolvedCount(const QList<double> &values, qsizetype start, qsizetype count)
{
    return count == -1 ? values.size() - start : count;
}

double rowTotal(const QList<double> &values, qsizetype start, qsizetype count)
{
    double total = 0.0;
    for (qsizetype i = start; i < start + count; ++i)
        total += values.at(i);
    return total;
}

// The worst ratio of a row that grows, in constant time for each value.
//
// All rectangles of a row share the thickness; what tells them apart is their length, which is the
// value divided by the thickness. The longest and the shortest of them have the worst ratio. This
// holds for the computed numbers too and to the last bit: a correctly rounded quotient never falls
// as its dividend grows nor rises as its divisor grows. And the total, added up in the order of the
// values, is the very sum that laying out the row anew would come to.
//
// Only a length that underflows to zero breaks the rule, as its rectangle is not valid and does not
// count. Which ones do depends on the thickness, so values that small are kept in order.
class GrowingRow
{
public:
    explicit GrowingRow(double rowSideLength) : side(rowSideLength) { }

    void append(double value)
    {
        total += value;
        if (!(value > 0.0))
            return;
        largest = std::max(largest, value);
        if (value > smallestSafe)
            smallest = std::min(smallest, value);
        else
            tiny.insert(value);
    }

    double ratio() const
    {
        const double thickness = total / side;
        if (!(thickness > 0.0))
            return 0.0;
        const double longest = largest / thickness;
        if (!(longest > 0.0))
            return 0.0;
        return std::max(thickness / (shortestValue(thickness) / thickness), longest / thickness);
    }

private:
    struct Thickness
    {
        double thickness;
    };
    // Finds the first value whose length is not zero.
    struct ByValue
    {
        using is_transparent = void;
        bool operator()(double a, double b) const { return a < b; }
        bool operator()(double value, Thickness t) const { return !(value / t.thickness > 0.0); }
        bool operator()(Thickness t, double value) const { return value / t.thickness > 0.0; }
    };

    // The smallest value with a length above zero. There is one, as the largest has.
    double shortestValue(double thickness) const
    {
        const auto first = tiny.lower_bound(Thickness{thickness});
        return first == tiny.end() ? smallest : *first;
    }

    double side;
    double total = 0.0;
    double largest = 0.0;
    double smallest = infinity; // of those above `smallestSafe`
    std::set<double, ByValue> tiny;
};

// How many values the next row takes.
qsizetype rowLength(const QList<double> &values, const QRectF &rect, qsizetype start,
                    qsizetype count)
{
    GrowingRow row(rowSide(rect));
    row.append(values.at(start));
    double ratio = row.ratio();
    for (qsizetype length = 1; length < count; ++length) {
        row.append(values.at(start + length));
        const double next = row.ratio();
        if (ratio < next)
            return length;
        ratio = next;
    }
    return count;
}

} // namespace

QList<QRectF> squarify(const QList<double> &values, const QRectF &rect, qsizetype start,
                       qsizetype count)
{
    qsizetype left = resolvedCount(values, start, count);
    QList<QRectF> cells;
    cells.reserve(left);
    QRectF room = rect;
    while (left > 0) {
        const qsizetype length = rowLength(values, room, start, left);
        cells += rowCells(values, room, start, length);
        room = remainingRect(values, room, start, length);
        start += length;
        left -= length;
    }
    return cells;
}

QList<QRectF> rowCells(const QList<double> &values, const QRectF &rect, qsizetype start,
                       qsizetype count)
{
    count = resolvedCount(values, start, count);
    if (!rect.isValid())
        return QList<QRectF>(count);
    const bool across = liesAcross(rect);
    const double thickness = rowTotal(values, start, count) / rowSide(rect);
    QList<QRectF> cells;
    cells.reserve(count);
    double x = rect.x();
    double y = rect.y();
    for (qsizetype i = start; i < start + count; ++i) {
        const double length = values.at(i) / thickness;
        if (across) {
            cells.append({x, y, length, thickness});
            x += length;
        } else {
            cells.append({x, y, thickness, length});
            y += length;
        }
    }
    return cells;
}

double worstRatio(const QList<double> &values, const QRectF &rect, qsizetype start, qsizetype count)
{
    double worst = 0.0;
    for (const QRectF &cell : rowCells(values, rect, start, count)) {
        if (cell.isValid())
            worst = std::max({worst, cell.height() / cell.width(), cell.width() / cell.height()});
    }
    return worst;
}

QRectF remainingRect(const QList<double> &values, const QRectF &rect, qsizetype start,
                     qsizetype count)
{
    const double total = rowTotal(values, start, resolvedCount(values, start, count));
    QRectF rest = rect;
    if (!rect.isValid() || !(total > 0.0))
        return rest;
    if (liesAcross(rect))
        rest.setTop(rect.y() + total / rect.width());
    else
        rest.setLeft(rect.x() + total / rect.height());
    return rest;
}

} // namespace ORR::Graph::Layout
