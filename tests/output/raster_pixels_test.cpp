// The pixels of the raster device: a few that a reader can follow, and whole drawings against a
// plain painter that is opened anew for each primitive.

#include "device/color_value.h"
#include "output/painter_path.h"
#include "output/painter_values.h"
#include "output/plain_colors.h"
#include "raster.h"
#include "support/golden.h"

#include <cmath>
#include <functional>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

const QColor red(Qt::red);
const QColor blue(Qt::blue);

// The drawing on a page of 200 by 150 at the scale, one painter for each primitive.
class Reference
{
public:
    explicit Reference(double drawingScale) : scale(drawingScale)
    {
        image = QImage(int(200 * scale), int(150 * scale), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
    }

    void paint(const Device::Pen *pen, const Device::Color *fill,
               const std::function<void(QPainter &)> &primitive)
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing, true);
        if (pen)
            painter.setPen(painterPen(pen));
        if (fill)
            painter.setBrush(painterBrush(fill));
        painter.scale(scale, scale);
        primitive(painter);
    }

    QImage image;

private:
    double scale;
};

QImage asSaved(QImage image)
{
    makeColorsPlain(&image);
    return image;
}

// Every primitive with every paint, once on the device and once on the reference. Both get the same
// paint values, which come from the device.
void drawBoth(File &device, Reference &reference)
{
    QList<Device::Color *> fills{
        nullptr,
        device.color(u"#20A0F080"_s),
        device.linearGradient({10, 10}, {120, 90}, {u"red"_s, u"#00FF0060"_s}, {0.1, 0.8}),
        device.radialGradient({60, 50}, 3, {70, 60}, 50, {u"white"_s, u"navy"_s}, {0, 1}),
    };
    const QList<Device::Pen *> pens{
        nullptr,
        device.pen(device.color(u"black"_s), Device::Pen::Solid, 1),
        device.pen(device.color(u"#80000080"_s), Device::Pen::Dashed, 3),
        device.pen(device.color(u"teal"_s), Device::Pen::Dotted, 5),
        device.pen(nullptr, Device::Pen::Solid, 2),
        device.pen(device.color(u"olive"_s), Device::Pen::Solid, 0),
    };
    int shift = 0;
    for (Device::Color *fill : fills) {
        for (Device::Pen *pen : pens) {
            shift = (shift + 7) % 40;
            const QPoint at(10 + shift, 20 + shift / 2);
            device.drawEllipse(at, 25, 12, pen, fill);
            reference.paint(pen, fill, [&](QPainter &p) {
                p.drawEllipse(QRect(at.x() - 25, at.y() - 12, 50, 24));
            });

            const QPoint corner(at.x() + 70, at.y() + 33);
            for (const int radius : {0, 6}) {
                device.drawRect(at, corner, radius, pen, fill);
                reference.paint(pen, fill, [&](QPainter &p) {
                    p.drawRoundedRect(QRect(at, corner), radius, radius, Qt::AbsoluteSize);
                });
            }
            device.drawRect(corner, at, 2, pen, fill); // the wrong way round
            reference.paint(pen, fill, [&](QPainter &p) {
                p.drawRoundedRect(QRect(corner, at), 2, 2, Qt::AbsoluteSize);
            });

            const QList<QPoint> points{at, {190, 30 + shift}, {20, 120}, {150, 140}, {100, 10}};
            device.drawPolygon(points, pen, fill);
            reference.paint(pen, fill,
                            [&](QPainter &p) { p.drawPolygon(QPolygon(points), Qt::OddEvenFill); });
            device.drawPolyline(points, pen);
            reference.paint(pen, nullptr, [&](QPainter &p) {
                for (qsizetype i = 1; i < points.size(); ++i)
                    p.drawLine(points.at(i - 1), points.at(i));
            });

            QPainterPath outline;
            outline.moveTo(at);
            outline.lineTo(150.5, 20.25);
            outline.arcTo(QRectF(QRect(QPoint(90, 40), QPoint(160, 100))), 30, 200);
            outline.cubicTo({3, 90}, {80, 60}, {120, 120});
            outline.quadTo({10, 100}, {5, 5});
            outline.closeSubpath();
            Device::Path *path = device.createPath();
            path->moveTo(at);
            path->lineTo({150.5, 20.25});
            path->arcTo({90.9, 40.2}, {160.7, 100.1}, 30, 200);
            path->cubicTo({3, 90}, {80, 60}, {120, 120});
            path->quadTo({10, 100}, {5, 5});
            path->closeSubpath();
            device.drawPath(path, pen, fill);
            reference.paint(pen, fill, [&](QPainter &p) { p.drawPath(outline); });

            const int fontSize = 8 + shift / 4;
            Device::Font *font = device.font(u"Arial"_s, fontSize, shift % 4);
            Device::Text *text = device.text(u"Label\n %1\tfi"_s.arg(shift), font, fill);
            device.drawText(at, text);
            reference.paint(nullptr, nullptr, [&](QPainter &p) {
                if (fill)
                    p.setPen(painterColor(fill));
                p.setFont(font->qFont());
                const QSize size = p.fontMetrics().size(0, text->text());
                p.drawText(QRect(at.x(), at.y(), size.width(), size.height()), 0, text->text());
            });
        }
    }
}

} // namespace

