// What each op of a drawing attribute does. The page is 100 by 50 points: the xdot point (0, 50) is
// (4, 4) on it, (0, 0) is (4, 54).

#include "support/golden.h"
#include "xdot/replay_support.h"

using namespace Qt::StringLiterals;

namespace {

// The paint that holds when the text sets none, and a set of ops that sets one.
const QString unset = u" pen none solid 1 fill none"_s;
const QByteArray red = "c 3 -red C 4 -blue ";
const QString redPen = u" pen red solid 1"_s;

QStringList just(const QString &call)
{
    return {call};
}

} // namespace

TEST(ReplayOps, an_open_bezier_is_drawn_without_fill)
{
    EXPECT_EQ(drawCalls(red + "B 4 0 0 10 0 10 10 0 10"),
              just(u"bezier 4,54 14,54 14,44 4,44 pen red solid 1 fill none"_s));
}

TEST(ReplayOps, a_closed_bezier_is_drawn_with_fill)
{
    EXPECT_EQ(drawCalls(red + "b 4 0 0 10 0 10 10 0 10"),
              just(u"bezier 4,54 14,54 14,44 4,44 pen red solid 1 fill blue"_s));
}

TEST(ReplayOps, ellipses_keep_their_radii_and_capital_means_filled)
{
    EXPECT_EQ(drawCalls(red + "E 0 50 10 5 e 100 0 3 4"),
              (QStringList{u"ellipse 4,4 radii 10,5 pen red solid 1 fill blue"_s,
                           u"ellipse 104,54 radii 3,4 pen red solid 1 fill none"_s}));
}

TEST(ReplayOps, a_polyline_stays_open)
{
    EXPECT_EQ(drawCalls(red + "L 3 0 0 10 0 10 10"),
              just(u"polyline 4,54 14,54 14,44 pen red solid 1"_s));
}

TEST(ReplayOps, polygons_are_closed_and_capital_means_filled)
{
    EXPECT_EQ(drawCalls(red + "P 3 0 0 10 0 10 10 p 3 0 0 10 0 10 10"),
              (QStringList{u"polygon 4,54 14,54 14,44 4,54 pen red solid 1 fill blue"_s,
                           u"polygon 4,54 14,54 14,44 4,54 pen red solid 1 fill none"_s}));
}

TEST(ReplayOps, a_polygon_that_is_closed_already_gets_no_further_point)
{
    EXPECT_EQ(drawCalls("p 4 0 0 10 0 10 10 0 0"),
              just(u"polygon 4,54 14,54 14,44 4,54"_s + unset));
    EXPECT_EQ(drawCalls("p 1 0 0"), just(u"polygon 4,54"_s + unset));
}

TEST(ReplayOps, a_polygon_without_points_is_drawn_all_the_same)
{
    EXPECT_EQ(drawCalls("p 0"), just(u"polygon "_s + unset));
}

TEST(ReplayOps, four_corners_without_rounded_are_a_polygon_of_five_points)
{
    EXPECT_EQ(drawCalls("p 4 0 0 20 0 20 10 0 10"),
              just(u"polygon 4,54 24,54 24,44 4,44 4,54"_s + unset));
}

TEST(ReplayOps, four_corners_with_rounded_are_a_rectangle)
{
    EXPECT_EQ(nodeCalls("rounded=5, _draw_=\"p 4 0 0 20 0 20 10 0 10\""),
              just(u"rect 4,44 24,54 radius 5"_s + unset));
    EXPECT_EQ(nodeCalls("rounded=5, fillcolor=blue, _draw_=\"P 4 20 10 0 10 0 0 20 0\""),
              just(u"rect 4,44 24,54 radius 5 pen none solid 1 fill blue"_s));
}

TEST(ReplayOps, only_four_corners_are_rounded)
{
    EXPECT_EQ(nodeCalls("rounded=5, _draw_=\"p 3 0 0 20 0 20 10\""),
              just(u"polygon 4,54 24,54 24,44 4,54"_s + unset));
    EXPECT_EQ(nodeCalls("rounded=5, _draw_=\"p 5 0 0 20 0 20 10 0 10 0 0\""),
              just(u"polygon 4,54 24,54 24,44 4,44 4,54"_s + unset));
}

