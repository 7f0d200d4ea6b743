#include "companion/check_said.h"
#include "companion/syntax_told.h"
#include "support/golden.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// What is told of a node with these ops, whose places count from their first byte.
QStringList toldOfOps(const QByteArray &ops)
{
    return toldOf("digraph { graph [xdotversion=\"1.2\" bb=\"0,0,9,9\"];\na [_draw_=\n" + ops
                  + "];\n}");
}

// The same with all that is said of the text.
QStringList saidOfOps(const QByteArray &ops)
{
    return saidOf("digraph { graph [xdotversion=\"1.2\" bb=\"0,0,9,9\"];\na [_draw_=\n" + ops
                  + "];\n}");
}

} // namespace

TEST(ReplayRules, nothing_is_wrong_with_every_op)
{
    EXPECT_EQ(
        toldOfOps("\"c 7 -#000000 C 7 -#ffffff S 5 -solid E 1 2 3 4 e 1 2 3 4 L 2 1 1 2 2 "
                  "P 3 1 1 2 2 3 3 p 3 1 1 2 2 3 3 B 4 1 1 2 2 3 3 4 4 b 4 1 1 2 2 3 3 4 4 "
                  "F 9 5 -Arial T 1 2 -1 9 1 -x H 1 2 -1 9 1 -x I 1 2 3 4 1 -x "
                  "D 13 -M 1 2 L 3.5 4 d 1 -Z C 37 -[0 0 9 9 2 0 7 -#000000 1 7 -#ffffff] \""),
        QStringList());
}

TEST(ReplayRules, an_unknown_op_is_told_where_it_stands)
{
    EXPECT_EQ(toldOfOps("\"E 1 2 3 4 Q\""),
              QStringList(u"3:12 unknown-op unknown op 'Q' at offset 10 of _draw_"_s));
    EXPECT_EQ(toldOfOps("\"D 5 -M 1 2 X\""),
              QStringList(u"3:13 unknown-op unknown op 'X' at offset 11 of _draw_"_s));
}

TEST(ReplayRules, what_follows_an_unknown_op_is_not_told_again)
{
    EXPECT_EQ(toldOfOps("\"Q 1 2 3 E 1 2 3 x\""),
              (QStringList{u"3:2 unknown-op unknown op 'Q' at offset 0 of _draw_"_s,
                           u"3:18 op-number this is no number in op 'E' at offset 8 of _draw_"_s}));
    EXPECT_EQ(toldOfOps("\"Query E 1 2 3 4 X 1\""),
              (QStringList{u"3:2 unknown-op unknown op 'Q' at offset 0 of _draw_"_s,
                           u"3:18 unknown-op unknown op 'X' at offset 16 of _draw_"_s}));
    EXPECT_EQ(toldOfOps("\"L 1 1 1 200 30\""),
              QStringList(u"3:10 unknown-op a number that no op takes at offset 8 of _draw_ "
                          "(see whether the count ahead of it is too low)"_s));
}

TEST(ReplayRules, a_count_that_is_not_true_is_told_at_the_count)
{
    EXPECT_EQ(toldOfOps("\"P 5 1 1 2 2 3 3\""),
              QStringList(u"3:4 op-count 5 are announced and 3 are there in op 'P' at offset 0 of "
                          "_draw_"_s));
    EXPECT_EQ(toldOfOps("\"P -1\""),
              QStringList(u"3:4 op-count the count is below 0 in op 'P' at offset 0 of _draw_"_s));
    EXPECT_EQ(toldOfOps("\"S 9 -solid\""),
              QStringList(u"3:4 op-count 9 bytes are announced and 5 are there in op 'S' at offset "
                          "0 of _draw_"_s));
    EXPECT_EQ(toldOfOps("\"S 2 -solid\""),
              QStringList(u"3:4 op-count 2 bytes are announced and the text is longer in op 'S' at "
                          "offset 0 of _draw_"_s));
    EXPECT_EQ(toldOfOps("\"C 23 -[0 0 9 9 3 0 7 -#000000\"").value(0),
              u"3:17 op-count 3 are announced and 1 are there in op 'C' at offset 0 of _draw_"_s);
    EXPECT_EQ(toldOfOps("\"S 5 solid\""),
              QStringList(u"3:4 op-count '-' and a text are missing behind the length in op 'S' at "
                          "offset 0 of _draw_"_s));
}

