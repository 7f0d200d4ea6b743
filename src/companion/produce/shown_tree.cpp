#include "companion/produce/shown_tree.h"

#include "companion/produce/number_words.h"
#include "companion/produce/slot_tree.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace ORR::Companion {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestName = 200; // of a chain
constexpr qsizetype longestPath = 500;

double saturatedSum(double a, double b)
{
    return std::min(std::numeric_limits<double>::max(), a + b);
}

QString othersName(qint64 things)
{
    return u"others (%1)"_s.arg(weightWords(double(things), TreeMeaning::Unit::Count));
}

// The names from behind one item down to another one in it; of long ones the end.
QString joinedNames(const WeightTree &tree, WeightTree::Item above, WeightTree::Item item,
                    QChar separator, qsizetype longest)
{
    QStringList names;
    qsizetype length = 0;
    for (; item != above && item != WeightTree::root; item = tree.parent(item)) {
        if (length > longest) {
            names.prepend(u"\u2026"_s);
            break;
        }
        names.prepend(QString::fromUtf8(
            tree.name(item).first(std::min<qsizetype>(tree.name(item).size(), 4 * longestPath))));
        length += names.constFirst().size();
    }
    return names.join(separator);
}

void mergeInto(ShownThing *others, const ShownThing &thing)
{
    others->things += thing.things;
    others->weight = saturatedSum(others->weight, thing.weight);
    others->part = saturatedSum(others->part, thing.part);
    others->whole = saturatedSum(others->whole, thing.whole);
    addKinds(&others->kinds, thing.kinds);
}

} // namespace

void addKinds(QList<KindWeight> *sums, const QList<KindWeight> &kinds)
{
    QHash<int, qsizetype> places;
    for (qsizetype i = 0; i < sums->size(); ++i)
        places.insert(sums->at(i).kind, i);
    for (const KindWeight &kind : kinds) {
        const auto place = places.constFind(kind.kind);
        if (place != places.constEnd()) {
            KindWeight &sum = (*sums)[*place];
            sum.weight = saturatedSum(sum.weight, kind.weight);
        } else {
            places.insert(kind.kind, sums->size());
            sums->append(kind);
        }
    }
    std::sort(sums->begin(), sums->end(), [](const KindWeight &a, const KindWeight &b) {
        return a.weight != b.weight ? a.weight > b.weight : a.kind < b.kind;
    });
}

// Makes the things of the slots that are shown.
class ShownTreeBuilder
{
public:
    ShownTreeBuilder(ShownTree *shownTree, const SlotTree &slotTree)
        : shown(*shownTree), source(shownTree->source), tree(slotTree)
    {
    }

    void build();

private:
    int add(const ShownThing &thing);
    int othersOf(int parent);
    int thingOf(SlotTree::Slot slot);
    void gather();
    void addToThing(int thing, SlotTree::Slot slot);
    void sumKinds();
    void nameThings();
    void sortChildren();

    ShownTree &shown;
    const WeightTree &source;
    const SlotTree &tree;
    QList<int> thingOfSlot;
    QHash<int, int> others; // by what they are in
    QList<QHash<int, double>> ownKinds; // by thing
    // The one that was added to last: the small things of a large tree come many in a row.
    struct KindSum
    {
        int thing;
        int kind;
        double *weight; // valid until another one is looked up
    };
    KindSum sum = {};
};

int ShownTreeBuilder::add(const ShownThing &thing)
{
    const int made = int(shown.things.size());
    shown.things.append(thing);
    ShownThing &added = shown.things.last();
    if (thing.parent >= 0) {
        added.top = thing.parent == 0 ? made : shown.things[thing.parent].top;
        shown.things[thing.parent].children.append(made);
    }
    return made;
}

int ShownTreeBuilder::othersOf(int parent)
{
    const auto known = others.constFind(parent);
    if (known != others.constEnd())
        return *known;
    const int made = add({.sort = ShownThing::Others,
                          .item = shown.things[parent].item,
                          .parent = parent,
                          .things = 0});
    others.insert(parent, made);
    return made;
}

// The thing as which a slot is drawn, whose own parent has its thing already.
int ShownTreeBuilder::thingOf(SlotTree::Slot slot)
{
    const SlotTree::Slot above = tree.shownParent(slot);
    const int parent = thingOfSlot[above];
    if (tree.isKept(slot))
        return add({.sort = tree.isOwn(slot) ? ShownThing::Own : ShownThing::Thing,
                    .item = tree.itemOf(slot),
                    .parent = parent,
                    .weight = tree.weight(slot),
                    .own = tree.ownWeight(slot),
                    .part = tree.part(slot),
                    .whole = tree.whole(slot)});
    if (!tree.isOpen(above))
        return parent;
    const int folded = othersOf(parent);
    ShownThing &thing = shown.things[folded];
    ++thing.things;
    thing.weight = saturatedSum(thing.weight, tree.weight(slot));
    thing.part = saturatedSum(thing.part, tree.part(slot));
    thing.whole = saturatedSum(thing.whole, tree.whole(slot));
    return folded;
}

