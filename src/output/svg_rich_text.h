#pragma once

#include "device/rich_text.h"
#include "output/svg.h"

namespace ORR::Graph {

// The SVG device with rich text: an HTML text is laid out as a document without a margin, and what
// the toolkit's own SVG painter makes of it becomes a group at the text's place.
class SvgRichText : public Svg
{
public:
    using Svg::Svg;

    // A text that takes no room gives no group, and one beyond the limits is drawn as plain text.
    void drawRichText(QPoint topLeft, Text *text) override;

protected:
    // What the ids within the next rich text begin with.
    virtual QString fragmentPrefix();

private:
    RichTextBudget richTexts; // what those of this drawing may still cost
};

} // namespace ORR::Graph
