#include "companion/produce/chart_key.h"
#include "companion/produce/label_ruler.h"
#include "companion/produce/number_words.h"
#include "companion/produce/palette.h"
#include "companion/produce/tree_paint.h"
#include "companion/produce/tree_texts.h"
#include "graph/numbers.h"

#include <algorithm>

namespace ORR::Companion {

using namespace Qt::StringLiterals;

namespace {

constexpr int captionSize = 11; // of fonts
constexpr int segmentSize = 9;
constexpr int barMargin = 4; // of the engine, around the chart
constexpr int barGap = 4; // of the engine, between bars, and between a caption and its bar
constexpr int thickest = 26; // of a bar, in points
constexpr double captionShare = 0.4; // of the page, that captions may take
constexpr double leastLength = 4.1; // of a segment: the engine would make all longer for less
constexpr double segmentRoom = 8; // beside a label in its segment
constexpr qint64 mostLookedAt = 20000; // things, of which the bars are the heaviest

// A part of a bar.
struct Segment
{
    double weight = 0;
    QByteArray fill = {};
    QString name = {};
};

struct Bar
{
    int thing;
    QString caption;
    QList<Segment> segments;
};

// Writes the things right below the root as bars.
class BarWriter
{
public:
    explicit BarWriter(const TreeJob &treeJob);

    WrittenGraph write();

private:
    ChartKey keyFor(ChartKey::Side side, int width) const;
    void chooseBars(int room);
    QString captionOf(const ShownThing &shown, int widest) const;
    QList<Segment> segmentsOf(const ShownThing &shown) const;
    void joinShort(QList<Segment> *segments, double least) const;
    void fitLengths(double length);
    void writeHead(double length, int thickness);
    void writeBar(const Bar &bar, double pointsPerWeight);

