#pragma once

#include "device/pairwise_font.h"

#include <QFont>
#include <QFontMetrics>
#include <QSize>
#include <QString>

#include <optional>
#include <vector>

namespace ORR::Graph {

// Measures plain texts in one font: the very size that `QFontMetrics::size` gives. Where the font
// allows it, the width of a text is summed up from those of its pairs of letters, each of which the
// toolkit measured once; that takes a tenth of the time. Every other text is left to the toolkit,
// and so are the first ones: few texts are not worth it.
class TextWidths
{
public:
    // font: as it was made for the resolution of `metrics`.
    TextWidths(const QFont &font, const QFontMetrics &metrics);

    QSize sizeOf(const QString &text);

private:
    void prepare();
    int fixedWidth(const QString &text) const;
    int lastWidth(QChar c) const;
    int pairWidth(QChar a, QChar b);
    std::optional<int> sumOfPairs(const QString &text);

    QFont font;
    QFontMetrics metrics;
    int untilPairs; // texts that are still left to the toolkit
    QChar anchor; // a letter that others are measured beside
    AsciiSet characters; // what texts may consist of; empty for nothing
    std::vector<int> pairs; // by both characters: from the start of the first to that of the second
    std::vector<int> lasts; // by the character: from the start of the last one to the end
    int height = 0;
};

} // namespace ORR::Graph
