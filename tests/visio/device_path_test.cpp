#include "output/visio/visio_device_path.h"

#include "device/ellipse.h"
#include "support/golden.h"

#include <QStringList>

#include <cmath>
#include <limits>

using namespace ORR::Graph;
using namespace ORR::Graph::Visio;
using namespace Qt::StringLiterals;

namespace {

QString show(const DevicePath &path)
{
    QStringList list;
    for (const VisioRow &row : path.rows) {
        list += u"%1:%2,%3"_s.arg(row.kind)
                    .arg(std::round(row.x * 100) / 100 + 0.0)
                    .arg(std::round(row.y * 100) / 100 + 0.0);
    }
    return list.join(u' ');
}

// The rows of an arc in the box from (0, 0) to (20, 10).
DevicePath arc(double start, double sweep)
{
    DevicePath path;
    path.arcTo({0, 0}, {20, 10}, start, sweep);
    return path;
}

} // namespace

TEST(VisioDevicePath, moves_lines_and_curves_become_rows)
{
    DevicePath path;
    path.moveTo({1, 2});
    path.lineTo({3, 4});
    path.cubicTo({5, 6}, {7, 8}, {9, 10});
    path.quadTo({11, 12}, {13, 14});
    EXPECT_EQ(show(path), u"0:1,2 1:3,4 2:5,6 3:7,8 3:9,10 2:11,12 3:13,14"_s);
    EXPECT_EQ(path.rows.at(2).extra, 3.0);
    EXPECT_EQ(path.rows.at(4).extra, 3.0);
    EXPECT_EQ(path.rows.at(5).extra, 2.0);
    EXPECT_EQ(path.rows.at(6).extra, 2.0);
}

TEST(VisioDevicePath, closing_draws_a_line_to_the_first_point_unless_it_is_there)
{
    DevicePath path;
    path.closeSubpath();
    EXPECT_TRUE(path.rows.isEmpty());
    path.moveTo({1, 2});
    path.lineTo({3, 4});
    path.closeSubpath();
    EXPECT_EQ(show(path), u"0:1,2 1:3,4 1:1,2"_s);
    path.closeSubpath();
    EXPECT_EQ(path.rows.size(), 3);
}

TEST(VisioDevicePath, an_arc_within_a_quadrant_is_its_end_and_its_middle)
{
    const DevicePath path = arc(10, 60);
    ASSERT_EQ(path.rows.size(), 2);
    const QPointF end = pointOnEllipse({10, 5}, 10, 5, 70);
    const QPointF middle = pointOnEllipse({10, 5}, 10, 5, 40);
    EXPECT_EQ(path.rows.at(0).kind, 4);
    EXPECT_EQ(path.rows.at(0).point(), end);
    EXPECT_EQ(path.rows.at(1).kind, 5);
    EXPECT_EQ(path.rows.at(1).point(), middle);
    EXPECT_EQ(path.rows.at(0).extra, 0.0);
    EXPECT_EQ(path.rows.at(1).extra, 2.0); // 10 by 5
}

TEST(VisioDevicePath, an_arc_is_cut_at_every_quarter_turn)
{
    EXPECT_EQ(arc(0, 90).rows.size(), 2);
    EXPECT_EQ(arc(10, 90).rows.size(), 4);
    EXPECT_EQ(arc(0, 360).rows.size(), 8);
    EXPECT_EQ(arc(45, 360).rows.size(), 10);
    EXPECT_EQ(arc(-360, 720).rows.size(), 16);
}

TEST(VisioDevicePath, a_full_turn_ends_at_the_four_sides)
{
    const DevicePath path = arc(0, 360);
    QStringList ends;
    for (qsizetype i = 0; i < path.rows.size(); i += 2) {
        ends += u"%1,%2"_s.arg(std::round(path.rows.at(i).x)).arg(std::round(path.rows.at(i).y));
    }
    EXPECT_EQ(ends.join(u' '), u"10,0 0,5 10,10 20,5"_s);
}

TEST(VisioDevicePath, a_negative_sweep_is_cut_from_the_lowest_quarter_turn_on)
{
    // The cut at 0 is found first; the part up to it is cut again at 90.
    const DevicePath path = arc(135, -180);
    QStringList ends;
    for (qsizetype i = 0; i < path.rows.size(); i += 2)
        ends += QString::number(std::round(path.rows.at(i).x));
    EXPECT_EQ(ends.join(u' '), u"10 20 14"_s);
}

TEST(VisioDevicePath, an_arc_beyond_the_known_quarter_turns_is_not_cut)
{
    EXPECT_EQ(arc(400, 200).rows.size(), 2);
}

TEST(VisioDevicePath, a_cut_that_rounding_moves_ends_all_the_same)
{
    for (int k = 0; k < 20000; ++k)
        ASSERT_LE(arc(-5000.0 + k * 0.317, 4000.1 + k * 0.011).rows.size(), 20);
}

TEST(VisioDevicePath, a_flat_ellipse_divides_by_nothing)
{
    for (const double angle : {0.0, 45.0, 90.0, 180.0, 270.0}) {
        DevicePath path;
        path.arcTo({0, 5}, {20, 5}, angle, 30);
        path.arcTo({5, 0}, {5, 20}, angle, 30);
        path.arcTo({5, 5}, {5, 5}, angle, 30);
        for (const VisioRow &row : path.rows) {
            EXPECT_TRUE(std::isfinite(row.x) && std::isfinite(row.y)) << angle;
            EXPECT_TRUE(std::isfinite(row.extra));
            EXPECT_LE(std::fabs(row.x), 20.0);
        }
    }
}

TEST(VisioDevicePath, what_is_no_number_or_beyond_any_page_is_brought_back)
{
    constexpr double inf = std::numeric_limits<double>::infinity();
    const double nan = std::nan("");
    DevicePath path;
    path.moveTo({nan, inf});
    path.lineTo({-inf, 1e300});
    path.arcTo({nan, -inf}, {inf, 1e300}, nan, inf);
    path.arcTo({0, 0}, {10, 10}, inf, -inf);
    path.arcTo({0, 0}, {10, 10}, 0, inf);
    for (const VisioRow &row : path.rows)
        EXPECT_TRUE(std::fabs(row.x) <= 2147483647.0 && std::fabs(row.y) <= 2147483647.0);
    EXPECT_EQ(path.rows.at(0).point(), QPointF(0.0, 2147483647.0));
}
