#include "output/painter_values.h"

#include "output/file.h"
#include "support/golden.h"

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QPen penOf(const QString &color, int style, int width)
{
    File device(u"a.png"_s);
    return painterPen(device.pen(device.color(color), style, width));
}

} // namespace

TEST(PainterValues, a_pen_has_the_first_colour_and_the_width)
{
    const QPen pen = penOf(u"#FF000080"_s, Device::Pen::Solid, 3);
    EXPECT_EQ(pen.color(), QColor(255, 0, 0, 128));
    EXPECT_EQ(pen.width(), 3);
    EXPECT_EQ(pen.style(), Qt::SolidLine);
}

TEST(PainterValues, a_dashed_pen)
{
    const QPen pen = penOf(u"red"_s, Device::Pen::Dashed, 1);
    EXPECT_EQ(pen.dashPattern(), QList<qreal>({5.0, 5.0}));
    EXPECT_EQ(pen.capStyle(), Qt::SquareCap);
}

TEST(PainterValues, a_dotted_pen)
{
    const QPen pen = penOf(u"red"_s, Device::Pen::Dotted, 1);
    EXPECT_EQ(pen.dashPattern(), QList<qreal>({0.01, 1.99}));
    EXPECT_EQ(pen.capStyle(), Qt::RoundCap);
}

TEST(PainterValues, a_width_that_no_pen_can_have_is_1)
{
    EXPECT_EQ(penOf(u"red"_s, 0, -4).width(), 1);
    EXPECT_EQ(penOf(u"red"_s, 0, 2000000000).width(), 1);
    EXPECT_EQ(penOf(u"red"_s, 0, 32767).width(), 32767);
}

TEST(PainterValues, a_pen_in_a_gradient_takes_its_first_colour)
{
    File device(u"a.png"_s);
    Device::Color *gradient = device.linearGradient({0, 0}, {1, 1}, {u"lime"_s, u"red"_s}, {0, 1});
    EXPECT_EQ(painterPen(device.pen(gradient, 0, 1)).color(), QColor(0, 255, 0));
}

TEST(PainterValues, nulls)
{
    File device(u"a.png"_s);
    EXPECT_EQ(painterPen(nullptr), QPen());
    EXPECT_EQ(painterPen(device.pen(nullptr, 1, 5)).style(), Qt::NoPen);
    EXPECT_EQ(painterBrush(nullptr).style(), Qt::NoBrush);
    EXPECT_EQ(painterColor(nullptr), QColor(Qt::black));
}

TEST(PainterValues, a_solid_fill_is_a_solid_pattern)
{
    File device(u"a.png"_s);
    const QBrush brush = painterBrush(device.color(u"none"_s));
    EXPECT_EQ(brush.style(), Qt::SolidPattern);
    EXPECT_EQ(brush.color(), QColor(0, 0, 0, 0));
}

TEST(PainterValues, a_radial_gradient_has_its_centre_at_the_stop_and_its_focus_at_the_start)
{
    File device(u"a.png"_s);
    const QBrush brush =
        painterBrush(device.radialGradient({1, 2}, 9, {4, 5}, 50, {u"red"_s, u"lime"_s}, {0.2, 1}));
    ASSERT_EQ(brush.style(), Qt::RadialGradientPattern);
    const auto *gradient = static_cast<const QRadialGradient *>(brush.gradient());
    EXPECT_EQ(gradient->center(), QPointF(4, 5));
    EXPECT_EQ(gradient->focalPoint(), QPointF(1, 2));
    EXPECT_EQ(gradient->radius(), 50.0);
    EXPECT_EQ(gradient->focalRadius(), 0.0);
    EXPECT_EQ(gradient->stops(),
              QGradientStops({{0.2, QColor(255, 0, 0)}, {1.0, QColor(0, 255, 0)}}));
}

TEST(PainterValues, stops_beyond_0_to_1_are_left_out)
{
    File device(u"a.png"_s);
    const QBrush brush = painterBrush(device.linearGradient(
        {0, 0}, {1, 1}, {u"red"_s, u"lime"_s, u"blue"_s, u"navy"_s}, {-0.1, 0.5, 1.1, qQNaN()}));
    EXPECT_EQ(brush.gradient()->stops(), QGradientStops({{0.5, QColor(0, 255, 0)}}));
}

TEST(PainterValues, a_gradient_beyond_all_drawings_is_its_first_colour)
{
    File device(u"a.png"_s);
    const QStringList names{u"red"_s, u"lime"_s};
    const double nan = qQNaN();
    for (const Device::Color *fill :
         {device.linearGradient({0, nan}, {1, 1}, names, {0, 1}),
          device.linearGradient({0, 0}, {qInf(), 1}, names, {0, 1}),
          device.linearGradient({0, 0}, {1e10, 1}, names, {0, 1}),
          device.radialGradient({0, 0}, 0, {1, 1e300}, 5, names, {0, 1}),
          device.radialGradient({0, 0}, 0, {1, 1}, nan, names, {0, 1})})
        EXPECT_EQ(painterBrush(fill), QBrush(QColor(Qt::red)));
}
