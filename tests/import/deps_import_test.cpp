#include "companion/import/dependencies/deps_import.h"

#include "companion/import/dependencies/deps_lists.h"
#include "companion/produce/dependency_picture.h"
#include "import/imported.h"

#include <gtest/gtest.h>

using namespace ORR::Companion;

namespace {

const Dependencies &dependenciesOf(const ImportResult &result)
{
    return static_cast<const DependencyPicture &>(*result.picture).dependencies();
}

// "tail > head x weight", sorted.
QStringList needsIn(const ImportResult &result)
{
    QStringList needs;
    const Dependencies &dependencies = dependenciesOf(result);
    for (const Dependencies::Edge &edge : dependencies.edges())
        needs.append(QStringLiteral("%1 > %2 x %3")
                         .arg(dependencies.path(edge.tail), dependencies.path(edge.head))
                         .arg(edge.weight));
    needs.sort();
    return needs;
}

} // namespace

TEST(DepsLine, is_two_names_and_maybe_a_number)
{
    struct Case
    {
        const char *line, *tail, *head;
        double weight;
    };
    for (const Case &expected : {Case{"a -> b", "a", "b", 1}, Case{"a b -> c d;", "a b", "c d", 1},
                                 Case{"a -> b 3", "a", "b", 3}, Case{"a\tb c\t3", "a", "b c", 3},
                                 Case{"a b 2.5", "a", "b", 2.5}, Case{"\"a b\" c", "a b", "c", 1},
                                 Case{"\"a\" -> \"b -> c\" 7", "a", "b -> c", 7}}) {
        DepsLine read;
        ASSERT_TRUE(readDepsLine(expected.line, &read)) << expected.line;
        EXPECT_EQ(read.tail, expected.tail) << expected.line;
        EXPECT_EQ(read.head, expected.head) << expected.line;
        EXPECT_EQ(read.weight, expected.weight) << expected.line;
    }
}

TEST(DepsLine, is_nothing_else)
{
    for (const char *line : {"a", "a -> ", " -> b", "a b c", "a b -1", "a -> b -5", "a b nan",
                             "\"\" b", "a\tb\t1e999"}) {
        DepsLine read;
        EXPECT_FALSE(readDepsLine(line, &read)) << line;
    }
}

TEST(DepsImport, reads_lists)
{
    const auto result = importedBytes("deps", "# who\na/x -> b\n\na/x -> b\r\nb -> c\n");
    ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
    EXPECT_EQ(needsIn(result), (QStringList{"a/x > b x 2", "b > c x 1"}));
}

TEST(DepsImport, tells_the_line_that_is_broken)
{
    const auto result = importedBytes("deps", "a -> b\nrubbish\n");
    EXPECT_FALSE(result.picture);
    ASSERT_TRUE(result.fault);
    EXPECT_EQ(result.fault->place.line, 2);
    EXPECT_TRUE(faultOf(result).startsWith("'rubbish' is no dependency")) << faultOf(result).data();
}

TEST(DepsImport, reads_npm_locks_with_the_copy_that_each_package_gets)
{
    const auto result = importedFile("deps", "deps/package-lock.json");
    ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
    const QStringList needs = needsIn(result);
    EXPECT_TRUE(needs.contains("ex > express x 1"));
    EXPECT_TRUE(needs.contains("debug > ms x 1"));
    EXPECT_TRUE(needs.contains("send > ms 2.1.3 x 1")) << needs.join('\n').toStdString();
    EXPECT_TRUE(result.notes.isEmpty());
}

