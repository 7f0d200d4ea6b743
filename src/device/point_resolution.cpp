#include "device/point_resolution.h"

#include "graph/numbers.h"

namespace ORR::Graph {

namespace {

// The toolkit rounds this back to 72 an inch.
constexpr int pointsPerMetre = 2835;

} // namespace

void setPointResolution(QImage *image, double pixels)
{
    const int perMetre = rounded(pointsPerMetre * pixels);
    image->setDotsPerMeterX(perMetre);
    image->setDotsPerMeterY(perMetre);
}

QPaintDevice *pointDevice()
{
    static QImage device = [] {
        QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
        setPointResolution(&image);
        return image;
    }();
    return &device;
}

QFont atPointResolution(const QFont &font)
{
    return {font, pointDevice()};
}

} // namespace ORR::Graph
