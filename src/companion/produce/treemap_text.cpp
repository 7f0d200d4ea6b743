#include "companion/produce/chart_key.h"
#include "companion/produce/label_ruler.h"
#include "companion/produce/number_words.h"
#include "companion/produce/palette.h"
#include "companion/produce/tree_paint.h"
#include "companion/produce/tree_texts.h"
#include "graph/numbers.h"
#include "layout/charts/treemap_tiling.h"

#include <QMarginsF>
#include <QRectF>

#include <algorithm>
#include <array>
#include <numeric>

namespace ORR::Companion {

using namespace Qt::StringLiterals;

namespace {

constexpr int wholeSize = 14; // of fonts
constexpr int groupSize = 10;
constexpr int cellSize = 9;
constexpr int wholeMargin = 6; // between the frame of a group and its members
constexpr int groupMargin = 3;
constexpr double leastArea = 24; // of a cell, in square points
constexpr double leastRoomWidth = 12; // for members
constexpr double leastRoomHeight = 8;
constexpr double labelRoom = 4; // beside a label in its cell

// The frames of folders are shaded by depth, over and over.
constexpr std::array frameFills = {u"#F4F6F8", u"#E6EBF0", u"#D8DFE7"};

// A group that is being written.
struct OpenGroup
{
    int thing;
    QList<QRectF> cells; // of its children, in their order
    qsizetype next = 0;
};

// Writes a tree as a treemap, having laid it out as the engine will.
class TreemapWriter
{
public:
    explicit TreemapWriter(const TreeJob &treeJob);

    WrittenGraph write();

private:
    void writeHead(const QSizeF &chart);
    void writeWhole(const QRectF &chart);
    void writeMembers();
    void enter(int thing, const QRectF &room);
    QList<QRectF> cellsOf(int thing, const QRectF &room);
    qsizetype foldSmall(int thing, double area);
    bool openGroup(int thing, const QRectF &cell);
    void writeCell(int thing, const QRectF &cell);
    QString groupLabel(const ShownThing &thing, const QRectF &cell) const;
    QString cellLabel(const ShownThing &thing, const QRectF &cell) const;
    QString weightOf(const ShownThing &thing) const;

