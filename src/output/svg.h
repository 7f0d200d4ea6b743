#pragma once

#include "device/device.h"
#include "output/drawing_extras.h"
#include "output/output_text.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>

namespace ORR::Graph {

// Writes the drawing as SVG, element by element while the engine draws: what is drawn first comes
// first in the file, and nothing is kept. There is no object protocol.
//
// The file is well-formed for every input: characters that XML forbids are left out of all texts.
// It is complete when the drawing ends. If the output can't be opened the device draws
// nothing, and `end` returns "Unable to open file\n". If it takes less than everything, `end`
// returns "Unable to write to file\n".
class Svg : public Device
{
public:
    explicit Svg(const OutputTarget &target, const DrawingExtras &drawingExtras = {});

    void begin(int width, int height) override;
    QString end() override;
    // Keeps the curves; a point list that makes no complete last curve loses the points beyond.
    void drawBezier(const QList<QPoint> &points, Pen *pen, Color *fill) override;
    void drawEllipse(QPoint centre, int rx, int ry, Pen *pen, Color *fill) override;
    void drawPolyline(const QList<QPoint> &points, Pen *pen) override;
    void drawPolygon(const QList<QPoint> &points, Pen *pen, Color *fill) override;
    void drawRect(QPoint topLeft, QPoint bottomRight, int radius, Pen *pen, Color *fill) override;
    // Lines follow each other at the font's size and not at its line spacing.
    void drawText(QPoint topLeft, Text *text) override;
    // Draws the text that is left of the HTML without its tags.
    void drawRichText(QPoint topLeft, Text *text) override;
    Path *createPath() override;
    void drawPath(Path *path, Pen *pen, Color *fill) override;

protected:
    // Called just before each shape element is closed.
    virtual void writeExtraAttributes();
    // Called ahead of each shape that is filled with a gradient. Sees to it that the file defines
    // one and gives the id.
    virtual QByteArray defineGradient(const Color *color);
    void writeGradient(const Color *color, QByteArrayView id);
    // A rectangle of that size, if there is to be a background.
    void writeBackground(int width, int height);

    // Ahead of the tag of a shape and, with all attributes but its geometry, at its end.
    void beginShape(const Color *fill);
    void endShape(const Pen *pen, const Color *fill);

    OutputText out;

private:
    // The two attributes of a solid colour.
    struct Paint
    {
        QByteArray value;
        int alpha;
    };

    void writePoints(const QList<QPoint> &points);
    void writeStroke(const Pen *pen);
    void writeFill(const Color *fill);
    void writeTextStyle(const Text *text, const Font *font);
    // No value at all gives "none". A stop of -1 stands for the colour as a whole, which for a
    // gradient means the one that was asked for last.
    void paintValue(const Color *color, QByteArrayView attribute, QByteArrayView opacityAttribute,
                    int stop);
    Paint paintOf(const QString &colorName);

    DrawingExtras extras;
    int gradientCount = 0; // number of the last definition written
    QByteArray gradientId = "Gradient0"; // of the gradient that was asked for last
    QHash<QString, Paint> paints;
};

} // namespace ORR::Graph