TEST(ReplayOps, a_corner_radius_is_one_less_than_half_the_greater_side_if_it_is_more_than_that)
{
    const auto radius = [](const QByteArray &rounded) {
        const QString call =
            nodeCalls("rounded=\"" + rounded + "\", _draw_=\"p 4 0 0 20 0 20 10 0 10\"")
                .constFirst();
        return call.sliced(call.indexOf(u"radius"_s)).split(u' ').at(1);
    };
    EXPECT_EQ(radius("1000"), u"9"_s);
    EXPECT_EQ(radius("11"), u"9"_s);
    EXPECT_EQ(radius("10"), u"10"_s);
    EXPECT_EQ(radius("7.9"), u"7"_s);
    EXPECT_EQ(radius("0.5"), u"0"_s);
    EXPECT_EQ(radius("-3"), u"0"_s);
    EXPECT_EQ(radius("nan"), u"0"_s);
    EXPECT_EQ(radius("inf"), u"9"_s);
}

TEST(ReplayOps, the_radius_of_a_rectangle_without_extent_is_no_less_than_zero)
{
    EXPECT_EQ(nodeCalls("rounded=5, _draw_=\"p 4 3 3 3 3 3 3 3 3\""),
              just(u"rect 7,51 7,51 radius 0"_s + unset));
}

TEST(ReplayOps, small_c_sets_the_pen_and_capital_c_the_fill)
{
    EXPECT_EQ(drawCalls("c 3 -red E 0 0 1 1 C 7 -#00ff00 E 0 0 1 1"),
              (QStringList{u"ellipse 4,54 radii 1,1 pen red solid 1 fill none"_s,
                           u"ellipse 4,54 radii 1,1 pen red solid 1 fill #00ff00"_s}));
}

TEST(ReplayOps, an_empty_colour_is_black)
{
    EXPECT_EQ(drawCalls("c 0 - L 1 0 0"), just(u"polyline 4,54 pen black solid 1"_s));
}

TEST(ReplayOps, styles_change_the_pen)
{
    EXPECT_EQ(
        drawCalls("S 6 -dashed L 1 0 0 S 6 -dotted L 1 0 0 S 5 -solid L 1 0 0"),
        (QStringList{u"polyline 4,54 pen none dashed 1"_s, u"polyline 4,54 pen none dotted 1"_s,
                     u"polyline 4,54 pen none solid 1"_s}));
}

TEST(ReplayOps, bold_is_two_wide_and_keeps_the_style)
{
    EXPECT_EQ(drawCalls("S 6 -dashed S 4 -bold L 1 0 0"),
              just(u"polyline 4,54 pen none dashed 2"_s));
}

TEST(ReplayOps, other_styles_have_no_effect)
{
    EXPECT_EQ(drawCalls("S 6 -dashed S 15 -setlinewidth(3) S 6 -Dotted S 0 - L 1 0 0"),
              just(u"polyline 4,54 pen none dashed 1"_s));
}

TEST(ReplayOps, a_linear_gradient_is_mapped_to_the_page)
{
    EXPECT_EQ(drawCalls("C 37 -[0 50 100 0 2 0 7 -#000000 1 3 -red] E 0 0 1 1"),
              just(u"ellipse 4,54 radii 1,1 pen none solid 1"
                   " fill linear(4,4 104,54 #000000@0 red@1)"_s));
}

TEST(ReplayOps, a_radial_gradient_is_mapped_to_the_page_without_its_radii)
{
    EXPECT_EQ(drawCalls("C 39 -(0 50 1 50 25 7 2 0.5 4 -blue 1 3 -red) E 0 0 1 1"),
              just(u"ellipse 4,54 radii 1,1 pen none solid 1"
                   " fill radial(4,4 54,29 blue@0.5 red@1)"_s));
}

TEST(ReplayOps, a_gradient_in_small_c_changes_the_fill_and_not_the_pen)
{
    EXPECT_EQ(drawCalls("c 5 -green c 33 -[0 50 100 0 2 0 4 -blue 1 3 -red] E 0 0 1 1"),
              just(u"ellipse 4,54 radii 1,1 pen green solid 1"
                   " fill linear(4,4 104,54 blue@0 red@1)"_s));
}

TEST(ReplayOps, the_bracket_that_closes_a_gradient_is_not_missed)
{
    EXPECT_EQ(drawCalls("C 32 -[0 50 100 0 2 0 4 -blue 1 3 -red E 0 0 1 1"),
              just(u"ellipse 4,54 radii 1,1 pen none solid 1"
                   " fill linear(4,4 104,54 blue@0 red@1)"_s));
}

