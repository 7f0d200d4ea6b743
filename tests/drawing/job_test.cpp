#include "drawing/job.h"

#include "support/golden.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace ORR;
using namespace ORR::Drawing;
using namespace Qt::StringLiterals;

namespace {

const QByteArray graph = "digraph { a [area=3 label=Alpha]; b [area=1]; a -> b; }";
const QByteArray finished = R"(digraph { graph [bb="0,0,50,20" xdotversion="1.2"];
    a [_ldraw_="F 10 5 -Arial c 7 -#000000 T 10 10 0 20 11 -<b>bold</b>"]; })";

Job treemap(Format format)
{
    return {.input = graph,
            .engine = u"treemap"_s,
            .format = format,
            .homeDirectory = QStringLiteral(ORR_HOME)};
}

// A drawing in memory that succeeds.
QByteArray drawn(const Job &job)
{
    QByteArray bytes;
    const Outcome outcome = draw(job, inMemory(&bytes, job.format));
    EXPECT_EQ(outcome.fault, Outcome::None);
    EXPECT_EQ(outcome.message, QString());
    return bytes;
}

// One that fails, into memory that held something before.
Outcome failed(const Job &job)
{
    QByteArray bytes = "what stood there";
    const Outcome outcome = draw(job, inMemory(&bytes, job.format));
    EXPECT_EQ(bytes, "");
    return outcome;
}

} // namespace

TEST(Job, draws_the_same_to_memory_and_to_a_file)
{
    const QTemporaryDir folder;
    for (const FormatRow &row : formatTable()) {
        const Job job = treemap(*chooseFormat(row.name, QString()));
        const QString name = folder.filePath(u"drawing."_s + row.name);
        EXPECT_EQ(draw(job, name).message, QString());
        const QByteArray inFile = readTestFile(name);
        EXPECT_FALSE(inFile.isEmpty()) << row.name.data();
        EXPECT_TRUE(drawn(job) == inFile) << row.name.data();
    }
}

TEST(Job, in_memory_leaves_no_file)
{
    const QTemporaryDir folder;
    const QString former = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    for (const FormatRow &row : formatTable())
        drawn(treemap(*chooseFormat(row.name, QString())));
    const QStringList files =
        QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    ASSERT_TRUE(QDir::setCurrent(former));
    EXPECT_EQ(files, QStringList());
}

TEST(Job, takes_the_name_of_the_engine_in_any_case)
{
    Job job = treemap(Format::Svg);
    const QByteArray plainly = drawn(job);
    job.engine = u"TreeMap"_s;
    EXPECT_EQ(drawn(job), plainly);
}

TEST(Job, replays_a_finished_drawing_whatever_the_engine)
{
    const QByteArray replayed = drawn({.input = finished});
    EXPECT_TRUE(replayed.contains("&lt;b&gt;bold")) << replayed.toStdString();
    EXPECT_EQ(drawn({.input = finished, .engine = u"nonsense"_s}), replayed);
}

TEST(Job, reads_labels_as_html_when_asked)
{
    const QByteArray replayed = drawn({.input = finished, .htmlLabels = true});
    EXPECT_FALSE(replayed.contains("&lt;b&gt;")) << replayed.toStdString();
    EXPECT_TRUE(replayed.contains("bold")) << replayed.toStdString();
}

TEST(Job, says_that_the_input_is_no_graph)
{
    const Outcome outcome = failed({.input = "digraph {", .engine = u"treemap"_s});
    EXPECT_EQ(outcome.fault, Outcome::Input);
    EXPECT_EQ(outcome.message, u"Unable to parse dot input\n"_s);
}

TEST(Job, says_that_there_is_no_such_engine)
{
    for (const QString &name : {u""_s, u"nonsense"_s}) {
        const Outcome outcome = failed({.input = graph, .engine = name});
        EXPECT_EQ(outcome.fault, Outcome::Engine);
        EXPECT_EQ(outcome.message,
                  u"Layout required and layout engine not provided/available.\n\n"_s);
    }
}

TEST(Job, passes_on_what_an_engine_refuses)
{
    for (const FormatRow &row : formatTable()) {
        const Outcome outcome = failed({.input = "digraph { a; subgraph s { b } }",
                                        .engine = u"gftree"_s,
                                        .format = *chooseFormat(row.name, QString())});
        EXPECT_EQ(outcome.fault, Outcome::Drawing);
        EXPECT_EQ(outcome.message, u"GraflibTree does not support subgraphs\n"_s);
    }
}

TEST(Job, passes_on_what_a_device_says)
{
    const Outcome outcome = draw(treemap(Format::Svg), u"/nowhere/at/all.svg"_s);
    EXPECT_EQ(outcome.fault, Outcome::Drawing);
    EXPECT_EQ(outcome.message, u"Unable to open file\n"_s);
}

TEST(Job, that_fails_leaves_the_file_that_stood_there)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(u"drawing.svg"_s);
    ASSERT_EQ(draw(treemap(Format::Svg), name).fault, Outcome::None);
    const QByteArray before = readTestFile(name);
    EXPECT_EQ(draw({.input = graph, .engine = u"nonsense"_s}, name).fault, Outcome::Engine);
    EXPECT_EQ(readTestFile(name), before);
}

TEST(Job, leaves_the_graph_to_the_caller)
{
    const Job job = treemap(Format::Svg);
    const Reading reading = readGraph(job);
    ASSERT_TRUE(reading.graph);
    QByteArray bytes;
    ASSERT_EQ(drawGraph(job, reading.graph.get(), &bytes).fault, Outcome::None);
    EXPECT_EQ(reading.graph->root()->nodes.size(), 2);
    EXPECT_EQ(bytes, drawn(job));
}
