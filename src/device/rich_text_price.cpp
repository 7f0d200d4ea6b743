#include "device/rich_text_price.h"

#include "device/markup_reader.h"
#include "device/open_elements.h"
#include "device/rich_text_images.h"
#include "graph/limits.h"

#include <algorithm>
#include <optional>

namespace ORR::Graph {

using namespace Qt::StringLiterals;

namespace {

class PriceCount
{
public:
    explicit PriceCount(QStringView html) : text(html) { }

    void add(const MarkupPiece &piece);

    qint64 steps() const { return sum + gridPlaces() * Limits::stepsPerGridPlace; }
    qint64 gridPlaces() const { return elements.gridPlaces(); }
    qint64 ofPictures() const { return sumOfPictures; }
    qint64 charactersOfPictures() const { return pictureCharacters; }
    bool isAffordable() const
    {
        return steps() <= Limits::dearestRichText && elements.depth() <= Limits::deepestRichText;
    }

private:
    void addText(QStringView characters);
    void addTag(const MarkupPiece &tag);
    qint64 attributeSteps(const MarkupPiece &tag) const;
    void addPicture(const QString &address);
    bool mayFloat(const MarkupPiece &tag) const;

    QStringView text;
    OpenElements elements;
    qint64 sum = 0;
    qint64 listItems = 0;
    qint64 pictures = 0;
    qint64 sumOfPictures = 0;
    qint64 pictureCharacters = 0;
    qint64 floats = 0;
    qint64 sheetCharacters = 0;
    std::optional<bool> sheetsMayFloat; // nothing before the first style sheet
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
    return std::min(largest, Limits::longestSpan);
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
        sum += Limits::stepsPerTag * elements.passes();
        elements.close(piece.name);
        isWithinSheet = false;
        break;
    case MarkupPiece::Declaration:
        sum += Limits::stepsPerTag;
        break;
    }
}

qint64 textSteps(QStringView text)
{
    qint64 steps = 0;
    for (const QChar c : text) {
        const bool isPlain = c >= u' ' && c <= u'~' && c != u'&';
        steps += isPlain ? 1 : Limits::stepsPerRareCharacter;
    }
    return steps;
}

// Whether rules or declarations may say `float`, which a backslash may hide.
bool saysFloat(QStringView css)
{
    return css.contains("float"_L1, Qt::CaseInsensitive) || css.contains(u'\\');
}

void PriceCount::addText(QStringView characters)
{
    sum += textSteps(characters) * elements.passes();
    if (isWithinSheet)
        sheetCharacters += characters.size();
}

// Nothing but tables and pictures floats. Behind a style sheet they all may if the word stands
// anywhere: rules are not read here, nor is it told where a sheet ends.
bool PriceCount::mayFloat(const MarkupPiece &tag) const
{
    if (tag.name != "img"_L1 && tag.name != "table"_L1)
        return false;
    return sheetsMayFloat.value_or(false)
        || std::any_of(tag.attributes.begin(), tag.attributes.end(), [](const auto &attribute) {
               return attribute.first == "align"_L1
                   || (attribute.first == "style"_L1 && saysFloat(attribute.second));
           });
}

void PriceCount::addTag(const MarkupPiece &tag)
{
    elements.open(tag.name, largestNumber(tag, "colspan"_L1), largestNumber(tag, "rowspan"_L1));
    qint64 steps = Limits::stepsPerTag + attributeSteps(tag);
    steps += sheetCharacters * (Limits::levelsPerSheet + elements.depth()) / Limits::levelsPerSheet
        / Limits::sheetCharactersPerStep;
    if (tag.name == "td"_L1 || tag.name == "th"_L1)
        steps += Limits::stepsPerCell;
    if (mayFloat(tag)) {
        ++floats;
        steps += floats * floats / Limits::squaredFloatsPerStep;
    }
    if (tag.name == "li"_L1)
        steps += ++listItems / Limits::itemsPerStep;
    if (tag.name == "img"_L1) {
        steps += ++pictures / Limits::itemsPerStep;
        for (const auto &[name, value] : tag.attributes)
            addPicture(value);
    }
    sum += steps * elements.passes();
    isWithinSheet = tag.name == "style"_L1;
    if (isWithinSheet && !sheetsMayFloat)
        sheetsMayFloat = saysFloat(withResolvedEntities(text));
    if (tag.isClosed || tag.name.isEmpty() || OpenElements::isEmptyElement(tag.name))
        elements.closeLast();
}

qint64 PriceCount::attributeSteps(const MarkupPiece &tag) const
{
    qint64 steps = 0;
    for (const auto &[name, value] : tag.attributes) {
        const bool isPicture = isPictureAddress(value);
        steps += name.size() + value.size() / (isPicture ? Limits::pictureCharactersPerStep : 1);
        if (name == "style"_L1 || name == "face"_L1 || name == "size"_L1)
            steps += Limits::stepsPerFont;
    }
    return steps;
}

void PriceCount::addPicture(const QString &address)
{
    if (!isPictureAddress(address))
        return;
    const qint64 steps = picturePixels(address) / Limits::pixelsPerStep * elements.passes();
    sum += steps;
    sumOfPictures += steps;
    pictureCharacters += address.size();
}

RichTextPrice priceOf(QStringView html)
{
    PriceCount count(html);
    MarkupReader reader(html);
    while (count.isAffordable() && reader.next())
        count.add(reader.piece());
    return {count.steps(), count.ofPictures(), count.charactersOfPictures(), count.isAffordable(),
            count.gridPlaces()};
}

} // namespace

RichTextPrice richTextPrice(QStringView html)
{
    if (html.size() > Limits::longestRichText)
        return {html.size(), 0, 0, false, 0};
    RichTextPrice price = priceOf(html);
    // Of a text from a clipboard the toolkit takes only what the comment announces, which is not to
    // hide within a tag from here.
    const qsizetype fragment = html.indexOf("<!--StartFragment-->"_L1);
    if (fragment > 0 && price.isAffordable) {
        const RichTextPrice inner = priceOf(html.sliced(fragment));
        price.steps = std::max(price.steps, inner.steps);
        price.pictureSteps = std::max(price.pictureSteps, inner.pictureSteps);
        price.isAffordable = inner.isAffordable;
        price.gridPlaces = std::max(price.gridPlaces, inner.gridPlaces);
    }
    return price;
}

} // namespace ORR::Graph