TEST(DepsImport, reads_locks_of_the_first_version)
{
    const auto result = importedFile("deps", "deps/package-lock-1.json");
    ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
    const QStringList needs = needsIn(result);
    for (const char *need : {"ex > finalhandler x 1", "ex > debug x 1", "debug > ms x 1",
                             "finalhandler > debug 2.6.9 x 1", "debug 2.6.9 > ms 2.0.0 x 1"})
        EXPECT_TRUE(needs.contains(QString::fromLatin1(need))) << need << " is not in\n"
                                                               << needs.join('\n').toStdString();
    EXPECT_FALSE(needs.contains("ex > ms x 1"));
    EXPECT_TRUE(result.notes.isEmpty());
    EXPECT_TRUE(faultOf(importedBytes("deps", R"({"lockfileVersion": 1})")).contains("version 1"));
    QByteArray deep = R"({"lockfileVersion": 1)";
    deep += QByteArray(R"(, "dependencies": {"a": {"version": "1")").repeated(60)
        + QByteArray("}}").repeated(60) + '}';
    EXPECT_EQ(faultOf(importedBytes("deps", deep)),
              "its packages are nested deeper than 50 levels");
}

TEST(DepsImport, tells_a_wish_that_its_input_does_not_grant)
{
    EXPECT_EQ(faultOf(importedBytes("deps", "a -> b\n", {.by = "targets"})),
              "--by is for the folder of a build, and this is a file");
    EXPECT_EQ(faultOf(importedFile("deps", "deps/shapes", {.by = "x"})),
              "--by can be targets or files, of the folder of a build, not 'x'");
    EXPECT_TRUE(importedFile("deps", "deps/shapes", {.by = "files"}).picture);
    EXPECT_EQ(faultOf(importedFile("deps", "dot", {.by = "files"})),
              "there is no compile_commands.json in it");
    EXPECT_TRUE(faultOf(importedFile("deps", "dot", {.by = "targets"})).contains("no reply"));
}

TEST(DepsImport, tells_numbers_that_add_up_beyond_double)
{
    EXPECT_EQ(faultOf(importedBytes("deps", "a -> b 1e308\nb -> c 1e308\n")),
              "its numbers add up to more than a number can hold");
}

TEST(DepsImport, reads_what_cargo_resolved)
{
    const auto result = importedFile("deps", "deps/cargo.json");
    ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
    EXPECT_EQ(needsIn(result),
              (QStringList{"workspace/counts > workspace/lines x 1",
                           "workspace/counts > workspace/words x 1",
                           "workspace/report > workspace/counts x 1",
                           "workspace/report > workspace/words x 1",
                           "workspace/words > workspace/lines x 1"}));
}

TEST(DepsImport, reads_the_rules_beside_the_objects_of_a_build)
{
    const auto result = importedFile("deps", "deps/shapes");
    ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
    const QStringList needs = needsIn(result);
    EXPECT_TRUE(needs.contains("tmp/shapes/draw/svg.cpp > tmp/shapes/base/files.h x 1"))
        << needs.join('\n').toStdString();
    EXPECT_FALSE(needs.join(' ').contains("/usr/"));
    EXPECT_EQ(dependenciesOf(result).thingCount(), 12);
}

TEST(DepsImport, reads_targets_of_the_file_api)
{
    const auto result = importedFile("deps", "deps/shapes", {.by = "targets"});
    ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
    EXPECT_TRUE(needsIn(result).contains("app/show > draw/svg x 1"));
    ASSERT_EQ(result.notes.size(), 1);
    EXPECT_EQ(result.notes[0].sentence, u"1 targets that only run commands are left out");
}

TEST(DepsImport, reads_what_ninja_keeps)
{
    const auto result = importedFile("deps", "deps/includes.deps");
    ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
    EXPECT_TRUE(needsIn(result).contains("src/output/svg.cpp > src/output/svg.h x 1"));
}

TEST(DepsImport, reads_rules_with_escapes)
{
    const auto result = importedBytes("deps", "a.o: a\\ b.c \\\n  h$$.h \\\r\n /usr/include/x.h\n");
    ASSERT_TRUE(result.picture) << faultOf(result).toStdString();
    EXPECT_EQ(needsIn(result), (QStringList{"a b.c > h$.h x 1"}));
}

