#include "layout/sequence/fragment_frame.h"

#include "graph/numbers.h"

#include <algorithm>

namespace ORR::Graph::Layout {

namespace {

constexpr int tagDistance = 8; // of the tag from its column
constexpr int nestingStep = 7; // between the frames of nested fragments, on either side
constexpr int frameDistance = 12; // of the innermost frame from its last column
constexpr int cutCorner = 3;

} // namespace

void FragmentCells::include(int row, int column)
{
    includeRow(row);
    lastCol = std::max(lastCol, column);
    col = std::min(col, column);
}

void FragmentCells::includeRow(int row)
{
    lastRow = std::max(lastRow, row);
}

void FragmentCells::enclose(const FragmentCells &inner)
{
    nesting = std::max(nesting, inner.nesting + 1);
    lastRow = std::max(lastRow, inner.lastRow);
    lastCol = std::max(lastCol, inner.lastCol);
}

void FragmentCells::close()
{
    lastRow = saturated(qint64(lastRow) + 1);
}

int FragmentCells::frameReach() const
{
    return saturated(qint64(nestingStep) * nesting + frameDistance);
}

QSize fragmentSize(QSize title, const QList<QSize> &sectionLabels)
{
    QSize size = title;
    if (!sectionLabels.isEmpty())
        size.setHeight(saturated(qint64(title.height()) + sectionLabels.constFirst().height()));
    for (const QSize label : sectionLabels)
        size.setWidth(std::max(size.width(), label.width()));
    return size;
}

int frameRight(int anchor, const QList<qint64> &reaches)
{
    qint64 farthest = 0;
    for (const qint64 reach : reaches)
        farthest = std::max(farthest, reach);
    return saturated(anchor + farthest);
}

int fragmentOffset(int width, const QList<int> &offsetsWithin)
{
    qint64 offset = -qint64(tagDistance) - width;
    for (const int within : offsetsWithin)
        offset = std::min(offset, qint64(within) - nestingStep);
    return saturated(offset);
}

QList<SectionBand> sectionBands(int fragmentTop, const QList<int> &anchors, int fragmentBottom)
{
    QList<SectionBand> bands;
    bands.reserve(anchors.size());
    for (qsizetype i = 0; i < anchors.size(); ++i) {
        bands.append({i == 0 ? fragmentTop : anchors.at(i),
                      i + 1 < anchors.size() ? anchors.at(i + 1) : fragmentBottom});
    }
    return bands;
}

QList<QPoint> tagOutline(const QRect &tag)
{
    return {tag.topLeft(),
            tag.topRight(),
            saturatedPoint(tag.right(), qint64(tag.bottom()) - cutCorner),
            saturatedPoint(qint64(tag.right()) - cutCorner, tag.bottom()),
            tag.bottomLeft(),
            tag.topLeft()};
}

} // namespace ORR::Graph::Layout