    const TreeJob &job;
    ShownTree tree;
    TreePaint paint;
    LabelRuler wholeRuler{wholeSize};
    LabelRuler groupRuler{groupSize};
    LabelRuler cellRuler{cellSize};
    GraphText text;
    QList<OpenGroup> open;
};

ShownTree::Options optionsFor(const PictureRequest &request)
{
    return {.most = request.most, .leastShare = leastArea / (request.width * request.height)};
}

TreemapWriter::TreemapWriter(const TreeJob &treeJob)
    : job(treeJob), tree(job.tree, job.meaning, optionsFor(job.request)), paint(tree, job.meaning),
      text(titleOf(job, tree))
{
}

QString TreemapWriter::weightOf(const ShownThing &thing) const
{
    return weightWords(thing.weight, job.meaning.unit);
}

void TreemapWriter::writeHead(const QSizeF &chart)
{
    const QString family = QString::fromLatin1(LabelRuler::family);
    text.graph(Attributes()
                   .number("width", chart.width())
                   .number("height", chart.height())
                   .text("color", u"none")
                   .text("fontname", family));
    text.nodeDefaults(Attributes()
                          .text("color", u"#FFFFFF")
                          .text("fontname", family)
                          .number("fontsize", cellSize));
}

// Folds what would have too small a cell in that area; how many were large enough.
qsizetype TreemapWriter::foldSmall(int thing, double area)
{
    const QList<int> &children = tree[thing].children;
    const double whole = tree[thing].weight;
    qsizetype kept = 0;
    while (kept < children.size() && tree[children[kept]].sort != ShownThing::Others
           && tree[children[kept]].weight / whole * area >= leastArea)
        ++kept;
    tree.foldBehind(thing, std::max<qsizetype>(kept, 1));
    return kept;
}

// The engine lays out the largest first, and others are as large as they come.
QList<QRectF> TreemapWriter::cellsOf(int thing, const QRectF &room)
{
    const QList<int> &children = tree[thing].children;
    QList<qsizetype> order(children.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](qsizetype a, qsizetype b) {
        return tree[children[a]].weight > tree[children[b]].weight;
    });
    QList<double> areas;
    double whole = 0;
    for (const qsizetype place : std::as_const(order)) {
        areas.append(areaOf(tree[children[place]].weight, tree));
        whole += areas.constLast();
    }
    const QList<QRectF> sorted = Graph::Layout::treemapCells(areas, whole, room);
    QList<QRectF> cells(children.size());
    for (qsizetype i = 0; i < sorted.size(); ++i)
        cells[order.at(i)] = sorted.at(i);
    return cells;
}

void TreemapWriter::enter(int thing, const QRectF &room)
{
    open.append({thing, cellsOf(thing, room)});
}

QString TreemapWriter::groupLabel(const ShownThing &thing, const QRectF &cell) const
{
    const int width = Graph::truncated(cell.width() - labelRoom);
    if (cell.height() < 2 * groupRuler.lineHeight() + groupMargin)
        return {};
    const QString withWeight = thing.name + u"  "_s + weightOf(thing);
    if (groupRuler.widthOf(withWeight) <= width)
        return withWeight;
    return groupRuler.elided(thing.name, width);
}

QString TreemapWriter::cellLabel(const ShownThing &thing, const QRectF &cell) const
{
    const QSize room(Graph::truncated(cell.width() - labelRoom),
                     Graph::truncated(cell.height() - labelRoom / 2));
    const QString name = cellRuler.wrapped(thing.name, room);
    if (name.isEmpty())
        return {};
    const QString withWeight = name + u'\n' + weightOf(thing);
    const QSize size = cellRuler.sizeOf(withWeight);
    return size.width() <= room.width() && size.height() <= room.height() ? withWeight : name;
}

// Begins the group of a thing whose cell has room for what is in it.
bool TreemapWriter::openGroup(int thing, const QRectF &cell)
{
    if (tree[thing].children.isEmpty())
        return false;
    const QString label = groupLabel(tree[thing], cell);
    const int labelHeight = label.isEmpty() ? 0 : groupRuler.lineHeight();
    const QRectF room = Graph::Layout::roomForMembers(
        cell, {groupMargin, groupMargin, groupMargin, groupMargin}, labelHeight);
    if (room.width() < leastRoomWidth || room.height() < leastRoomHeight)
        return false;
    if (foldSmall(thing, room.width() * room.height()) == 0)
        return false;
    Attributes attributes;
    // An empty one, too, as it would be inherited.
    attributes.label(label).text("fillcolor", frameFills.at((open.size() - 1) % frameFills.size()));
    if (open.size() == 1) // from here on they inherit it
        attributes.number("fontsize", groupSize).number("margin", groupMargin);
    addFacts(&attributes, job, tree, thing);
    text.beginGroup(attributes);
    enter(thing, room);
    return true;
}

void TreemapWriter::writeCell(int thing, const QRectF &cell)
{
    const ShownThing &shown = tree[thing];
    const QByteArray fill = paint.fillOf(shown);
    Attributes attributes;
    if (const QString label = cellLabel(shown, cell); !label.isEmpty())
        attributes.label(label);
    attributes.number("area", areaOf(shown.weight, tree))
        .text("fillcolor", QString::fromLatin1(fill));
    if (const QByteArray letters = letterColor(fill); letters != "#000000")
        attributes.text("fontcolor", QString::fromLatin1(letters));
    addFacts(&attributes, job, tree, thing);
    text.node(attributes);
}

// The whole is a group of its own, without a frame: its label is the title.
void TreemapWriter::writeWhole(const QRectF &chart)
{
    const int width = Graph::truncated(chart.width() - 2 * wholeMargin);
    const QString title = wholeRuler.elided(titleWithWeight(job, tree), width);
    Attributes attributes;
    attributes.label(title)
        .text("fillcolor", u"none")
        .number("fontsize", wholeSize)
        .number("margin", wholeMargin);
    addFacts(&attributes, job, tree, 0);
    text.beginGroup(attributes);
    const QRectF room =
        Graph::Layout::roomForMembers(chart, {wholeMargin, wholeMargin, wholeMargin, wholeMargin},
                                      title.isEmpty() ? 0 : wholeRuler.lineHeight());
    if (tree.root().children.isEmpty()) {
        writeCell(0, room);
    } else {
        foldSmall(0, room.width() * room.height());
        enter(0, room);
        writeMembers();
    }
    text.endGroup();
}

void TreemapWriter::writeMembers()
{
    while (!open.isEmpty()) {
        OpenGroup &group = open.last();
        const QList<int> &children = tree[group.thing].children;
        if (group.next == children.size()) {
            if (open.size() > 1)
                text.endGroup();
            open.removeLast();
            continue;
        }
        const int child = children[group.next];
        const QRectF cell = group.cells.at(group.next++);
        if (!openGroup(child, cell))
            writeCell(child, cell);
    }
}

WrittenGraph TreemapWriter::write()
{
    const int width = Graph::truncated(job.request.width);
    const int height = Graph::truncated(job.request.height);
    QStringList notes;
    ChartKey legend(ChartKey::Bottom, {.meaning = meaningWords(job, u"area"_s)}, paint.entries(),
                    width);
    int legendHeight = legend.pageOf(QRect(0, 0, width, height)).height() - height;
    if (legendHeight > height / 2) {
        legend.leaveOut();
        legendHeight = 0;
        notes.append(u"the page has no room for the legend"_s);
    }
    const QRectF chart(0, 0, width, height - legendHeight);
    writeHead(chart.size());
    writeWhole(chart);
    legend.write(&text);
    return {text.finished(), notes};
}

} // namespace

WrittenGraph treemapText(const TreeJob &job)
{
    return TreemapWriter(job).write();
}

} // namespace ORR::Companion
