// What holds for the drawing of every engine, on the inputs that are kept and on generated ones.
#include "invariants/drawn_objects.h"
#include "invariants/figures.h"
#include "invariants/generated_input.h"
#include "invariants/weights.h"
#include "mutation/drawing_folder.h"

#include "graph/dot_parser.h"
#include "support/corpus.h"

#include <gtest/gtest.h>

#include <QSet>

#include <algorithm>
#include <limits>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

constexpr quint64 generatedInputs = 20;
constexpr qint64 mostPixels = qint64(640) * 480; // of a picture; larger ones only cost time

// The promises that an engine may be excepted from.
enum class Promise { ChildrenInside, SiblingsApart, InProportion };

constexpr double everything = std::numeric_limits<double>::infinity();

// What an engine does not promise by its rules, and why.
struct Exception
{
    Drawing::LayoutIndex layout;
    Promise promise;
    double leeway; // points to the right by which the promise may be missed
    const char *kind; // of the objects that it is about; empty for all
    const char *reason;
};

using enum Drawing::LayoutIndex;
const QList<Exception> exceptions{
    {GfTree, Promise::ChildrenInside, everything, "", "no groups"},
    {GfTree, Promise::InProportion, everything, "", "no weights"},
    // The inputs have one of 0.1 inches.
    {GfDecl, Promise::ChildrenInside, 8, "", "a margin moves a group, not its parent's end"},
    {GfDecl, Promise::InProportion, everything, "", "no weights"},
    {UmlSeq, Promise::SiblingsApart, everything, "Node", "activations lie upon each other"},
    {UmlSeq, Promise::InProportion, everything, "", "no weights"},
    {Matrix, Promise::InProportion, everything, "", "no weights"},
    {Bar, Promise::ChildrenInside, everything, "", "a stack is its segments"},
};

// 0 for a promise that holds.
double leewayOf(Drawing::LayoutIndex layout, Promise promise, const QString &kind)
{
    const auto row = std::ranges::find_if(exceptions, [&](const Exception &each) {
        return each.layout == layout && each.promise == promise
            && (!*each.kind || kind == QLatin1StringView(each.kind));
    });
    return row == exceptions.end() ? 0.0 : row->leeway;
}

// What is drawn, and what of.
struct Case
{
    std::string name;
    QByteArray text;
};

QString draw(Drawing::LayoutIndex layout, const QByteArray &text, Graph::Device *device)
{
    const std::unique_ptr<Graph::DotGraph> graph = Graph::parseDot(text);
    return graph ? Drawing::layoutRow(layout).run({graph.get(), device}) : u"no graph"_s;
}

class Invariants : public testing::TestWithParam<Drawing::LayoutIndex>
{
protected:
    static std::vector<Case> cases()
    {
        std::vector<Case> all;
        for (const CorpusInput &input : inputsOf(GetParam(), corpusInputs()))
            all.push_back({input.file.toStdString(), input.text()});
        for (quint64 seed = 1; seed <= generatedInputs; ++seed)
            all.push_back({"seed " + std::to_string(seed), generatedInput(GetParam(), seed)});
        return all;
    }

    // Calls the check with each drawing and what it is of.
    template <typename Check>
    static void forEachDrawing(Check check)
    {
        for (const auto &[name, text] : cases()) {
            SCOPED_TRACE(name);
            MeasuringDevice device;
            EXPECT_EQ(draw(GetParam(), text, &device), QString());
            Drawn drawn = device.drawn();
            nestAsInGraph(&drawn, *Graph::parseDot(text));
            check(drawn, text);
        }
    }
};

std::string told(const DrawnObject &object, const Figure &figure)
{
    const QRectF &box = figure.box;
    return u"%1 %2 at %3,%4 to %5,%6"_s.arg(object.kind, object.id)
        .arg(box.left())
        .arg(box.top())
        .arg(box.right())
        .arg(box.bottom())
        .toStdString();
}

// The figures of the objects, by position.
std::vector<std::optional<Figure>> figuresOf(const Drawn &drawn)
{
    std::vector<std::optional<Figure>> figures;
    for (const DrawnObject &object : drawn.objects)
        figures.push_back(figureOf(object));
    return figures;
}

// Edges may cross what they lead to, but not each other where they have an area.
bool mustLieApart(Drawing::LayoutIndex layout, const DrawnObject &a, const DrawnObject &b)
{
    if (a.parent != b.parent || (a.kind == "Edge"_L1) != (b.kind == "Edge"_L1))
        return false;
    return leewayOf(layout, Promise::SiblingsApart, a.kind) < everything
        && leewayOf(layout, Promise::SiblingsApart, b.kind) < everything;
}

} // namespace

