#include "device/rich_text_price.h"

#include "device/markup_reader.h"
#include "device/open_elements.h"
#include "device/rich_text_images.h"
#include "graph/limits.h"

#include <algorithm>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 stepsPerTag = 8;
constexpr qint64 stepsPerCell = 16;
constexpr qint64 stepsPerRareCharacter = 5;
constexpr qint64 stepsPerFont = 60;
constexpr qint64 stepsPerGridPlace = 8;
constexpr qint64 itemsPerStep = 100; // items before a list item, pictures before a picture
constexpr qint64 pictureCharactersPerStep = 100;
constexpr qint64 pixelsPerStep = 50;
constexpr qint64 sheetCharactersPerStep = 64;
constexpr qint64 levelsPerSheet = 16; // so many make a sheet twice as dear

class PriceCount
{
public:
    void add(const MarkupPiece &piece);

    qint64 steps() const { return sum + gridPlaces() * stepsPerGridPlace; }
    qint64 gridPlaces() const { return elements.gridPlaces(); }
    bool isAffordable() const
    {
        return steps() <= Limits::dearestRichText && elements.depth() <= Limits::deepestRichText;
    }

private:
    void addText(QStringView text);
    void addTag(const MarkupPiece &tag);
    qint64 attributeSteps(const MarkupPiece &tag) const;
    qint64 pictureSteps(const QString &address);

    OpenElements elements;
    qint64 sum = 0;
    qint64 listItems = 0;
    qint64 pictures = 0;
    qint64 sheetCharacters = 0;
    bool isWithinSheet = false;
};

// The largest of the values that are numbers: the toolkit passes over others.
qint64 largestNumber(const MarkupPiece &tag, QLatin1StringView name)
{
    qint64 largest = 1;
    for (const auto &[attribute, value] : tag.attributes) {
        if (attribute == name)
            largest = std::max(largest, value.toLongLong());
    }
    return std::min(largest, qint64(1) << 31);
}

void PriceCount::add(const MarkupPiece &piece)
{
    switch (piece.kind) {
    case MarkupPiece::Text:
        addText(piece.text);
        break;
    case MarkupPiece::Open:
        addTag(piece);
        break;
    case MarkupPiece::Close:
        sum += stepsPerTag * elements.passes();
        elements.close(piece.name);
        isWithinSheet = false;
        break;
    case MarkupPiece::Declaration:
        sum += stepsPerTag;
        break;
    }
}

qint64 textSteps(QStringView text)
{
    qint64 steps = 0;
    for (const QChar c : text) {
        const bool isPlain = c >= u' ' && c <= u'~' && c != u'&';
        steps += isPlain ? 1 : stepsPerRareCharacter;
    }
    return steps;
}

void PriceCount::addText(QStringView text)
{
    sum += textSteps(text) * elements.passes();
    if (isWithinSheet)
        sheetCharacters += text.size();
}

void PriceCount::addTag(const MarkupPiece &tag)
{
    elements.open(tag.name, largestNumber(tag, "colspan"_L1), largestNumber(tag, "rowspan"_L1));
    qint64 steps = stepsPerTag + attributeSteps(tag);
    steps += sheetCharacters * (levelsPerSheet + elements.depth()) / levelsPerSheet
        / sheetCharactersPerStep;
    if (tag.name == "td"_L1 || tag.name == "th"_L1)
        steps += stepsPerCell;
    if (tag.name == "li"_L1)
        steps += ++listItems / itemsPerStep;
    if (tag.name == "img"_L1) {
        steps += ++pictures / itemsPerStep;
        for (const auto &[name, value] : tag.attributes)
            steps += pictureSteps(value);
    }
    sum += steps * elements.passes();
    isWithinSheet = tag.name == "style"_L1;
    if (tag.isClosed || tag.name.isEmpty() || OpenElements::isEmptyElement(tag.name))
        elements.closeLast();
}

qint64 PriceCount::attributeSteps(const MarkupPiece &tag) const
{
    qint64 steps = 0;
    for (const auto &[name, value] : tag.attributes) {
        const bool isPicture = isPictureAddress(value);
        steps += name.size() + value.size() / (isPicture ? pictureCharactersPerStep : 1);
        if (name == "style"_L1 || name == "face"_L1 || name == "size"_L1)
            steps += stepsPerFont;
    }
    return steps;
}

qint64 PriceCount::pictureSteps(const QString &address)
{
    return isPictureAddress(address) ? picturePixels(address) / pixelsPerStep : 0;
}

RichTextPrice priceOf(QStringView html)
{
    PriceCount count;
    MarkupReader reader(html);
    while (count.isAffordable() && reader.next())
        count.add(reader.piece());
    return {count.steps(), count.isAffordable(), count.gridPlaces()};
}

} // namespace

RichTextPrice richTextPrice(QStringView html)
{
    if (html.size() > Limits::longestRichText)
        return {html.size(), false, 0};
    RichTextPrice price = priceOf(html);
    // Of a text from a clipboard the toolkit takes only what the comment announces, which is not to
    // hide within a tag from here.
    const qsizetype fragment = html.indexOf("<!--StartFragment-->"_L1);
    if (fragment > 0 && price.isAffordable) {
        const RichTextPrice inner = priceOf(html.sliced(fragment));
        price.steps = std::max(price.steps, inner.steps);
        price.isAffordable = inner.isAffordable;
        price.gridPlaces = std::max(price.gridPlaces, inner.gridPlaces);
    }
    return price;
}

} // namespace ORR::Graph
