#include "drawing/format_table.h"
#include "drawing/layout_table.h"

#include "support/golden.h"

#include <gtest/gtest.h>

using namespace ORR::Drawing;
using namespace Qt::StringLiterals;

namespace {

const QStringList allFormats{u"xdot1.2"_s, u"jpg"_s, u"png"_s, u"svg"_s, u"vsdx"_s, u"vdx"_s};

} // namespace

TEST(FormatTable, has_the_formats_in_their_order)
{
    EXPECT_EQ(formatNames(), allFormats);
    EXPECT_EQ(formatRow(Format::XDot).name, u"xdot1.2"_s);
    EXPECT_EQ(formatRow(Format::Jpg).name, u"jpg"_s);
    EXPECT_EQ(formatRow(Format::Png).name, u"png"_s);
    EXPECT_EQ(formatRow(Format::Svg).name, u"svg"_s);
    EXPECT_EQ(formatRow(Format::Vsdx).name, u"vsdx"_s);
    EXPECT_EQ(formatRow(Format::Vdx).name, u"vdx"_s);
}

TEST(FormatTable, chooses_by_the_name_in_any_case)
{
    for (qsizetype i = 0; i < allFormats.size(); ++i) {
        const auto expected = static_cast<Format>(i);
        EXPECT_EQ(chooseFormat(allFormats[i], u""_s), expected) << allFormats[i].toStdString();
        EXPECT_EQ(chooseFormat(allFormats[i].toUpper(), u""_s), expected);
    }
}

TEST(FormatTable, name_that_is_known_beats_the_suffix)
{
    EXPECT_EQ(chooseFormat(u"svg"_s, u"x.png"_s), Format::Svg);
}

TEST(FormatTable, name_that_is_unknown_falls_through_to_the_suffix)
{
    EXPECT_EQ(chooseFormat(u"foo"_s, u"x.svg"_s), Format::Svg);
    EXPECT_EQ(chooseFormat(u""_s, u"a.b/x.y.SVG"_s), Format::Svg);
}

TEST(FormatTable, aliases_are_suffixes_and_no_names)
{
    EXPECT_EQ(chooseFormat(u""_s, u"x.dot"_s), Format::XDot);
    EXPECT_EQ(chooseFormat(u""_s, u"x.jpeg"_s), Format::Jpg);
    EXPECT_EQ(chooseFormat(u""_s, u"X.JPEG"_s), Format::Jpg);
    EXPECT_EQ(chooseFormat(u"dot"_s, u""_s), std::nullopt);
    EXPECT_EQ(chooseFormat(u"jpeg"_s, u""_s), std::nullopt);
}

TEST(FormatTable, suffix_is_the_part_behind_the_last_dot)
{
    EXPECT_EQ(chooseFormat(u""_s, u"x.xdot1.2"_s), std::nullopt);
    EXPECT_EQ(chooseFormat(u""_s, u"svg"_s), std::nullopt);
    EXPECT_EQ(chooseFormat(u""_s, u"x.svg/y"_s), std::nullopt);
}

TEST(FormatTable, nothing_given_chooses_nothing)
{
    EXPECT_EQ(chooseFormat(u""_s, u""_s), std::nullopt);
}

TEST(LayoutTable, has_the_engines_in_their_order)
{
    const QStringList expected{u"gftree"_s,     u"gfdecl"_s,   u"umlseq"_s,  u"matrix"_s,
                               u"flatbubble"_s, u"sunburst"_s, u"treemap"_s, u"bar"_s};
    EXPECT_EQ(layoutNames(), expected);
    EXPECT_EQ(layoutRow(LayoutIndex::GfTree).name, u"gftree"_s);
    EXPECT_EQ(layoutRow(LayoutIndex::Treemap).name, u"treemap"_s);
    EXPECT_EQ(layoutRow(LayoutIndex::Bar).name, u"bar"_s);
}

TEST(LayoutTable, chooses_by_the_name_in_any_case)
{
    EXPECT_EQ(chooseLayout(u"treemap"_s), LayoutIndex::Treemap);
    EXPECT_EQ(chooseLayout(u"TreeMap"_s), LayoutIndex::Treemap);
}

TEST(LayoutTable, unknown_names_choose_nothing)
{
    for (const QString &name : {u""_s, u"tree"_s, u"treemap "_s, u"bars"_s})
        EXPECT_EQ(chooseLayout(name), std::nullopt) << name.toStdString();
}