// Slots come behind those that they are in.
void ShownTreeBuilder::gather()
{
    thingOfSlot.fill(-1, tree.size());
    const SlotTree::Slot root = tree.shownRoot();
    add({.item = tree.itemOf(root),
         .weight = tree.weight(root),
         .own = tree.ownWeight(root),
         .part = tree.part(root),
         .whole = tree.whole(root)});
    thingOfSlot[root] = 0;
    addToThing(0, root);
    for (SlotTree::Slot slot = 0; slot < tree.size(); ++slot) {
        if (!tree.isShownAtAll(slot))
            continue;
        thingOfSlot[slot] = thingOf(slot);
        addToThing(thingOfSlot[slot], slot);
    }
}

void ShownTreeBuilder::addToThing(int thing, SlotTree::Slot slot)
{
    const double weight = tree.ownWeight(slot);
    if (weight <= 0)
        return;
    const int kind = source.kind(tree.itemOf(slot));
    if (!sum.weight || sum.thing != thing || sum.kind != kind) {
        while (ownKinds.size() <= thing)
            ownKinds.append(QHash<int, double>());
        sum = {.thing = thing, .kind = kind, .weight = &ownKinds[thing][kind]};
    }
    *sum.weight = saturatedSum(*sum.weight, weight);
}

// Things come behind those that they are in.
void ShownTreeBuilder::sumKinds()
{
    for (int thing = shown.size() - 1; thing >= 0; --thing) {
        QList<KindWeight> kinds;
        if (thing < ownKinds.size()) {
            const QHash<int, double> &own = ownKinds.at(thing);
            for (auto kind = own.constBegin(); kind != own.constEnd(); ++kind)
                kinds.append({kind.key(), kind.value()});
        }
        addKinds(&shown.things[thing].kinds, kinds);
        const int parent = shown.things[thing].parent;
        if (parent >= 0)
            addKinds(&shown.things[parent].kinds, shown.things[thing].kinds);
    }
}

void ShownTreeBuilder::nameThings()
{
    const QChar separator = shown.numbers.pathsAreFiles ? u'/' : u';';
    for (ShownThing &thing : shown.things) {
        if (thing.sort == ShownThing::Others)
            thing.name = othersName(thing.things);
        else if (thing.sort == ShownThing::Own)
            thing.name = shown.numbers.ownName;
        else if (thing.parent >= 0)
            thing.name = joinedNames(source, shown.things[thing.parent].item, thing.item, separator,
                                     longestName);
    }
    ShownThing &root = shown.things[0];
    root.name = shown.numbers.rootName.isEmpty()
        ? joinedNames(source, WeightTree::root, root.item, separator, longestName)
        : shown.numbers.rootName;
}

void ShownTreeBuilder::sortChildren()
{
    const auto isBefore = [this](int a, int b) {
        const ShownThing &first = shown.things.at(a);
        const ShownThing &second = shown.things.at(b);
        if ((first.sort == ShownThing::Others) != (second.sort == ShownThing::Others))
            return second.sort == ShownThing::Others;
        if (first.weight != second.weight)
            return first.weight > second.weight;
        return first.name != second.name ? first.name < second.name : first.item < second.item;
    };
    for (ShownThing &thing : shown.things)
        std::sort(thing.children.begin(), thing.children.end(), isBefore);
}

void ShownTreeBuilder::build()
{
    gather();
    sumKinds();
    nameThings();
    sortChildren();
}

ShownTree::ShownTree(const WeightTree &tree, const TreeMeaning &meaning, const Options &options)
    : source(tree), numbers(meaning)
{
    SlotTree slotTree(tree, options.ownAsChildren);
    slotTree.keep(options.most, options.leastShare * slotTree.weight(slotTree.shownRoot()));
    ShownTreeBuilder(this, slotTree).build();
}

void ShownTree::foldBehind(int parent, qsizetype kept)
{
    const QList<int> children = things[parent].children;
    if (children.size() - kept < 2)
        return;
    ShownThing others = {
        .sort = ShownThing::Others, .item = things[parent].item, .parent = parent, .things = 0};
    for (qsizetype i = kept; i < children.size(); ++i)
        mergeInto(&others, things.at(children[i]));
    others.name = othersName(others.things);
    const int made = int(things.size());
    others.top = parent == 0 ? made : things.at(parent).top;
    things.append(others);
    things[parent].children = children.first(kept) + QList<int>{made};
}

QString ShownTree::path(int thing) const
{
    const ShownThing &shown = things.at(thing);
    const QChar separator = numbers.pathsAreFiles ? u'/' : u';';
    const QString names = joinedNames(source, WeightTree::root, shown.item, separator, longestPath);
    if (shown.sort == ShownThing::Thing)
        return names;
    return names.isEmpty() ? shown.name : names + separator + shown.name;
}

} // namespace ORR::Companion
