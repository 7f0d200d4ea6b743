#include "graph/palette.h"

#include <gtest/gtest.h>

using ORR::Graph::Palette;

TEST(Palette, has_the_colours_and_the_font_of_a_graph_that_says_nothing)
{
    const Palette &palette = Palette::instance();
    EXPECT_EQ(palette.background(), "#FFFFFF");
    EXPECT_EQ(palette.foreground(), "#000000");
    EXPECT_EQ(palette.fill(), "#FFFFFF");
    EXPECT_EQ(palette.neutral(), "#D4D4D4");
    EXPECT_EQ(palette.none(), "");
    EXPECT_EQ(palette.fontName(), "Arial");
    EXPECT_EQ(palette.fontSize(), "12");
}

TEST(Palette, is_one_for_the_whole_process)
{
    EXPECT_EQ(&Palette::instance(), &Palette::instance());
}

// A derived palette changes the fill with the background.
TEST(Palette, fills_with_the_background)
{
    class Dark : public Palette
    {
    public:
        QString background() const override { return QStringLiteral("#202020"); }
    };
    EXPECT_EQ(Dark().fill(), "#202020");
}
