#include "reference_drawing.h"

#include <array>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

const QStringList stops{u"#FF8000"_s, u"#FFFF80"_s, u"#0060C0"_s};
const QList<double> offsets{0, 0.4, 1};

// A row of boxes: open, plain, half transparent, round, and both gradients.
void drawBoxes(Device &device)
{
    Device::Pen *pen = device.pen(device.color(u"black"_s), Device::Pen::Solid, 1);
    device.drawRect({10, 10}, {60, 50}, 0, pen, nullptr);
    device.drawRect({80, 10}, {130, 50}, 0, pen, device.color(u"#C0E0FF"_s));
    device.drawRect({110, 30}, {160, 60}, 0, pen, device.color(u"#FF000080"_s));
    device.drawRect({180, 10}, {250, 50}, 12, pen, device.color(u"lime"_s));
    device.drawRect({270, 10}, {330, 50}, 0, pen,
                    device.linearGradient({270, 10}, {330, 50}, stops, offsets));
    device.drawRect({350, 10}, {410, 50}, 0, pen,
                    device.radialGradient({370, 25}, 0, {380, 30}, 30, stops, offsets));
}

void drawRound(Device &device)
{
    Device::Color *navy = device.color(u"navy"_s);
    device.drawEllipse({40, 95}, 30, 20, device.pen(navy, Device::Pen::Solid, 3),
                       device.color(u"silver"_s));
    device.drawEllipse({120, 95}, 30, 20, device.pen(navy, Device::Pen::Dashed, 1), nullptr);
    device.drawEllipse({200, 95}, 30, 20, device.pen(navy, Device::Pen::Dotted, 2),
                       device.radialGradient({200, 95}, 0, {200, 95}, 30, stops, offsets));
    device.drawPolygon({{250, 90}, {280, 75}, {310, 90}, {295, 115}, {280, 100}, {265, 115}},
                       device.pen(navy, Device::Pen::Solid, 1), device.color(u"yellow"_s));
    device.drawBezier(
        {{330, 115}, {340, 60}, {360, 60}, {370, 95}, {380, 130}, {400, 130}, {410, 75}},
        device.pen(navy, Device::Pen::Solid, 2), nullptr);
}

void drawLines(Device &device)
{
    int y = 130;
    for (const int style : {Device::Pen::Solid, Device::Pen::Dashed, Device::Pen::Dotted}) {
        for (const int width : {1, 3}) {
            device.drawPolyline({{10, y}, {100, y}, {120, y + 6}, {200, y + 6}},
                                device.pen(device.color(u"maroon"_s), style, width));
            y += 10;
        }
    }
}

// The wedge is of a circle: on other ellipses the toolkit takes an angle for that of the circle
// before it was squeezed.
void drawPaths(Device &device)
{
    Device::Pen *pen = device.pen(device.color(u"black"_s), Device::Pen::Solid, 1);
    Device::Path *wedge = device.createPath();
    wedge->moveTo({250, 165});
    wedge->lineTo({280, 165});
    wedge->arcTo({220, 135}, {280, 195}, 0, 130);
    wedge->closeSubpath();
    device.drawPath(wedge, pen, device.color(u"teal"_s));

    Device::Path *ring = device.createPath();
    ring->moveTo({350, 165});
    ring->arcTo({310, 135}, {350, 195}, 0, 360);
    ring->closeSubpath();
    device.drawPath(ring, pen, device.linearGradient({310, 0}, {350, 0}, stops, offsets));

    Device::Path *leaf = device.createPath();
    leaf->moveTo({365, 165});
    leaf->quadTo({387, 120}, {410, 165});
    leaf->cubicTo({400, 200}, {375, 200}, {365, 165});
    leaf->closeSubpath();
    device.drawPath(leaf, pen, device.color(u"#00800060"_s));
}

void drawTexts(Device &device)
{
    Device::Color *black = device.color(u"#000000"_s);
    const std::array<QString, 4> names{u"plain"_s, u"bold"_s, u"italic"_s, u"bold italic"_s};
    int x = 10;
    for (int style = 0; style < 4; ++style) {
        device.drawText({x, 205},
                        device.text(names.at(style), device.font(u"Arial"_s, 11, style), black));
        x += 95;
    }
    device.drawText({10, 235},
                    device.text(u"first line\n  second line\nthird <&> \u00fc"_s,
                                device.font(u"Arial"_s, 10, 0), device.color(u"fuchsia"_s)));
    device.drawRichText({150, 235},
                        device.text(u"<b>rich</b> <i>text</i> with <u>lines</u><br>and a "
                                    "<font color='#008000'>colour</font> in it"_s,
                                    device.font(u"Arial"_s, 10, 0), device.color(u"blue"_s)));
}

} // namespace

void drawReference(Device &device)
{
    device.begin(420, 330);
    device.drawRect({0, 0}, {419, 329}, 0,
                    device.pen(device.color(u"gray"_s), Device::Pen::Solid, 1),
                    device.color(u"white"_s));
    drawBoxes(device);
    drawRound(device);
    drawLines(device);
    drawPaths(device);
    drawTexts(device);
}
