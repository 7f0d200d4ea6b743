#pragma once

#include "device/device.h"
#include "device/rich_text.h"

namespace ORR::Graph {

// The measuring of text, which needs no device object, and the base of the devices that draw rich
// text as plain. All measures are whole points: text is measured at 72 pixels an inch, so that a
// pixel of the toolkit is one, on every screen.
class TextImage : public Device
{
public:
    using Device::Device;

    // The size of a text in its own font, in points. Plain text is measured as it stands, with its
    // line feeds; rich text as an HTML document without a margin, or as its plain text if it is
    // beyond the limits of rich text. An invalid size for null.
    static QSize textSize(const Text *text, bool rich);
    static QSize textSize(const QString &text, const Font *font, bool rich);

    // From the bottom of a line to the top of the next one, and from baseline to baseline; points.
    static int fontLeading(const Font *font);
    static int fontLineSpacing(const Font *font);

    // Draws the plain text of the HTML.
    void drawRichText(QPoint topLeft, Text *text) override;

protected:
    RichTextBudget richTexts; // what those of this drawing may still cost
};

} // namespace ORR::Graph
