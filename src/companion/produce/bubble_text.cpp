#include "companion/produce/chart_disc.h"
#include "companion/produce/drawn_size.h"
#include "companion/produce/label_ruler.h"
#include "companion/produce/number_words.h"
#include "companion/produce/page_fit.h"
#include "companion/produce/palette.h"
#include "companion/produce/tree_paint.h"
#include "companion/produce/tree_texts.h"
#include "graph/decimal.h"
#include "graph/numbers.h"
#include "layout/charts/bubble_places.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace ORR::Companion {

using namespace Qt::StringLiterals;

namespace {

constexpr int bubbleFont = 9; // of the font
constexpr double fillShare = 0.5; // of a disc that circles in circles cover, about
constexpr double leastRadius = 2.5; // of a circle, in points
constexpr int mostDepth = 12; // each circle around others takes a point from them
constexpr double bubbleRoom = 6; // in a circle, both sides of a label together

// The frames of folders are shaded by depth, over and over.
constexpr std::array circleFills = {u"#F4F6F8", u"#E6EBF0", u"#D8DFE7"};

// Writes a tree as circles in circles, having packed them as the engine will.
class BubbleWriter
{
public:
    BubbleWriter(const TreeJob &treeJob, double leastShare);

    // With a disc of that part of what the page has room for.
    WrittenGraph write(double part);

private:
    struct Place
    {
        int thing;
        qsizetype next = 0; // child
    };

    void closeDeep(int depth);
    QList<int> innerFirst() const;
    double radiusOf(const ShownThing &shown) const;
    double packedRadius() const;
    bool fitInto(double radius);
    void writeHead(int diameter);
    void writeMembers();
    void writeCircle(int thing);
    QString labelOf(const ShownThing &shown, double radius) const;

    const TreeJob &job;
    ShownTree tree;
    TreePaint paint;
    LabelRuler ruler{bubbleFont};
    GraphText text;
    double scale = 1; // square points a weight
};

// The share of the whole that the smallest circle has.
double leastBubble(const PictureRequest &request)
{
    const double radius = std::min(request.width, request.height) / 2;
    return leastRadius * leastRadius / (radius * radius * fillShare);
}

BubbleWriter::BubbleWriter(const TreeJob &treeJob, double leastShare)
    : job(treeJob),
      tree(job.tree, job.meaning, {.most = job.request.most, .leastShare = leastShare}),
      paint(tree, job.meaning), text(titleOf(job, tree))
{
}

// What is deeper is folded.
void BubbleWriter::closeDeep(int depth)
{
    QList<std::pair<int, int>> left = {{0, 0}};
    while (!left.isEmpty()) {
        const auto [thing, above] = left.takeLast();
        if (above == depth)
            tree.close(thing);
        for (const int child : tree[thing].children)
            left.append({child, above + 1});
    }
}

// All that is drawn, members before what they are in.
QList<int> BubbleWriter::innerFirst() const
{
    QList<int> things = {0};
    for (qsizetype i = 0; i < things.size(); ++i)
        things += tree[things.at(i)].children;
    std::reverse(things.begin(), things.end());
    return things;
}

// As the text will have it: circles of equal size are packed otherwise where their last digits say
// which of them is the larger one.
double BubbleWriter::radiusOf(const ShownThing &shown) const
{
    return Graph::numberThroughText(std::sqrt(shown.weight * scale / std::numbers::pi));
}

// The radius of the whole as the engine packs it: groups before single circles.
double BubbleWriter::packedRadius() const
{
    QHash<int, double> radii;
    for (const int thing : innerFirst()) {
        if (tree[thing].children.isEmpty()) {
            radii[thing] = radiusOf(tree[thing]);
            continue;
        }
        QList<Graph::Layout::PackCircle> circles;
        for (const bool isGroup : {true, false}) {
            for (const int child : tree[thing].children) {
                if (tree[child].children.isEmpty() != isGroup)
                    circles.append(Graph::Layout::paddedCircle(radii.value(child)));
            }
        }
        radii[thing] = Graph::Layout::packSiblings(circles);
    }
    return radii.value(0);
}

// Finds the scale at which all circles together have about that radius, and no larger one.
bool BubbleWriter::fitInto(double radius)
{
    scale = fillShare * radius * radius * std::numbers::pi / tree.root().weight;
    constexpr int mostTries = 8; // each is a packing
    constexpr double close = 0.97;
    for (int i = 0; i < mostTries; ++i) {
        const double ratio = radius / packedRadius();
        if (ratio >= 1 && ratio * close <= 1)
            return true;
        // The first ones go for the middle of what is close enough, the last ones well below.
        const double wanted = i < mostTries / 2 ? (1 + close) / 2 : close * close;
        scale *= ratio * ratio * wanted * wanted;
    }
    return packedRadius() <= radius;
}

void BubbleWriter::writeHead(int diameter)
{
    const QString family = QString::fromLatin1(LabelRuler::family);
    text.graph(Attributes().number("width", diameter).text("color", u"#8A98A8"));
    text.nodeDefaults(Attributes()
                          .text("color", u"#FFFFFF")
                          .text("fontname", family)
                          .number("fontsize", bubbleFont));
}

QString BubbleWriter::labelOf(const ShownThing &shown, double radius) const
{
    const double room = 2 * radius - bubbleRoom;
    const auto fits = [&](const QString &label) {
        const QSize size = ruler.sizeOf(label);
        return std::hypot(size.width(), size.height()) <= room;
    };
    const int side = Graph::truncated(room * 0.95);
    const QString name = ruler.wrapped(shown.name, {side, side});
    if (name.isEmpty() || !fits(name))
        return {};
    const QString withWeight = name + u'\n' + weightWords(shown.weight, job.meaning.unit);
    return fits(withWeight) ? withWeight : name;
}

void BubbleWriter::writeCircle(int thing)
{
    const ShownThing &shown = tree[thing];
    const double radius = radiusOf(shown);
    const QByteArray fill = paint.fillOf(shown);
    Attributes attributes;
    const QString label = labelOf(shown, radius);
    if (!label.isEmpty())
        attributes.label(label);
    attributes.number("radius", radius).text("fillcolor", QString::fromLatin1(fill));
    if (const QByteArray letters = letterColor(fill); letters != "#000000")
        attributes.text("fontcolor", QString::fromLatin1(letters));
    addFacts(&attributes, job, tree, thing);
    text.node(attributes);
}

void BubbleWriter::writeMembers()
{
    if (tree.root().children.isEmpty())
        writeCircle(0);
    QList<Place> open = {{0}};
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
        if (tree[child].children.isEmpty()) {
            writeCircle(child);
            continue;
        }
        Attributes attributes;
        attributes.text("fillcolor", circleFills.at((open.size() - 1) % circleFills.size()));
        addFacts(&attributes, job, tree, child);
        text.beginGroup(attributes);
        open.append(Place{child});
    }
}