// The ops behind it are read as numbers, and its numbers as ops.
TEST(ReplayRules, what_follows_a_count_that_is_not_true_is_not_told)
{
    const QString tooHigh =
        u"3:4 op-count 4 are announced and 3 are there in op 'P' at offset 0 of _draw_"_s;
    EXPECT_EQ(toldOfOps("\"P 4 1 1 2 2 3 3 E 5 6 7 8 e 1 2 3 4\""), QStringList(tooHigh));
    EXPECT_EQ(toldOfOps("\"P 4 1 1 2 2 3 3 9 E 5 6 7 8\""), QStringList(tooHigh));
    EXPECT_EQ(
        toldOfOps("\"P 4 1 1 2 2 3 3 E 5 6 7 8 e 1 x 3 4\""),
        (QStringList{tooHigh,
                     u"3:32 op-number this is no number in op 'e' at offset 26 of _draw_"_s}));
    EXPECT_EQ(toldOfOps("\"P -2 1 1 2 2 3 3 E 1 2 3 4\"").size(), 1);
    // The letters of the text are ops, too.
    EXPECT_EQ(toldOfOps("\"S 1 -dashed S 5 -solid E 1 2 3 x\"").size(), 2);
}

TEST(ReplayRules, what_is_no_number_is_told)
{
    EXPECT_EQ(toldOfOps("\"E 1 x 3 4\""),
              QStringList(u"3:6 op-number this is no number in op 'E' at offset 0 of _draw_"_s));
    EXPECT_EQ(toldOfOps("\"E 1 2 3\""),
              QStringList(u"3:9 op-number a number is missing in op 'E' at offset 0 of _draw_"_s));
    EXPECT_EQ(toldOfOps("\"E 1 2 3 e 1 2 3 4\""),
              QStringList(u"3:10 op-number this is no number in op 'E' at offset 0 of _draw_"_s));
    EXPECT_EQ(toldOfOps("\"D 11 -M 1 2 L 3 x\""),
              QStringList(u"3:18 op-number this is no number in op 'L' at offset 12 of _draw_"_s));
    EXPECT_EQ(toldOfOps("\"D 13 -M nan 2 L 3 4\""),
              QStringList(u"3:10 op-number this is no number in op 'M' at offset 6 of _draw_"_s));
}

TEST(ReplayRules, the_curve_of_an_edge_is_no_position)
{
    const auto told = [](const QByteArray &position) {
        return toldOf(
            "digraph { graph [xdotversion=\"1.2\" bb=\"0,0,9,9\"];\na [];\n a -> a [pos=\""
            + position + "\"];\n}");
    };
    EXPECT_EQ(told("e,1,2 3,4 5,6 7,8 9,9"), QStringList());
    EXPECT_EQ(told("s,1,2 e,3,4 5,6 7,8 9,9 9,8"), QStringList());
    EXPECT_EQ(told("x,1"), QStringList(u"3:15 op-number this is no number in pos"_s));
}

TEST(ReplayRules, an_unknown_colour_is_told_with_what_it_becomes)
{
    EXPECT_EQ(saidOfOps("\"c 4 -bleu E 1 2 3 4\""),
              QStringList(u"3:7 unknown-color: unknown colour 'bleu' in op 'c' at offset 0 of "
                          "_draw_ becomes black; did you mean 'blue'?"_s));
    EXPECT_EQ(saidOfOps("\"E 1 2 3 4 C 4 -#f00 E 1 2 3 4\""),
              QStringList(u"3:17 unknown-color: unknown colour '#f00' in op 'C' at offset 10 of "
                          "_draw_ becomes black; did you mean '#ff0000'?"_s));
    EXPECT_EQ(saidOfOps("\"C 34 -[0 0 9 9 2 0 7 -#000000 1 5 -grean E 1 2 3 4\""),
              QStringList(u"3:37 unknown-color: unknown colour 'grean' in op 'C' at offset 0 of "
                          "_draw_ becomes black; did you mean 'green'?"_s));
    EXPECT_EQ(saidOfOps("\"c 4 -Blue c 0 - C 9 -#11223344 E 1 2 3 4\""), QStringList());
}

