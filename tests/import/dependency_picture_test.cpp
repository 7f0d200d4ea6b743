#include "companion/produce/dependency_picture.h"

#include "import/imported.h"

#include <gtest/gtest.h>

#include <random>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

Dependencies circle(int length)
{
    Dependencies dependencies;
    for (int i = 0; i < length; ++i) {
        const Dependencies::Item item = dependencies.thing(QByteArray::number(i));
        dependencies.need(item, dependencies.thing(QByteArray::number((i + 1) % length)));
    }
    return dependencies;
}

// A thousand links between any files of 8 folders.
Dependencies tangle(unsigned seed, unsigned files)
{
    std::mt19937 random(seed);
    Dependencies dependencies;
    const auto anyFile = [&] {
        const QByteArray folder = QByteArray::number(uint(random() % 8));
        return dependencies.thing(folder + "/f" + QByteArray::number(uint(random() % files)));
    };
    for (int i = 0; i < 1000; ++i) {
        const Dependencies::Item tail = anyFile();
        dependencies.need(tail, anyFile());
    }
    return dependencies;
}

Dependencies layers()
{
    Dependencies dependencies;
    const Dependencies::Item base = dependencies.thing("base/one");
    dependencies.need(dependencies.thing("app/main"), base, 1234);
    dependencies.need(dependencies.thing("app/main"), dependencies.thing("app/help"));
    return dependencies;
}

} // namespace

TEST(DependencyMatrix, says_what_its_colours_mean_and_only_those_that_are_there)
{
    const auto drawn = drawnImport(DependencyPicture(layers(), {}), "matrix");
    EXPECT_TRUE(drawn.text.contains("the row needs the column"));
    EXPECT_TRUE(drawn.text.contains("itself, or within a folder"));
    EXPECT_FALSE(drawn.text.contains("in a cycle"));
    EXPECT_TRUE(drawn.text.contains("The title"));
}

TEST(DependencyMatrix, marks_cycles)
{
    const auto drawn = drawnImport(DependencyPicture(circle(3), {}), "matrix");
    EXPECT_TRUE(drawn.text.contains("both need each other, in a cycle"));
    EXPECT_EQ(drawn.text.count("#E8803C"), 4) << "three squares and one of the key";
}

TEST(DependencyMatrix, leaves_out_counts_that_have_no_room)
{
    const auto drawn = drawnImport(DependencyPicture(layers(), {}), "matrix");
    EXPECT_TRUE(drawn.text.contains("count=\"1234\""));
    EXPECT_FALSE(drawn.text.contains("label=\"1234\""));
}

TEST(DependencyPictures, keep_the_page_however_much_there_is)
{
    const Dependencies many = circle(3000);
    for (const char *engine : {"matrix", "gftree"}) {
        const auto drawn = drawnImport(DependencyPicture(many, {}), engine, 600, 400);
        ASSERT_TRUE(drawn.size.isValid()) << engine;
        EXPECT_LE(drawn.size.width(), 600) << engine;
        EXPECT_LE(drawn.size.height(), 400) << engine;
        EXPECT_GT(drawn.size.height(), 200) << engine;
    }
}

TEST(DependencyPictures, say_why_a_page_is_too_small)
{
    for (const char *engine : {"matrix", "gftree"}) {
        const auto drawn = drawnImport(DependencyPicture(layers(), {}), engine, 20, 20);
        EXPECT_TRUE(drawn.size.isValid()) << engine;
        EXPECT_TRUE(drawn.notes.value(0).contains(u"and not 20 x 20")) << engine;
    }
}

TEST(DependencyTree, tells_the_links_that_closed_cycles)
{
    const auto drawn = drawnImport(DependencyPicture(circle(3), {}), "gftree");
    EXPECT_TRUE(drawn.size.isValid());
    ASSERT_EQ(drawn.notes.size(), 1);
    EXPECT_TRUE(drawn.notes[0].startsWith(u"One link that closes a cycle is not drawn: "));
    EXPECT_TRUE(drawn.text.contains("label=\"in a cycle\""));
}

TEST(DependencyTree, tells_the_links_of_things_to_themselves)
{
    Dependencies dependencies = layers();
    dependencies.need(dependencies.thing("base/one"), dependencies.thing("base/one"));
    const auto drawn = drawnImport(DependencyPicture(dependencies, {}), "gftree");
    EXPECT_EQ(drawn.notes,
              QStringList{u"One link that closes a cycle is not drawn: base/one -> base/one."_s});
}

TEST(DependencyTree, shows_folders_that_all_need_each_other)
{
    for (const unsigned seed : {47U, 59U, 90U}) {
        const auto drawn = drawnImport(DependencyPicture(tangle(seed, 1000), {}), "gftree");
        EXPECT_GE(drawn.text.count(" path=\""), 8) << seed;
        EXPECT_TRUE(drawn.notes.join(u' ').contains(u"links that close cycles")) << seed;
        EXPECT_LE(drawn.size.width(), 1200) << seed;
    }
}

TEST(DependencyTree, says_why_all_is_one_box)
{
    const auto drawn = drawnImport(DependencyPicture(tangle(1, 1), {}), "gftree", 130, 80);
    EXPECT_TRUE(drawn.notes.contains(u"All 8 things are one box: parts of them have more links, "
                                     u"or take more room, than can be shown."_s))
        << drawn.notes.join(u' ').toStdString();
}

TEST(DependencyTree, folds_what_has_no_room_into_others)
{
    const auto drawn = drawnImport(DependencyPicture(circle(3000), {}), "gftree", 600, 400);
    ASSERT_GE(drawn.notes.size(), 1);
    const QString others = drawn.notes[0].section(u' ', 0, 0);
    EXPECT_EQ(drawn.notes[0],
              others + u" things are folded into others, whose links are not drawn."_s);
    EXPECT_TRUE(drawn.text.contains("label=\"" + others.toUtf8() + " others\""));
}

TEST(DependencyPictures, have_the_same_bytes_each_time)
{
    for (const char *engine : {"matrix", "gftree"}) {
        const DependencyPicture picture(circle(50), {});
        EXPECT_EQ(drawnImport(picture, engine).text, drawnImport(picture, engine).text);
    }
}
