#include "companion/produce/chart_disc.h"
#include "companion/produce/tree_paint.h"
#include "companion/produce/tree_texts.h"
#include "graph/numbers.h"
#include "layout/charts/sunburst_slices.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ORR::Companion {

using namespace Qt::StringLiterals;

namespace {

constexpr int ringMargin = 4; // of the engine, around the rings
constexpr double holeShare = 0.7; // of a ring's width: the radius of the hole in the middle
constexpr double leastRing = 14; // its width, in points
constexpr double leastArc = 2.5; // of a slice at its outer side, in points
constexpr double leastSweepAnywhere = 2 * Graph::Layout::smallestSweep;
constexpr double wholeSweep = 360;

// Writes a tree as rings.
class SunburstWriter
{
public:
    explicit SunburstWriter(const TreeJob &treeJob);

    WrittenGraph write();

private:
    // A thing on the way through the tree, and its ring, 0 for the root.
    struct Place
    {
        int thing;
        int ring;
        qsizetype next = 0; // child
    };

    double sweepOf(int thing) const { return tree[thing].weight / tree.root().weight * wholeSweep; }
    int ringCount() const;
    int foldNarrow(double radius, int rings);
    qsizetype wideChildren(int thing, double leastSweep) const;
    void writeHead(double ringWidth);
    void writeMembers();
    void writeSlice(int thing);
    Attributes attributesOf(int thing) const;

    const TreeJob &job;
    ShownTree tree;
    TreePaint paint;
    GraphText text;
};

ShownTree::Options sunburstOptions(const PictureRequest &request)
{
    return {.most = request.most, .leastShare = Graph::Layout::smallestSweep / wholeSweep};
}

SunburstWriter::SunburstWriter(const TreeJob &treeJob)
    : job(treeJob), tree(job.tree, job.meaning, sunburstOptions(job.request)),
      paint(tree, job.meaning), text(titleOf(job, tree))
{
}

double widthOfRings(double radius, int rings)
{
    return radius / (rings + holeShare);
}

// How many of its children have at least that angle.
qsizetype SunburstWriter::wideChildren(int thing, double leastSweep) const
{
    const QList<int> &children = tree[thing].children;
    qsizetype wide = 0;
    while (wide < children.size() && tree[children[wide]].sort != ShownThing::Others
           && sweepOf(children[wide]) >= leastSweep)
        ++wide;
    return wide;
}

// How many rings have slices that are not too narrow for any.
int SunburstWriter::ringCount() const
{
    int outermost = 0;
    QList<Place> left = {{0, 0}};
    while (!left.isEmpty()) {
        const auto [thing, ring, next] = left.takeLast();
        outermost = std::max(outermost, ring);
        const qsizetype wide = wideChildren(thing, leastSweepAnywhere);
        for (qsizetype i = 0; i < wide; ++i)
            left.append({tree[thing].children.at(i), ring + 1});
    }
    return outermost;
}

// Folds what can't be seen where there are so many rings in the radius. How many rings are left.
int SunburstWriter::foldNarrow(double radius, int rings)
{
    const double width = widthOfRings(radius, rings);
    int outermost = 0;
    QList<Place> left = {{0, 0}};
    while (!left.isEmpty()) {
        const auto [thing, ring, next] = left.takeLast();
        outermost = std::max(outermost, ring);
        const double outerSide = width * (ring + 1 + holeShare);
        const double leastSweep =
            std::max(leastSweepAnywhere, leastArc / outerSide * 180 / std::numbers::pi);
        const qsizetype wide = wideChildren(thing, leastSweep);
        if (ring > 0 && (ring >= rings || wide == 0)) {
            tree.close(thing);
            continue;
        }
        tree.foldBehind(thing, std::max<qsizetype>(wide, 1));
        for (const int child : tree[thing].children)
            left.append({child, ring + 1});
    }
    return outermost;
}

void SunburstWriter::writeHead(double ringWidth)
{
    const double hole = ringWidth * holeShare;
    text.graph(Attributes()
                   .number("rstep", ringWidth)
                   .number("r0", hole)
                   .number("r1", hole)
                   .text("color", u"#FFFFFF"));
    text.nodeDefaults(Attributes().text("color", u"#FFFFFF"));
}

Attributes SunburstWriter::attributesOf(int thing) const
{
    const ShownThing &shown = tree[thing];
    Attributes attributes;
    // Own weights are gaps, as nothing goes on from there.
    if (shown.sort == ShownThing::Own)
        attributes.text("color", u"none").text("fillcolor", u"none");
    else
        attributes.text("fillcolor", QString::fromLatin1(paint.fillOf(shown)));
    addFacts(&attributes, job, tree, thing);
    return attributes;
}

void SunburstWriter::writeSlice(int thing)
{
    text.node(attributesOf(thing).number("area", areaOf(tree[thing].weight, tree)));
}

void SunburstWriter::writeMembers()
{
    if (tree.root().children.isEmpty())
        writeSlice(0);
    QList<Place> open = {{0, 0}};
    while (!open.isEmpty()) {
        Place &place = open.last();
        const QList<int> &children = tree[place.thing].children;
        if (place.next == children.size()) {
            open.removeLast();
            if (!open.isEmpty())
                text.endGroup();
            continue;
        }
        const int child = children[place.next++];
        if (sweepOf(child) < Graph::Layout::smallestSweep)
            continue; // the engine would leave it out, too
        if (tree[child].children.isEmpty()) {
            writeSlice(child);
        } else {
            text.beginGroup(attributesOf(child));
            open.append({child, place.ring + 1});
        }
    }
}

WrittenGraph SunburstWriter::write()
{
    const DiscRoom room = discRoom(job, tree, paint, u"angle"_s, ringMargin);
    const double radius = room.diameter / 2.0;
    const int most = std::max(1, Graph::truncated(radius / leastRing - holeShare));
    const int rings = std::max(1, foldNarrow(radius, std::clamp(ringCount(), 1, most)));
    writeHead(widthOfRings(radius, rings));
    writeMembers();
    room.key.write(&text);
    return {text.finished(), room.notes};
}

} // namespace

WrittenGraph sunburstText(const TreeJob &job)
{
    return SunburstWriter(job).write();
}

} // namespace ORR::Companion
