#include "support/picture.h"

#include <QPainter>

#include <cstdlib>

namespace {

constexpr int leastDifference = 8; // of 255, that the eye may see
constexpr qsizetype edgePixels = 1000; // one of so many pixels may differ

int difference(QRgb p, QRgb q)
{
    return std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                     std::abs(qBlue(p) - qBlue(q))});
}

} // namespace

QImage onWhite(const QImage &picture)
{
    QImage page(picture.size(), QImage::Format_RGB32);
    if (page.isNull())
        return page;
    page.fill(Qt::white);
    QPainter(&page).drawImage(0, 0, picture);
    return page;
}

bool isSamePicture(const QImage &a, const QImage &b)
{
    if (a.size() != b.size() || a.isNull())
        return false;
    const QImage left = onWhite(a);
    const QImage right = onWhite(b);
    qsizetype others = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x)
            others += difference(left.pixel(x, y), right.pixel(x, y)) > leastDifference ? 1 : 0;
    }
    return others <= qsizetype(left.width()) * left.height() / edgePixels;
}

testing::AssertionResult matchesPicture(const QImage &actual, const QString &path)
{
    const QImage kept(path);
    const bool same = isSamePicture(actual, kept);
    if (qEnvironmentVariableIsSet("ORR_UPDATE_GOLDENS") && !(same && !kept.hasAlphaChannel())) {
        if (!onWhite(actual).save(path, "PNG", 0))
            return testing::AssertionFailure() << "cannot write " << path.toStdString();
        return testing::AssertionFailure() << "picture written: " << path.toStdString();
    }
    if (same)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << path.toStdString() << " is another picture";
}
