#include "layout/sequence/object_extents.h"

#include "graph/numbers.h"

#include <algorithm>

namespace ORR::Graph::Layout {

namespace {

constexpr int activationStep = 4; // a level of nesting to the right
constexpr int smallestHook = 10; // width and height of a message within one column
constexpr int bareReturnOffset = -10;

} // namespace

QRect gridRect(qint64 left, qint64 top, qint64 width, qint64 height)
{
    return {saturatedPoint(left, top), saturatedPoint(left + width - 1, top + height - 1)};
}

QSize paddedSize(QSize text)
{
    constexpr qint64 padding = qint64(2) * labelPadding;
    return {saturated(text.width() + padding), saturated(text.height() + padding)};
}

int alignedOffset(int size, CellAlign align)
{
    switch (align) {
    case CellAlign::Before:
        return saturated(-qint64(size));
    case CellAlign::Centre:
        return -(size / 2);
    case CellAlign::After:
        break;
    }
    return 0;
}

int activationOffset(int nesting)
{
    return saturated(qint64(nesting) * activationStep - activationSize / 2);
}

QRect activationBar(QPoint anchor, int end, int nesting)
{
    const qint64 start = anchor.y();
    return gridRect(qint64(anchor.x()) + activationOffset(nesting), start, activationSize,
                    end - start);
}

QList<QPoint> lifeLine(const QRect &from, const QRect &to, int x, bool downward)
{
    return {{x, downward ? from.bottom() : from.top()}, {x, downward ? to.top() : to.bottom()}};
}

int messageSize(int ofLabel, bool withinColumn)
{
    return withinColumn ? std::max(ofLabel, smallestHook) : ofLabel;
}

int offsetBeside(int boxOffset, int boxWidth, bool right, int labelWidth)
{
    const qint64 left = boxOffset;
    return saturated(right ? left + boxWidth : left - labelWidth);
}

int returnOffset(bool labelled, int labelHeight)
{
    return labelled ? saturated(labelPadding - qint64(labelHeight)) : bareReturnOffset;
}

} // namespace ORR::Graph::Layout
