#include "companion/produce/tree_picture.h"

#include "companion/produce/drawn_size.h"
#include "companion/produce/palette.h"
#include "drawing/job.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

using namespace ORR;
using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

const QStringList pictureEngines = {u"treemap"_s, u"sunburst"_s, u"flatbubble"_s, u"bar"_s,
                                    u"gftree"_s};

struct PictureSample
{
    const char *name;
    TreePicture picture;
};

TreePicture filesByKind()
{
    WeightTree tree;
    for (int i = 0; i < 900; ++i) {
        const QByteArray path = "project/part_" + QByteArray::number(i % 13) + "/of_folder"
            + QByteArray::number(i % 29) + "/name_of_file" + QByteArray::number(i) + ".cpp";
        tree.addWeight(tree.at(path), 10 + (i * 7919) % 4000);
        tree.setKind(tree.at(path), (i * 7) % 15);
    }
    TreeMeaning meaning = {
        .weight = u"lines"_s, .coloring = TreeMeaning::Coloring::ByKind, .color = u"language"_s};
    for (int kind = 0; kind < 15; ++kind)
        meaning.kinds.append(u"language %1"_s.arg(kind));
    return {tree, meaning};
}

TreePicture coverage()
{
    WeightTree tree;
    for (int i = 0; i < 300; ++i) {
        const WeightTree::Item item =
            tree.at("src/" + QByteArray::number(i % 11) + '/' + QByteArray::number(i));
        tree.addWeight(item, 20 + i % 50);
        tree.addShare(item, i % 20, i % 7 == 0 ? 0 : 20);
    }
    return {tree,
            {.weight = u"lines"_s,
             .coloring = TreeMeaning::Coloring::ByShare,
             .color = u"coverage"_s,
             .scale = TreeMeaning::Scale::BadToGood,
             .share = u"coverage"_s}};
}

TreePicture calls()
{
    WeightTree tree;
    for (int i = 0; i < 400; ++i) {
        QByteArray stack = "main";
        for (int depth = 0; depth < i % 17; ++depth)
            stack += ";function_" + QByteArray::number((i / (depth + 1)) % 5);
        tree.addWeight(tree.at(stack, ';'), 0.001 * (1 + i % 9));
    }
    return {tree,
            {.weight = u"time"_s, .unit = TreeMeaning::Unit::Seconds, .pathsAreFiles = false}};
}

TreePicture pictureOf(const QList<std::pair<QByteArray, double>> &paths)
{
    WeightTree tree;
    for (const auto &[path, weight] : paths)
        tree.addWeight(tree.at(path), weight);
    return {tree, {.weight = u"size"_s, .unit = TreeMeaning::Unit::Bytes, .color = u"folder"_s}};
}

// Folders of many files of the same size: which of them the engine takes for the larger one, and
// with it the size of the whole, is a matter of their last digits.
TreePicture equalInFolders()
{
    WeightTree tree;
    for (int i = 0; i < 5000; ++i)
        tree.addWeight(
            tree.at("main/dir_" + QByteArray::number(i % 50) + "/y" + QByteArray::number(i)),
            4 * (1 + i % 9));
    return {tree, {.weight = u"size"_s, .unit = TreeMeaning::Unit::Bytes, .color = u"folder"_s}};
}

TreePicture nestedDeep()
{
    WeightTree tree;
    WeightTree::Item item = WeightTree::root;
    for (int i = 0; i < 100'000; ++i) {
        item = tree.child(item, "f");
        tree.addWeight(item, 1);
    }
    return {tree, {.weight = u"samples"_s, .pathsAreFiles = false}};
}

