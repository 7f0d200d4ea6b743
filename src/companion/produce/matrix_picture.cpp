#include "companion/produce/dependency_picture.h"

#include "companion/produce/folded_dependencies.h"
#include "companion/produce/graph_text.h"
#include "companion/produce/page_fit.h"
#include "companion/produce/text_fit.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

using Edge = FoldedDependencies::Edge;

constexpr int titleSize = 14;
constexpr int headerSize = 9;
constexpr int countSize = 7;
constexpr double widestHeader = 200;
constexpr double cellGap = 4; // that the engine leaves between squares
constexpr int deepestGroup = 3; // of those with a bracket: each moves the rows to the right

// By the kinds of edges.
constexpr const char *edgeFills[] = {"#D2D2D2", "#9CC7EE", "#E8803C", "#F5DF4D"};

Attributes fillOf(Edge::Kind kind)
{
    return Attributes().text("color", QString::fromLatin1(edgeFills[kind]));
}

QString shortCount(double count)
{
    if (count < 1000)
        return QString::number(count, 'g', 3);
    constexpr const char *units[] = {"k", "M", "G", "T"};
    for (const char *unit : units) {
        count /= 1000;
        if (count < 999.5)
            return QString::number(count, 'g', count < 9.95 ? 2 : 3) + QLatin1StringView(unit);
    }
    return u"many"_s;
}

class MatrixWriter
{
public:
    MatrixWriter(const Dependencies &dependencies, const DependencyMeaning &meaning,
                 const PictureRequest &request, int most)
        : things(dependencies), words(meaning), title(request.title),
          folded(foldedDependencies(dependencies, most)), text(request.title)
    {
    }

    QByteArray written();

private:
    double leastCell() const;
    void writeDefaults();
    void writeGroups();
    void beginGroup(int group, int depth);
    void writePart(int part);
    void padColumns();
    void writeDiagonal();
    void writeKey();
    void writeEdges();

    const Dependencies &things;
    const DependencyMeaning &words;
    QString title;
    FoldedDependencies folded;
    GraphText text;
    QList<GraphText::Id> columns, rows;
};

// Of the squares, with the gap.
double MatrixWriter::leastCell() const
{
    return cellGap
        + std::max(double(headerSize), lineWidth(QString::number(folded.parts.size()), headerSize));
}

void MatrixWriter::writeDefaults()
{
    text.nodeDefaults(Attributes()
                          .text("fontname", QString::fromLatin1(drawnFont))
                          .number("fontsize", headerSize));
    text.edgeDefaults(Attributes()
                          .text("fontname", QString::fromLatin1(drawnFont))
                          .number("fontsize", countSize));
}

// Groups hold all that they inherit themselves.
void MatrixWriter::beginGroup(int group, int depth)
{
    const QString name = depth > deepestGroup ? QString() : folded.groups[group].name;
    Attributes attributes;
    attributes.text("axis", u"").text("style", u"solid").text("color", u"#8A98A8");
    attributes.text("fillcolor", depth % 2 == 1 ? u"#EEF3F8" : u"#E1E9F1");
    attributes.label(elidedLine(name, headerSize, widestHeader)).number("fontsize", headerSize);
    attributes.fact(u"path", things.path(folded.groups[group].item));
    text.beginGroup(attributes);
}

void MatrixWriter::writePart(int part)
{
    const FoldedDependencies::Part &shown = folded.parts[part];
    const QString number = QString::number(part + 1);
    const QString count =
        shown.isThing ? QString() : u" (%1 %2)"_s.arg(shown.things).arg(words.things);
    const QString name = elidedLine(shown.name, headerSize, widestHeader);
    const auto hidden = [](QStringView axis) {
        return Attributes().text("axis", axis).text("style", u"invisible").label(u"");
    };
    text.beginGroup(hidden(u"x"));
    columns.append(text.node(Attributes().label(number)));
    text.endGroup();
    text.beginGroup(hidden(u"y"));
    Attributes row;
    row.label(name + count + u"  "_s + number).fact(u"path", things.path(shown.item));
    if (shown.isThing)
        addFacts(things.look(shown.item).facts, &row);
    rows.append(text.node(row));
    text.endGroup();
}

void MatrixWriter::writeGroups()
{
    QList<int> open;
    int next = 0;
    for (int part = 0; part < folded.parts.size(); ++part) {
        while (next < folded.groups.size() && folded.groups[next].first == part) {
            open.append(next);
            beginGroup(next++, int(open.size()));
        }
        writePart(part);
        while (!open.isEmpty()
               && folded.groups[open.last()].first + folded.groups[open.last()].count == part + 1) {
            text.endGroup();
            open.removeLast();
        }
    }
}

