#include "companion/import/builds/junit_import.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/builds/test_report.h"
#include "companion/import/trees/tree_result.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

struct ResultLook
{
    const char *name;
    const char *fill;
};

// By their numbers. Bad ones are warm, and darker than what is well, so that they are seen without
// their hues.
constexpr std::array<ResultLook, testResultCount> looks{
    {{"passed", "#A9D3F5"}, {"skipped", "#D9D9D9"}, {"failed", "#F28E2B"}, {"errors", "#C26BB0"}}};

QByteArray named(const QByteArray &name)
{
    return name.isEmpty() ? QByteArray("(unnamed)") : name;
}

// Suites, then the parts of the class, then the case; what says the same again is left out.
QByteArrayList pathOf(const TestCase &test)
{
    QByteArrayList path;
    for (const QByteArray &suite : test.suites)
        path.append(named(suite));
    const bool isRepeated = test.className == test.name || path.contains(test.className);
    if (!isRepeated && !test.className.isEmpty()) {
        for (const QByteArray &part : test.className.split('.'))
            path.append(named(part));
    }
    path.append(named(test.name));
    return path;
}

// Of bars: the class, else the suite.
QByteArray barOf(const TestCase &test)
{
    if (!test.className.isEmpty())
        return test.className;
    return test.suites.isEmpty() ? named(test.name) : named(test.suites.constLast());
}

WeightTree treeOf(const QList<TestCase> &cases, bool isByTime, bool isFlat)
{
    WeightTree tree;
    for (const TestCase &test : cases) {
        WeightTree::Item item = WeightTree::root;
        for (const QByteArray &part : isFlat ? QByteArrayList{barOf(test)} : pathOf(test))
            item = tree.child(item, part);
        tree.addWeight(item, isByTime ? test.seconds : 1);
        tree.setKind(item, std::max(tree.kind(item), int(test.result)));
    }
    return tree;
}

// The results with how many there are of each, as what takes no time is not seen.
QStringList countedResults(const QList<TestCase> &cases, const QString &form)
{
    std::array<qint64, testResultCount> counts{};
    for (const TestCase &test : cases)
        ++counts[size_t(test.result)];
    QStringList counted;
    for (size_t i = 0; i < testResultCount; ++i)
        counted.append(form.arg(QLatin1StringView(looks[i].name)).arg(counts[i]));
    return counted;
}

TreeMeaning meaningOf(const QList<TestCase> &cases, bool isByTime)
{
    TreeMeaning meaning;
    meaning.weight = isByTime ? u"time"_s : u"tests"_s;
    meaning.unit = isByTime ? TreeMeaning::Unit::Seconds : TreeMeaning::Unit::Count;
    meaning.coloring = TreeMeaning::Coloring::ByKind;
    meaning.color = u"result"_s;
    meaning.kinds = countedResults(cases, u"%1 (%2)"_s);
    meaning.rootName = countedResults(cases, u"%2 %1"_s).join(u", "_s);
    for (const ResultLook &look : looks)
        meaning.kindFills.append(QLatin1StringView(look.fill));
    return meaning;
}

} // namespace

int likenessOfJunit(QByteArrayView beginning)
{
    return beginning.trimmed().startsWith('<') && beginning.contains("<testsuite") ? 100 : 0;
}

ImportResult readJunit(std::vector<ImportSource> &sources, const ImportOptions &options)
{
    if (!options.area.empty() && options.area != "time" && options.area != "tests") {
        return {.fault = sources.front().faultHere(u"--area can be time or tests, not "_s
                                                   + quotedText(QByteArrayView(options.area)))};
    }
    TestReport report;
    for (ImportSource &source : sources) {
        if (std::optional<ImportFault> fault = readTestReport(&source, &report))
            return {.fault = fault};
    }
    const bool hasTimes =
        std::ranges::any_of(report.cases, [](const TestCase &test) { return test.seconds > 0; });
    const bool isByTime = hasTimes && options.area != "tests";
    ImportResult result =
        treeResult(treeOf(report.cases, isByTime, options.engine == "bar"_L1),
                   meaningOf(report.cases, isByTime), sources, u"no case of a test is in it"_s);
    result.notes = report.notes;
    return result;
}

} // namespace ORR::Companion
