#pragma once

#include "output/drawing_extras.h"
#include "output/output.h"
#include "output/painter_device.h"

#include <QImage>
#include <QString>

namespace ORR::Graph {

// Paints the drawing into an image and saves it when it ends, in the format of the suffix of
// its name. A PNG is transparent where nothing is painted, every other format white.
//
// A scale makes it larger or smaller, and the file says so by its resolution, so that its size in
// inches stays. A drawing that is too large to be held is scaled down: engines keep their
// coordinates. What has no image all the same (a side of zero or less, before or after scaling; no
// memory) draws nothing.
class File : public PainterDevice
{
public:
    // saveQuality: 0 to 100, or -1 for the default of the format.
    explicit File(const OutputTarget &outputTarget, int saveQuality = -1,
                  const DrawingExtras &drawingExtras = {});
    ~File() override;

    void begin(int width, int height) override;
    // "Draw too large\n" if nothing was begun, which is so again after the first call; "Could not
    // save image to file\n" if there is no image, the suffix is not known or the file did not take
    // every byte.
    QString end() override;

private:
    OutputTarget target;
    int quality;
    DrawingExtras extras;
    double scale = 1.0; // pixels for a point
    bool begun = false; // and not ended yet, with an image or without
    QImage image; // null if there is none, and then there is no painter
};

} // namespace ORR::Graph
