#pragma once

#include "device/device.h"

#include <QString>
#include <QStringList>

namespace ORR::Graph {

// A colour string, parsed: a name out of a small table, in any case, or "#rrggbb" or "#rrggbbaa".
// What does not parse is opaque black with an empty name.
class ColorValue
{
public:
    ColorValue() = default;
    explicit ColorValue(const QString &text);
    // From the channels; `toString` is then its name.
    ColorValue(int red, int green, int blue);
    // A stop of a paint value; black, without a name, for null.
    static ColorValue of(const Device::Color *color, int stop);

    // The string as given; empty if it did not parse.
    QString name() const { return givenName; }
    bool isValid() const { return !givenName.isEmpty(); }
    // 0 to 255.
    int red() const { return r; }
    int green() const { return g; }
    int blue() const { return b; }
    int alpha() const { return a; }

    // "#rrggbb" in lower case, without the alpha.
    QString toString() const;

private:
    QString givenName;
    int r = 0;
    int g = 0;
    int b = 0;
    int a = 255;
};

// The names that a colour may have, sorted.
QStringList colorNames();

} // namespace ORR::Graph
