#include "companion/produce/chart_key.h"

#include "layout/charts/legend_places.h"

#include <QStringList>

namespace ORR::Companion {

namespace {

constexpr int titleSize = 11;
constexpr int entrySize = 10;
constexpr auto swatchLine = u"#8A98A8";

QString elidedLines(const QString &text, const LabelRuler &ruler, int widest)
{
    QStringList lines;
    for (const QString &line : text.split(u'\n'))
        lines.append(ruler.elided(line, widest));
    return lines.join(u'\n');
}

Graph::Layout::LegendSide sideOf(const QByteArray &side)
{
    using enum Graph::Layout::LegendSide;
    return side == "top" ? Top : side == "bottom" ? Bottom : side == "left" ? Left : Right;
}

} // namespace

ChartKey::ChartKey(const char *legendSide, const QString &legendTitle,
                   const QList<KeyEntry> &legendEntries, int widest)
    : side(legendSide), entries(legendEntries), titleRuler(titleSize), entryRuler(entrySize)
{
    title = elidedLines(legendTitle, titleRuler, widest);
    for (KeyEntry &entry : entries)
        entry.label = entryRuler.elided(entry.label, widest - 2 * entryRuler.lineHeight());
}

QSize ChartKey::pageOf(const QRect &chart) const
{
    if (title.isEmpty() && entries.isEmpty())
        return Graph::Layout::pageWithoutLegend(chart);
    Graph::Layout::LegendParts parts;
    parts.side = sideOf(side);
    if (!title.isEmpty())
        parts.title = titleRuler.sizeOf(title);
    for (const KeyEntry &entry : entries) {
        if (entry.label.isEmpty())
            continue;
        const QSize size = entryRuler.sizeOf(entry.label);
        constexpr int gap = 4; // between a square, which is as high as its text, and that
        parts.entries.append({size.width() + gap + size.height(), size.height()});
    }
    return Graph::Layout::legendPlaces(parts, chart).page;
}

void ChartKey::leaveOut()
{
    title.clear();
    entries.clear();
}

void ChartKey::write(GraphText *text) const
{
    if (title.isEmpty() && entries.isEmpty())
        return;
    Attributes group;
    group.text("legend", QString::fromLatin1(side));
    if (!title.isEmpty())
        group.label(title);
    const QString family = QString::fromLatin1(LabelRuler::family);
    group.text("fontname", family).number("fontsize", titleSize);
    text->beginGroup(group);
    text->nodeDefaults(Attributes()
                           .text("color", swatchLine)
                           .text("fontname", family)
                           .number("fontsize", entrySize));
    for (const KeyEntry &entry : entries) {
        if (!entry.label.isEmpty())
            text->node(
                Attributes().label(entry.label).text("fillcolor", QString::fromLatin1(entry.fill)));
    }
    text->endGroup();
}

} // namespace ORR::Companion