// Columns without a name, so that the title above all of them does not widen the others.
void MatrixWriter::padColumns()
{
    const double needed = std::ceil((lineWidth(title, titleSize) + 8) / leastCell());
    text.beginGroup(Attributes().text("axis", u"x").text("style", u"invisible").label(u""));
    for (qsizetype count = columns.size(); double(count) < needed; ++count)
        text.node(Attributes().label(u""));
    text.endGroup();
}

// What leads the eye from a row to its column, where nothing is drawn anyway.
void MatrixWriter::writeDiagonal()
{
    QList<bool> hasOwn(folded.parts.size(), false);
    for (const Edge &edge : std::as_const(folded.edges)) {
        if (edge.kind == Edge::Within)
            hasOwn[edge.tail] = true;
    }
    for (int part = 0; part < folded.parts.size(); ++part) {
        if (!hasOwn[part])
            text.edge(rows[part], columns[part], fillOf(Edge::Within).label(u""));
    }
}

// The colours that are there, each as a square behind its meaning, below an empty row.
void MatrixWriter::writeKey()
{
    const QString meanings[] = {words.within, words.needs, words.inCycle,
                                u"against the order of the groups"_s};
    QList<std::pair<GraphText::Id, Edge::Kind>> key;
    text.beginGroup(Attributes().text("axis", u"y").text("style", u"invisible").label(u""));
    text.node(Attributes().label(u""));
    for (const Edge::Kind kind : {Edge::Needs, Edge::InCycle, Edge::Against, Edge::Within}) {
        const bool isThere = std::any_of(folded.edges.cbegin(), folded.edges.cend(),
                                         [=](const Edge &edge) { return edge.kind == kind; });
        if (isThere || kind == Edge::Within)
            key.append({text.node(Attributes().label(meanings[kind])), kind});
    }
    text.endGroup();
    for (const auto &[row, kind] : std::as_const(key))
        text.edge(row, columns.first(), fillOf(kind).label(u""));
}

void MatrixWriter::writeEdges()
{
    const double room = leastCell() - cellGap;
    for (const Edge &edge : std::as_const(folded.edges)) {
        const QString count = shortCount(edge.weight);
        Attributes attributes = fillOf(edge.kind);
        attributes.label(lineWidth(count, countSize) <= room ? count : QString());
        attributes.fact(u"count", QString::number(edge.weight, 'g', 15));
        const FoldedDependencies::Part &tail = folded.parts[edge.tail];
        const FoldedDependencies::Part &head = folded.parts[edge.head];
        if (tail.isThing && head.isThing)
            addFacts(things.linkLook(tail.item, head.item).facts, &attributes);
        text.edge(rows[edge.tail], columns[edge.head], attributes);
    }
}

QByteArray MatrixWriter::written()
{
    writeDefaults();
    text.beginGroup(Attributes()
                        .text("axis", u"x")
                        .text("style", u"invisible")
                        .text("color", u"none")
                        .text("fontname", QString::fromLatin1(drawnFont))
                        .number("fontsize", titleSize)
                        .label(title));
    writeGroups();
    padColumns();
    text.endGroup();
    writeKey();
    writeDiagonal();
    writeEdges();
    return text.finished();
}

} // namespace

WrittenGraph writeMatrix(const Dependencies &dependencies, const DependencyMeaning &meaning,
                         const PictureRequest &request)
{
    PictureRequest fitting = request;
    fitting.title = elidedLine(request.title, titleSize, 0.6 * request.width);
    // No square is smaller than its header.
    const double side = std::min(request.width, request.height);
    const int most = int(std::clamp<double>(
        side / (headerSize + cellGap), 1,
        double(std::clamp<qsizetype>(dependencies.thingCount(), 1, std::max(1, request.most)))));
    const PageFit fit = fitToPage(fitting, most, [&](int count) {
        return MatrixWriter(dependencies, meaning, fitting, count).written();
    });
    return {fit.text, pageNotes(fit, request, u"a matrix of one folder has no less"_s)};
}

DependencyPicture::DependencyPicture(Dependencies dependencies, DependencyMeaning meaning)
    : things(std::move(dependencies)), words(std::move(meaning))
{
}

WrittenGraph DependencyPicture::write(const PictureRequest &request) const
{
    PictureRequest titled = request;
    if (titled.title.isEmpty())
        titled.title = words.name;
    if (titled.title.isEmpty())
        titled.title = u"%1 %2"_s.arg(things.thingCount()).arg(words.things);
    return request.engine == u"gftree" ? writeDependencyTree(things, words, titled)
                                       : writeMatrix(things, words, titled);
}

} // namespace ORR::Companion
