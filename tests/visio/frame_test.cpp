#include "output/visio/visio_frame.h"

#include "support/golden.h"

using namespace ORR::Graph;

namespace {

constexpr int pageHeight = 100;

QList<VisioRow> lineThrough(QPointF bend)
{
    return {VisioRow::of({0.0, 0.0}, VisioRow::MoveTo), VisioRow::of(bend, VisioRow::LineTo),
            VisioRow::of({1.0, 0.0}, VisioRow::LineTo)};
}

} // namespace

TEST(VisioFrame, of_a_connector_reaches_as_far_as_its_rows)
{
    const QPointF bend(0.5, 0.25); // on the right of the line
    const VisioFrame frame(lineThrough(bend), true, pageHeight, VisioFrame::Exact);
    EXPECT_EQ(frame.width(), 1.0);
    EXPECT_EQ(frame.height(), 0.25);
    EXPECT_EQ(frame.pinShare(), 1.0);
    EXPECT_EQ(frame.position(bend), QPointF(0.5, 0.0));
}

TEST(VisioFrame, measured_in_whole_numbers_knows_no_reach_or_side_below_1)
{
    const QPointF bend(0.5, 0.25);
    const VisioFrame frame(lineThrough(bend), true, pageHeight, VisioFrame::Whole);
    EXPECT_EQ(frame.width(), 1.0);
    EXPECT_EQ(frame.height(), 0.0);
    EXPECT_EQ(frame.pinShare(), 0.0);
    EXPECT_EQ(frame.position(bend), QPointF(0.5, 0.25));
}

TEST(VisioFrame, of_a_box_is_measured_as_it_is)
{
    for (const VisioFrame::Measure measure : {VisioFrame::Exact, VisioFrame::Whole}) {
        const VisioFrame frame(lineThrough({0.5, 0.25}), false, pageHeight, measure);
        EXPECT_EQ(frame.height(), 0.25);
        EXPECT_EQ(frame.pin(), QPointF(0.5, 99.875));
        EXPECT_EQ(frame.pinShare(), 0.5);
    }
}
