#include "companion/produce/dependency_picture.h"
#include "companion/produce/folded_dependencies.h"
#include "companion/produce/graph_text.h"
#include "companion/produce/level_order.h"
#include "companion/produce/page_fit.h"
#include "companion/produce/text_fit.h"
#include "graph/numbers.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr int treeTitleSize = 14;

constexpr qsizetype mostToldLinks = 5;
constexpr int mostDrawn = 400; // more can't be told apart on any page
constexpr qsizetype mostLines = 80; // nor more lines be followed, as they run behind each other

// How much room things get, and which way the levels follow each other.
struct TreeRoom
{
    const char *direction;
    int textSize;
    double widestName; // points
    double nodeGap; // inches
    double levelGap;
    const char *margin;
};
// In the order in which they are tried.
constexpr TreeRoom rooms[] = {
    {"LR", 10, 180, 0.07, 0.5, "0.07,0.03"},
    {"TB", 10, 140, 0.12, 0.35, "0.07,0.03"},
    {"LR", 8, 100, 0.03, 0.25, "0.04,0.015"},
    {"TB", 8, 80, 0.06, 0.2, "0.04,0.015"},
};

// By what a part is.
enum PartSort { Single, Circular, Folder };
constexpr const char *sortFills[] = {"#CFE4F7", "#F0A070", "#DADADA"};

class TreeWriter
{
public:
    TreeWriter(const Dependencies &dependencies, const DependencyMeaning &meaning,
               const PictureRequest &request, const TreeRoom &treeRoom, int most);

    QByteArray written();
    QStringList notes() const;
    qsizetype lineCount() const;

private:
    QString direction() const
    {
        return words.direction.isEmpty() ? QString::fromLatin1(room.direction) : words.direction;
    }
    QString nameOf(int part) const;
    QString cutNote() const;
    // The others of a folder, which stand together for nothing in particular, would need and be
    // needed by all: they are there, but without lines.
    bool hasLines(int part) const { return !folded.parts[part].isRest; }
    PartSort sortOf(const FoldedDependencies::Part &part) const;
    int textSizeOf(const ThingLook &look) const;
    void writeDefaults();
    void writePart(int part);
    void writeLink(int tail, int head);
    void writeKey(const GraphText::Id &root);

    const Dependencies &things;
    const DependencyMeaning &words;
    QString title;
    const TreeRoom &room;
    FoldedDependencies folded;
    LevelledGraph levels;
    QList<LevelledGraph::Edge> loops; // of things to themselves
    GraphText text;
    QList<GraphText::Id> ids;
    bool isThere[3] = {};
};

TreeWriter::TreeWriter(const Dependencies &dependencies, const DependencyMeaning &meaning,
                       const PictureRequest &request, const TreeRoom &treeRoom, int most)
    : things(dependencies), words(meaning), title(request.title), room(treeRoom),
      folded(foldedDependencies(dependencies, most)), text(request.title)
{
    QList<std::pair<int, int>> edges;
    for (const FoldedDependencies::Edge &edge : std::as_const(folded.edges)) {
        if (edge.tail == edge.head && folded.parts[edge.tail].isThing)
            loops.append({edge.tail, edge.head});
        if (edge.tail != edge.head && hasLines(edge.tail) && hasLines(edge.head))
            edges.append({edge.tail, edge.head});
    }
    levels = levelled(int(folded.parts.size()), edges);
    ids.resize(folded.parts.size());
}

QString TreeWriter::nameOf(int part) const
{
    const FoldedDependencies::Part &shown = folded.parts[part];
    if (shown.isThing)
        return things.hasLabel(shown.item) ? things.label(shown.item) : things.path(shown.item);
    if (shown.isRest) {
        const QString folder = things.path(shown.item);
        return u"%1 others"_s.arg(shown.things)
            + (folder.isEmpty() ? QString() : u" in "_s + folder);
    }
    return u"%1 (%2 %3)"_s.arg(shown.name).arg(shown.things).arg(words.things);
}

