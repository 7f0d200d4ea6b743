#pragma once

#include "companion/produce/graph_text.h"
#include "companion/produce/label_ruler.h"

#include <QByteArray>
#include <QList>
#include <QRect>
#include <QSize>
#include <QString>

namespace ORR::Companion {

// What a colour of a chart means.
struct KeyEntry
{
    QString label;
    QByteArray fill;
};

// The legend of a chart, measured before it is drawn: a chart is made as large as the page and the
// legend leave it room.
class ChartKey
{
public:
    // side: "top", "bottom", "left" or "right". Titles may have lines. No text is wider than
    // `widest`, in points. The lines stand at the left if the legend lies beside the chart.
    ChartKey(const char *side, const QString &title, const QList<KeyEntry> &entries, int widest);

    // The page of a chart of that size and place.
    QSize pageOf(const QRect &chart) const;

    // For a page without room for it: nothing is measured or written any more.
    void leaveOut();

    // The group of the legend.
    void write(GraphText *text) const;

private:
    QByteArray side;
    QString title;
    QList<KeyEntry> entries;
    LabelRuler titleRuler;
    LabelRuler entryRuler;
};

} // namespace ORR::Companion
