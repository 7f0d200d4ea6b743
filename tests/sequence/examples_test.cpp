// The examples that a user starts from.
#include "graph/subgraph_walk.h"
#include "sequence_fixture.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

using namespace ORR::Graph;
using namespace Qt::StringLiterals;

namespace {

QString examplePath(const QString &name)
{
    return QStringLiteral(ORR_TEST_FOLDER "/../../examples/umlseq/") + name;
}

class SequenceExample : public testing::TestWithParam<const char *>
{
};

} // namespace

TEST_P(SequenceExample, draws_everything_that_it_names)
{
    const Drawing drawing(readTestFile(examplePath(QString::fromLatin1(GetParam()) + u".dot"_s)));
    ASSERT_TRUE(drawing.graph);
    EXPECT_EQ(drawing.result, u""_s);
    qsizetype edges = 0;
    qsizetype nodes = 0;
    qsizetype subgraphs = 0;
    for (const DotSubgraph *subgraph : subgraphsInPreorder(drawing.graph->root())) {
        edges += subgraph->edges.size();
        nodes += subgraph->nodes.size();
        subgraphs += subgraph->subgraphs.size();
    }
    EXPECT_EQ(drawing.parts.edges.size(), edges);
    // A marker for every section and a spacer for every fragment stand among the nodes.
    EXPECT_EQ(drawing.parts.nodes.size(), nodes + subgraphs);
    EXPECT_EQ(drawing.calls(u"beginCluster"_s).size(), subgraphs);
}

TEST_P(SequenceExample, lies_on_its_page)
{
    const Drawing drawing(readTestFile(examplePath(QString::fromLatin1(GetParam()) + u".dot"_s)));
    const QStringList page = drawing.device.calls().constFirst().split(u' ');
    ASSERT_EQ(page.size(), 3);
    static const QRegularExpression point(u"(-?\\d+),(-?\\d+)"_s);
    int seen = 0;
    for (const QString &call : drawing.device.calls()) {
        if (call.startsWith("text"_L1))
            continue;
        for (const auto &match : point.globalMatch(call)) {
            const int x = match.captured(1).toInt();
            const int y = match.captured(2).toInt();
            EXPECT_TRUE(x >= 0 && x <= page.at(1).toInt()) << call.toStdString();
            EXPECT_TRUE(y >= 0 && y <= page.at(2).toInt()) << call.toStdString();
            ++seen;
        }
    }
    EXPECT_GT(seen, 50);
}

INSTANTIATE_TEST_SUITE_P(UmlSequence, SequenceExample, testing::Values("login", "order"),
                         [](const auto &instance) { return std::string(instance.param); });

TEST(SequenceGuide, shows_a_diagram_that_is_drawn_as_written)
{
    const QByteArray guide = readTestFile(QStringLiteral(ORR_TEST_FOLDER "/../../docs/umlseq.md"));
    const qsizetype start = guide.indexOf("```dot\n") + 7;
    const Drawing drawing(guide.mid(start, guide.indexOf("```", start) - start));
    ASSERT_TRUE(drawing.graph);
    EXPECT_EQ(drawing.result, u""_s);
    EXPECT_EQ(drawing.parts.nodes.size(), 6);
    EXPECT_EQ(drawing.parts.edges.size(), 7);
}
