#include "output/visio/visio_geometry.h"
#include "support/golden.h"

#include <QStringList>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

// "0:1,2" for a row of kind 0 at (1, 2).
QString show(const QList<VisioRow> &rows)
{
    QStringList list;
    for (const VisioRow &row : rows)
        list += u"%1:%2,%3"_s.arg(row.kind).arg(row.x).arg(row.y);
    return list.join(u' ');
}

QString show(const VisioGeometry &geometry)
{
    QStringList list;
    for (const QList<VisioRow> &subpath : geometry.subpaths)
        list += show(subpath);
    return list.join(u" | ");
}

VisioGeometry edge(const QList<QPoint> &line)
{
    VisioGeometry geometry;
    geometry.isEdge = true;
    geometry.addPolyline(line);
    return geometry;
}

} // namespace

TEST(VisioGeometry, a_bezier_is_a_start_a_spline_start_and_knots_of_degree_three)
{
    VisioGeometry geometry;
    geometry.addBezier({{0, 1}, {2, 3}, {4, 5}, {6, 7}});
    EXPECT_EQ(show(geometry), u"0:0,1 2:2,3 3:4,5 3:6,7"_s);
    EXPECT_EQ(geometry.allRows().at(1).extra, 3.0);
    EXPECT_EQ(geometry.allRows().at(3).extra, 3.0);
    EXPECT_EQ(geometry.allRows().at(0).extra, 0.0);
}

TEST(VisioGeometry, a_polyline_is_a_start_and_lines)
{
    VisioGeometry geometry;
    geometry.addPolyline({{0, 1}, {2, 3}, {4, 5}});
    EXPECT_EQ(show(geometry), u"0:0,1 1:2,3 1:4,5"_s);
}

TEST(VisioGeometry, a_polygon_of_a_shape_is_a_polyline)
{
    VisioGeometry geometry;
    geometry.addPolygon({{0, 0}, {2, 0}, {2, 2}, {0, 0}}, true);
    EXPECT_EQ(show(geometry), u"0:0,0 1:2,0 1:2,2 1:0,0"_s);
}

TEST(VisioGeometry, an_ellipse_of_a_shape_is_two_half_turns_with_their_control_points)
{
    VisioGeometry geometry;
    geometry.addEllipse({10, 20}, 4, 3, false);
    EXPECT_EQ(show(geometry), u"0:6,20 4:14,20 5:10,17 4:6,20 5:10,23"_s);
    EXPECT_EQ(geometry.allRows().at(2).extra, 0.0);
}

TEST(VisioGeometry, a_rectangle_of_a_shape_runs_through_its_corners_and_back)
{
    VisioGeometry geometry;
    geometry.addRect({1, 2}, {5, 8}, true);
    EXPECT_EQ(show(geometry), u"0:1,2 1:5,2 1:5,8 1:1,8 1:1,2"_s);
}

TEST(VisioGeometry, an_ellipse_of_the_largest_coordinates_does_not_overflow)
{
    VisioGeometry geometry;
    geometry.addEllipse({2147483647, -2147483647}, 2147483647, 2147483647, false);
    EXPECT_EQ(geometry.allRows().at(1).x, 4294967294.0);
}

TEST(VisioGeometry, no_points_are_no_subpath)
{
    VisioGeometry geometry;
    geometry.addPolyline({});
    geometry.addBezier({});
    geometry.add({});
    EXPECT_TRUE(geometry.isEmpty());
}

TEST(VisioArrows, a_filled_polygon_at_the_last_row_is_end_arrow_4_and_an_unfilled_one_14)
{
    VisioGeometry filled = edge({{0, 0}, {100, 0}});
    filled.addPolygon({{100, 0}, {94, -3}, {94, 3}, {100, 0}}, true);
    EXPECT_EQ(filled.endArrow, 4);
    EXPECT_EQ(filled.beginArrow, 0);
    VisioGeometry open = edge({{0, 0}, {100, 0}});
    open.addPolygon({{100, 0}, {94, -3}, {94, 3}, {100, 0}}, false);
    EXPECT_EQ(open.endArrow, 14);
}

