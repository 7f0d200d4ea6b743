#include "output/plain_colors.h"

#include <algorithm>

namespace ORR::Graph {

namespace {

constexpr int opaque = 255;

// No channel of a painted pixel is more than its alpha; one that is all the same becomes the most.
int plainChannel(int channel, int alpha)
{
    return std::min((channel * opaque + alpha / 2) / alpha, opaque);
}

QRgb plainColor(QRgb premultiplied)
{
    const int alpha = qAlpha(premultiplied);
    if (alpha == opaque)
        return premultiplied;
    if (alpha == 0)
        return 0;
    return qRgba(plainChannel(qRed(premultiplied), alpha),
                 plainChannel(qGreen(premultiplied), alpha),
                 plainChannel(qBlue(premultiplied), alpha), alpha);
}

} // namespace

void makeColorsPlain(QImage *image)
{
    for (int y = 0; y < image->height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image->scanLine(y));
        std::transform(line, line + image->width(), line, plainColor);
    }
    image->reinterpretAsFormat(QImage::Format_ARGB32);
}

} // namespace ORR::Graph