TreePicture equalOnes()
{
    WeightTree tree;
    for (int i = 0; i < 30'000; ++i)
        tree.addWeight(tree.at(QByteArray::number(i)), 1);
    return {tree, {.weight = u"things"_s}};
}

std::vector<PictureSample> pictureSamples()
{
    std::vector<PictureSample> samples;
    samples.push_back({"files", filesByKind()});
    samples.push_back({"coverage", coverage()});
    samples.push_back({"calls", calls()});
    samples.push_back({"one", pictureOf({{"only/one.cpp", 5}})});
    samples.push_back({"nothing", pictureOf({})});
    samples.push_back({"weightless", pictureOf({{"a", 0}, {"b", 0}})});
    samples.push_back({"huge", pictureOf({{"a/x", 1.7e308}, {"a/y", 1.7e308}, {"b", 1e300}})});
    samples.push_back({"tiny", pictureOf({{"a", 1e-300}, {"b/x", 4e-300}, {"b/y", 5e-324}})});
    samples.push_back({"far apart", pictureOf({{"a", 1e18}, {"b/x", 1}, {"b/y", 1e-9}})});
    samples.push_back({"odd names",
                       pictureOf({{"\"quoted\"", 3},
                                  {"back\\slash\\n", 2},
                                  {"line\nfeed", 4},
                                  {"\xff\xfe", 1},
                                  {"<b>&amp;</b>", 2},
                                  {QByteArray(5000, 'W'), 5},
                                  {QByteArray("nul\0nul", 7), 1}})});
    samples.push_back({"deep", nestedDeep()});
    samples.push_back({"equal", equalOnes()});
    samples.push_back({"equal in folders", equalInFolders()});
    return samples;
}

QByteArray svgOf(const QByteArray &text, const QString &engine)
{
    QByteArray drawing;
    const Drawing::Job job = {.input = text, .engine = engine, .format = Drawing::Format::Svg};
    const Drawing::Outcome outcome =
        Drawing::draw(job, Drawing::inMemory(&drawing, Drawing::Format::Svg));
    EXPECT_EQ(outcome.message, QString());
    return drawing;
}

// The lines of all labels that are not empty.
qsizetype labelLines(const QByteArray &text)
{
    static const QRegularExpression label(
        u" \\[(?:[^\"\\]]|\"(?:[^\"\\\\]|\\\\.)*\")*?label=\"((?:[^\"\\\\]|\\\\.)*)\""_s);
    qsizetype lines = 0;
    auto matches = label.globalMatch(QString::fromUtf8(text));
    while (matches.hasNext()) {
        const QString value = matches.next().captured(1);
        if (!value.isEmpty())
            lines += 1 + value.count(u"\\n"_s);
    }
    return lines;
}

qsizetype thingsIn(const QByteArray &text)
{
    const qsizetype legend = text.indexOf("legend=");
    const QByteArray things = legend < 0 ? text : text.first(legend);
    return things.count("__N") - things.count(" -> ") * 2 + things.count("subgraph ");
}

} // namespace

TEST(TreePicture, keeps_the_page)
{
    for (const PictureSample &sample : pictureSamples()) {
        for (const QString &engine : pictureEngines) {
            for (const QSize page : {QSize(1200, 800), QSize(800, 1200), QSize(400, 300)}) {
                SCOPED_TRACE(testing::Message()
                             << sample.name << ' ' << engine.toStdString() << ' ' << page.width());
                const WrittenGraph graph = sample.picture.write({.engine = engine,
                                                                 .width = double(page.width()),
                                                                 .height = double(page.height()),
                                                                 .title = u"A title"_s});
                const QSizeF size = drawnSize(graph.text, engine);
                ASSERT_TRUE(size.isValid());
                if (page.width() > 400) { // a small one may have no room for the legend
                    EXPECT_EQ(graph.notes.join(u' ').toStdString(), std::string());
                }
                EXPECT_LE(size.width(), page.width());
                EXPECT_LE(size.height(), page.height());
            }
        }
    }
}

TEST(TreePicture, says_why_where_a_page_is_too_small)
{
    for (const QString &engine : pictureEngines) {
        const WrittenGraph graph =
            filesByKind().write({.engine = engine, .width = 30, .height = 20});
        const QSizeF size = drawnSize(graph.text, engine);
        EXPECT_TRUE((size.width() <= 30 && size.height() <= 20) || !graph.notes.isEmpty())
            << engine.toStdString() << ' ' << size.width() << ' ' << size.height();
    }
}

TEST(TreePicture, is_the_same_every_time)
{
    for (const QString &engine : pictureEngines) {
        const PictureRequest request = {.engine = engine, .title = u"t"_s};
        EXPECT_EQ(filesByKind().write(request).text, filesByKind().write(request).text);
        EXPECT_EQ(calls().write(request).text, calls().write(request).text);
    }
}

TEST(TreePicture, has_no_more_things_than_asked_for)
{
    for (const QString &engine : pictureEngines) {
        for (const int most : {3, 40, 200}) {
            const WrittenGraph graph = filesByKind().write({.engine = engine, .most = most});
            // The whole and the legend are groups or nodes, too, and bars have kinds in them.
            if (engine != u"bar"_s) {
                EXPECT_LE(thingsIn(graph.text), most + 2) << engine.toStdString();
            }
        }
    }
}

