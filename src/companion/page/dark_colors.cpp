#include "companion/page/dark_colors.h"

#include "graph/numbers.h"

#include <cmath>

namespace ORR::Companion {

namespace {

constexpr int steps = 50; // of a mixture, from nothing to all

double linear(double part)
{
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

DarkColor mixed(const DarkColor &color, double other, double share)
{
    const auto mix = [&](double part) { return part + (other - part) * share; };
    return {mix(color.red), mix(color.green), mix(color.blue)};
}

} // namespace

std::optional<DarkColor> DarkColor::of(QByteArrayView text)
{
    bool isNumber = false;
    const uint digits = text.size() == 7 && text.front() == '#'
        ? text.sliced(1).toByteArray().toUInt(&isNumber, 16)
        : 0;
    if (!isNumber)
        return std::nullopt;
    return DarkColor{(digits >> 16) / 255.0, (digits >> 8 & 0xff) / 255.0, (digits & 0xff) / 255.0};
}

// Upward, so that a contrast that was reached stays.
QByteArray DarkColor::text() const
{
    QByteArray result = "#";
    for (const double part : {red, green, blue})
        result +=
            QByteArray::number(Graph::truncated(std::ceil(255 * part)), 16).rightJustified(2, '0');
    return result;
}

double DarkColor::luminance() const
{
    return 0.2126 * linear(red) + 0.7152 * linear(green) + 0.0722 * linear(blue);
}

double contrastOf(double luminance, double other)
{
    const auto [dark, light] = std::minmax(luminance, other);
    return (light + 0.05) / (dark + 0.05);
}

DarkColor lightened(const DarkColor &color, double white, double contrast)
{
    for (int i = 0; i < steps; ++i) {
        const DarkColor result = mixed(color, 1, std::min(white + double(i) / steps, 1.0));
        if (contrastOf(result.luminance(), darkPageLuminance) >= contrast)
            return result;
    }
    return {1, 1, 1};
}

DarkColor readableOn(double luminance, const DarkColor &color, double contrast)
{
    for (int i = 0; i <= steps; ++i) {
        for (const double other : {0.0, 1.0}) {
            const auto result = DarkColor::of(mixed(color, other, double(i) / steps).text());
            if (contrastOf(result->luminance(), luminance) >= contrast)
                return *result;
        }
    }
    return color;
}

} // namespace ORR::Companion
