#include "companion/produce/folded_dependencies.h"

#include "companion/produce/folded_cycles.h"
#include "companion/produce/strong_components.h"

#include <algorithm>
#include <limits>
#include <map>
#include <queue>
#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

using Item = Dependencies::Item;
constexpr int none = -1;

// What is shown of a folder that is opened: its children, itself if it is a thing, too, and what of
// the children has no place. The first shown is the whole.
struct Shown
{
    enum What { All, Itself, Others };

    Item item;
    What what = All;
    qsizetype things = 0;
    int parent = none; // opened one that it is in
    int depth = 0;
    bool isOpen = false;
    QList<int> children = {};
};

class Folding
{
public:
    Folding(const Dependencies &dependencies, int mostParts);
    FoldedDependencies folded();

private:
    void count();
    void openFolders();
    bool open(int place);
    void append(int parent, Item item, Shown::What what, qsizetype things);
    Item withoutChain(Item item) const;
    QList<Item> busiestChildren(Item item, qsizetype room) const;
    void findPlaces();
    void addEdges();
    void orderChildren();
    void listParts();
    QString nameWithin(Item item, Item around) const;
    QString partName(const Shown &part, Item around) const;
    void addPart(int place);
    void listEdges();

    const Dependencies &whole;
    const WeightTree &tree;
    int most;
    int leaves = 0; // shown things that are not opened
    QList<qsizetype> things; // below and at each item
    QList<double> links; // edges at them
    QList<Shown> shown;
    QList<int> allOf, itselfOf, othersOf; // by item: where it is shown
    QList<int> placeOf; // by item: the shown one that stands for it
    std::map<std::pair<int, int>, double> edges; // between shown ones
    QList<int> partOf; // by shown one
    FoldedDependencies result;
};

Folding::Folding(const Dependencies &dependencies, int mostParts)
    : whole(dependencies), tree(dependencies.items()), most(std::max(1, mostParts)),
      things(tree.size(), 0), links(tree.size(), 0), allOf(tree.size(), none),
      itselfOf(tree.size(), none), othersOf(tree.size(), none), placeOf(tree.size(), none)
{
}

// Children stand behind their parents, so one pass from the end sums up all.
void Folding::count()
{
    for (const Dependencies::Edge &edge : whole.edges()) {
        ++links[edge.tail];
        ++links[edge.head];
    }
    for (Item item = Item(tree.size()) - 1; item >= 0; --item) {
        things[item] += whole.isThing(item) ? 1 : 0;
        if (item == WeightTree::root)
            break;
        things[tree.parent(item)] += things[item];
        links[tree.parent(item)] += links[item];
    }
}

// A folder that holds nothing but another one says nothing.
Item Folding::withoutChain(Item item) const
{
    for (;;) {
        const Item child = tree.firstChild(item);
        if (whole.isThing(item) || child == WeightTree::none
            || tree.nextSibling(child) != WeightTree::none)
            return item;
        item = child;
    }
}

void Folding::append(int parent, Item item, Shown::What what, qsizetype count)
{
    const int place = int(shown.size());
    (what == Shown::All ? allOf : what == Shown::Itself ? itselfOf : othersOf)[item] = place;
    shown.append({.item = item, .what = what, .things = count, .parent = parent});
    ++leaves;
    if (parent == none)
        return;
    shown[place].depth = shown[parent].depth + 1;
    shown[parent].children.append(place);
}

QList<Item> Folding::busiestChildren(Item item, qsizetype room) const
{
    QList<Item> children;
    for (Item child = tree.firstChild(item); child != WeightTree::none;
         child = tree.nextSibling(child)) {
        if (things[child] > 0)
            children.append(child);
    }
    if (children.size() <= room)
        return children;
    std::stable_sort(children.begin(), children.end(), [this](Item a, Item b) {
        return std::pair(links[a], things[a]) > std::pair(links[b], things[b]);
    });
    children.resize(std::max<qsizetype>(0, room - 1));
    std::sort(children.begin(), children.end());
    return children;
}

bool Folding::open(int place)
{
    const Item item = shown[place].item;
    const bool itself = whole.isThing(item);
    const qsizetype room = most - leaves + 1 - (itself ? 1 : 0);
    const QList<Item> children = busiestChildren(item, room);
    qsizetype left = things[item] - (itself ? 1 : 0);
    for (const Item child : children)
        left -= things[child];
    // "Others" stand for what is much more, not for all but one of a folder.
    if (children.isEmpty() || (left > 0 && children.size() < 5))
        return false;
    shown[place].isOpen = true;
    --leaves;
    if (itself)
        append(place, item, Shown::Itself, 1);
    for (const Item child : children)
        append(place, withoutChain(child), Shown::All, things[child]);
    if (left > 0)
        append(place, item, Shown::Others, left);
    return true;
}

// The folder with the most things is opened first, until there is no room.
void Folding::openFolders()
{
    append(none, withoutChain(WeightTree::root), Shown::All, things[WeightTree::root]);
    std::priority_queue<std::pair<qsizetype, int>> waiting; // things, and the earlier one of equals
    waiting.push({things[WeightTree::root], 0});
    while (!waiting.empty()) {
        const int place = -waiting.top().second;
        waiting.pop();
        const int before = int(shown.size());
        if (!open(place))
            continue;
        for (int made = before; made < shown.size(); ++made) {
            if (shown[made].what == Shown::All && shown[made].things > 1)
                waiting.push({shown[made].things, -made});
        }
    }
}

