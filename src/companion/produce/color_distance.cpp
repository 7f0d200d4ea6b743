#include "companion/produce/color_distance.h"

#include <QByteArray>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ORR::Companion {

namespace {

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180.0;
}

double linearChannel(int value)
{
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

// The nonlinear part of CIELAB.
double labCurve(double ratio)
{
    constexpr double epsilon = 216.0 / 24389.0;
    constexpr double kappa = 24389.0 / 27.0;
    return ratio > epsilon ? std::cbrt(ratio) : (kappa * ratio + 16.0) / 116.0;
}

double seventhPower(double value)
{
    return std::pow(value, 7.0);
}

// Of the formula: sqrt(C^7 / (C^7 + 25^7)).
double chromaRatio(double chroma)
{
    return std::sqrt(seventhPower(chroma) / (seventhPower(chroma) + seventhPower(25.0)));
}

// In degrees, 0 to 360; 0 for a grey.
double hueAngle(double b, double a)
{
    if (a == 0.0 && b == 0.0)
        return 0.0;
    const double angle = std::atan2(b, a) * 180.0 / std::numbers::pi;
    return angle < 0.0 ? angle + 360.0 : angle;
}

// The difference of two hues, the short way around.
double hueDifference(double h1, double h2)
{
    double difference = h2 - h1;
    if (difference > 180.0)
        difference -= 360.0;
    else if (difference < -180.0)
        difference += 360.0;
    return difference;
}

double meanHue(double h1, double h2)
{
    if (std::abs(h1 - h2) <= 180.0)
        return (h1 + h2) / 2.0;
    return h1 + h2 < 360.0 ? (h1 + h2 + 360.0) / 2.0 : (h1 + h2 - 360.0) / 2.0;
}

} // namespace

LinearColor linearColor(QByteArrayView color)
{
    bool isNumber = false;
    const uint value = color.size() == 7 && color[0] == '#'
        ? QByteArray(color.sliced(1).data(), 6).toUInt(&isNumber, 16)
        : 0;
    if (!isNumber)
        return {};
    return {linearChannel(int(value >> 16)), linearChannel(int(value >> 8 & 0xff)),
            linearChannel(int(value & 0xff))};
}

double luminance(const LinearColor &color)
{
    return 0.2126 * color.red + 0.7152 * color.green + 0.0722 * color.blue;
}

LinearColor asDeuteranope(const LinearColor &color)
{
    const auto &[r, g, b] = color;
    const double l = 17.8824 * r + 43.5161 * g + 4.11935 * b;
    const double s = 0.0299566 * r + 0.184309 * g + 1.46709 * b;
    const double m = 0.494207 * l + 1.24827 * s; // what the cones for green would have said
    const auto channel = [](double value) { return std::clamp(value, 0.0, 1.0); };
    return {channel(0.0809444479 * l - 0.130504409 * m + 0.116721066 * s),
            channel(-0.0102485335 * l + 0.0540193266 * m - 0.113614708 * s),
            channel(-0.000365296938 * l - 0.00412161469 * m + 0.693511405 * s)};
}

LabColor labColor(const LinearColor &color)
{
    const auto &[r, g, b] = color;
    const double x = labCurve((0.4124564 * r + 0.3575761 * g + 0.1804375 * b) / 0.95047);
    const double y = labCurve(0.2126729 * r + 0.7151522 * g + 0.0721750 * b);
    const double z = labCurve((0.0193339 * r + 0.1191920 * g + 0.9503041 * b) / 1.08883);
    return {116.0 * y - 16.0, 500.0 * (x - y), 200.0 * (y - z)};
}

double ciede2000(const LabColor &first, const LabColor &second)
{
    const double meanChroma = (std::hypot(first.a, first.b) + std::hypot(second.a, second.b)) / 2.0;
    const double g = 0.5 * (1.0 - chromaRatio(meanChroma));
    const double a1 = first.a * (1.0 + g);
    const double a2 = second.a * (1.0 + g);
    const double c1 = std::hypot(a1, first.b);
    const double c2 = std::hypot(a2, second.b);
    const double h1 = hueAngle(first.b, a1);
    const double h2 = hueAngle(second.b, a2);

    const bool bothHaveHues = c1 * c2 != 0.0;
    const double dL = second.lightness - first.lightness;
    const double dC = c2 - c1;
    const double dh = bothHaveHues ? hueDifference(h1, h2) : 0.0;
    const double dH = 2.0 * std::sqrt(c1 * c2) * std::sin(radians(dh / 2.0));

    const double l = (first.lightness + second.lightness) / 2.0;
    const double c = (c1 + c2) / 2.0;
    const double h = bothHaveHues ? meanHue(h1, h2) : h1 + h2;
    const double t = 1.0 - 0.17 * std::cos(radians(h - 30.0)) + 0.24 * std::cos(radians(2.0 * h))
        + 0.32 * std::cos(radians(3.0 * h + 6.0)) - 0.20 * std::cos(radians(4.0 * h - 63.0));
    const double dTheta = 30.0 * std::exp(-std::pow((h - 275.0) / 25.0, 2.0));
    const double lightnessFromMiddle = std::pow(l - 50.0, 2.0);
    const double sL = 1.0 + 0.015 * lightnessFromMiddle / std::sqrt(20.0 + lightnessFromMiddle);
    const double sC = 1.0 + 0.045 * c;
    const double sH = 1.0 + 0.015 * c * t;
    const double rT = -std::sin(radians(2.0 * dTheta)) * 2.0 * chromaRatio(c);
    return std::sqrt(std::pow(dL / sL, 2.0) + std::pow(dC / sC, 2.0) + std::pow(dH / sH, 2.0)
                     + rT * (dC / sC) * (dH / sH));
}

} // namespace ORR::Companion
