// What `orr check` tells of the drawings of the project is true.
#include "companion/check/check_text.h"
#include "companion/drawing_findings.h"
#include "support/corpus.h"
#include "support/golden.h"

#include <QDir>
#include <QMap>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

// All that is told, each with the reason why it is meant.
const QMap<QString, QStringList> &knownFindings()
{
    static const QMap<QString, QStringList> known{
        // The names of small files on a map of the project's own sources.
        {u"examples/treemap/own_source.dot"_s, {u"unseen-label"_s, u"left-out-node"_s}},
        // Small files of the project; the slices of their folders are there.
        {u"examples/sunburst/own_files.dot"_s, {u"left-out-node"_s}},
        // A bar without a value, a slice and a cell that are too narrow, and labels in cells that
        // are too small for them, are what the goldens are about.
        {u"tests/drawings/bar/leftward.dot"_s, {u"left-out-node"_s}},
        {u"tests/drawings/sunburst/folders.dot"_s, {u"left-out-node"_s}},
        {u"tests/drawings/treemap/files.dot"_s, {u"unseen-label"_s, u"left-out-node"_s}},
    };
    return known;
}

QStringList rulesOf(const QList<Finding> &findings)
{
    QStringList rules;
    for (const Finding &finding : findings) {
        if (isOfDrawing(finding))
            rules +=
                QString::fromLatin1(finding.rule->id.data(), qsizetype(finding.rule->id.size()));
    }
    return rules;
}

class ForetoldCorpus : public testing::TestWithParam<CorpusInput>
{
};

} // namespace

TEST_P(ForetoldCorpus, gives_no_false_alarm)
{
    const CorpusInput &input = GetParam();
    const QDir project(QStringLiteral(ORR_TEST_FOLDER "/../.."));
    const QStringList expected = knownFindings().value(project.relativeFilePath(input.file));
    EXPECT_EQ(rulesOf(checkText(input.text(), {input.engine()})), expected);
}

INSTANTIATE_TEST_SUITE_P(All, ForetoldCorpus, testing::ValuesIn(corpusInputs()), nameOfInput);

TEST(ForetoldReplays, give_no_false_alarm)
{
    int count = 0;
    for (const CorpusInput &input : drawingInputs()) {
        EXPECT_EQ(rulesOf(checkText(readTestFile(input.besideIt(u"xdot"_s)), {})), QStringList())
            << input.file.toStdString();
        ++count;
    }
    EXPECT_GE(count, 8);
}

// By another program, whose drawings fill their pages.
TEST(ForetoldReplays, give_no_false_alarm_for_foreign_ones)
{
    const QDir folder(QStringLiteral(ORR_TEST_FOLDER "/../xdot/foreign"));
    const QStringList names = folder.entryList({u"*.xdot"_s}, QDir::Files, QDir::Name);
    EXPECT_GE(names.size(), 8);
    for (const QString &name : names)
        EXPECT_EQ(rulesOf(checkText(readTestFile(folder.filePath(name)), {})), QStringList())
            << name.toStdString();
}
