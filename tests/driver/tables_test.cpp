#include "driver/command_line.h"
#include "driver/format_table.h"
#include "driver/layout_table.h"

#include "support/golden.h"

#include <gtest/gtest.h>

using namespace ORR::Driver;
using namespace Qt::StringLiterals;

namespace {

const QStringList allFormats{u"xdot1.2"_s, u"jpg"_s, u"png"_s, u"svg"_s, u"vsdx"_s, u"vdx"_s};

} // namespace

TEST(FormatTable, has_the_formats_in_their_order)
{
    EXPECT_EQ(formatNames(), allFormats);
    EXPECT_EQ(formatRow(DriverFormat::XDot).name, u"xdot1.2"_s);
    EXPECT_EQ(formatRow(DriverFormat::Jpg).name, u"jpg"_s);
    EXPECT_EQ(formatRow(DriverFormat::Png).name, u"png"_s);
    EXPECT_EQ(formatRow(DriverFormat::Svg).name, u"svg"_s);
    EXPECT_EQ(formatRow(DriverFormat::Vsdx).name, u"vsdx"_s);
    EXPECT_EQ(formatRow(DriverFormat::Vdx).name, u"vdx"_s);
}

TEST(FormatTable, chooses_by_the_name_in_any_case)
{
    for (qsizetype i = 0; i < allFormats.size(); ++i) {
        const auto expected = static_cast<DriverFormat>(i);
        EXPECT_EQ(chooseFormat(allFormats[i], u""_s), expected) << allFormats[i].toStdString();
        EXPECT_EQ(chooseFormat(allFormats[i].toUpper(), u""_s), expected);
    }
}

TEST(FormatTable, name_that_is_known_beats_the_suffix)
{
    EXPECT_EQ(chooseFormat(u"svg"_s, u"x.png"_s), DriverFormat::Svg);
}

TEST(FormatTable, name_that_is_unknown_falls_through_to_the_suffix)
{
    EXPECT_EQ(chooseFormat(u"foo"_s, u"x.svg"_s), DriverFormat::Svg);
    EXPECT_EQ(chooseFormat(u""_s, u"a.b/x.y.SVG"_s), DriverFormat::Svg);
}

TEST(FormatTable, aliases_are_suffixes_and_no_names)
{
    EXPECT_EQ(chooseFormat(u""_s, u"x.dot"_s), DriverFormat::XDot);
    EXPECT_EQ(chooseFormat(u""_s, u"x.jpeg"_s), DriverFormat::Jpg);
    EXPECT_EQ(chooseFormat(u""_s, u"X.JPEG"_s), DriverFormat::Jpg);
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

TEST(CommandLine, help_is_worded_as_agreed)
{
    QCommandLineParser parser;
    describeCommandLine(&parser);
    const QString help = parser.helpText().simplified();
    const QStringList texts{
        u"Orrery Layout and Render Engines"_s,
        u"-K <layout> Use <layout> engine. Options are gftree, gfdecl, umlseq, matrix, flatbubble, "
        "sunburst, treemap or bar."_s,
        u"-T <format> Output in <format>. Options are xdot1.2, svg, vsdx, vdx, png, jpg. This can "
        "be automatically determined from the output file name if provided."_s,
        u"-o <outfile> Output to <outfile>. Standard out if not provided"_s,
        u"infile Input dot file. Standard in if not provided"_s,
    };
    qsizetype from = 0;
    for (const QString &text : texts) {
        const qsizetype place = help.indexOf(text, from);
        ASSERT_GE(place, from) << text.toStdString() << "\nin\n" << help.toStdString();
        from = place + text.size();
    }
}
