#include "device/text_widths.h"

#include "device/point_resolution.h"

#include <QFontDatabase>
#include <QFontMetricsF>

#include <algorithm>
#include <climits>
#include <cmath>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t fewTexts = 200;

// Longer texts, and those of larger fonts, come near to where the toolkit splits them or runs out
// of bits.
constexpr qsizetype longestText = 500;
constexpr double largestFont = 500.0; // pixels

constexpr int characterCount = 128;
constexpr int notMeasured = INT_MIN;

// The toolkit's widths are multiples of this part of a pixel.
constexpr int partsPerPixel = 64;

size_t indexOf(QChar a, QChar b)
{
    return size_t(a.unicode()) * characterCount + b.unicode();
}

bool isLetter(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

} // namespace

TextWidths::TextWidths(const QFont &usedFont, const QFontMetrics &fontMetrics, Tables fontTables)
    : font(usedFont), metrics(fontMetrics), tables(fontTables)
{
}

// The width before it is made a whole number.
int TextWidths::fixedWidth(const QString &text) const
{
    const double width = QFontMetricsF(font, pointDevice()).size(0, text).width();
    return static_cast<int>(std::lround(width * partsPerPixel));
}

// A text with a letter is Latin as a whole, digits and signs included, and is measured as such
// here: others might come from another font, or follow other rules.
void TextWidths::prepare()
{
    const QRawFont raw = QRawFont::fromFont(font, QFontDatabase::Latin);
    const PairwiseFont pairwise = tables(raw);
    if (!(raw.pixelSize() <= largestFont))
        return;
    bool isFractional = false;
    for (char16_t c = u'z'; c >= u'a'; --c) {
        if (!pairwise.characters.test(c))
            continue;
        anchor = c;
        isFractional = isFractional || fixedWidth(QString(2, c)) % partsPerPixel != 0;
    }
    if (anchor.isNull() || (pairwise.needsFractions && !isFractional))
        return;
    characters = pairwise.characters;
    pairs.assign(size_t(characterCount) * characterCount, notMeasured);
    lasts.assign(characterCount, notMeasured);
    height = metrics.size(0, QString(anchor)).height();
}

int TextWidths::pairWidth(QChar a, QChar b)
{
    int &width = pairs[indexOf(a, b)];
    if (width == notMeasured)
        width = fixedWidth(QString(a) + b + anchor) - fixedWidth(QString(b) + anchor);
    return width;
}

int TextWidths::lastWidth(QChar c) const
{
    const QString pair = QString(anchor) + c;
    return fixedWidth(pair) - fixedWidth(pair + anchor) + fixedWidth(QString(c) + anchor);
}

// Nothing for a text that may not be summed up. A blank at the end is none of its width.
std::optional<int> TextWidths::sumOfPairs(const QString &text)
{
    if (text.isEmpty() || text.size() > longestText || text.back() == u' ')
        return {};
    bool hasLetter = false;
    for (const QChar c : text) {
        if (c.unicode() >= characterCount || !characters.test(c.unicode()))
            return {};
        hasLetter = hasLetter || isLetter(c.unicode());
    }
    if (!hasLetter)
        return {};
    int sum = 0;
    for (qsizetype i = 1; i < text.size(); ++i)
        sum += pairWidth(text.at(i - 1), text.at(i));
    int &last = lasts[text.back().unicode()];
    if (last == notMeasured)
        last = lastWidth(text.back());
    return std::max(sum + last, 0);
}

std::optional<QSize> TextWidths::sizeByPairs(const QString &text)
{
    const std::optional<int> width = sumOfPairs(text);
    if (!width)
        return {};
    return QSize((*width + partsPerPixel - 1) / partsPerPixel, height);
}

// Tables may tell less than what the toolkit does with them.
void TextWidths::checkSums()
{
    const bool hold = std::ranges::all_of(firsts, [this](const Measured &first) {
        return sizeByPairs(first.text).value_or(first.size) == first.size;
    });
    if (!hold)
        characters.reset();
}

QSize TextWidths::sizeOf(const QString &text)
{
    if (characters.any()) {
        if (const auto size = sizeByPairs(text))
            return *size;
    }
    const QSize size = metrics.size(0, text);
    if (areEnough)
        return size;
    firsts.push_back({text, size});
    if (firsts.size() == fewTexts) {
        areEnough = true;
        prepare();
        checkSums();
        firsts = {};
    }
    return size;
}

} // namespace ORR::Graph
