#include "device/ellipse.h"

#include "support/golden.h"

using namespace ORR::Graph;

namespace {

void expectPoint(QPointF actual, double x, double y)
{
    EXPECT_NEAR(actual.x(), x, 1e-5);
    EXPECT_NEAR(actual.y(), y, 1e-5);
}

} // namespace

TEST(PointOnEllipse, angles_run_counter_clockwise_with_y_downward)
{
    const QPointF centre(10, 20);
    expectPoint(pointOnEllipse(centre, 8, 4, 0), 18, 20);
    expectPoint(pointOnEllipse(centre, 8, 4, 90), 10, 16);
    expectPoint(pointOnEllipse(centre, 8, 4, 180), 2, 20);
    expectPoint(pointOnEllipse(centre, 8, 4, -90), 10, 24);
    expectPoint(pointOnEllipse(centre, 5, 5, 45), 13.535534, 16.464466);
    expectPoint(pointOnEllipse(centre, 5, 5, 135), 6.464466, 16.464466);
    expectPoint(pointOnEllipse(centre, 5, 5, -135), 6.464466, 23.535534);
}

TEST(PointOnEllipse, the_point_is_the_one_seen_at_the_angle)
{
    // On an ellipse twice as wide as high, 45 degrees is where x equals y.
    const QPointF p = pointOnEllipse({0, 0}, 2, 1, 45);
    EXPECT_NEAR(p.x(), -p.y(), 1e-6);
    EXPECT_NEAR(p.x() * p.x() / 4 + p.y() * p.y(), 1, 1e-6);
}

TEST(PointOnEllipse, whole_turns_do_not_count)
{
    const QPointF centre(1, 2);
    EXPECT_EQ(pointOnEllipse(centre, 3, 4, 270), pointOnEllipse(centre, 3, 4, -90));
    EXPECT_EQ(pointOnEllipse(centre, 3, 4, 450), QPointF(1, -2));
    EXPECT_EQ(pointOnEllipse(centre, 3, 4, 180), pointOnEllipse(centre, 3, 4, -180));
    EXPECT_EQ(pointOnEllipse(centre, 3, 4, 30.5 + 3600000), pointOnEllipse(centre, 3, 4, 30.5));
}

TEST(PointOnEllipse, straight_up_and_down_are_exact)
{
    EXPECT_EQ(pointOnEllipse({0, 0}, 3, 0.1, 90), QPointF(0, -0.1));
    EXPECT_EQ(pointOnEllipse({0, 0}, 3, 0.1, -90), QPointF(0, 0.1));
}
