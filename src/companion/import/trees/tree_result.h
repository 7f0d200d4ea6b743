#pragma once

#include "companion/import/import_format.h"
#include "companion/produce/tree_picture.h"

#include <QByteArrayView>
#include <QHash>
#include <QStringList>

#include <vector>

// What importers of trees of weights share.
namespace ORR::Companion {

// The picture of a tree; a fault if a source could not be read to its end, if nothing in the tree
// weighs anything (`nothing` says so), or if all of it together is beyond double.
ImportResult treeResult(WeightTree tree, TreeMeaning meaning,
                        const std::vector<ImportSource> &sources, const QString &nothing);

// Words for sorts of things, as they are met.
class KindNames
{
public:
    // The number of a word.
    int of(QByteArrayView word);
    qsizetype size() const { return names.size(); }

    // Gives the kinds in a tree new numbers, the one that weighs most the first (those that weigh
    // the same by their names), and their names by them.
    QStringList rankIn(WeightTree *tree) const;

private:
    QHash<QByteArray, int> numbers;
    QStringList names;
};

} // namespace ORR::Companion
