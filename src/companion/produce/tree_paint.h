#pragma once

#include "companion/produce/chart_key.h"
#include "companion/produce/shown_tree.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

namespace ORR::Companion {

// The colours of a tree: which fill each thing has, and what a legend says of them.
class TreePaint
{
public:
    // The things right below the root have their colours by the order that they are in now.
    TreePaint(const ShownTree &tree, const TreeMeaning &meaning);

    QByteArray fillOf(const ShownThing &thing) const;
    QByteArray kindFill(int kind) const;
    QString kindName(int kind) const;

    // The entries that tell the colours; none if there is nothing to tell.
    const QList<KeyEntry> &entries() const { return keyEntries; }

private:
    void paintTops(const ShownTree &tree);
    void paintKinds(const ShownTree &tree);
    void tellScale(const ShownTree &tree);
    QByteArray stepFill(int step) const;
    QByteArray shareFill(double part, double whole) const;

    const TreeMeaning &numbers;
    QHash<int, QByteArray> fills; // of tops or of kinds
    QList<KeyEntry> keyEntries;
};

} // namespace ORR::Companion