PartSort TreeWriter::sortOf(const FoldedDependencies::Part &part) const
{
    if (part.isRest)
        return Folder;
    return part.isInCycle ? Circular : part.isThing ? Single : Folder;
}

// In a room with smaller texts those of the author are smaller as well.
int TreeWriter::textSizeOf(const ThingLook &look) const
{
    if (look.textSize <= 0)
        return room.textSize;
    return std::max(1, Graph::rounded(look.textSize * room.textSize / rooms[0].textSize));
}

void TreeWriter::writeDefaults()
{
    text.graph(Attributes()
                   .text("rankdir", direction())
                   .number("nodesep", room.nodeGap)
                   .number("ranksep", room.levelGap)
                   .number("pad", 0.2));
    text.nodeDefaults(Attributes()
                          .text("shape", u"rectangle")
                          .text("style", u"rounded")
                          .text("margin", QString::fromLatin1(room.margin))
                          .text("fontname", QString::fromLatin1(drawnFont))
                          .number("fontsize", room.textSize)
                          .text("color", u"#7B8794"));
    text.edgeDefaults(Attributes().text("color", u"#7B8794"));
}

void TreeWriter::writePart(int part)
{
    const FoldedDependencies::Part &shown = folded.parts[part];
    const PartSort sort = sortOf(shown);
    const ThingLook look = shown.isThing ? things.look(shown.item) : ThingLook();
    const QString label = nameOf(part);
    const int textSize = textSizeOf(look);
    QStringList lines;
    for (const QStringView line : QStringView(label).split(u'\n'))
        lines.append(elidedLine(line.toString(), textSize, room.widestName, Qt::ElideLeft));
    Attributes attributes;
    attributes.label(lines.join(u'\n'));
    if (!look.hasPaint()) {
        isThere[sort] = true;
        attributes.text("fillcolor", QString::fromLatin1(sortFills[sort]));
    }
    addLook(look, &attributes);
    if (look.textSize > 0)
        attributes.number("fontsize", textSize);
    attributes.fact(u"path", things.path(shown.item));
    addFacts(look.facts, &attributes);
    ids[part] = text.node(attributes);
}

// Links of what stands for several things are no single ones, and have no looks.
void TreeWriter::writeLink(int tail, int head)
{
    Attributes attributes;
    const FoldedDependencies::Part &from = folded.parts[tail];
    const FoldedDependencies::Part &to = folded.parts[head];
    if (from.isThing && to.isThing)
        addLook(things.linkLook(from.item, to.item), &attributes);
    text.edge(ids[tail], ids[head], attributes);
}

// Below the title, beside the roots.
void TreeWriter::writeKey(const GraphText::Id &root)
{
    const bool hasRest = std::any_of(folded.parts.cbegin(), folded.parts.cend(),
                                     [](const auto &part) { return part.isRest; });
    const QString meanings[] = {u"in no cycle"_s, u"in a cycle"_s,
                                hasRest ? u"a folder, or others"_s : u"a folder"_s};
    for (const PartSort sort : {Single, Circular, Folder}) {
        if (!isThere[sort])
            continue;
        const GraphText::Id id =
            text.node(Attributes()
                          .label(meanings[sort])
                          .number("fontsize", room.textSize)
                          .text("style", u"solid")
                          .text("color", u"none")
                          .text("fillcolor", QString::fromLatin1(sortFills[sort])));
        text.edge(root, id, Attributes().text("color", u"none"));
    }
}

QByteArray TreeWriter::written()
{
    writeDefaults();
    const GraphText::Id root = text.node(
        Attributes().label(title).number("fontsize", treeTitleSize).text("shape", u"none"));
    for (const int part : std::as_const(levels.order))
        writePart(part);
    for (const int part : std::as_const(levels.roots))
        text.edge(root, ids[part],
                  Attributes().text("color", hasLines(part) ? u"#C9D1D9" : u"none"));
    for (const LevelledGraph::Edge &edge : std::as_const(levels.edges)) {
        if (!edge.isImplied)
            writeLink(edge.tail, edge.head);
    }
    writeKey(root);
    return text.finished();
}