TEST(RasterPixels, one_painter_for_all_gives_the_pixels_of_one_for_each)
{
    Reference reference(1.0);
    const QImage image = painted({200, 150}, [&](File &device) { drawBoth(device, reference); });
    EXPECT_EQ(image.convertToFormat(QImage::Format_ARGB32), asSaved(reference.image));
}

TEST(RasterPixels, a_scaled_drawing_keeps_its_coordinates)
{
    const double scale = 32767.0 / 50000;
    Reference reference(scale);
    const QImage image = painted({50000, 150}, [&](File &device) { drawBoth(device, reference); });
    ASSERT_EQ(image.size(), QSize(32767, 98));
    const QRect shown(QPoint(0, 0), reference.image.size() - QSize(10, 0));
    EXPECT_EQ(image.copy(shown).convertToFormat(QImage::Format_ARGB32),
              asSaved(reference.image.copy(shown)));
}

TEST(RasterPixels, a_rect_takes_in_its_lower_right_pixel)
{
    const QImage image = painted({20, 20}, [](File &device) {
        device.drawRect({2, 3}, {10, 12}, 0, device.pen(nullptr, 0, 1), device.color(u"red"_s));
    });
    EXPECT_EQ(image.pixelColor(2, 3), red);
    EXPECT_EQ(image.pixelColor(10, 12), red);
    EXPECT_EQ(image.pixelColor(11, 12).alpha(), 0);
    EXPECT_EQ(image.pixelColor(10, 13).alpha(), 0);
}

TEST(RasterPixels, a_null_fill_leaves_the_inside_open)
{
    const QImage image = painted({20, 20}, [](File &device) {
        device.drawRect({2, 2}, {17, 17}, 0, device.pen(device.color(u"red"_s), 0, 2), nullptr);
    });
    EXPECT_EQ(image.pixelColor(10, 10).alpha(), 0);
    EXPECT_EQ(image.pixelColor(10, 2), red);
}

TEST(RasterPixels, a_null_pen_is_black_and_a_pen_without_colour_paints_nothing)
{
    const QImage image = painted({20, 20}, [](File &device) {
        device.drawPolyline({{0, 5}, {20, 5}}, nullptr);
        device.drawPolyline({{0, 15}, {20, 15}}, device.pen(nullptr, Device::Pen::Dashed, 4));
    });
    EXPECT_GT(image.pixelColor(10, 5).alpha(), 100);
    EXPECT_EQ(image.pixelColor(10, 5).rgb() & 0xFFFFFF, 0U);
    EXPECT_EQ(image.pixelColor(10, 15).alpha(), 0);
}

