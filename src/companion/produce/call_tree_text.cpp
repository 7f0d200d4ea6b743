#include "companion/produce/drawn_size.h"
#include "companion/produce/label_ruler.h"
#include "companion/produce/number_words.h"
#include "companion/produce/palette.h"
#include "companion/produce/tree_paint.h"
#include "companion/produce/tree_texts.h"
#include "graph/numbers.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace ORR::Companion {

using namespace Qt::StringLiterals;

namespace {

constexpr int nodeSize = 9; // of the font
constexpr int widestLabel = 200; // a label, in points

constexpr int sideMargin = 3; // of a node, in points
constexpr int roundingSize = 8; // what round corners go by
constexpr int aroundLabel = 2 * sideMargin + 3 * roundingSize / 2; // what they take, too
constexpr int betweenLevels = 26; // in points
constexpr int nodeGap = 4; // in points
constexpr qint64 mostNodes = 400; // no page has room for more
constexpr double leastOthers = 0.005; // of the whole; fewer are passed over

QString inInches(double points)
{
    return QString::number(points / Graph::pointsPerInch);
}

// Writes a tree level by level, from the left to the right.
class CallTreeWriter
{
public:
    CallTreeWriter(const TreeJob &treeJob, qint64 most);

    QByteArray write();
    // How many nodes there are besides the root.
    int size() const { return tree.size() - 1; }

private:
    struct Node
    {
        int thing;
        GraphText::Id parent;
    };

    int levels() const;
    void closeBeyond(int level);
    void writeHead();
    GraphText::Id writeNode(int thing, bool hidesSome);
    QString colorWords() const;
    QString labelOf(int thing) const;
    QString wrappedLines(const QString &words) const;
    QByteArray fillOf(const ShownThing &shown) const;
    double shareOf(int thing) const { return tree[thing].weight / tree.root().weight; }