WrittenGraph BubbleWriter::write(double part)
{
    const DiscRoom room = discRoom(job, tree, paint, u"area"_s, 0);
    const int diameter = Graph::truncated(room.diameter * part);
    const double radius = diameter / 2.0;
    int depth = mostDepth;
    closeDeep(depth);
    bool isFitting = tree.root().weight <= 0 || fitInto(radius);
    while (!isFitting && depth > 1) {
        closeDeep(depth /= 2);
        isFitting = fitInto(radius);
    }
    writeHead(diameter);
    writeMembers();
    room.key.write(&text);
    return {text.finished(), room.notes};
}

PageFit fitOf(const QByteArray &text, const PictureRequest &request)
{
    const QSizeF size = drawnSize(text, request.engine);
    return {.text = text,
            .size = size,
            .fits = size.width() <= request.width && size.height() <= request.height};
}

// How much smaller what is drawn has to be, and a little more, since a legend does not shrink.
double shrinking(const QSizeF &size, const PictureRequest &request)
{
    const double excess = std::max(size.width() - request.width, size.height() - request.height);
    const double side = std::min(size.width(), size.height());
    return std::clamp(0.98 * (side - excess) / side, 0.1, 0.98);
}

} // namespace

// Whatever the engine packs otherwise than was foreseen is seen by what it draws.
WrittenGraph bubbleText(const TreeJob &job)
{
    constexpr int mostTries = 3; // each is a drawing
    double part = 1;
    for (int i = 1;; ++i) {
        WrittenGraph written = BubbleWriter(job, leastBubble(job.request)).write(part);
        const PageFit fit = fitOf(written.text, job.request);
        if (fit.fits || i == mostTries) {
            written.notes += pageNotes(fit, job.request, u"there are too many things for it"_s);
            return written;
        }
        part *= shrinking(fit.size, job.request);
    }
}

} // namespace ORR::Companion
