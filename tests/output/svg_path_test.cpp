#include "drawn.h"
#include "output/svg_path.h"
#include "support/golden.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

class ForeignPath : public Device::Path
{
public:
    explicit ForeignPath(bool *deletedFlag) : deleted(deletedFlag) { }
    ~ForeignPath() override { *deleted = true; }
    void moveTo(const QPointF &) override { }
    void lineTo(const QPointF &) override { }
    void closeSubpath() override { }
    void cubicTo(const QPointF &, const QPointF &, const QPointF &) override { }
    void quadTo(const QPointF &, const QPointF &) override { }
    void arcTo(const QPointF &, const QPointF &, double, double) override { }

private:
    bool *deleted;
};

QByteArray arc(double start, double sweep)
{
    SvgPath path;
    path.arcTo({0, 0}, {20, 10}, start, sweep);
    return path.data();
}

} // namespace

TEST(SvgPath, steps_are_appended_as_they_come)
{
    SvgPath path;
    path.moveTo({1, 2.5});
    path.lineTo({3, 4});
    path.cubicTo({1, 2}, {3, 4}, {5, 6});
    path.quadTo({7, 8}, {9.125, 10});
    path.closeSubpath();
    EXPECT_EQ(path.data(), QByteArray(" M 1 2.5 L 3 4 C 1 2, 3 4, 5 6 Q 7 8, 9.125 10 Z"));
}

TEST(SvgPath, an_arc_has_radii_flags_and_end)
{
    EXPECT_EQ(arc(0, 90), QByteArray(" A 10 5 0 0 0 10 0"));
    EXPECT_EQ(arc(0, -90), QByteArray(" A 10 5 0 0 1 10 10"));
}

TEST(SvgPath, an_arc_beyond_half_a_turn_is_large)
{
    EXPECT_TRUE(arc(0, 180).startsWith(" A 10 5 0 0 0 "));
    EXPECT_TRUE(arc(0, 181).startsWith(" A 10 5 0 1 0 "));
    EXPECT_TRUE(arc(0, -181).startsWith(" A 10 5 0 1 1 "));
}

TEST(SvgPath, a_full_turn_is_two_halves)
{
    EXPECT_EQ(arc(90, -360), QByteArray(" A 10 5 0 0 1 10 10 A 10 5 0 0 1 10 0"));
    EXPECT_EQ(arc(90, 360), QByteArray(" A 10 5 0 0 0 10 10 A 10 5 0 0 0 10 0"));
}

TEST(SvgPath, a_drawn_path_loses_the_blank_at_its_start)
{
    const QByteArray bytes = drawn([](Svg &device) {
        Device::Path *path = device.createPath();
        path->moveTo({1, 2});
        path->closeSubpath();
        device.drawPath(path, device.pen(device.color(u"red"_s), 0, 1), device.color(u"blue"_s));
    });
    EXPECT_EQ(bytes, QByteArray(" <path d=\"M 1 2 Z\" stroke=\"#ff0000\" fill=\"#0000ff\"/>\n"));
}

TEST(SvgPath, a_path_of_another_device_is_deleted_and_not_drawn)
{
    bool deleted = false;
    const QByteArray bytes = drawn([&](Svg &device) {
        device.drawPath(new ForeignPath(&deleted), device.pen(device.color(u"red"_s), 0, 1),
                        device.linearGradient({0, 0}, {1, 1}, {u"red"_s}, {0}));
    });
    EXPECT_TRUE(deleted);
    EXPECT_EQ(bytes, QByteArray());
}

TEST(SvgPath, a_null_path_draws_nothing)
{
    EXPECT_EQ(drawn([](Svg &device) { device.drawPath(nullptr, nullptr, nullptr); }), QByteArray());
}