TEST(ReplayOps, a_gradient_with_a_count_that_lies_ends_with_one_missing_stop)
{
    EXPECT_EQ(
        drawCalls("C 34 -[0 50 100 0 2000000000 0.5 3 -red E 0 0 1 1"),
        just(u"ellipse 4,54 radii 1,1 pen none solid 1 fill linear(4,4 104,54 red@0.5 @0)"_s));
    EXPECT_EQ(drawCalls("C 14 -[0 50 100 0 -5 E 0 0 1 1"),
              just(u"ellipse 4,54 radii 1,1 pen none solid 1 fill linear(4,4 104,54)"_s));
}

TEST(ReplayOps, images_are_stepped_over)
{
    EXPECT_EQ(drawCalls("I 0 0 10 10 9 -E 1 2 3 4 L 1 0 0"),
              just(u"polyline 4,54 pen none solid 1"_s));
}

TEST(ReplayOps, unknown_characters_are_stepped_over)
{
    EXPECT_EQ(drawCalls("t 1 x 7 ? L 1 0 0"), just(u"polyline 4,54 pen none solid 1"_s));
}

TEST(ReplayOps, fractions_are_rounded)
{
    EXPECT_EQ(drawCalls("E 0.5 49.6 1.49 2.51"), just(u"ellipse 5,4 radii 1,3"_s + unset));
    EXPECT_EQ(drawCalls("E -0.5 -1.6 1. .5"), just(u"ellipse 4,55 radii 1,1"_s + unset));
}

TEST(ReplayOps, what_is_no_number_reads_as_zero)
{
    EXPECT_EQ(drawCalls("E x y 1e2 0x10"), just(u"ellipse 4,54 radii 0,0"_s + unset));
    EXPECT_EQ(drawCalls("E 1.5.5 99999999999 -7 +7"), just(u"ellipse 4,54 radii -7,7"_s + unset));
}

TEST(ReplayOps, a_comma_ends_a_word_and_is_no_separator)
{
    EXPECT_EQ(drawCalls("E 1,2 3 4"), just(u"ellipse 5,54 radii 0,0"_s + unset));
}

TEST(ReplayOps, a_counted_string_takes_bytes_and_may_hold_anything)
{
    EXPECT_EQ(
        labelCalls("F 10 5 -Arial T 0 50 -1 9 7 -ä, T 0 T 0 50 -1 9 3 -€"),
        (QStringList{u"text 4,-6 \"ä, T 0\" Arial 10 none"_s, u"text 4,-6 \"€\" Arial 10 none"_s}));
}

TEST(ReplayOps, a_counted_string_starts_behind_the_next_dash)
{
    EXPECT_EQ(drawCalls("c 3 xyz-red L 1 0 0"), just(u"polyline 4,54 pen red solid 1"_s));
}

TEST(ReplayOps, a_counted_string_ends_with_the_text)
{
    EXPECT_EQ(labelCalls("F 10 5 -Arial T 0 50 -1 9 1000 -abc"),
              just(u"text 4,-6 \"abc\" Arial 10 none"_s));
    EXPECT_EQ(labelCalls("F 10 5 -Arial T 0 50 -1 9 1000"),
              just(u"text 4,-6 \"\" Arial 10 none"_s));
}

TEST(ReplayOps, a_negative_length_takes_nothing)
{
    EXPECT_EQ(drawCalls("c -3 -xyz L 1 0 0"), just(u"polyline 4,54 pen black solid 1"_s));
}

TEST(ReplayOps, missing_points_read_as_zero)
{
    EXPECT_EQ(drawCalls("P 3 0 0 10 0"), just(u"polygon 4,54 14,54 4,54"_s + unset));
    EXPECT_EQ(drawCalls("L 3 10 10 10"), just(u"polyline 14,44 14,54 4,54 pen none solid 1"_s));
    EXPECT_EQ(drawCalls("B 4 1 1"), just(u"bezier 5,53 4,54 4,54 4,54"_s + unset));
}

TEST(ReplayOps, no_more_than_four_missing_points_are_made_up)
{
    EXPECT_EQ(drawCalls("L 2000000000 10 10"),
              just(u"polyline 14,44 4,54 4,54 4,54 4,54 pen none solid 1"_s));
    EXPECT_EQ(drawCalls("L 1000000 10 10, L 1 0 0"),
              (QStringList{u"polyline 14,44 4,54 4,54 4,54 4,54 pen none solid 1"_s,
                           u"polyline 4,54 pen none solid 1"_s}));
}

TEST(ReplayOps, a_count_beyond_any_integer_is_no_number)
{
    EXPECT_EQ(drawCalls("P 4000000000 1 2"), just(u"polygon "_s + unset));
    EXPECT_EQ(drawCalls("P -3 1 2"), just(u"polygon "_s + unset));
}

