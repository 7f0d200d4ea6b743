#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace ORR::Companion {

// A colour by its red, green and blue, from 0 to 1.
struct DarkColor
{
    double red, green, blue;

    // Of a text such as #8090a0; none for all others.
    static std::optional<DarkColor> of(QByteArrayView text);
    QByteArray text() const;
    // As WCAG 2 defines it, from 0 to 1.
    double luminance() const;
};

// That of the page's background in the dark.
inline constexpr double darkPageLuminance = 0.009;

// From 1 to 21, as WCAG 2 defines it.
double contrastOf(double luminance, double other);

// The colour with at least so much white mixed in, and at least so much contrast with the dark
// page. It keeps its hue. No more is asked for than white has.
DarkColor lightened(const DarkColor &color, double white, double contrast);

// The colour made darker or lighter, whichever takes less, to have so much contrast with what lies
// below it. As it is where neither is enough.
DarkColor readableOn(double luminance, const DarkColor &color, double contrast);

} // namespace ORR::Companion