    const TreeJob &job;
    ShownTree tree;
    TreePaint paint;
    LabelRuler ruler{nodeSize};
    GraphText text;
    int labelWidth = widestLabel;
    bool isNarrow = false;
};

CallTreeWriter::CallTreeWriter(const TreeJob &treeJob, qint64 most)
    : job(treeJob), tree(job.tree, job.meaning, {.most = most, .ownAsChildren = false}),
      paint(tree, job.meaning), text(titleOf(job, tree))
{
}

int CallTreeWriter::levels() const
{
    int deepest = 0;
    QList<int> depths(tree.size(), 0);
    for (int thing = 1; thing < tree.size(); ++thing) {
        depths[thing] = depths.at(tree[thing].parent) + 1;
        deepest = std::max(deepest, depths.at(thing));
    }
    return deepest + 1;
}

void CallTreeWriter::closeBeyond(int level)
{
    QList<std::pair<int, int>> left = {{0, 1}};
    while (!left.isEmpty()) {
        const auto [thing, depth] = left.takeLast();
        if (depth == level)
            tree.close(thing);
        for (const int child : tree[thing].children)
            left.append({child, depth + 1});
    }
}

void CallTreeWriter::writeHead()
{
    text.graph(Attributes()
                   .text("rankdir", u"LR")
                   .text("crossing", u"false")
                   .text("nodesep", inInches(nodeGap))
                   .text("ranksep", inInches(betweenLevels))
                   .text("pad", inInches(nodeGap))
                   .number("fontsize", roundingSize));
    text.nodeDefaults(Attributes()
                          .text("shape", u"rectangle")
                          .text("style", u"rounded")
                          .text("margin", inInches(sideMargin))
                          .text("color", u"#8A98A8")
                          .text("fontname", QString::fromLatin1(LabelRuler::family))
                          .number("fontsize", nodeSize));
    text.edgeDefaults(Attributes()
                          .text("headsegment", inInches(betweenLevels / 3.0))
                          .text("tailsegment", inInches(betweenLevels / 3.0))
                          .text("color", u"#9CA3AF"));
}

QString CallTreeWriter::colorWords() const
{
    if (job.meaning.coloring != TreeMeaning::Coloring::ByShare)
        return u"darker: a larger share"_s;
    const QString share = job.meaning.color.isEmpty() ? u"of it"_s : job.meaning.color;
    switch (job.meaning.scale) {
    case TreeMeaning::Scale::BadToGood:
        return u"blue: much "_s + share + u"\norange: little "_s + share;
    case TreeMeaning::Scale::GoodToBad:
        return u"blue: little "_s + share + u"\norange: much "_s + share;
    case TreeMeaning::Scale::Rising:
        break;
    }
    return u"darker: more "_s + share;
}

// Of the root the title and what the drawing means, as the engine has no other place for them.
QString CallTreeWriter::labelOf(int thing) const
{
    const ShownThing &shown = tree[thing];
    if (thing == 0) {
        QString title = ruler.wrapped(titleOf(job, tree), {labelWidth, labelWidth});
        if (title.isEmpty())
            title = ruler.elided(titleOf(job, tree), labelWidth);
        const QString words = weightWithName(shown.weight, job.meaning) + u'\n' + colorWords()
            + u"\ndashed: more in it"_s;
        return title + u'\n' + (isNarrow ? wrappedLines(words) : words);
    }
    QString numbersLine = percentWords(shareOf(thing));
    if (!isNarrow && shown.own > 0 && shown.own < shown.weight)
        numbersLine += u"  (self "_s + percentWords(shown.own / tree.root().weight) + u')';
    return ruler.elided(shown.name, labelWidth, 1) + u'\n' + numbersLine;
}

QString CallTreeWriter::wrappedLines(const QString &words) const
{
    const int anyHeight = 100 * ruler.lineHeight();
    QStringList lines;
    for (const QString &line : words.split(u'\n')) {
        const QString wrapped = ruler.wrapped(line, {labelWidth, anyHeight}, 9);
        lines.append(wrapped.isEmpty() ? ruler.elided(line, labelWidth) : wrapped);
    }
    return lines.join(u'\n');
}

QByteArray CallTreeWriter::fillOf(const ShownThing &shown) const
{
    if (job.meaning.coloring == TreeMeaning::Coloring::ByShare)
        return paint.fillOf(shown);
    // The root of the share, since most shares are small.
    return scaleFill(ColorScale::Rising, std::sqrt(shown.weight / tree.root().weight));
}

GraphText::Id CallTreeWriter::writeNode(int thing, bool hidesSome)
{
    Attributes attributes;
    attributes.label(labelOf(thing));
    if (thing != 0)
        attributes.text("fillcolor", QString::fromLatin1(fillOf(tree[thing])));
    else
        attributes.text("fillcolor", u"#FFFFFF");
    if (hidesSome)
        attributes.text("style", u"rounded,dashed");
    addFacts(&attributes, job, tree, thing);
    return text.node(attributes);
}

QByteArray CallTreeWriter::write()
{
    const int width = Graph::truncated(job.request.width);
    const int narrowest = ruler.widthOf(u"99.9 %  (self 99.9 %)"_s);
    const int most = std::max(2, width / (narrowest + aroundLabel + betweenLevels));
    const int depth = std::min(levels(), most);
    closeBeyond(depth);
    // Two levels there are also where there is no room for both shares.
    const int room = width / depth - aroundLabel - betweenLevels;
    isNarrow = room < narrowest;
    labelWidth = std::clamp(room, ruler.widthOf(u"99.9 %"_s), widestLabel);
    writeHead();
    QList<Node> left = {{0, {}}};
    while (!left.isEmpty()) {
        const Node node = left.takeLast();
        QList<int> children = tree[node.thing].children;
        children.removeIf([this](int child) {
            return tree[child].sort == ShownThing::Others && shareOf(child) < leastOthers;
        });
        const bool hidesSome = tree[node.thing].sort == ShownThing::Others
            || (children.isEmpty() && tree[node.thing].own < tree[node.thing].weight);
        const GraphText::Id id = writeNode(node.thing, hidesSome);
        if (node.thing != 0) {
            const int pen = 1 + Graph::rounded(3 * shareOf(node.thing));
            text.edge(node.parent, id, Attributes().number("penwidth", pen));
        }
        for (qsizetype i = children.size() - 1; i >= 0; --i)
            left.append({children.at(i), id});
    }
    return text.finished();
}

bool keepsPage(const QSizeF &size, const PictureRequest &request)
{
    return size.isValid() && size.width() <= request.width && size.height() <= request.height;
}

} // namespace

// As many of the heaviest as the page has room for: of the sizes only the drawing itself can tell.
WrittenGraph callTreeText(const TreeJob &job)
{
    qint64 fits = 0;
    qint64 tooMany = std::min<qint64>(job.request.most, mostNodes) + 1;
    QByteArray kept;
    QByteArray smallest;
    while (tooMany - fits > 1) {
        const qint64 most = (fits + tooMany) / 2;
        const QByteArray text = CallTreeWriter(job, most).write();
        if (keepsPage(drawnSize(text, u"gftree"_s), job.request)) {
            fits = most;
            kept = text;
        } else {
            tooMany = most;
            smallest = text;
        }
    }
    if (!kept.isEmpty())
        return {kept};
    return {smallest, {tooSmallPage(job.request, u"not even two things have room"_s)}};
}

} // namespace ORR::Companion