TEST(RasterPixels, a_polygon_is_filled_by_the_odd_even_rule)
{
    const QImage image = painted({40, 40}, [](File &device) {
        // Two turns around the middle.
        device.drawPolygon({{5, 5},
                            {35, 5},
                            {35, 35},
                            {5, 35},
                            {5, 5},
                            {15, 15},
                            {25, 15},
                            {25, 25},
                            {15, 25},
                            {15, 15}},
                           device.pen(nullptr, 0, 1), device.color(u"red"_s));
    });
    EXPECT_EQ(image.pixelColor(10, 20), red);
    EXPECT_EQ(image.pixelColor(20, 20).alpha(), 0);
}

TEST(RasterPixels, a_bezier_with_a_fill_is_a_polygon_and_without_a_polyline)
{
    const auto bezier = [](bool withFill) {
        return painted({40, 40}, [&](File &device) {
            device.drawBezier({{5, 35}, {5, 0}, {35, 0}, {35, 35}},
                              device.pen(device.color(u"red"_s), 0, 2),
                              withFill ? device.color(u"blue"_s) : nullptr);
        });
    };
    EXPECT_EQ(bezier(true).pixelColor(20, 25), blue);
    EXPECT_EQ(bezier(true).pixelColor(20, 35).red(), 255); // closed by the pen
    EXPECT_EQ(bezier(false).pixelColor(20, 25).alpha(), 0);
    EXPECT_EQ(bezier(false).pixelColor(20, 35).alpha(), 0);
}

TEST(RasterPixels, a_colour_keeps_its_alpha)
{
    const QImage image = painted({20, 20}, [](File &device) {
        device.drawRect({0, 0}, {19, 19}, 0, device.pen(nullptr, 0, 1),
                        device.color(u"#FF000080"_s));
    });
    EXPECT_EQ(image.pixelColor(10, 10).alpha(), 128);
}

TEST(RasterPixels, a_linear_gradient_runs_from_start_to_stop)
{
    const QImage image = painted({100, 10}, [](File &device) {
        device.drawRect({0, 0}, {99, 9}, 0, device.pen(nullptr, 0, 1),
                        device.linearGradient({20, 0}, {80, 0}, {u"red"_s, u"blue"_s}, {0, 1}));
    });
    EXPECT_EQ(image.pixelColor(5, 5), red);
    EXPECT_EQ(image.pixelColor(95, 5), blue);
    EXPECT_NEAR(image.pixelColor(50, 5).red(), 127, 4);
}

TEST(RasterPixels, a_radial_gradient_starts_at_its_focus)
{
    const QImage image = painted({100, 100}, [](File &device) {
        device.drawRect(
            {0, 0}, {99, 99}, 0, device.pen(nullptr, 0, 1),
            device.radialGradient({30, 50}, 0, {50, 50}, 40, {u"red"_s, u"blue"_s}, {0, 1}));
    });
    EXPECT_GT(image.pixelColor(30, 50).red(), 245);
    EXPECT_LT(image.pixelColor(50, 50).red(), 200);
    EXPECT_EQ(image.pixelColor(3, 3), blue);
}

TEST(RasterPixels, dashes_are_five_pen_widths_long)
{
    const QImage image = painted({60, 10}, [](File &device) {
        device.drawPolyline({{0, 5}, {60, 5}},
                            device.pen(device.color(u"red"_s), Device::Pen::Dashed, 2));
    });
    // 10 pixels and the caps of one more at each end, then a gap to 20.
    EXPECT_EQ(image.pixelColor(5, 5), red);
    EXPECT_EQ(image.pixelColor(15, 5).alpha(), 0);
    EXPECT_EQ(image.pixelColor(25, 5), red);
}

TEST(RasterPixels, each_line_of_a_polyline_starts_its_dashes_anew)
{
    const QImage image = painted({60, 20}, [](File &device) {
        device.drawPolyline({{0, 5}, {15, 5}, {60, 5}},
                            device.pen(device.color(u"red"_s), Device::Pen::Dashed, 2));
    });
    EXPECT_EQ(image.pixelColor(17, 5), red);
    EXPECT_EQ(image.pixelColor(31, 5).alpha(), 0);
}