TEST(DepsImport, tells_what_json_is_none_of)
{
    EXPECT_TRUE(faultOf(importedBytes("deps", "{\"a\": 1}")).startsWith("this is none of: "));
    const auto broken = importedBytes("deps", "{\"a\": ");
    ASSERT_TRUE(broken.fault);
    EXPECT_GE(broken.fault->place.offset, 0);
}

TEST(DepsImport, tells_commands_without_rules)
{
    const auto result = importedBytes(
        "deps", R"([{"directory": "/nowhere", "file": "a.c", "command": "cc -c a.c -o a.o"}])");
    EXPECT_TRUE(faultOf(result).contains("ninja -t deps"));
}

TEST(DepsImport, tells_members_that_are_something_else)
{
    const auto told = [](const QByteArray &text) {
        const auto result = importedBytes("deps", text);
        return result.fault ? '@' + QByteArray::number(result.fault->place.offset) + ' '
                + result.fault->place.path.toUtf8() + ": " + result.fault->sentence.toUtf8()
                            : QByteArray("no fault");
    };
    EXPECT_EQ(
        told(R"({"lockfileVersion":3,"packages":{"":{"dependencies":5},"node_modules/a":7}})"),
        "@72 $.packages.node_modules/a: an object is expected here, and this is a number");
    EXPECT_EQ(told(R"({"lockfileVersion":3,"packages":{"":{"dependencies":5}}})"),
              "@52 $.packages..dependencies: an object is expected here, and this is a number");
    EXPECT_EQ(told(R"({"lockfileVersion":3,"packages":[]})"),
              "@32 $.packages: an object is expected here, and this is an array");
    EXPECT_EQ(told(R"({"lockfileVersion":1,"requires":true,"dependencies":{"a":{"requires":[]}}})"),
              "@69 $.dependencies.a.requires: an object is expected here, and this is an array");
    EXPECT_EQ(told(R"({"packages":[{"id":1}],"resolve":{"nodes":[]}})"),
              "@19 $.packages[0].id: a string is expected here, and this is a number");
    EXPECT_EQ(
        told(R"({"packages":[],"resolve":{"nodes":[{"id":"a","dependencies":{}}]}})"),
        "@60 $.resolve.nodes[0].dependencies: an array is expected here, and this is an object");
}

TEST(DepsImport, is_told_by_its_look)
{
    for (const char *name : {"deps/package-lock.json", "deps/cargo.json", "deps/includes.deps",
                             "deps/shapes/compile_commands.json"})
        EXPECT_GT(likenessOfDeps(importDataBytes(name)), 50) << name;
    EXPECT_GT(likenessOfDeps("a -> b\nb -> c\n"), 50);
    EXPECT_EQ(likenessOfDeps("main;draw;fill 12\n"), 0);
    EXPECT_EQ(likenessOfDeps("digraph { a -> b }"), 0);
}

TEST(DepsImport, ends_no_process_whatever_it_reads)
{
    EXPECT_GT(readBrokenImports("deps", "matrix", importDataBytes("deps/cargo.json")), 100);
    readBrokenImports("deps", "gftree", importDataBytes("deps/includes.deps").first(3000));
    readBrokenImports("deps", "matrix", importDataBytes("deps/package-lock.json").first(4000));
    EXPECT_GT(readBrokenImports("deps", "matrix", "a -> b\nc/d -> e\nx\ty\t12\n"), 0);
}

TEST(DepsImport, keeps_the_page_with_what_tools_wrote)
{
    for (const char *name : {"deps/package-lock.json", "deps/includes.deps"}) {
        for (const char *engine : {"matrix", "gftree"}) {
            const auto result = importedFile("deps", name);
            ASSERT_TRUE(result.picture);
            const auto drawn = drawnImport(*result.picture, engine);
            EXPECT_TRUE(drawn.size.isValid()) << name << engine;
            EXPECT_LE(drawn.size.width(), 1200) << name << engine;
            EXPECT_LE(drawn.size.height(), 800) << name << engine;
        }
    }
}
