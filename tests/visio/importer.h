#pragma once

#include <QSizeF>
#include <QString>
#include <QStringList>

// What an importer that is not ours says it saw in a drawing.
struct Seen
{
    bool skipped = false; // it is not installed
    QString calls;

    int count(const QString &call) const { return static_cast<int>(calls.count(call)); }
    QSizeF page() const; // in points
    // The lines of text in their order.
    QStringList texts() const;
    // The outlines in their order, in points from the top left: "M 1,2 L 3,4". A shape with fill
    // and border is seen as two.
    QStringList outlines() const;
};

Seen readBy(const QString &path);
