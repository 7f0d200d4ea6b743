#include "layout/charts/bar_places.h"

#include "graph/numbers.h"
#include "layout/charts/chart_rect.h"

#include <algorithm>
#include <cmath>

namespace ORR::Graph::Layout {

namespace {

constexpr int margin = 4; // around the chart
constexpr int barGap = 4; // between bars, and between a caption and its bar
constexpr int leastThickness = 8;
constexpr double leastLength = 4.0;

} // namespace

void BarMeasure::addBar(const BarSegment &bar)
{
    addSegment(bar);
    ++barCount;
}

void BarMeasure::addStack(QSize caption, const QList<BarSegment> &segments)
{
    if (caption.isValid()) {
        captionAlong = std::max(captionAlong, along(caption));
        thickest = std::max(thickest, across(caption));
    }
    double sum = 0.0;
    for (const BarSegment &segment : segments) {
        addSegment(segment);
        if (!std::isnan(segment.value))
            sum += std::trunc(segment.value);
    }
    maxValue = std::max(maxValue, sum);
    ++barCount;
}

void BarMeasure::addSegment(const BarSegment &segment)
{
    const auto &[value, label] = segment;
    if (label.isValid())
        thickest = std::max(thickest, across(label));
    if (value > 0.0)
        labelScale = std::max(labelScale, (label.isValid() ? along(label) : leastLength) / value);
    maxValue = std::max(maxValue, value);
}

int BarMeasure::thicknessFor(int wantedAcross) const
{
    const int thickness = std::max(leastThickness, thickest);
    if (barCount == 0 || wantedAcross == 0)
        return thickness;
    const qint64 gaps = qint64(barGap) * barCount;
    return std::max(thickness, saturated((wantedAcross - gaps) / barCount));
}

double BarMeasure::scaleFor(int wantedAlong) const
{
    if (!(maxValue > 0.0))
        return labelScale;
    const double length =
        wantedAlong < 1 ? 2.0 * std::max(leastThickness, captionAlong) : wantedAlong;
    return std::max(labelScale, length / maxValue);
}

BarMetrics BarMeasure::metrics(QSize wanted) const
{
    BarMetrics metrics;
    metrics.direction = direction;
    metrics.thickness = thicknessFor(across(wanted));
    metrics.scale = scaleFor(along(wanted));
    metrics.band = captionAlong == 0 ? 0 : saturated(qint64(captionAlong) + barGap);

    const int length = truncated(maxValue * metrics.scale + barGap + metrics.band);
    const qint64 rowLength = (qint64(metrics.thickness) + barGap) * barCount - barGap;
    metrics.chart = direction.horizontal ? chartRect(margin, margin, length, rowLength)
                                         : chartRect(margin, margin, rowLength, length);
    return metrics;
}

BarCursor::BarCursor(const BarMetrics &barMetrics) : metrics(barMetrics)
{
    position = metrics.direction.horizontal ? QPoint(base(), metrics.chart.y())
                                            : QPoint(metrics.chart.x(), base());
}

// Where the bars begin, along their direction.
int BarCursor::base() const
{
    const auto [horizontal, reversed] = metrics.direction;
    const QRect &chart = metrics.chart;
    const qint64 band = metrics.band;
    return horizontal ? saturated(chart.x() + (reversed ? chart.width() - band : band))
                      : saturated(chart.y() + (reversed ? band : chart.height() - band));
}

BarCursor::Bar BarCursor::bar(double value) const
{
    const auto [horizontal, reversed] = metrics.direction;
    const qint64 x = position.x();
    const qint64 y = position.y();
    const double length = value * metrics.scale;
    // The corner that the bar grows from stays, so that the first one is the top left one in every
    // direction.
    if (horizontal) {
        const int end = truncated(reversed ? position.x() - length : position.x() + length);
        const QPoint foot = saturatedPoint(x, y + metrics.thickness);
        return reversed ? Bar{{end, position.y()}, foot} : Bar{position, {end, foot.y()}};
    }
    const int end = truncated(reversed ? position.y() + length : position.y() - length);
    const QPoint foot = saturatedPoint(x + metrics.thickness, y);
    return reversed ? Bar{position, {foot.x(), end}} : Bar{{position.x(), end}, foot};
}

QPoint BarCursor::caption(QSize size) const
{
    const auto [horizontal, reversed] = metrics.direction;
    const qint64 x = position.x();
    const qint64 y = position.y();
    return horizontal ? saturatedPoint(x + (reversed ? barGap : -barGap - size.width()),
                                       y + (metrics.thickness - size.height()) / 2)
                      : saturatedPoint(x + (metrics.thickness - size.width()) / 2,
                                       y + (reversed ? -barGap - size.height() : barGap));
}

void BarCursor::goBehind(const Bar &segment)
{
    const auto [horizontal, reversed] = metrics.direction;
    if (horizontal)
        position.setX(reversed ? segment.topLeft.x() : segment.bottomRight.x());
    else
        position.setY(reversed ? segment.bottomRight.y() : segment.topLeft.y());
}

void BarCursor::goToNextBar()
{
    const qint64 step = qint64(metrics.thickness) + barGap;
    position = metrics.direction.horizontal ? saturatedPoint(base(), position.y() + step)
                                            : saturatedPoint(position.x() + step, base());
}

QPoint labelInBar(const BarCursor::Bar &bar, QSize size)
{
    // Where the label sticks out by an odd number of points, one more of them lies on the left and
    // below: x is centred in doubles and y in integers, which is meant.
    const auto &[p, q] = bar;
    const qint64 roomX = qint64(q.x()) - p.x() - size.width();
    const qint64 roomY = qint64(q.y()) - p.y() - size.height();
    return {truncated(double(roomX) * 0.5 + p.x()), saturated(roomY / 2 + p.y())};
}

} // namespace ORR::Graph::Layout
