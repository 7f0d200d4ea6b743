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

// An input may have any number of fonts; those of others are few. Each may take 64 KB.
constexpr qsizetype mostFonts = 32;

KeptTextWidths *keeper = nullptr;

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

struct TextWidths::Known
{
    std::vector<Measured> firsts; // by the toolkit, until there are enough of them
    bool areEnough = false;
    QChar anchor; // a letter that others are measured beside
    AsciiSet characters; // what texts may consist of; empty for nothing
    std::vector<int> pairs; // by both characters: from the start of the first to that of the second
    std::vector<int> lasts; // by the character: from the start of the last one to the end
    int height = 0;
};

TextWidths::TextWidths(const QFont &usedFont, const QFontMetrics &fontMetrics, Tables fontTables)
    : font(usedFont), metrics(fontMetrics), tables(fontTables), known(KeptTextWidths::of(font))
{
}

TextWidths::~TextWidths() = default;

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
        known->anchor = c;
        isFractional = isFractional || fixedWidth(QString(2, c)) % partsPerPixel != 0;
    }
    if (known->anchor.isNull() || (pairwise.needsFractions && !isFractional))
        return;
    known->pairs.assign(size_t(characterCount) * characterCount, notMeasured);
    known->lasts.assign(characterCount, notMeasured);
    known->height = metrics.size(0, QString(known->anchor)).height();
    known->characters = pairwise.characters; // last: memory may run out before
}

int TextWidths::pairWidth(QChar a, QChar b)
{
    int &width = known->pairs[indexOf(a, b)];
    if (width == notMeasured)
        width = fixedWidth(QString(a) + b + known->anchor) - fixedWidth(QString(b) + known->anchor);
    return width;
}

int TextWidths::lastWidth(QChar c) const
{
    const QString pair = QString(known->anchor) + c;
    return fixedWidth(pair) - fixedWidth(pair + known->anchor)
        + fixedWidth(QString(c) + known->anchor);
}

// Nothing for a text that may not be summed up. A blank at the end is none of its width.
std::optional<int> TextWidths::sumOfPairs(const QString &text)
{
    if (text.isEmpty() || text.size() > longestText || text.back() == u' ')
        return {};
    bool hasLetter = false;
    for (const QChar c : text) {
        if (c.unicode() >= characterCount || !known->characters.test(c.unicode()))
            return {};
        hasLetter = hasLetter || isLetter(c.unicode());
    }
    if (!hasLetter)
        return {};
    int sum = 0;
    for (qsizetype i = 1; i < text.size(); ++i)
        sum += pairWidth(text.at(i - 1), text.at(i));
    int &last = known->lasts[text.back().unicode()];
    if (last == notMeasured)
        last = lastWidth(text.back());
    return std::max(sum + last, 0);
}

std::optional<QSize> TextWidths::sizeByPairs(const QString &text)
{
    const std::optional<int> width = sumOfPairs(text);
    if (!width)
        return {};
    return QSize((*width + partsPerPixel - 1) / partsPerPixel, known->height);
}

// Tables may tell less than what the toolkit does with them.
void TextWidths::checkSums()
{
    const bool hold = std::ranges::all_of(known->firsts, [this](const Measured &first) {
        return sizeByPairs(first.text).value_or(first.size) == first.size;
    });
    if (!hold)
        known->characters.reset();
}

QSize TextWidths::sizeOf(const QString &text)
{
    if (known->characters.any()) {
        if (const auto size = sizeByPairs(text))
            return *size;
    }
    const QSize size = metrics.size(0, text);
    if (known->areEnough)
        return size;
    known->firsts.push_back({text, size});
    if (known->firsts.size() == fewTexts) {
        known->areEnough = true;
        prepare();
        checkSums();
        known->firsts = {};
    }
    return size;
}

KeptTextWidths::KeptTextWidths()
{
    keeper = this;
}

KeptTextWidths::~KeptTextWidths()
{
    keeper = nullptr;
}

std::shared_ptr<TextWidths::Known> KeptTextWidths::of(const QFont &font)
{
    if (!keeper)
        return std::make_shared<TextWidths::Known>();
    if (const auto known = keeper->fonts.value(font))
        return known;
    if (keeper->fonts.size() >= mostFonts)
        keeper->fonts.clear();
    return *keeper->fonts.insert(font, std::make_shared<TextWidths::Known>());
}

} // namespace ORR::Graph
