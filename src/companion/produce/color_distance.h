#pragma once

#include <QByteArrayView>

// How colours look to people. Channels are linear light from 0 to 1, of the primaries of sRGB.
namespace ORR::Companion {

struct LinearColor
{
    double red = 0;
    double green = 0;
    double blue = 0;
};

// CIELAB for the white of daylight (D65).
struct LabColor
{
    double lightness = 0; // 0 to 100
    double a = 0; // green to red
    double b = 0; // blue to yellow
};

// Of "#RRGGBB"; black if it is none.
LinearColor linearColor(QByteArrayView color);

// Luminance from 0 to 1 (IEC 61966-2-1).
double luminance(const LinearColor &color);

// The same light as a deuteranope has it: F. Viénot, H. Brettel and J. D. Mollon, "Digital video
// colourmaps for checking the legibility of displays by dichromats" (1999).
LinearColor asDeuteranope(const LinearColor &color);

LabColor labColor(const LinearColor &color);

// The colour difference CIEDE2000 (CIE 142-2001), by the formulas of G. Sharma, W. Wu and
// E. N. Dalal, "The CIEDE2000 color-difference formula" (2005).
double ciede2000(const LabColor &first, const LabColor &second);

} // namespace ORR::Companion