void Folding::findPlaces()
{
    for (Item item = 0; item < tree.size(); ++item) {
        const Item parent = tree.parent(item);
        if (allOf[item] != none)
            placeOf[item] = allOf[item];
        else if (parent == WeightTree::none)
            placeOf[item] = 0;
        else if (const int above = placeOf[parent];
                 shown[above].isOpen && othersOf[parent] != none && shown[above].item == parent)
            placeOf[item] = othersOf[parent];
        else
            placeOf[item] = above;
    }
}

void Folding::addEdges()
{
    const auto placeAt = [this](Item item) {
        return itselfOf[item] != none ? itselfOf[item] : placeOf[item];
    };
    for (const Dependencies::Edge &edge : whole.edges()) {
        double &sum = edges[{placeAt(edge.tail), placeAt(edge.head)}];
        sum = std::min(std::numeric_limits<double>::max(), sum + edge.weight);
    }
}

// Among the children of each opened one: those that are needed stand ahead of those that need them.
void Folding::orderChildren()
{
    QList<int> placeAmong(shown.size(), 0);
    QList<QList<QList<int>>> heads(shown.size());
    for (int place = 0; place < shown.size(); ++place) {
        QList<int> &children = shown[place].children;
        std::stable_sort(children.begin(), children.end(), [this](int a, int b) {
            const auto key = [this](int c) {
                return std::pair(shown[c].what == Shown::Others, tree.name(shown[c].item));
            };
            return key(a) < key(b);
        });
        heads[place].resize(children.size());
        for (int i = 0; i < children.size(); ++i)
            placeAmong[children[i]] = i;
    }
    for (const auto &[ends, weight] : edges) {
        int tail = ends.first;
        int head = ends.second;
        while (shown[tail].parent != shown[head].parent) {
            int &deeper = shown[tail].depth >= shown[head].depth ? tail : head;
            deeper = shown[deeper].parent;
        }
        if (tail != head && shown[tail].parent != none)
            heads[shown[tail].parent][placeAmong[tail]].append(placeAmong[head]);
    }
    for (int place = 0; place < shown.size(); ++place) {
        const QList<int> component = strongComponents(heads[place]);
        QList<int> &children = shown[place].children;
        std::stable_sort(children.begin(), children.end(), [&](int a, int b) {
            return component[placeAmong[a]] < component[placeAmong[b]];
        });
    }
}

QString Folding::nameWithin(Item item, Item around) const
{
    QString name = whole.label(item);
    for (Item above = tree.parent(item); above > WeightTree::root && above != around;
         above = tree.parent(above))
        name.prepend(whole.label(above) + u'/');
    return name;
}

QString Folding::partName(const Shown &part, Item around) const
{
    if (part.what == Shown::Others)
        return u"%1 others"_s.arg(part.things);
    if (part.item == WeightTree::root)
        return u"all"_s;
    const QString name = nameWithin(part.item, around);
    const bool isFolder = part.what == Shown::All && tree.firstChild(part.item) != WeightTree::none;
    return isFolder ? name + u'/' : name;
}

void Folding::addPart(int place)
{
    const Shown &part = shown[place];
    const Item around = part.parent == none ? WeightTree::root : shown[part.parent].item;
    partOf[place] = int(result.parts.size());
    result.parts.append(
        {.item = part.item,
         .name = partName(part, part.what == Shown::All ? around : tree.parent(part.item)),
         .things = part.things,
         .isThing = part.things == 1 && part.what != Shown::Others,
         .isRest = part.what == Shown::Others});
}

// Walks down through all that is opened and lists what is not.
void Folding::listParts()
{
    struct Level
    {
        int place;
        qsizetype next = 0;
        int group = none;
    };
    partOf.fill(none, shown.size());
    QList<Level> path;
    const auto enter = [&](int place) {
        if (!shown[place].isOpen) {
            addPart(place);
            return;
        }
        int group = path.isEmpty() ? none : path.last().group;
        const Item item = shown[place].item;
        if (!path.isEmpty() && item > WeightTree::root) {
            const Item around = shown[path.last().place].item;
            result.groups.append(
                {item, nameWithin(item, around), int(result.parts.size()), 0, group});
            group = int(result.groups.size()) - 1;
        }
        path.append({place, 0, group});
    };
    enter(0);
    while (!path.isEmpty()) {
        Level &level = path.last();
        if (level.next < shown[level.place].children.size()) {
            enter(shown[level.place].children[level.next++]);
            continue;
        }
        const Level left = path.takeLast();
        if (!path.isEmpty() && left.group != path.last().group) {
            FoldedDependencies::Group &group = result.groups[left.group];
            group.count = int(result.parts.size()) - group.first;
        }
    }
}

void Folding::listEdges()
{
    for (const auto &[ends, weight] : edges)
        result.edges.append(
            {partOf[ends.first], partOf[ends.second], weight, FoldedDependencies::Edge::Needs});
    std::sort(result.edges.begin(), result.edges.end(), [](const auto &a, const auto &b) {
        return std::pair(a.tail, a.head) < std::pair(b.tail, b.head);
    });
}

FoldedDependencies Folding::folded()
{
    count();
    if (things[WeightTree::root] == 0)
        return {};
    openFolders();
    findPlaces();
    addEdges();
    orderChildren();
    listParts();
    listEdges();
    findCycles(&result);
    return result;
}

} // namespace

FoldedDependencies foldedDependencies(const Dependencies &whole, int most)
{
    return Folding(whole, most).folded();
}

} // namespace ORR::Companion
