#include "device/color_value.h"

#include "support/golden.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

struct Case
{
    QString text;
    QString name;
    QList<int> channels;
};

QList<int> channels(const ColorValue &value)
{
    return {value.red(), value.green(), value.blue(), value.alpha()};
}

} // namespace

TEST(ColorValue, reads_names_and_hexadecimal_values)
{
    const QList<Case> cases{
        {u"red"_s, u"red"_s, {255, 0, 0, 255}},
        {u"RED"_s, u"RED"_s, {255, 0, 0, 255}},
        {u"aqua"_s, u"aqua"_s, {0, 255, 255, 255}},
        {u"black"_s, u"black"_s, {0, 0, 0, 255}},
        {u"blue"_s, u"blue"_s, {0, 0, 255, 255}},
        {u"fuchsia"_s, u"fuchsia"_s, {255, 0, 255, 255}},
        {u"gray"_s, u"gray"_s, {192, 192, 192, 255}},
        {u"grey"_s, u"grey"_s, {192, 192, 192, 255}},
        {u"green"_s, u"green"_s, {0, 128, 0, 255}},
        {u"lime"_s, u"lime"_s, {0, 255, 0, 255}},
        {u"maroon"_s, u"maroon"_s, {128, 0, 0, 255}},
        {u"navy"_s, u"navy"_s, {0, 0, 128, 255}},
        {u"olive"_s, u"olive"_s, {128, 128, 0, 255}},
        {u"purple"_s, u"purple"_s, {128, 0, 128, 255}},
        {u"silver"_s, u"silver"_s, {192, 192, 192, 255}},
        {u"teal"_s, u"teal"_s, {0, 128, 128, 255}},
        {u"white"_s, u"white"_s, {255, 255, 255, 255}},
        {u"yellow"_s, u"yellow"_s, {255, 255, 0, 255}},
        {u"none"_s, u"none"_s, {0, 0, 0, 0}},
        {u"#112233"_s, u"#112233"_s, {0x11, 0x22, 0x33, 255}},
        {u"#11223380"_s, u"#11223380"_s, {0x11, 0x22, 0x33, 128}},
        {u"#AaBbCc"_s, u"#AaBbCc"_s, {0xaa, 0xbb, 0xcc, 255}},
    };
    for (const Case &c : cases) {
        const ColorValue value(c.text);
        EXPECT_EQ(value.name(), c.name);
        EXPECT_EQ(channels(value), c.channels) << c.text.toStdString();
    }
}

TEST(ColorValue, everything_else_is_opaque_black_without_a_name)
{
    for (const QString &text :
         {u""_s, u"orange"_s, u"Red "_s, u"#123"_s, u"#1122334"_s, u"112233"_s, u"#1122334455"_s}) {
        const ColorValue value(text);
        EXPECT_TRUE(value.name().isEmpty());
        EXPECT_EQ(channels(value), (QList<int>{0, 0, 0, 255})) << text.toStdString();
    }
}

TEST(ColorValue, channels_before_a_bad_pair_of_digits_count)
{
    EXPECT_EQ(channels(ColorValue(u"#11gg33"_s)), (QList<int>{0x11, 0, 0, 255}));
    EXPECT_EQ(channels(ColorValue(u"#112233zz"_s)), (QList<int>{0x11, 0x22, 0x33, 0}));
    EXPECT_EQ(channels(ColorValue(u"#+1-2 3"_s)), (QList<int>{0, 0, 0, 255}));
    EXPECT_TRUE(ColorValue(u"#11gg33"_s).name().isEmpty());
}

TEST(ColorValue, text_is_lower_case_and_without_alpha)
{
    EXPECT_EQ(ColorValue(u"#FF0A0B80"_s).toString(), "#ff0a0b");
    EXPECT_EQ(ColorValue(u"none"_s).toString(), "#000000");
    EXPECT_EQ(ColorValue(1, 2, 255).name(), "#0102ff");
}

TEST(ColorValue, a_stop_of_no_colour_is_black)
{
    const Device::Color gradient({}, {}, {u"red"_s, u"blue"_s}, {0, 1});
    EXPECT_EQ(ColorValue::of(&gradient, 1).toString(), "#0000ff");
    EXPECT_EQ(ColorValue::of(&gradient, 2).toString(), "#000000");
    EXPECT_EQ(ColorValue::of(nullptr, 0).toString(), "#000000");
}

TEST(ColorValue, has_eighteen_names)
{
    const QStringList names = colorNames();
    EXPECT_EQ(names.size(), 18);
    EXPECT_EQ(names.constFirst(), u"aqua"_s);
    EXPECT_EQ(names.constLast(), u"yellow"_s);
    for (const QString &name : names)
        EXPECT_TRUE(ColorValue(name).isValid()) << name.toStdString();
}
