#pragma once

#include "companion/produce/graph_text.h"
#include "companion/produce/label_ruler.h"

#include <QByteArray>
#include <QList>
#include <QRect>
#include <QSize>
#include <QString>

#include <optional>

namespace ORR::Companion {

// What a colour of a chart means.
struct KeyEntry
{
    QString label;
    QByteArray fill;
};

// What a legend says besides: the title of the chart, for charts that have no other place for it,
// and what sizes and colours are.
struct KeyHead
{
    QString title = {};
    QString meaning = {};
};

// The legend of a chart, measured before it is drawn: a chart is made as large as the page and the
// legend leave it room.
class ChartKey
{
public:
    enum Side { Top, Bottom, Right };

    // No text is wider than `widest`, in points. At the right of a chart all texts begin at one
    // line; elsewhere the head stands in the middle.
    ChartKey(Side legendSide, const KeyHead &head, const QList<KeyEntry> &entries, int widest);

    // The page of a chart of that size and place.
    QSize pageOf(const QRect &chart) const;

    // For a page without room for it: nothing is measured or written any more.
    void leaveOut();

    // The group of the legend.
    void write(GraphText *text) const;

private:
    void addHead(const KeyHead &head, bool hasEntries, int widest);
    void addEntry(const KeyEntry &entry, const LabelRuler &ruler, int widest);

    struct Entry
    {
        QString label;
        QByteArray fill;
        int fontSize;
    };

    Side side;
    QString title;
    int titleFont = 0; // its size
    std::optional<QSize> titleSize;
    QList<Entry> entries;
    QList<QSize> entrySizes;
};

} // namespace ORR::Companion
