#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

namespace ORR::Graph::Layout {

// How the bars of a chart lie.
struct BarDirection
{
    bool horizontal = true; // the bars lie, and the row runs down
    bool reversed = false; // the bars grow downward or to the left
};

// What all bars of a chart share.
struct BarMetrics
{
    BarDirection direction;
    double scale = 0.0; // points a value
    int thickness = 0; // of a bar
    int band = 0; // the room for the captions
    QRect chart;
};

// A segment of a bar. A size that is not valid is no label.
struct BarSegment
{
    double value = 0.0;
    QSize label;
};

// Finds the one scale and the one thickness of a row of bars: the longest bar is as long as wanted,
// or longer where a label along a bar or the least length of a bar asks for it; and all are as
// thick as the thickest label or caption. Sizes are in points.
class BarMeasure
{
public:
    explicit BarMeasure(BarDirection barDirection) : direction(barDirection) { }

    // A bar of its own. One that isn't above 0 is not drawn, but its label and its place count.
    void addBar(const BarSegment &bar);

    // A bar of segments. Their values count without fractions, so that a chart can come out a
    // little short for them; that is meant.
    void addStack(QSize caption, const QList<BarSegment> &segments);

    // `wanted` is the size of the chart that the input asks for, 0 for none.
    BarMetrics metrics(QSize wanted) const;

private:
    void addSegment(const BarSegment &segment);
    int thicknessFor(int wantedAcross) const;
    double scaleFor(int wantedAlong) const;

    int along(QSize size) const { return direction.horizontal ? size.width() : size.height(); }
    int across(QSize size) const { return direction.horizontal ? size.height() : size.width(); }

    BarDirection direction;
    double maxValue = 0.0; // of the longest bar
    double labelScale = 0.0; // at which each label fits along its bar
    int captionAlong = 0; // of the largest caption
    int thickest = 0; // of labels and captions
    int barCount = 0;
};

// The places of the bars, one after the other in the order of the row.
class BarCursor
{
public:
    explicit BarCursor(const BarMetrics &barMetrics);

    // A bar with its corners, the top left one first whatever the direction.
    struct Bar
    {
        QPoint topLeft;
        QPoint bottomRight;
    };
    // The bar, or the next segment of it. `value` is above 0.
    Bar bar(double value) const;
    // The top left corner of a caption, between which and the bar a gap is left.
    QPoint caption(QSize size) const;

    void goBehind(const Bar &segment); // on to the next segment of the same bar
    void goToNextBar();

private:
    int base() const;

    BarMetrics metrics;
    QPoint position; // the base of the next bar or segment
};

// The top left corner of a label in the middle of a bar, also of one without room for it.
QPoint labelInBar(const BarCursor::Bar &bar, QSize size);

} // namespace ORR::Graph::Layout
