// Whatever the project itself draws and shows is well formed, or what is said of it is true.
#include "companion/check/check_text.h"
#include "companion/check/rules.h"
#include "support/corpus.h"
#include "support/golden.h"

#include <QDir>
#include <QMap>
#include <QStringList>

using namespace ORR::Companion;
using namespace Qt::StringLiterals;

namespace {

// All that is said with good reason, by what is asked for.
const QMap<QString, QStringList> trueFindings{
    // The segments of edges stand at the graph, where they change nothing.
    {u"tests/drawings/gftree/compact.dot"_s, {u"unread-attribute"_s, u"unread-attribute"_s}},
    {u"-K gftree tests/drawings/gftree/compact.dot"_s,
     {u"unread-attribute"_s, u"unread-attribute"_s}},
    // The names of small files on a map of the project's own sources.
    {u"-K treemap examples/treemap/own_source.dot"_s, {u"unseen-label"_s, u"left-out-node"_s}},
    // Small files of the project; the slices of their folders are there.
    {u"-K sunburst examples/sunburst/own_files.dot"_s, {u"left-out-node"_s}},
    // A bar without a value, a slice and a cell that are too narrow, and labels in cells that are
    // too small for them, are what the goldens are about.
    {u"-K bar tests/drawings/bar/leftward.dot"_s, {u"left-out-node"_s}},
    {u"-K sunburst tests/drawings/sunburst/folders.dot"_s, {u"left-out-node"_s}},
    {u"-K treemap tests/drawings/treemap/files.dot"_s, {u"unseen-label"_s, u"left-out-node"_s}},
    // The first activation is called by nobody, and a return ends it.
    {u"-K umlseq tests/sequence/goldens/call.dot"_s, {u"return-without-call"_s}},
    {u"-K umlseq tests/sequence/goldens/fragment.dot"_s, {u"return-without-call"_s}},
    // Spacers that are less than nothing wide.
    {u"tests/sequence/goldens/spacers.dot"_s, QStringList(4, u"senseless-value"_s)},
    {u"-K umlseq tests/sequence/goldens/spacers.dot"_s, QStringList(4, u"senseless-value"_s)},
    // Widths of lines as styles, which are not in the dialect, and a line that gets narrower.
    {u"tests/xdot/foreign/colours.xdot"_s, QStringList(5, u"unknown-word"_s)},
    {u"tests/xdot/foreign/styles.xdot"_s, QStringList(8, u"unknown-word"_s)},
    // Ends of edges with ports, which become nodes that nothing is drawn for.
    {u"tests/xdot/foreign/loops.xdot"_s, {u"port"_s, u"port"_s}},
    {u"tests/xdot/foreign/records.xdot"_s, {u"port"_s, u"port"_s}},
    // What the dialect does not have; the converted ones have none of it.
    {u"tests/xdot/foreign/html.xdot"_s, {u"html-text-rejected"_s}},
    {u"tests/xdot/foreign/ranks.xdot"_s, {u"bare-braces"_s}},
    {u"tests/xdot/foreign/undirected.xdot"_s, {u"strict-graph"_s}},
};

const QDir &project()
{
    static const QDir folder(QStringLiteral(ORR_PROJECT_FOLDER));
    return folder;
}

QStringList filesIn(const QString &folder, const QString &kind)
{
    QStringList files;
    const QDir inProject(project().filePath(folder));
    for (const QString &name : inProject.entryList({kind}, QDir::Files, QDir::Name))
        files += folder + u'/' + name;
    return files;
}

// Everything that is drawn, as the command line has it: files with their engines, and files alone.
QStringList everything()
{
    QStringList checks;
    for (const CorpusInput &input : corpusInputs()) {
        const QString file = project().relativeFilePath(input.file);
        checks += {file, "-K "_L1 + input.engine() + u' ' + file};
    }
    for (const CorpusInput &input : drawingInputs())
        checks += project().relativeFilePath(input.besideIt(u"xdot"_s));
    for (const QString &file : filesIn(u"tests/sequence/goldens"_s, u"*.dot"_s))
        checks += {file, "-K umlseq "_L1 + file};
    // By other programs.
    for (const QString &folder :
         {u"tests/xdot/foreign"_s, u"tests/xdot/foreign/converted"_s, u"tests/xdot/round_trip"_s})
        checks += filesIn(folder, u"*.xdot"_s);
    return checks;
}

QStringList findingsOf(const QString &check)
{
    const QString file = check.section(u' ', -1);
    const QString engine = file == check ? QString() : check.section(u' ', 1, 1);
    QStringList rules;
    // The fonts of other programs are other ones.
    const bool isForeign = file.startsWith("tests/xdot/foreign/"_L1);
    for (const Finding &finding :
         checkText(readTestFile(project().filePath(file)), CheckOptions{engine})) {
        if (!isForeign || finding.rule != &Rules::replacedFont)
            rules +=
                QString::fromLatin1(finding.rule->id.data(), qsizetype(finding.rule->id.size()));
    }
    return rules;
}

} // namespace

TEST(NoFalseAlarm, is_raised_by_what_the_project_draws)
{
    const QStringList checks = everything();
    EXPECT_GT(checks.size(), 100);
    for (const QString &check : checks)
        EXPECT_EQ(findingsOf(check), trueFindings.value(check)) << check.toStdString();
    // What is excepted is there.
    for (const QString &check : trueFindings.keys())
        EXPECT_TRUE(checks.contains(check)) << check.toStdString();
}
