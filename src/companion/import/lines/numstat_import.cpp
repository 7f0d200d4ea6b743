#include "companion/import/lines/numstat_import.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/lines/change_log.h"
#include "companion/import/lines/numstat_lines.h"
#include "companion/import/reading/first_lines.h"
#include "companion/import/trees/tree_result.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// So much of the files lie below the upper end of the scale: one that is changed all the time would
// leave no colours for the others.
constexpr double scaledPart = 0.95;

// The next number of 1, 2 or 5 and zeros, for the end of a scale.
double roundedScaleEnd(double value)
{
    const double power = std::pow(10, std::floor(std::log10(std::max(value, 1.0))));
    for (const double step : {1.0, 2.0, 5.0}) {
        if (value <= step * power)
            return step * power;
    }
    return 10 * power;
}

double changesScaleEnd(QList<double> values)
{
    if (values.isEmpty())
        return 1;
    std::sort(values.begin(), values.end());
    return roundedScaleEnd(values[qsizetype(scaledPart * double(values.size() - 1))]);
}

ImportResult changedFilesResult(const ChangeLog &log, const std::vector<ImportSource> &sources)
{
    WeightTree tree;
    QList<double> changes;
    for (const ChangeLog::Entry &file : log.files()) {
        if (file.isGone)
            continue;
        const WeightTree::Item item = tree.at(file.name);
        tree.addWeight(item, std::max(1.0, file.lines.added - file.lines.deleted));
        tree.addShare(item, file.lines.all(), 1);
        changes.append(file.lines.all());
    }
    return treeResult(std::move(tree),
                      {.weight = u"lines"_s,
                       .unit = TreeMeaning::Unit::Count,
                       .coloring = TreeMeaning::Coloring::ByShare,
                       .color = u"lines changed, per file"_s,
                       .scale = TreeMeaning::Scale::Rising,
                       .share = u"changed"_s,
                       .sharesAreParts = false,
                       .high = changesScaleEnd(changes)},
                      sources, u"there is no change; the lines of --numstat are expected"_s);
}

ImportResult changedGroupsResult(QList<ChangeLog::Entry> groups,
                                 const std::vector<ImportSource> &sources, const QString &nothing)
{
    WeightTree tree;
    for (const ChangeLog::Entry &group : std::as_const(groups)) {
        const WeightTree::Item item = tree.child(WeightTree::root, group.name);
        tree.addWeight(item, group.lines.all());
        tree.addShare(item, group.lines.added, group.lines.all());
    }
    return treeResult(std::move(tree),
                      {.weight = u"lines changed"_s,
                       .unit = TreeMeaning::Unit::Count,
                       .coloring = TreeMeaning::Coloring::ByShare,
                       .color = u"added of lines changed"_s,
                       .scale = TreeMeaning::Scale::BadToGood,
                       .share = u"added"_s},
                      sources, nothing);
}

ImportResult changedMonthsResult(const ChangeLog &log, const std::vector<ImportSource> &sources)
{
    const QString unread = quotedText(QByteArrayView(log.undatedText()));
    const QString advice = u"'git log --date=iso' writes dates that do"_s;
    if (log.months().isEmpty() && log.undated().count > 0)
        return {.fault =
                    ImportFault{log.undated().first, unread + u" tells no month; "_s + advice}};
    QList<ChangeLog::Entry> months = log.months();
    std::sort(months.begin(), months.end(),
              [](const auto &a, const auto &b) { return a.name < b.name; });
    ImportResult result = changedGroupsResult(
        std::move(months), sources,
        u"no line 'Date:' tells the month of a change; the heads of commits are "
        "expected as git log writes them without --format"_s);
    log.undated().tell(u"commits whose dates tell no month, as "_s + unread + u", are left out; "_s
                           + advice,
                       &result.notes);
    return result;
}

} // namespace

int likenessOfNumstat(QByteArrayView beginning)
{
    int changes = 0;
    bool hasHead = false;
    for (const QByteArrayView line : firstLines(beginning)) {
        if (isNumstatMeant(line)) {
            if (!numstatChange(line))
                return 0;
            ++changes;
        }
        hasHead = hasHead || line.startsWith("commit ");
    }
    if (hasHead)
        return changes > 0 ? 95 : 60; // a long message may stand before the first change
    return changes > 0 ? 80 : 0;
}

ImportResult readNumstat(std::vector<ImportSource> &sources, const ImportOptions &options)
{
    const bool isOfAll = options.by.empty() && options.engine != u"bar";
    const std::string by = options.by.empty() ? "author" : options.by;
    if (by != "author" && by != "month" && by != "file")
        return {.fault = {{{},
                           u"the changes are those of each 'file', 'author' or 'month', not "_s
                               + quotedText(QByteArrayView(by))}}};
    ChangeLog log;
    for (ImportSource &source : sources) {
        if (std::optional<ImportFault> fault = log.read(source))
            return {.fault = std::move(fault)};
    }
    if (isOfAll || by == "file")
        return changedFilesResult(log, sources);
    if (by == "month")
        return changedMonthsResult(log, sources);
    return changedGroupsResult(
        log.authors(), sources,
        u"no line 'Author:' tells who made a change; the heads of commits are "
        "expected as git log writes them without --format"_s);
}

} // namespace ORR::Companion
