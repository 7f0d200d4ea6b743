// All inputs of the project, and the same spoiled: a rejection is told exactly where the reader or
// the replay rejects. ORR_MUTATIONS sets how many spoiled ones, ORR_MUTATION_SEED where to begin.
#include "companion/check/watched_drawing.h"
#include "companion/syntax_told.h"
#include "device/xdot_render.h"
#include "graph/dot_parser.h"
#include "mutation/mutator.h"
#include "support/golden.h"

#include <gtest/gtest.h>

#include <QDirIterator>

#include <algorithm>
#include <memory>

using namespace ORR;
using namespace Qt::StringLiterals;

namespace {

// The files of a folder of the project and those within, sorted.
QStringList filesOf(const QString &folder, const QStringList &kinds)
{
    QStringList files;
    QDirIterator walk(QStringLiteral(ORR_PROJECT_FOLDER) + u'/' + folder, kinds, QDir::Files,
                      QDirIterator::Subdirectories);
    while (walk.hasNext())
        files += walk.next();
    files.sort();
    return files;
}

bool isRejected(const QByteArray &text)
{
    const std::unique_ptr<Graph::DotGraph> graph = Graph::parseDot(text);
    if (!graph)
        return true;
    if (!graph->root()->attributes.contains(u"xdotversion"_s))
        return false;
    Companion::WatchedDrawing device(Companion::WatchedDrawing::Fonts::Missing);
    return !Graph::Graphviz::XDotRender(&device, graph.get()).render(text).isEmpty();
}

testing::AssertionResult rejectionIsTold(const QByteArray &text)
{
    const QList<Companion::Finding> findings = Companion::checkText(text, {});
    const auto told = std::ranges::count_if(
        findings, Companion::isRejection,
        [](const Companion::Finding &finding) -> const Companion::Rule & { return *finding.rule; });
    if (told == (isRejected(text) ? 1 : 0))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << told << " rejections told\n"
                                       << toldOf(text).join(u'\n').toStdString() << '\n'
                                       << text.toStdString();
}

} // namespace

TEST(Rejections, a_rejection_is_told_of_every_rejected_input_and_of_no_other)
{
    const QStringList files = filesOf(u"fuzz/corpus"_s, {u"*"_s})
        + filesOf(u"tests"_s, {u"*.dot"_s, u"*.xdot"_s}) + filesOf(u"examples"_s, {u"*.dot"_s});
    ASSERT_GT(files.size(), 100);
    for (const QString &file : files)
        EXPECT_TRUE(rejectionIsTold(readTestFile(file))) << file.toStdString();
}

TEST(Rejections, a_rejection_is_told_of_every_spoiled_input_and_of_no_other)
{
    const QStringList files = filesOf(u"tests/drawings"_s, {u"*.dot"_s, u"*.xdot"_s})
        + filesOf(u"fuzz/corpus/reader"_s, {u"*"_s});
    ASSERT_FALSE(files.isEmpty());
    int rejected = 0;
    constexpr int ordinaryRounds = 3000;
    const int first = numberFromEnvironment("ORR_MUTATION_SEED", 1);
    const int rounds = numberFromEnvironment("ORR_MUTATIONS", ordinaryRounds);
    for (int seed = first; seed < first + rounds; ++seed) {
        Mutator mutator{quint64(seed)};
        const QByteArray text =
            mutator.mutated(readTestFile(files.at(mutator.below(files.size()))));
        ASSERT_TRUE(rejectionIsTold(text)) << "ORR_MUTATIONS=1 ORR_MUTATION_SEED=" << seed;
        rejected += isRejected(text) ? 1 : 0;
    }
    // Of both there are many.
    EXPECT_GE(rejected, rounds / 20);
    EXPECT_LE(rejected, rounds - rounds / 20);
}
