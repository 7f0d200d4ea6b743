#include "companion/page/fills_below.h"

#include "graph/numbers.h"

#include <algorithm>
#include <utility>

namespace ORR::Companion {

namespace {

constexpr int cellsAcross = 64;
constexpr int mostCells = 64; // of one fill
constexpr int mostLooks = 500; // of one question into one list

// The last one of a list that is wanted, by its place in the list of all; -1 for none.
template <typename Wanted>
qsizetype lastOf(const std::vector<size_t> &list, Wanted wanted)
{
    const auto end = list.size() > mostLooks ? list.rbegin() + mostLooks : list.rend();
    const auto found = std::find_if(list.rbegin(), end, wanted);
    return found == end ? -1 : qsizetype(*found);
}

// Of boxes that may be lines, which the toolkit's own comparisons leave out.
bool overlap(const QRectF &a, const QRectF &b)
{
    return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom()
        && b.top() <= a.bottom();
}

bool isWithin(const QRectF &inner, const QRectF &outer)
{
    return outer.left() <= inner.left() && outer.top() <= inner.top()
        && inner.right() <= outer.right() && inner.bottom() <= outer.bottom();
}

} // namespace

FillsBelow::FillsBelow(const QSizeF &size)
    : cellSize(std::max(size.width() / cellsAcross, 1.0),
               std::max(size.height() / cellsAcross, 1.0)),
      cells(size_t(cellsAcross) * cellsAcross)
{
}

void FillsBelow::add(SvgShape shape, std::optional<double> luminance)
{
    const QRect reached = cellsOf(shape.box);
    const size_t place = fills.size();
    fills.push_back({std::move(shape), luminance});
    if (reached.width() * reached.height() > mostCells) {
        large.push_back(place);
        return;
    }
    for (int row = reached.top(); row <= reached.bottom(); ++row) {
        for (int column = reached.left(); column <= reached.right(); ++column)
            cells[size_t(row) * cellsAcross + size_t(column)].push_back(place);
    }
}

const FillsBelow::Fill *FillsBelow::at(const QPointF &point) const
{
    const auto isThere = [&](size_t i) { return fills[i].shape.contains(point); };
    const QRect cell = cellsOf({point, QSizeF()});
    const qsizetype last =
        std::max(lastOf(large, isThere), lastOf(cellAt(cell.left(), cell.top()), isThere));
    return last < 0 ? nullptr : &fills[size_t(last)];
}

bool FillsBelow::holds(const QRectF &box) const
{
    const auto isAround = [&](size_t i) { return isWithin(box, fills[i].shape.box); };
    const QRect corner = cellsOf({box.topLeft(), QSizeF()});
    return lastOf(large, isAround) >= 0
        || lastOf(cellAt(corner.left(), corner.top()), isAround) >= 0;
}

bool FillsBelow::touches(const QRectF &box) const
{
    const auto isTouched = [&](size_t i) { return overlap(box, fills[i].shape.box); };
    if (lastOf(large, isTouched) >= 0)
        return true;
    const QRect reached = cellsOf(box);
    for (int row = reached.top(); row <= reached.bottom(); ++row) {
        for (int column = reached.left(); column <= reached.right(); ++column) {
            if (lastOf(cellAt(column, row), isTouched) >= 0)
                return true;
        }
    }
    return false;
}

QRect FillsBelow::cellsOf(const QRectF &box) const
{
    const auto within = [](double cell) {
        return std::clamp(Graph::truncated(cell), 0, cellsAcross - 1);
    };
    const QPoint first(within(box.left() / cellSize.width()),
                       within(box.top() / cellSize.height()));
    const QPoint last(within(box.right() / cellSize.width()),
                      within(box.bottom() / cellSize.height()));
    return {first, last};
}

const std::vector<size_t> &FillsBelow::cellAt(int column, int row) const
{
    return cells[size_t(row) * cellsAcross + size_t(column)];
}

} // namespace ORR::Companion
