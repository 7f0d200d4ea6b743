#include "companion/produce/chart_key.h"

#include "layout/charts/legend_places.h"

#include <QStringList>

#include <algorithm>

namespace ORR::Companion {

using namespace Qt::StringLiterals;

namespace {

constexpr int nameFont = 13; // of the title of a chart
constexpr int headFont = 11;
constexpr int titledFont = 12; // of a head in the middle that begins with a title
constexpr int entryFont = 10;
constexpr auto squareLine = u"#8A98A8";
constexpr auto noFill = "none";

Graph::Layout::LegendSide placeOf(ChartKey::Side side)
{
    using enum Graph::Layout::LegendSide;
    return side == ChartKey::Top ? Top : side == ChartKey::Bottom ? Bottom : Right;
}

QString wordOf(ChartKey::Side side)
{
    return side == ChartKey::Top ? u"top"_s : side == ChartKey::Bottom ? u"bottom"_s : u"right"_s;
}

} // namespace

ChartKey::ChartKey(Side legendSide, const KeyHead &head, const QList<KeyEntry> &legendEntries,
                   int widest)
    : side(legendSide)
{
    addHead(head, !legendEntries.isEmpty(), widest);
    const LabelRuler ruler(entryFont);
    constexpr int widestEntry = 220; // all have the room of the longest one
    for (const KeyEntry &entry : legendEntries)
        addEntry(entry, ruler, std::min(widest, widestEntry));
}

// The title of a legend at the right would stand by itself in the corner of the page, and take
// the place of an entry; one above a chart without entries takes its room twice. There its lines
// are entries of no colour.
void ChartKey::addHead(const KeyHead &head, bool hasEntries, int widest)
{
    const LabelRuler nameRuler(nameFont);
    const LabelRuler headRuler(headFont);
    if (side == Right || (side == Top && !hasEntries)) {
        if (!head.title.isEmpty())
            addEntry({head.title, noFill}, nameRuler, widest);
        if (!head.meaning.isEmpty()) {
            for (const QString &line : head.meaning.split(u'\n'))
                addEntry({line, noFill}, headRuler, widest);
        }
        if (hasEntries && !entries.isEmpty())
            addEntry({u" "_s, noFill}, headRuler, widest); // the gap before the entries
        return;
    }
    titleFont = head.title.isEmpty() ? headFont : titledFont;
    const LabelRuler ruler(titleFont);
    QStringList lines;
    if (!head.title.isEmpty())
        lines.append(ruler.elided(head.title, widest));
    if (!head.meaning.isEmpty())
        lines.append(ruler.elided(QString(head.meaning).replace(u'\n', u"  \u00b7  "_s), widest));
    title = lines.join(u'\n');
    if (!title.isEmpty())
        titleSize = ruler.sizeOf(title);
}

void ChartKey::addEntry(const KeyEntry &entry, const LabelRuler &ruler, int widest)
{
    constexpr int gap = 4; // between a square, which is as high as its text, and that
    const QString label = ruler.elided(entry.label, widest - gap - ruler.lineHeight(), 1);
    if (label.isEmpty())
        return;
    const QSize size = ruler.sizeOf(label);
    entries.append({label, entry.fill, ruler.pointSize()});
    entrySizes.append({size.width() + gap + size.height(), size.height()});
}

QSize ChartKey::pageOf(const QRect &chart) const
{
    if (title.isEmpty() && entries.isEmpty())
        return Graph::Layout::pageWithoutLegend(chart);
    Graph::Layout::LegendParts parts;
    parts.side = placeOf(side);
    parts.title = titleSize;
    parts.entries = entrySizes;
    return Graph::Layout::legendPlaces(parts, chart).page;
}

void ChartKey::leaveOut()
{
    title.clear();
    titleSize.reset();
    entries.clear();
    entrySizes.clear();
}

void ChartKey::write(GraphText *text) const
{
    if (title.isEmpty() && entries.isEmpty())
        return;
    const QString family = QString::fromLatin1(LabelRuler::family);
    Attributes group;
    group.text("legend", wordOf(side)).label(title);
    text->beginGroup(group.text("fontname", family).number("fontsize", titleFont));
    text->nodeDefaults(Attributes()
                           .text("color", squareLine)
                           .text("fontname", family)
                           .number("fontsize", entryFont));
    for (const Entry &entry : entries) {
        Attributes attributes;
        attributes.label(entry.label).text("fillcolor", QString::fromLatin1(entry.fill));
        if (entry.fill == noFill)
            attributes.text("color", u"none").number("fontsize", entry.fontSize);
        text->node(attributes);
    }
    text->endGroup();
}

} // namespace ORR::Companion