// A label that the engine leaves out would be one that had no room.
TEST(TreePicture, writes_labels_only_where_they_are_drawn)
{
    for (const QString &engine : pictureEngines) {
        const WrittenGraph graph = filesByKind().write({.engine = engine, .title = u"Files"_s});
        const qsizetype lines = labelLines(graph.text);
        EXPECT_GT(lines, 5);
        EXPECT_EQ(svgOf(graph.text, engine).count("<text"), lines) << engine.toStdString();
    }
}

TEST(TreePicture, has_its_title_and_the_weight_of_the_whole_in_the_drawing)
{
    for (const QString &engine : pictureEngines) {
        const WrittenGraph graph = coverage().write({.engine = engine, .title = u"Covered"_s});
        const QByteArray svg = svgOf(graph.text, engine);
        EXPECT_TRUE(svg.contains("Covered")) << engine.toStdString();
        EXPECT_TRUE(svg.contains("13,350 lines")) << engine.toStdString();
    }
}

TEST(TreePicture, tells_what_its_colours_mean)
{
    for (const QString &engine : {u"treemap"_s, u"sunburst"_s, u"flatbubble"_s, u"bar"_s}) {
        const QByteArray scale = svgOf(coverage().write({.engine = engine}).text, engine);
        EXPECT_TRUE(scale.contains("colour: coverage")) << engine.toStdString();
        EXPECT_TRUE(scale.contains("0\xe2\x80\x93"
                                   "20 %"))
            << engine.toStdString();
        EXPECT_TRUE(scale.contains("80\xe2\x80\x93"
                                   "100 %"))
            << engine.toStdString();
        const QByteArray kinds = svgOf(filesByKind().write({.engine = engine}).text, engine);
        EXPECT_GE(kinds.count("language "), kindFills().size() - 1) << engine.toStdString();
        EXPECT_TRUE(kinds.contains("other  ")) << engine.toStdString();
    }
}

TEST(TreePicture, colours_a_share_by_the_step_that_the_legend_names)
{
    WeightTree tree;
    tree.addWeight(tree.at("good"), 1);
    tree.addShare(tree.at("good"), 9, 10);
    tree.addWeight(tree.at("bad"), 1);
    tree.addShare(tree.at("bad"), 1, 10);
    const TreePicture picture(
        tree, {.coloring = TreeMeaning::Coloring::ByShare, .scale = TreeMeaning::Scale::BadToGood});
    const QByteArray text = picture.write({.engine = u"treemap"_s}).text;
    const QByteArray good = scaleFill(ColorScale::Diverging, 1);
    const QByteArray bad = scaleFill(ColorScale::Diverging, 0);
    EXPECT_EQ(text.count(good), 2);
    EXPECT_EQ(text.count(bad), 2);
    EXPECT_LT(text.indexOf("label=\"bad"), text.indexOf(bad));
}

TEST(TreePicture, has_facts_that_no_engine_takes_for_its_own)
{
    WeightTree tree;
    tree.addWeight(tree.at("a/b"), 3);
    tree.addWeight(tree.at("c"), 1);
    const TreePicture picture(tree, {.weight = u"width"_s});
    const QByteArray text = picture.write({.engine = u"treemap"_s}).text;
    EXPECT_TRUE(text.contains("path=\"a/b\" width_=\"3 (75 %)\"")) << text.constData();
}

TEST(TreePicture, has_dates_in_their_order)
{
    WeightTree tree;
    for (const auto &[month, weight] : {std::pair("2024-03", 5), {"2023-12", 2}, {"2024-01", 9}})
        tree.addWeight(tree.at(month), weight);
    const QByteArray text = TreePicture(tree, {}).write({.engine = u"bar"_s}).text;
    EXPECT_LT(text.indexOf("2023-12"), text.indexOf("2024-01"));
    EXPECT_LT(text.indexOf("2024-01"), text.indexOf("2024-03"));
}

TEST(TreePicture, keeps_a_narrow_page_as_a_tree_of_calls)
{
    const PictureRequest request = {.engine = u"gftree"_s, .width = 200, .height = 1000};
    const WrittenGraph graph = calls().write(request);
    EXPECT_EQ(graph.notes, QStringList());
    const QSizeF size = drawnSize(graph.text, request.engine);
    EXPECT_LE(size.width(), 200);
    EXPECT_GT(size.width(), 100);
    EXPECT_LE(size.height(), 1000);
}