TEST(ReplayRules, an_unknown_style_is_told_with_the_words)
{
    EXPECT_EQ(saidOfOps("\"S 5 -dashd E 1 2 3 4\""),
              QStringList(u"3:7 unknown-word: unknown word 'dashd' in op 'S' at offset 0 of _draw_ "
                          "has no effect; did you mean 'dashed'?"_s));
    EXPECT_EQ(saidOfOps("\"S 9 -invisible E 1 2 3 4\""),
              QStringList(u"3:7 unknown-word: unknown word 'invisible' in op 'S' at offset 0 of "
                          "_draw_ has no effect; the words are bold, dashed, dotted, filled and "
                          "solid"_s));
    EXPECT_EQ(
        saidOfOps(
            "\"S 6 -filled S 4 -bold S 6 -dotted S 5 -solid S 15 -setlinewidth(1) E 1 2 3 4\""),
        QStringList());
}

TEST(ReplayRules, a_word_that_its_length_cuts_is_told_for_its_length_only)
{
    EXPECT_EQ(saidOfOps("\"S 3 -dashed E 1 2 3 4\"").size(), 1);
    EXPECT_EQ(saidOfOps("\"c 3 -blue\"").size(), 1);
}

TEST(ReplayRules, places_within_a_value_count_its_backslashes)
{
    EXPECT_EQ(toldOfOps("\"S 3 -\\\"\\\"\\\" \\\nQ\""),
              QStringList(u"4:1 unknown-op unknown op 'Q' at offset 9 of _draw_"_s));
    EXPECT_EQ(toldOfOps("\"S 1 -\\\" Q\""),
              QStringList(u"3:10 unknown-op unknown op 'Q' at offset 7 of _draw_"_s));
}

TEST(ReplayRules, a_drawing_without_a_page_is_told_at_its_first_word)
{
    EXPECT_EQ(toldOf("\ndigraph { graph [xdotversion=\"1.2\"]; }"),
              QStringList(u"2:1 missing-page the drawing has no bb (write graph "
                          "[bb=\"left,bottom,right,top\"])"_s));
    EXPECT_EQ(toldOf("digraph { graph [xdotversion=1 bb=\"0,0,x\"]; }"),
              QStringList(u"1:35 missing-page bb is not four numbers (write "
                          "left,bottom,right,top)"_s));
}

TEST(ReplayRules, what_only_the_replay_rejects_is_told)
{
    EXPECT_EQ(toldOf("digraph { graph [xdotversion=1 bb=\"0,0,1,1\"]; a -> b; }"),
              QStringList(u"1:53 replay-syntax-error the replay ends here: found ';', expected '[' "
                          "(give every keyword and edge a list, [] at least)"_s));
    EXPECT_EQ(toldOf("digraph { graph [xdotversion=1 bb=\"0,0,1,1\"]; subgraph s { }; }"),
              QStringList(u"1:61 replay-syntax-error the replay ends here: found ';', expected a "
                          "statement or '}' (leave the semicolon out)"_s));
}

TEST(ReplayRules, a_name_like_those_of_ops_is_told)
{
    const auto said = [](const QByteArray &list) {
        return saidOf("digraph { graph [xdotversion=\"1.2\" bb=\"0,0,9,9\"];\na [" + list
                      + " _draw_=\"E 1 2 3 4\"];\n}");
    };
    EXPECT_EQ(said("_darw_=\"E 1 2 3 4\""),
              QStringList(u"2:4 unknown-attribute: unknown attribute '_darw_': nothing of it is "
                          "drawn; did you mean '_draw_'?"_s));
    EXPECT_EQ(said("_Draw_=\"E 1 2 3 4\""),
              QStringList(u"2:4 unknown-attribute: unknown attribute '_Draw_': nothing of it is "
                          "drawn; did you mean '_draw_'?"_s));
    EXPECT_EQ(said("_ldrawl_=\"\""),
              QStringList(u"2:4 unknown-attribute: unknown attribute '_ldrawl_': nothing of it is "
                          "drawn; did you mean '_ldraw_'?"_s));
    EXPECT_EQ(
        said("_draw_=\"\" _ldraw_=\"\" _hdraw_=\"\" _tdraw_=\"\" _hldraw_=\"\" _tldraw_=\"\""),
        QStringList());
    EXPECT_EQ(said("_background=x __=x lable=x draw_=x"), QStringList());
}