TEST(RasterPixels, a_text_lies_within_its_box)
{
    const QPoint topLeft(20, 10);
    QSize size;
    const QImage image = painted({120, 60}, [&](File &device) {
        Device::Text *text = device.text(u"Text\nwith lines"_s, device.font(u"Arial"_s, 10, 0),
                                         device.color(u"red"_s));
        size = TextImage::textSize(text, false);
        device.drawText(topLeft, text);
    });
    const QRect box(topLeft, size);
    int inside = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() == 0)
                continue;
            EXPECT_TRUE(box.contains(x, y)) << x << "," << y;
            ++inside;
        }
    }
    EXPECT_GT(inside, 100);
}

TEST(RasterPixels, a_rich_text_is_painted_as_its_plain_text)
{
    const auto textImage = [](const QString &string, bool rich) {
        return painted({120, 40}, [&](File &device) {
            Device::Text *text =
                device.text(string, device.font(u"Arial"_s, 10, 0), device.color(u"red"_s));
            if (rich)
                device.drawRichText({3, 4}, text);
            else
                device.drawText({3, 4}, text);
        });
    };
    EXPECT_EQ(textImage(u"<b>a</b> &lt;<br>b"_s, true), textImage(u"a <\nb"_s, false));
}

TEST(RasterPixels, texts_without_string_colour_or_font_are_taken)
{
    const QImage image = painted({60, 30}, [](File &device) {
        Device::Text text(u"M"_s, nullptr, nullptr);
        device.drawText({0, 0}, nullptr);
        device.drawText({0, 0}, device.text(QString(), nullptr, nullptr));
        device.drawText({5, 5}, &text);
        device.drawRichText({0, 0}, nullptr);
    });
    const QImage black = painted({60, 30}, [](File &device) {
        device.drawText({5, 5},
                        device.text(u"M"_s, device.defaultFont(), device.color(u"black"_s)));
    });
    EXPECT_EQ(image, black);
}

TEST(RasterPixels, a_path_of_another_device_is_deleted_and_not_drawn)
{
    class ForeignPath : public PainterPath::Path
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
    bool deleted = false;
    const QImage image = painted({10, 10}, [&](File &device) {
        device.drawPath(new ForeignPath(&deleted), nullptr, device.color(u"red"_s));
        device.drawPath(nullptr, nullptr, nullptr);
    });
    EXPECT_TRUE(deleted);
    EXPECT_EQ(image.pixelColor(5, 5).alpha(), 0);
}

TEST(RasterPixels, a_path_is_deleted_without_an_image_too)
{
    File device(u"a.png"_s);
    Device::Path *path = device.createPath();
    ASSERT_NE(path, nullptr);
    device.drawPath(path, nullptr, nullptr); // a leak would fail the run under the sanitizer
}

TEST(PainterPath, an_arc_takes_in_its_lower_right_pixel)
{
    PainterPath path;
    path.moveTo({110.9, 50});
    path.arcTo({10.9, 20.9}, {109.9, 79.9}, 0, 90);
    // Truncated to 10, 20 and 109, 79: 100 wide and 60 high.
    EXPECT_EQ(path.path().currentPosition(), QPointF(60, 20));
}

TEST(PainterPath, steps_that_are_not_finite_are_left_out)
{
    const double nan = std::nan("");
    PainterPath path;
    path.moveTo({1, 2});
    path.lineTo({nan, 0});
    path.cubicTo({0, 0}, {qInf(), 0}, {1, 1});
    path.quadTo({0, -qInf()}, {1, 1});
    path.arcTo({0, 0}, {1, 1}, nan, 1);
    path.moveTo({qInf(), 0});
    EXPECT_EQ(path.path().elementCount(), 1);
    EXPECT_EQ(path.path().currentPosition(), QPointF(1, 2));
}
