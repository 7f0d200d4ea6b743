#pragma once

#include "device/text_image.h"
#include "output/output.h"

#include <QImage>
#include <QPainter>
#include <QString>

#include <memory>

namespace ORR::Graph {

// Paints the drawing into an image and saves it when it ends, in the format of the suffix of
// its name. A PNG is transparent where nothing is painted, every other format white.
//
// A drawing that is too large to be held is scaled down: engines keep their coordinates. What has
// no image all the same (a side of zero or less, before or after scaling; no memory) draws nothing.
class File : public TextImage
{
public:
    // saveQuality: 0 to 100, or -1 for the default of the format.
    explicit File(const OutputTarget &outputTarget, int saveQuality = -1);

    void begin(int width, int height) override;
    // "Draw too large\n" if nothing was begun, which is so again after the first call; "Could not
    // save image to file\n" if there is no image, the suffix is not known or the file did not take
    // every byte.
    QString end() override;
    void drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill) override;
    // Line by line: there are no joins, and each line starts its dashes anew.
    void drawPolyline(const QList<QPoint> &points, Pen *pen) override;
    void drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill) override;
    void drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill) override;
    void drawText(QPoint topLeft, Text *text) override;
    Path *createPath() override;
    void drawPath(Path *path, Pen *pen, Color *fill) override;

private:
    void setPaint(const Pen *pen, const Color *fill);

    OutputTarget target;
    int quality;
    bool begun = false; // and not ended yet, with an image or without
    QImage image; // null if there is none
    std::unique_ptr<QPainter> painter; // while there is an image
};

} // namespace ORR::Graph