TEST_P(Invariants, one_page_of_whole_objects_and_finite_numbers)
{
    forEachDrawing([](const Drawn &drawn, const QByteArray &) {
        EXPECT_EQ(drawn.faults.join(u'\n').toStdString(), std::string());
        EXPECT_GT(drawn.objects.size(), 2);
    });
}

TEST_P(Invariants, the_page_holds_all)
{
    forEachDrawing([](const Drawn &drawn, const QByteArray &) {
        const QRectF page(QPointF(-1, -1), drawn.page + QSize(2, 2)); // rounded like all else
        for (const DrawnObject &object : drawn.objects) {
            for (const DrawnShape &shape : object.shapes) {
                EXPECT_TRUE(page.contains(shape.box.topLeft())
                            && page.contains(shape.box.bottomRight()))
                    << told(object, {Figure::Box, shape.box, {}}) << " on a page of "
                    << drawn.page.width() << " by " << drawn.page.height();
            }
        }
    });
}

TEST_P(Invariants, children_lie_inside_of_their_parents)
{
    const double leeway = leewayOf(GetParam(), Promise::ChildrenInside, {});
    int judged = 0;
    forEachDrawing([&](const Drawn &drawn, const QByteArray &) {
        const auto figures = figuresOf(drawn);
        for (qsizetype i = 1; i < drawn.objects.size(); ++i) {
            qsizetype parent = drawn.objects.at(i).parent;
            while (parent > 0 && !figures.at(size_t(parent)))
                parent = drawn.objects.at(parent).parent;
            if (parent <= 0 || !figures.at(size_t(i)))
                continue;
            ++judged;
            EXPECT_TRUE(isInside(*figures.at(size_t(i)), *figures.at(size_t(parent)), leeway))
                << told(drawn.objects.at(i), *figures.at(size_t(i))) << " in "
                << told(drawn.objects.at(parent), *figures.at(size_t(parent)));
        }
    });
    EXPECT_EQ(judged > 0, leeway < everything) << judged;
}

TEST_P(Invariants, siblings_lie_apart)
{
    int judged = 0;
    forEachDrawing([&](const Drawn &drawn, const QByteArray &) {
        const QList<DrawnObject> &objects = drawn.objects;
        const auto figures = figuresOf(drawn);
        for (qsizetype i = 1; i < objects.size(); ++i) {
            for (qsizetype k = i + 1; k < objects.size(); ++k) {
                if (!figures.at(size_t(i)) || !figures.at(size_t(k))
                    || !mustLieApart(GetParam(), objects.at(i), objects.at(k)))
                    continue;
                ++judged;
                EXPECT_TRUE(areApart(*figures.at(size_t(i)), *figures.at(size_t(k))))
                    << told(objects.at(i), *figures.at(size_t(i))) << " and "
                    << told(objects.at(k), *figures.at(size_t(k)));
            }
        }
    });
    EXPECT_GT(judged, 0);
}

TEST_P(Invariants, extents_are_in_proportion_to_the_weights)
{
    qsizetype judged = 0;
    forEachDrawing([&](const Drawn &drawn, const QByteArray &text) {
        const std::unique_ptr<Graph::DotGraph> graph = Graph::parseDot(text);
        for (const QList<Weighed> &family : weighedFamilies(GetParam(), drawn, *graph)) {
            judged += family.size() - 1;
            EXPECT_EQ(outOfProportion(family).join(u' ').toStdString(), std::string());
        }
    });
    EXPECT_EQ(judged > 0, leewayOf(GetParam(), Promise::InProportion, {}) < everything) << judged;
}

TEST_P(Invariants, the_same_input_gives_the_same_bytes_in_each_format)
{
    const DrawingFolder folder;
    QSet<Drawing::Format> written;
    forEachDrawing([&](const Drawn &drawn, const QByteArray &text) {
        for (const Drawing::Format format : formatsOfBothTables()) {
            if (isPicture(format) && qint64(drawn.page.width()) * drawn.page.height() > mostPixels)
                continue;
            SCOPED_TRACE(Drawing::formatRow(format).name.data());
            const auto file = [&] {
                return folder.drawnFile(format, [&](Graph::Device *device) {
                    EXPECT_EQ(draw(GetParam(), text, device), QString());
                });
            };
            const QByteArray bytes = file();
            EXPECT_FALSE(bytes.isEmpty());
            EXPECT_TRUE(bytes == file()) << "other bytes";
            written.insert(format);
        }
    });
    EXPECT_EQ(written.size(), qsizetype(formatsOfBothTables().size()));
}

INSTANTIATE_TEST_SUITE_P(All, Invariants, testing::ValuesIn(allLayouts()), nameOfLayout);
