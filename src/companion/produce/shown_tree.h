#pragma once

#include "companion/produce/tree_picture.h"
#include "companion/produce/weight_tree.h"

#include <QHash>
#include <QList>
#include <QString>

namespace ORR::Companion {

// How much of a weight is of a kind.
struct KindWeight
{
    int kind = -1;
    double weight = 0;
};

// What is drawn as one: a thing, the own weight of one that has others in it, or many small ones.
struct ShownThing
{
    enum Sort { Thing, Own, Others };

    Sort sort = Thing;
    WeightTree::Item item = WeightTree::none; // the last one of a chain; of others what they are in
    int parent = -1;
    int top = -1; // the one right below the root that it is in, or is
    qint64 things = 1; // of others: how many
    double weight = 0; // with all that is in it
    double own = 0; // without
    double part = 0, whole = 0; // with all that is in it
    QString name = {};
    QList<KindWeight> kinds = {}; // with all that is in it, the most of them first
    QList<int> children = {}; // the largest first, others behind them
};

// The part of a tree that is drawn: without what weighs nothing, chains of single children joined,
// and the smallest things folded into others where there are too many.
class ShownTree
{
public:
    struct Options
    {
        qint64 most = 2000; // things besides the root, others included
        double leastShare = 0; // of the whole; lighter things are folded
        bool ownAsChildren = true; // own weights are things beside the children
    };

    ShownTree(const WeightTree &tree, const TreeMeaning &meaning, const Options &options);

    const ShownThing &operator[](int thing) const { return things[thing]; }
    const ShownThing &root() const { return things[0]; }
    // Of all things, also of those that were folded later.
    int size() const { return int(things.size()); }

    // Folds all children but the first ones into others, which are the last child then. Nothing
    // happens if only one would be folded that is no others already.
    void foldBehind(int parent, qsizetype kept);
    // Folds all that is in it into the thing itself.
    void close(int thing) { things[thing].children.clear(); }

    // From the root of the tree, what is not drawn included; a long one begins with "…".
    QString path(int thing) const;

private:
    friend class ShownTreeBuilder;

    const WeightTree &source;
    const TreeMeaning &numbers;
    QList<ShownThing> things;
};

// Adds the weights of kinds to others of them, the most first.
void addKinds(QList<KindWeight> *sums, const QList<KindWeight> &kinds);

} // namespace ORR::Companion
