// `orr page`, the real program: where it writes, what it says, when it fails.
#include "companion/read_page.h"
#include "driver/program_run.h"
#include "support/golden.h"

#include <QFile>
#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

class PageTest : public ProgramTest
{
protected:
    void SetUp() override { writeFile(u"a.dot"_s, smallGraph()); }

    ProgramRun page(const QStringList &arguments, const QByteArray &input = {}) const
    {
        return run({.arguments = QStringList{u"page"_s} + arguments, .input = input});
    }

    // A run that says this and leaves no file.
    testing::AssertionResult fails(const QStringList &arguments, int status,
                                   const QByteArray &message) const
    {
        const ProgramRun call = page(arguments);
        if (call.status == status && call.output.isEmpty() && call.errors == message
            && files() == QStringList{u"a.dot"_s})
            return testing::AssertionSuccess();
        return testing::AssertionFailure()
            << "status " << call.status << ", \"" << call.errors.toStdString() << '"';
    }
};

} // namespace

TEST_F(PageTest, writes_beside_the_input)
{
    EXPECT_TRUE(succeeded(page({u"-K"_s, u"treemap"_s, u"a.dot"_s})));
    EXPECT_EQ(files(), QStringList({u"a.dot"_s, u"a.html"_s}));
    const QJsonObject read = readPage(fileContent(u"a.html"_s));
    EXPECT_EQ(read[u"title"_s], u"a"_s);
    EXPECT_GT(read[u"ids"_s].toArray().size(), 1);
}

TEST_F(PageTest, writes_the_same_bytes_everywhere)
{
    const ProgramRun stream = page({u"-K"_s, u"TreeMap"_s, u"--title"_s, u"T"_s}, smallGraph());
    EXPECT_EQ(stream.errors, "");
    EXPECT_EQ(stream.status, 0);
    EXPECT_TRUE(stream.output.startsWith("<!DOCTYPE html>\n"));
    EXPECT_EQ(readPage(stream.output)[u"title"_s], u"T"_s);
    const QStringList options{u"-K"_s, u"treemap"_s, u"--title"_s, u"T"_s};
    EXPECT_EQ(page(options + QStringList{u"-o"_s, u"b.html"_s}, smallGraph()).status, 0);
    EXPECT_EQ(fileContent(u"b.html"_s), stream.output);
    EXPECT_EQ(page(options + QStringList{u"-o"_s, u"-"_s, u"a.dot"_s}).output, stream.output);
}

TEST_F(PageTest, takes_the_engine_that_the_graph_names)
{
    writeFile(u"a.dot"_s, "digraph { graph [layout=bar]; a [area=1]; }");
    EXPECT_TRUE(succeeded(page({u"a.dot"_s})));
    const QJsonObject data = readPage(fileContent(u"a.html"_s))[u"data"_s].toObject();
    EXPECT_EQ(data[u"engine"_s], u"bar"_s);
}

TEST_F(PageTest, says_what_is_wrong)
{
    EXPECT_TRUE(fails({u"-K"_s, u"tremap"_s, u"a.dot"_s}, 2,
                      "orr page: there is no engine 'tremap'; did you mean 'treemap'?\n"
                      "Try 'orr page --help'.\n"));
    EXPECT_TRUE(fails({u"a.dot"_s}, 1,
                      "orr page: 'a.dot': no engine is given: -K names one, or \"layout\" of the "
                      "graph\n"));
    EXPECT_TRUE(fails({u"-K"_s, u"bar"_s, u"no.dot"_s}, 2,
                      "orr page: 'no.dot' can't be read: No such file or directory\n"));
    EXPECT_TRUE(fails({u"-K"_s, u"bar"_s, u"-o"_s, u"no/a.html"_s, u"a.dot"_s}, 2,
                      "orr page: 'no/a.html' can't be written: No such file or directory\n"));
    EXPECT_TRUE(fails({u"-K"_s, u"bar"_s, u"-o"_s, u"./a.dot"_s, u"a.dot"_s}, 2,
                      "orr page: './a.dot' is the input and would be written over\n"
                      "Try 'orr page --help'.\n"));
    EXPECT_TRUE(fails({u"-K"_s, u"bar"_s, u"-o"_s, u"/dev/full"_s, u"a.dot"_s}, 2,
                      "orr page: '/dev/full' can't be written: not all of it arrived\n"));
}

TEST_F(PageTest, leaves_what_stood_there_if_it_fails)
{
    writeFile(u"a.html"_s, "before");
    writeFile(u"a.dot"_s, "digraph {");
    const ProgramRun run = page({u"-K"_s, u"bar"_s, u"a.dot"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "orr page: 'a.dot': Unable to parse dot input\n");
    EXPECT_EQ(fileContent(u"a.html"_s), "before");
}

TEST_F(PageTest, shows_no_control_character_of_the_input)
{
    writeFile(u"a.dot"_s, "digraph { graph [layout=\"\x1b[31m\"]; }");
    EXPECT_TRUE(fails({u"a.dot"_s}, 1, "orr page: 'a.dot': there is no engine '\\x1b[31m'\n"));
}

// Deeper than any reader goes.
TEST_F(PageTest, draws_subgraphs_within_subgraphs)
{
    constexpr int depth = 100'000;
    writeFile(u"a.dot"_s,
              "digraph { " + QByteArray("subgraph { ").repeated(depth) + "a [area=1]; "
                  + QByteArray("}").repeated(depth) + " }");
    EXPECT_TRUE(succeeded(page({u"-K"_s, u"gfdecl"_s, u"a.dot"_s})));
    const QJsonObject read = readPage(fileContent(u"a.html"_s));
    EXPECT_EQ(read[u"ids"_s].toArray().size(), 400);
}