QString TreeWriter::cutNote() const
{
    const QList<LevelledGraph::Edge> cut = loops + levels.cut;
    if (cut.isEmpty())
        return {};
    QStringList told;
    for (const LevelledGraph::Edge &edge : cut.first(std::min(mostToldLinks, cut.size())))
        told.append(nameOf(edge.tail) + u" -> "_s + nameOf(edge.head));
    if (cut.size() > mostToldLinks)
        told.append(u"%1 more"_s.arg(cut.size() - mostToldLinks));
    return (cut.size() == 1 ? u"One link that closes a cycle is not drawn: "_s
                            : u"%1 links that close cycles are not drawn: "_s.arg(cut.size()))
        + told.join(u", "_s) + u'.';
}

qsizetype TreeWriter::lineCount() const
{
    return std::count_if(levels.edges.cbegin(), levels.edges.cend(),
                         [](const LevelledGraph::Edge &edge) { return !edge.isImplied; });
}

QStringList TreeWriter::notes() const
{
    QStringList notes;
    qsizetype left = 0;
    for (const FoldedDependencies::Part &part : std::as_const(folded.parts))
        left += part.isRest ? part.things : 0;
    if (folded.parts.size() == 1 && folded.parts[0].things > 1)
        notes.append(u"All %1 %2 are one box: parts of them have more links, or take more room, "
                     u"than can be shown."_s.arg(folded.parts[0].things)
                         .arg(words.things));
    if (left > 0)
        notes.append(u"%1 %2 are folded into others, whose links are not drawn."_s.arg(left).arg(
            words.things));
    notes.append(cutNote());
    notes.removeAll(QString());
    return notes;
}

// How many times larger than the page.
double overflow(const PageFit &fit, const PictureRequest &request)
{
    return std::max(fit.size.width() / request.width, fit.size.height() / request.height);
}

} // namespace

WrittenGraph writeDependencyTree(const Dependencies &dependencies, const DependencyMeaning &meaning,
                                 const PictureRequest &request)
{
    PictureRequest fitting = request;
    fitting.title = elidedLine(request.title, treeTitleSize, request.width / 4);
    int most = int(std::clamp<qsizetype>(dependencies.thingCount(), 1,
                                         std::max(1, std::min(request.most, mostDrawn))));
    while (most > 1
           && TreeWriter(dependencies, meaning, fitting, rooms[0], most).lineCount() > mostLines)
        most = 2 * most / 3;
    const auto fitted = [&](const TreeRoom &room, int count, int tries) {
        const auto write = [&](int parts) {
            return TreeWriter(dependencies, meaning, fitting, room, parts).written();
        };
        return fitToPage(fitting, count, write, tries);
    };
    const TreeRoom *room = nullptr;
    PageFit fit;
    for (const TreeRoom &tried : rooms) {
        const PageFit whole = fitted(tried, most, 1);
        if (fit.fits || (room && overflow(whole, request) > overflow(fit, request)))
            continue;
        room = &tried;
        fit = whole;
    }
    if (!fit.fits)
        fit = fitted(*room, most, 12);
    // Slightly too large each time, the tries are used up in small steps, and the last one of them
    // is the whole as one box.
    for (int fewer = most / 2; fit.most == 1 && fewer > 1; fewer /= 2) {
        const PageFit some = fitted(*room, fewer, 1);
        if (some.fits)
            fit = some;
    }
    return {fit.text,
            pageNotes(fit, request, u"a tree of one folder has no less"_s)
                + TreeWriter(dependencies, meaning, fitting, *room, fit.most).notes()};
}

} // namespace ORR::Companion
