#include "layout/charts/legend_places.h"

#include "graph/numbers.h"

#include <algorithm>

namespace ORR::Graph::Layout {

namespace {

constexpr int entryGap = 4; // between entries, and behind the title
constexpr int distance = 12; // between the chart and the legend

// A legend runs "along" one axis, x or y, and its lines follow each other "across".
struct Extent
{
    qint64 along = 0;
    qint64 across = 0;
};

struct Axes
{
    explicit Axes(LegendSide side)
        : horizontal(side == LegendSide::Top || side == LegendSide::Bottom),
          before(side == LegendSide::Top || side == LegendSide::Left)
    {
    }

    Extent extent(int x, int y) const { return horizontal ? Extent{x, y} : Extent{y, x}; }
    Extent extent(QSize size) const { return extent(size.width(), size.height()); }
    QPoint point(Extent e) const
    {
        return horizontal ? saturatedPoint(e.along, e.across) : saturatedPoint(e.across, e.along);
    }

    bool horizontal;
    bool before; // the legend comes before the chart
};

// What the lines of entries take of the chart's side.
struct Band
{
    qint64 cell = 0; // of an entry with the gap behind it
    qint64 columns = 1; // entries a line
    qint64 needed = 0; // by a full line
    qint64 length = 0; // of chart, lines and title, whatever is longest
};

// The legend while it is being laid out.
struct Lines
{
    Extent title;
    QList<Extent> entries;
    qint64 firstAcross = 0;
    qint64 acrossEnd = 0;
    qint64 extent = 0; // of lines and title, across
};

QList<Extent> extentsOf(const QList<QSize> &sizes, Axes axes)
{
    QList<Extent> extents;
    extents.reserve(sizes.size());
    for (const QSize size : sizes)
        extents.append(axes.extent(size));
    return extents;
}

Band bandFor(const QList<Extent> &entries, const std::optional<Extent> &title, qint64 available)
{
    qint64 longest = 0;
    for (const Extent &entry : entries)
        longest = std::max(longest, entry.along);
    Band band;
    band.cell = longest + entryGap;
    band.columns = std::max<qint64>(std::min<qint64>(available / band.cell, entries.size()), 1);
    band.needed = band.columns * band.cell - entryGap;
    band.length = std::max(available, band.needed);
    if (title)
        band.length = std::max(band.length, title->along);
    return band;
}

// Places the entries from `start` on, line after line. A last line that is full is left, and the
// gap behind it counts.
void placeEntries(Lines &lines, const QList<Extent> &sizes, const Band &band, Extent start)
{
    Extent place = start;
    qint64 highest = 0; // of the line
    lines.firstAcross = start.across;
    lines.entries.reserve(sizes.size());
    for (qsizetype i = 0; i < sizes.size(); ++i) {
        lines.entries.append(place);
        highest = std::max(highest, sizes.at(i).across);
        if ((i + 1) % band.columns == 0) {
            place = {start.along, place.across + highest + entryGap};
            highest = 0;
        } else {
            place.along += band.cell;
        }
    }
    lines.acrossEnd = place.across + highest;
    lines.extent = lines.acrossEnd - lines.firstAcross;
}

// Places title and entries, `start` being the corner of it all.
Lines placeLines(const QList<Extent> &sizes, const std::optional<Extent> &title, Band band,
                 Extent start, Axes axes)
{
    Lines lines;
    if (title && axes.horizontal) {
        lines.title = {start.along + (band.length - title->along) / 2, start.across};
        start.across += title->across + entryGap;
    } else if (title) {
        lines.title = start;
        start.along += title->along + entryGap;
        // The title takes the place of one entry of each line, as it stands beside them all.
        band.columns = std::max<qint64>(band.columns - 1, 1);
    }
    start.along += (band.length - band.needed) / 2;
    placeEntries(lines, sizes, band, start);
    if (title)
        lines.extent = std::max(lines.extent, title->across);
    return lines;
}

// Centres the title and the entries beside each other; either of them may be the narrower one.
void centreAcross(Lines &lines, const Extent &title)
{
    lines.title.across = lines.firstAcross + (lines.extent - title.across) / 2;
    const qint64 spare = (lines.extent - (lines.acrossEnd - lines.firstAcross)) / 2;
    for (Extent &entry : lines.entries)
        entry.across += std::max<qint64>(spare, 0);
}

// The moved corners are cut each by itself.
QRect movedRect(const QRect &rect, qint64 dx, qint64 dy)
{
    return {saturatedPoint(rect.left() + dx, rect.top() + dy),
            saturatedPoint(rect.right() + dx, rect.bottom() + dy)};
}

} // namespace

LegendPlaces legendPlaces(const LegendParts &parts, const QRect &chart)
{
    const Axes axes(parts.side);
    const QList<Extent> sizes = extentsOf(parts.entries, axes);
    const std::optional<Extent> title =
        parts.title ? std::optional(axes.extent(*parts.title)) : std::nullopt;
    const Extent room = axes.extent(chart.size());
    const Band band = bandFor(sizes, title, room.along);

    Extent start = axes.extent(chart.x(), chart.y());
    // Behind the chart the legend starts past the chart's extent alone: its margin does not count.
    if (!axes.before)
        start.across = room.across + distance;
    Lines lines = placeLines(sizes, title, band, start, axes);
    if (title && !axes.horizontal)
        centreAcross(lines, *title);

    LegendPlaces places;
    places.title = axes.point(lines.title);
    places.entries.reserve(lines.entries.size());
    for (const Extent &entry : std::as_const(lines.entries))
        places.entries.append(axes.point(entry));

    const qint64 shift = (band.length - room.along) / 2;
    const qint64 push = axes.before ? lines.extent + lines.firstAcross + distance : 0;
    if (axes.horizontal) {
        const QRect moved = places.chart = movedRect(chart, shift, push);
        places.page = {
            saturated(band.length + 2 * qint64(moved.x())),
            saturated(std::max(qint64(moved.height()) + moved.y(), lines.acrossEnd) + moved.y())};
    } else {
        const QRect moved = places.chart = movedRect(chart, push, shift);
        places.page = {
            saturated(std::max(qint64(moved.width()) + moved.x(), lines.firstAcross + lines.extent)
                      + moved.x()),
            saturated(band.length + 2 * qint64(moved.y()))};
    }
    return places;
}

QSize pageWithoutLegend(const QRect &chart)
{
    return {saturated(2 * qint64(chart.x()) + chart.width()),
            saturated(2 * qint64(chart.y()) + chart.height())};
}

} // namespace ORR::Graph::Layout
