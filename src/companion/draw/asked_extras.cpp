#include "companion/draw/asked_extras.h"

#include "companion/draw/suggestion.h"
#include "device/color_value.h"
#include "drawing/format_table.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

bool takes(qint32 format, Drawing::FormatExtra extra)
{
    return (Drawing::formatRow(static_cast<Drawing::Format>(format)).extras & extra) != 0;
}

// The names of the formats that take it.
QString takersOf(Drawing::FormatExtra extra)
{
    QStringList names;
    for (const QString &name : Drawing::allFormatNames()) {
        if (takes(qint32(*Drawing::chooseFromAllFormats(name, {})), extra))
            names += name;
    }
    return names.join(u", "_s);
}

} // namespace

AskedExtras AskedExtras::orElse(const AskedExtras &others) const
{
    AskedExtras all = others;
    if (scale)
        all.scale = scale;
    if (background)
        all.background = background;
    if (embedded)
        all.embedded = embedded;
    return all;
}

QString scaleFault(double number)
{
    if (number >= smallestScale && number <= largestScale)
        return {};
    return u"is no number from %1 to %2"_s.arg(smallestScale).arg(largestScale);
}

QString backgroundFault(const QString &text)
{
    if (Graph::ColorValue(text).isValid())
        return {};
    return u"there is no colour '"_s + text + u'\'' + suggested(text, Graph::colorNames());
}

QString unusedExtra(const AskedExtras &extras, const QList<DrawingOptions> &kinds)
{
    struct Row
    {
        QString name;
        bool isAsked;
        Drawing::FormatExtra extra;
    };
    const Row rows[] = {
        {u"scale"_s, extras.scale.has_value(), Drawing::TakesScale},
        {u"background"_s, extras.background.has_value(), Drawing::TakesBackground},
        {u"embed"_s, extras.embedded.value_or(false), Drawing::TakesEmbedding},
    };
    for (const Row &row : rows) {
        const bool isTaken = std::ranges::any_of(
            kinds, [&](const DrawingOptions &kind) { return takes(kind.format, row.extra); });
        if (row.isAsked && !isTaken)
            return row.name + u" is for "_s + takersOf(row.extra) + u" only"_s;
    }
    return {};
}

void applyExtras(const AskedExtras &extras, QList<DrawingOptions> *kinds)
{
    for (DrawingOptions &kind : *kinds) {
        kind.scale = takes(kind.format, Drawing::TakesScale) ? extras.scale.value_or(1.0) : 1.0;
        kind.background = takes(kind.format, Drawing::TakesBackground)
            ? extras.background.value_or(QByteArray())
            : QByteArray();
        kind.embedded =
            takes(kind.format, Drawing::TakesEmbedding) && extras.embedded.value_or(false);
    }
}

} // namespace ORR::Companion
