#pragma once

#include "companion/produce/weight_tree.h"

#include <QByteArrayView>

#include <string>
#include <vector>

namespace ORR::Companion {

// Finds the things of paths in a tree that come one behind the other, most of them beginning as the
// one before did: what they share is not looked up again.
class PathWalk
{
public:
    enum class Parts {
        Folders, // "." is the same folder and ".." the one above
        Names, // all are what they are
    };

    // The tree has to outlive the walk.
    PathWalk(WeightTree *weights, char partSeparator, Parts meaning)
        : tree(weights), separator(partSeparator), parts(meaning)
    {
    }

    // The thing of a path below the root, made if there is none. Empty parts are passed over.
    WeightTree::Item at(QByteArrayView path);

private:
    struct Step
    {
        qsizetype end; // of the part in the path
        WeightTree::Item item;
    };

    WeightTree::Item below(WeightTree::Item item, QByteArrayView part);

    WeightTree *tree;
    char separator;
    Parts parts;
    std::string last; // the path before
    std::vector<Step> steps; // along it
};

} // namespace ORR::Companion
