#pragma once

#include "device/pairwise_font.h"

#include <QFont>
#include <QFontMetrics>
#include <QHash>
#include <QSize>
#include <QString>

#include <memory>
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
    // What has been found out about a font, and what it takes to find out more.
    struct Known;

    // font: as it was made for the resolution of `metrics`. tables: tell of it what may be summed
    // up. `KeptTextWidths` tells what is known of it.
    TextWidths(const QFont &font, const QFontMetrics &metrics, Tables tables = pairwiseFont);
    ~TextWidths();

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
    std::shared_ptr<Known> known;
};

// As long as it lives, what is found out about a font is kept, for a process that makes one drawing
// after the other. Sizes are the same with it and without it. One at a time, in one thread.
class KeptTextWidths
{
public:
    KeptTextWidths();
    ~KeptTextWidths();
    KeptTextWidths(const KeptTextWidths &) = delete;
    KeptTextWidths &operator=(const KeptTextWidths &) = delete;

    // What is known of a font, by whoever lives; nothing at first.
    static std::shared_ptr<TextWidths::Known> of(const QFont &font);

private:
    QHash<QFont, std::shared_ptr<TextWidths::Known>> fonts;
};

} // namespace ORR::Graph
