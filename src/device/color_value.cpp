#include "device/color_value.h"

#include <QHash>

#include <algorithm>
#include <iterator>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

// Both greys are as light as silver; that is wanted.
const QHash<QString, QString> colorTable{
    {u"aqua"_s, u"#00FFFF"_s},    {u"black"_s, u"#000000"_s},  {u"blue"_s, u"#0000FF"_s},
    {u"fuchsia"_s, u"#FF00FF"_s}, {u"gray"_s, u"#C0C0C0"_s},   {u"green"_s, u"#008000"_s},
    {u"grey"_s, u"#C0C0C0"_s},    {u"lime"_s, u"#00FF00"_s},   {u"maroon"_s, u"#800000"_s},
    {u"navy"_s, u"#000080"_s},    {u"olive"_s, u"#808000"_s},  {u"purple"_s, u"#800080"_s},
    {u"red"_s, u"#FF0000"_s},     {u"silver"_s, u"#C0C0C0"_s}, {u"teal"_s, u"#008080"_s},
    {u"white"_s, u"#FFFFFF"_s},   {u"yellow"_s, u"#FFFF00"_s}, {u"none"_s, u"#00000000"_s},
};

int hexDigit(QChar c)
{
    const char16_t u = c.unicode();
    if (u >= u'0' && u <= u'9')
        return u - u'0';
    if (u >= u'a' && u <= u'f')
        return u - u'a' + 10;
    if (u >= u'A' && u <= u'F')
        return u - u'A' + 10;
    return -1;
}

// The value of the two digits at `position`, or -1.
int hexPair(const QString &text, qsizetype position)
{
    const int high = hexDigit(text.at(position));
    const int low = hexDigit(text.at(position + 1));
    return high < 0 || low < 0 ? -1 : high * 16 + low;
}

} // namespace

ColorValue::ColorValue(const QString &text)
{
    const QString value = colorTable.value(text.toLower(), text);
    const bool withAlpha = value.size() == 9;
    if (!value.startsWith(u'#') || (value.size() != 7 && !withAlpha))
        return;
    qsizetype position = 1;
    for (int *channel : {&r, &g, &b, &a}) {
        if (channel == &a && !withAlpha)
            break;
        const int parsed = hexPair(value, position);
        *channel = parsed < 0 ? 0 : parsed;
        // The channels behind a bad one keep their start values.
        if (parsed < 0)
            return;
        position += 2;
    }
    givenName = text;
}

ColorValue::ColorValue(int red, int green, int blue) : r(red), g(green), b(blue)
{
    givenName = toString();
}

ColorValue ColorValue::of(const Device::Color *color, int stop)
{
    return color ? ColorValue(color->name(stop)) : ColorValue();
}

QString ColorValue::toString() const
{
    constexpr int largest = 255;
    if (std::max({r, g, b}) <= largest && std::min({r, g, b}) >= 0) {
        const auto digit = [](int value) { return QChar(u"0123456789abcdef"[value]); };
        const QChar text[] = {u'#',          digit(r / 16), digit(r % 16), digit(g / 16),
                              digit(g % 16), digit(b / 16), digit(b % 16)};
        return QString(text, std::ssize(text));
    }
    constexpr QChar zero(u'0');
    return u"#%1%2%3"_s.arg(r, 2, 16, zero).arg(g, 2, 16, zero).arg(b, 2, 16, zero);
}

QStringList colorNames()
{
    QStringList names = colorTable.keys();
    names.sort();
    return names;
}

} // namespace ORR::Graph