TEST(VisioArrows, a_polygon_nearer_the_first_row_is_the_begin_arrow)
{
    VisioGeometry geometry = edge({{0, 0}, {100, 0}});
    geometry.addPolygon({{0, 0}, {6, -3}, {6, 3}, {0, 0}}, true);
    EXPECT_EQ(geometry.beginArrow, 4);
    EXPECT_EQ(geometry.endArrow, 0);
}

TEST(VisioArrows, a_polygon_equally_near_both_ends_is_the_end_arrow)
{
    VisioGeometry geometry = edge({{0, 0}, {100, 0}});
    geometry.addPolygon({{50, 0}, {44, -3}, {44, 3}, {50, 0}}, true);
    EXPECT_EQ(geometry.endArrow, 4);
    EXPECT_EQ(geometry.beginArrow, 0);
}

TEST(VisioArrows, the_line_ends_at_the_polygon_point_nearest_to_its_end)
{
    VisioGeometry geometry = edge({{0, 0}, {90, 0}});
    geometry.addPolygon({{100, 0}, {91, -3}, {91, 2}, {100, 0}}, true);
    EXPECT_EQ(show(geometry), u"0:0,0 1:91,2"_s);
}

TEST(VisioArrows, the_first_of_equally_near_polygon_points_is_taken)
{
    VisioGeometry geometry = edge({{0, 0}, {90, 0}});
    geometry.addPolygon({{100, 0}, {91, -3}, {91, 3}, {100, 0}}, true);
    EXPECT_EQ(show(geometry), u"0:0,0 1:91,-3"_s);
}

TEST(VisioArrows, the_line_stays_when_the_polygon_has_its_end)
{
    VisioGeometry geometry = edge({{0, 0}, {100, 0}});
    geometry.addPolygon({{100, 0}, {94, -3}, {94, 3}, {100, 0}}, true);
    EXPECT_EQ(show(geometry), u"0:0,0 1:100,0"_s);
}

TEST(VisioArrows, a_polygon_of_any_other_number_of_points_is_dropped)
{
    VisioGeometry geometry = edge({{0, 0}, {100, 0}});
    geometry.addPolygon({{100, 0}, {94, -3}, {94, 3}}, true);
    geometry.addPolygon({{100, 0}, {94, -3}, {90, 0}, {94, 3}, {100, 0}}, true);
    EXPECT_EQ(geometry.endArrow, 0);
    EXPECT_EQ(show(geometry), u"0:0,0 1:100,0"_s);
}

TEST(VisioArrows, an_ellipse_is_arrow_10_or_20_at_the_nearer_end)
{
    VisioGeometry geometry = edge({{0, 0}, {100, 0}});
    geometry.addEllipse({96, 0}, 4, 4, true);
    geometry.addEllipse({4, 0}, 4, 4, false);
    EXPECT_EQ(geometry.endArrow, 10);
    EXPECT_EQ(geometry.beginArrow, 20);
    EXPECT_EQ(show(geometry), u"0:0,0 1:100,0"_s);
}

TEST(VisioArrows, a_rectangle_is_arrow_11_or_21_at_the_end_nearer_to_its_top_left_corner)
{
    VisioGeometry geometry = edge({{0, 0}, {100, 0}});
    geometry.addRect({40, -4}, {100, 4}, true);
    geometry.addRect({60, -4}, {100, 4}, false);
    EXPECT_EQ(geometry.beginArrow, 11);
    EXPECT_EQ(geometry.endArrow, 21);
}

TEST(VisioArrows, a_mark_in_the_middle_is_the_end_arrow)
{
    VisioGeometry geometry = edge({{0, 0}, {100, 0}});
    geometry.addEllipse({50, 0}, 4, 4, true);
    EXPECT_EQ(geometry.endArrow, 10);
    EXPECT_EQ(geometry.beginArrow, 0);
}

TEST(VisioArrows, a_head_ahead_of_any_line_is_that_of_the_end)
{
    VisioGeometry geometry = edge({});
    geometry.addPolygon({{100, 0}, {94, -3}, {94, 3}, {100, 0}}, true);
    EXPECT_EQ(geometry.endArrow, 4);
    geometry.addRect({0, 0}, {1, 1}, false);
    EXPECT_EQ(geometry.endArrow, 21);
    geometry.addEllipse({0, 0}, 1, 1, true);
    EXPECT_EQ(geometry.endArrow, 10);
    EXPECT_TRUE(geometry.isEmpty());
}
