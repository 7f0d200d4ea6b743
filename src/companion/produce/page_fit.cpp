#include "companion/produce/page_fit.h"

#include "companion/produce/drawn_size.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

PageFit madeOf(int most, const PictureRequest &request,
               const std::function<QByteArray(int most)> &write)
{
    PageFit fit{.text = write(most), .most = most};
    fit.size = drawnSize(fit.text, request.engine);
    // What can't be drawn is no smaller for it: the engine says why.
    fit.fits = !fit.size.isValid()
        || (fit.size.width() <= request.width && fit.size.height() <= request.height);
    return fit;
}

// A count that is likely to fit, from how much too large a drawing is.
int likelyCount(const PageFit &tooLarge, const PictureRequest &request, int least)
{
    const double scale = std::min(request.width / std::max(1.0, tooLarge.size.width()),
                                  request.height / std::max(1.0, tooLarge.size.height()));
    return std::clamp(int(tooLarge.most * scale), least, std::max(least, tooLarge.most - 1));
}

} // namespace

PageFit fitToPage(const PictureRequest &request, int most,
                  const std::function<QByteArray(int most)> &write, int tries)
{
    PageFit tooLarge = madeOf(std::max(1, most), request, write);
    if (tooLarge.fits || tooLarge.most == 1)
        return tooLarge;
    PageFit best = tooLarge;
    for (int left = tries - 1; left > 0; --left) {
        const int least = best.fits ? best.most + 1 : 1;
        // Near enough: each try is a drawing.
        if (least >= tooLarge.most || (best.fits && best.most > 0.95 * tooLarge.most))
            break;
        const int next = best.fits ? (least + tooLarge.most) / 2
            : left == 1            ? 1
                                   : likelyCount(tooLarge, request, least);
        PageFit fit = madeOf(next, request, write);
        if (fit.fits)
            best = std::move(fit);
        else
            tooLarge = std::move(fit);
    }
    return best.fits ? best : tooLarge;
}

QStringList pageNotes(const PageFit &fit, const PictureRequest &request, const QString &why)
{
    if (fit.fits)
        return {};
    return {u"The drawing is %1 x %2 points and not %3 x %4: %5."_s.arg(fit.size.width())
                .arg(fit.size.height())
                .arg(request.width)
                .arg(request.height)
                .arg(why)};
}

} // namespace ORR::Companion
