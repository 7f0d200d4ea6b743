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
// and so are the first ones: few texts are not worth it. A font whose sums would have given one of
// them another size is never summed up.
class TextWidths
{
public:
    using Tables = PairwiseFont (*)(const QRawFont &font);

    // font: as it was made for the resolution of `metrics`. tables: tell of it what may be summed
    // up.
    TextWidths(const QFont &font, const QFontMetrics &metrics, Tables tables = pairwiseFont);

    QSize sizeOf(const QString &text);

private:
    struct Measured
    {
        QString text;
        QSize size;
    };

    void prepare();
    void checkSums();
    int fixedWidth(const QString &text) const;
    int lastWidth(QChar c) const;
    int pairWidth(QChar a, QChar b);
    std::optional<int> sumOfPairs(const QString &text);
    std::optional<QSize> sizeByPairs(const QString &text);

    QFont font;
    QFontMetrics metrics;
    Tables tables;
    std::vector<Measured> firsts; // by the toolkit, until there are enough of them
    bool areEnough = false;
    QChar anchor; // a letter that others are measured beside
    AsciiSet characters; // what texts may consist of; empty for nothing
    std::vector<int> pairs; // by both characters: from the start of the first to that of the second
    std::vector<int> lasts; // by the character: from the start of the last one to the end
    int height = 0;
};

} // namespace ORR::Graph