TEST(ReplayOps, truncated_ops_are_drawn_as_far_as_they_go)
{
    EXPECT_EQ(drawCalls("E"), just(u"ellipse 4,54 radii 0,0"_s + unset));
    EXPECT_EQ(drawCalls("b"), just(u"bezier "_s + unset));
    EXPECT_EQ(drawCalls("L"), just(u"polyline  pen none solid 1"_s));
    EXPECT_EQ(drawCalls("d"), just(u"path "_s + unset));
    EXPECT_EQ(drawCalls("S"), QStringList());
    EXPECT_EQ(drawCalls("I"), QStringList());
    EXPECT_EQ(drawCalls("C"), QStringList());
    EXPECT_EQ(drawCalls("C 1 -["), QStringList());
}

TEST(ReplayOps, coordinates_beyond_any_integer_saturate)
{
    EXPECT_EQ(drawCalls("L 2 2147483647 -2147483648 1e300.5 -1.e300"),
              just(u"polyline 2147483647,2147483647 4,2147483647 pen none solid 1"_s));
}

TEST(ReplayOps, a_path_has_its_own_ops_in_doubles)
{
    EXPECT_EQ(drawCalls("D 46 -M 0 50 L 1.25 0 C 1 2 3 4 5 6 Q 7 8 9 10.5 Z x"),
              just(u"path M 4,4 L 5.25,54 C 5,52 7,50 9,48 Q 11,46 13,43.5 Z"_s + unset));
}

TEST(ReplayOps, a_capital_d_fills_the_path)
{
    EXPECT_EQ(drawCalls(red + "D 7 -M 0 0 Z d 7 -M 0 0 Z"),
              (QStringList{u"path M 4,54 Z"_s + redPen + u" fill blue"_s,
                           u"path M 4,54 Z"_s + redPen + u" fill none"_s}));
}

TEST(ReplayOps, an_arc_keeps_its_angles)
{
    EXPECT_EQ(drawCalls("d 19 -E 0 50 20 0 90 -180"), just(u"path A 4,4 24,54 90 -180"_s + unset));
}

TEST(ReplayOps, a_path_reads_missing_numbers_as_zero)
{
    EXPECT_EQ(drawCalls("d 3 -M 1"), just(u"path M 5,54"_s + unset));
    EXPECT_EQ(drawCalls("d 999 -M 1 2 L nan inf"), just(u"path M 5,52 L nan,-inf"_s + unset));
}

TEST(ReplayOps, texts_stand_by_their_size_above_the_baseline)
{
    EXPECT_EQ(labelCalls("F 12 5 -Arial c 3 -red T 10 20 -1 30 2 -ab"),
              just(u"text 14,22 \"ab\" Arial 12 red"_s));
}

TEST(ReplayOps, a_centred_text_moves_left_by_half_its_width)
{
    EXPECT_EQ(labelCalls("F 12 5 -Arial T 50 20 0 31 2 -ab"),
              just(u"text 39,22 \"ab\" Arial 12 none"_s)); // 54 - 15
}

TEST(ReplayOps, any_other_alignment_moves_left_by_the_whole_width)
{
    EXPECT_EQ(
        labelCalls("F 12 5 -Arial T 50 20 1 31 2 -ab T 50 20 7 31 2 -ab T 50 20 -2 31 2 -ab"),
        (QStringList{u"text 23,22 \"ab\" Arial 12 none"_s, u"text 23,22 \"ab\" Arial 12 none"_s,
                     u"text 23,22 \"ab\" Arial 12 none"_s}));
}

TEST(ReplayOps, font_sizes_are_rounded_and_negative_ones_are_the_default)
{
    EXPECT_EQ(
        labelCalls("F 11.5 7 -Courier T 0 50 -1 9 1 -x F -1 7 -Courier T 0 50 -1 9 1 -x"),
        (QStringList{u"text 4,-8 \"x\" Courier 12 none"_s, u"text 4,-8 \"x\" Courier 12 none"_s}));
}

TEST(ReplayOps, a_font_that_was_never_set_has_no_size)
{
    EXPECT_EQ(labelCalls("T 0 50 -1 9 1 -x"), just(u"text 4,4 \"x\" Arial 0 none"_s));
}

TEST(ReplayOps, h_is_rich_text)
{
    EXPECT_EQ(labelCalls("F 12 5 -Arial H 10 20 -1 30 8 -<b>x</b> T 10 20 -1 30 1 -y"),
              (QStringList{u"richtext 14,22 \"<b>x</b>\" Arial 12 none"_s,
                           u"text 14,22 \"y\" Arial 12 none"_s}));
}