    const TreeJob &job;
    ShownTree tree;
    TreePaint paint;
    LabelRuler captionRuler{captionSize};
    LabelRuler segmentRuler{segmentSize};
    GraphText text;
    QList<Bar> bars;
    double longest = 0; // bar, as a weight
};

BarWriter::BarWriter(const TreeJob &treeJob)
    : job(treeJob), tree(job.tree, job.meaning, {.most = mostLookedAt}), paint(tree, job.meaning),
      text(titleOf(job, tree))
{
}

// Bars that have their names beside them need no colours to tell them apart.
ChartKey BarWriter::keyFor(ChartKey::Side side, int width) const
{
    const bool isByTop = job.meaning.coloring == TreeMeaning::Coloring::ByTop;
    QString meaning = meaningWords(job, u"length"_s);
    if (isByTop)
        meaning = meaning.section(u'\n', 0, 0);
    return {side,
            {titleWithWeight(job, tree), meaning},
            isByTop ? QList<KeyEntry>() : paint.entries(),
            width};
}

// Whether all names are dates, which are to follow each other.
bool areDates(const ShownTree &tree, const QList<int> &things)
{
    return std::all_of(things.begin(), things.end(), [&tree](int thing) {
        const QString &name = tree[thing].name;
        const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
        return tree[thing].sort == ShownThing::Others
            || (name.size() >= 7 && name[4] == u'-'
                && std::all_of(name.begin(), name.begin() + 4, isDigit));
    });
}

QString BarWriter::captionOf(const ShownThing &shown, int widest) const
{
    const QString weight = u"  "_s + weightWords(shown.weight, job.meaning.unit);
    const int room = widest - captionRuler.widthOf(weight);
    return captionRuler.elided(shown.name, room) + weight;
}

QList<Segment> BarWriter::segmentsOf(const ShownThing &shown) const
{
    const QString share = percentWords(shown.weight / tree.root().weight);
    if (job.meaning.coloring == TreeMeaning::Coloring::ByTop)
        return {{shown.weight, kindFills().constFirst(), share}};
    if (job.meaning.coloring == TreeMeaning::Coloring::ByShare)
        return {{shown.weight, paint.fillOf(shown), share}};
    // All bars have their kinds in the order of the whole.
    QList<Segment> segments;
    Segment other = {0, neutralFill(), u"other"_s};
    QHash<int, double> weights;
    for (const KindWeight &kind : shown.kinds)
        weights.insert(kind.kind, kind.weight);
    for (const KindWeight &kind : tree.root().kinds) {
        const double weight = weights.value(kind.kind);
        if (paint.kindFill(kind.kind) == neutralFill())
            other.weight += weight;
        else if (weight > 0)
            segments.append({weight, paint.kindFill(kind.kind), paint.kindName(kind.kind)});
    }
    if (other.weight > 0)
        segments.append(other);
    return segments;
}

// The heaviest that have room below each other, the rest as others.
void BarWriter::chooseBars(int room)
{
    const qsizetype most = std::max(2, room / (captionRuler.lineHeight() + barGap));
    if (tree.root().children.size() > most)
        tree.foldBehind(0, most - 1);
    QList<int> things = tree.root().children;
    if (things.isEmpty() && tree.root().weight > 0)
        things.append(0);
    if (areDates(tree, things))
        std::stable_sort(things.begin(), things.end(), [this](int a, int b) {
            if ((tree[a].sort == ShownThing::Others) != (tree[b].sort == ShownThing::Others))
                return tree[b].sort == ShownThing::Others;
            return tree[a].name < tree[b].name;
        });
    const int widest = Graph::truncated(job.request.width * captionShare);
    for (const int thing : std::as_const(things))
        bars.append({thing, captionOf(tree[thing], widest), segmentsOf(tree[thing])});
}

// What is too short to be seen becomes one segment, in the grey of others.
void BarWriter::joinShort(QList<Segment> *segments, double least) const
{
    Segment rest = {0, neutralFill(), u"other"_s};
    QList<Segment> seen;
    for (const Segment &segment : std::as_const(*segments)) {
        if (segments->size() > 1 && segment.weight < least)
            rest.weight += segment.weight;
        else
            seen.append(segment);
    }
    if (rest.weight > 0) {
        if (!seen.isEmpty() && seen.constLast().fill == neutralFill())
            seen.last().weight += rest.weight;
        else
            seen.append(rest);
    }
    for (Segment &segment : seen)
        segment.weight = std::max(segment.weight, least);
    *segments = seen;
}

// Finds the longest bar, with its short segments as long as they have to be.
void BarWriter::fitLengths(double length)
{
    for (const Bar &bar : std::as_const(bars))
        longest = std::max(longest, tree[bar.thing].weight);
    const double least = leastLength * longest / length;
    for (Bar &bar : bars) {
        joinShort(&bar.segments, least * 1.1);
        double sum = 0;
        for (const Segment &segment : std::as_const(bar.segments))
            sum += segment.weight;
        longest = std::max(longest, sum);
    }
}

void BarWriter::writeHead(double length, int thickness)
{
    const QString family = QString::fromLatin1(LabelRuler::family);
    text.graph(Attributes()
                   .number("width", length)
                   .number("height", double(bars.size()) * (thickness + barGap))
                   .text("fontname", family)
                   .number("fontsize", captionSize));
    text.nodeDefaults(Attributes()
                          .text("color", u"#FFFFFF")
                          .text("fontname", family)
                          .number("fontsize", segmentSize));
}

void BarWriter::writeBar(const Bar &bar, double pointsPerWeight)
{
    // Fractions of weights do not count in a stack, so that they must not be what counts.
    constexpr double fine = 1000;
    constexpr double beyond = 1e9;
    const double unit = longest >= fine && longest < beyond ? 1 : beyond / 1000 / longest;
    Attributes group;
    group.label(bar.caption);
    addFacts(&group, job, tree, bar.thing);
    text.beginGroup(group);
    for (const Segment &segment : bar.segments) {
        Attributes attributes;
        const double length = segment.weight * pointsPerWeight;
        if (segmentRuler.widthOf(segment.name) + segmentRoom <= length)
            attributes.label(segment.name);
        attributes.number("area", segment.weight * unit)
            .text("fillcolor", QString::fromLatin1(segment.fill));
        if (const QByteArray letters = letterColor(segment.fill); letters != "#000000")
            attributes.text("fontcolor", QString::fromLatin1(letters));
        text.node(attributes);
    }
    text.endGroup();
}

WrittenGraph BarWriter::write()
{
    const int width = Graph::truncated(job.request.width);
    const int height = Graph::truncated(job.request.height);
    QStringList notes;
    ChartKey key = keyFor(ChartKey::Top, width - 2 * barMargin);
    const auto around = [&] {
        const QRect chart(barMargin, barMargin, width - 2 * barMargin, height);
        return key.pageOf(chart).height() - height;
    };
    if (around() > height / 3) // above the chart it takes its room twice
        key = keyFor(ChartKey::Bottom, width - 2 * barMargin);
    if (around() > height / 2) {
        key.leaveOut();
        notes.append(u"the page has no room for the legend"_s);
    }
    const int room = height - around();
    chooseBars(room);
    int band = 0;
    for (const Bar &bar : std::as_const(bars))
        band = std::max(band, captionRuler.widthOf(bar.caption));
    const double length = std::max(1, width - 2 * barMargin - band - 2 * barGap - 2);
    fitLengths(length);
    const int thickness = std::clamp(room / std::max(1, int(bars.size())) - barGap,
                                     captionRuler.lineHeight(), thickest);
    writeHead(length, thickness);
    for (const Bar &bar : std::as_const(bars))
        writeBar(bar, length / longest);
    key.write(&text);
    return {text.finished(), notes};
}

} // namespace

WrittenGraph barText(const TreeJob &job)
{
    return BarWriter(job).write();
}

} // namespace ORR::Companion
