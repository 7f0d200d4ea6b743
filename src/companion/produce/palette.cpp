#include "companion/produce/palette.h"

#include "companion/produce/color_distance.h"
#include "graph/numbers.h"

#include <algorithm>
#include <array>

namespace ORR::Companion {

namespace {

struct Channels
{
    int red;
    int green;
    int blue;
};

constexpr std::array rising = {Channels{0xEE, 0xF3, 0xFA}, Channels{0x99, 0xB2, 0xDA},
                               Channels{0x3C, 0x78, 0xC0}};
constexpr std::array diverging = {Channels{0xE0, 0x7B, 0x39}, Channels{0xEA, 0xE6, 0xDE},
                                  Channels{0x6E, 0x9F, 0xDB}};

int mixed(int from, int to, double place)
{
    return Graph::rounded(from + (to - from) * place);
}

QByteArray hexText(const Channels &color)
{
    const int value = color.red << 16 | color.green << 8 | color.blue;
    return '#' + QByteArray::number(value, 16).toUpper().rightJustified(6, '0');
}

// Of three stops that are evenly spread.
QByteArray between(const std::array<Channels, 3> &stops, double place)
{
    const double step = std::clamp(place, 0.0, 1.0) * 2.0;
    const size_t first = step < 1.0 ? 0 : 1;
    const Channels &from = stops[first];
    const Channels &to = stops[first + 1];
    const double rest = step - double(first);
    return hexText({mixed(from.red, to.red, rest), mixed(from.green, to.green, rest),
                    mixed(from.blue, to.blue, rest)});
}

LabColor seenByDeuteranope(QByteArrayView color)
{
    return labColor(asDeuteranope(linearColor(color)));
}

} // namespace

const QList<QByteArray> &kindFills()
{
    static const QList<QByteArray> fills = {
        "#A0C8EA", "#F5C375", "#CDE6B2", "#AA92DA", "#D47A9E", "#4D9FA6",
        "#DBAFB2", "#AD973B", "#5885CF", "#A4856E", "#0B9676", neutralFill(),
    };
    return fills;
}

QByteArray neutralFill()
{
    return "#DCDFE3";
}

// Darker than the other grey, which is too near to the pale steps of the scales.
QByteArray unscaledFill()
{
    return "#B8B8B8";
}

QByteArray scaleFill(ColorScale scale, double place)
{
    if (place != place)
        return unscaledFill();
    return between(scale == ColorScale::Rising ? rising : diverging, place);
}

QByteArray letterColor(QByteArrayView fill)
{
    return contrast(fill, "#000000") >= contrast(fill, "#FFFFFF") ? "#000000" : "#FFFFFF";
}

double deuteranopeDistance(QByteArrayView a, QByteArrayView b)
{
    return ciede2000(seenByDeuteranope(a), seenByDeuteranope(b));
}

double contrast(QByteArrayView a, QByteArrayView b)
{
    const double first = luminance(linearColor(a)) + 0.05;
    const double second = luminance(linearColor(b)) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

} // namespace ORR::Companion
