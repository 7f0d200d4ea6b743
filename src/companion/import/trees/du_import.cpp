#include "companion/import/trees/du_import.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/reading/first_lines.h"
#include "companion/import/reading/written_number.h"
#include "companion/import/trees/path_walk.h"
#include "companion/import/trees/tree_result.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr double duBlockSize = 1024;
constexpr qint64 blocksOfPage = 4;
constexpr double notListed = -1;

// The remainder of any double takes longer than the rest of a line.
bool isOfPages(double size)
{
    constexpr double exact = 1e15;
    if (size < exact) {
        const auto whole = qint64(size);
        return double(whole) == size && whole % blocksOfPage == 0;
    }
    return std::fmod(size, blocksOfPage) == 0;
}

// The sizes that were listed, each with all that is below it.
struct ListedSizes
{
    WeightTree tree;
    QList<double> totals; // by item; `notListed` for what is only part of a path
    bool areOfPages = true; // as blocks are on nearly all disks, and sums of files hardly ever

    void add(WeightTree::Item item, double size)
    {
        if (totals.size() < tree.size())
            totals.resize(tree.size(), notListed);
        totals[item] = std::max(totals[item], 0.0) + size;
        areOfPages = areOfPages && isOfPages(size);
    }
};

// NUL ends the paths of -0, and is in no other one.
char recordEnd(QByteArrayView beginning)
{
    return beginning.contains('\0') ? '\0' : '\n';
}

// Whether a size was written for people: "4.0K".
bool isRounded(QByteArrayView size)
{
    return size.size() > 1 && QByteArrayView("KMGTPEZY").contains(size.back())
        && writtenNumber(size.chopped(1));
}

QString sizeAdvice(QByteArrayView size, const QString &why)
{
    if (isRounded(size))
        return quotedText(size) + u" is rounded; du writes plain numbers without -h"_s;
    return why + u"; a line of du begins with a size and a tab"_s;
}

// Without the time of --time, in any of its styles: "2025-03-01 12:30<tab>".
QByteArrayView withoutTime(QByteArrayView path)
{
    const qsizetype tab = path.indexOf('\t');
    const QByteArrayView time = path.first(std::max<qsizetype>(tab, 0));
    const bool isTime = time.size() >= 10 && time[4] == '-' && time[7] == '-'
        && std::all_of(time.begin(), time.end(), [](char c) {
                            return (c >= '0' && c <= '9') || QByteArrayView(" -+:.").contains(c);
                        });
    return isTime ? path.sliced(tab + 1) : path;
}

std::optional<ImportFault> readSizes(ImportSource &source, ListedSizes *sizes)
{
    PathWalk paths(&sizes->tree, '/', PathWalk::Parts::Folders);
    source.setSeparator(recordEnd(source.beginning()));
    QByteArrayView line;
    while (source.nextLine(&line)) {
        if (line.isEmpty())
            continue;
        const qsizetype tab = line.indexOf('\t');
        if (tab < 0)
            return source.faultHere(
                quotedText(line) + u" is no line of du; a size, a tab and a path are expected"_s);
        QString why;
        const QByteArrayView size = line.first(tab);
        const std::optional<double> number = writtenWeight(size, &why);
        if (!number)
            return source.faultHere(sizeAdvice(size, why));
        const QByteArrayView path = withoutTime(line.sliced(tab + 1));
        if (path.isEmpty())
            return source.faultHere(u"no path stands behind the size"_s);
        sizes->add(paths.at(path), *number);
    }
    return std::nullopt;
}

// The line of -c, which looks like that of a file and would count everything twice.
WeightTree::Item grandTotal(const ListedSizes &sizes)
{
    const WeightTree &tree = sizes.tree;
    WeightTree::Item total = WeightTree::none;
    double others = 0;
    for (WeightTree::Item top = tree.firstChild(WeightTree::root); top != WeightTree::none;
         top = tree.nextSibling(top)) {
        if (tree.name(top) == "total" && tree.firstChild(top) == WeightTree::none)
            total = top;
        else
            others += sizes.totals[top];
    }
    const bool isSum = total != WeightTree::none && others > 0 && sizes.totals[total] == others;
    return isSum ? total : WeightTree::none;
}

// A folder's line is the total of what is in it: what the lines below it leave is its own.
void weighListed(ListedSizes *sizes, double unit)
{
    WeightTree &tree = sizes->tree;
    sizes->totals.resize(tree.size(), notListed);
    QList<double> below(tree.size(), 0);
    for (WeightTree::Item item = WeightTree::Item(tree.size()) - 1; item > 0;
         --item) { // what is below it comes first
        double &total = sizes->totals[item];
        total = std::max(total, below[item]);
        below[tree.parent(item)] += total;
    }
    const WeightTree::Item passedOver = grandTotal(*sizes);
    for (WeightTree::Item item = 0; item < tree.size(); ++item) {
        if (item != passedOver && sizes->totals[item] > below[item])
            tree.addWeight(item, (sizes->totals[item] - below[item]) * unit);
    }
}

} // namespace

int likenessOfDu(QByteArrayView beginning)
{
    int lines = 0;
    for (const QByteArrayView line : firstLines(beginning, recordEnd(beginning))) {
        const qsizetype tab = line.indexOf('\t');
        if (tab < 1 || tab + 1 == line.size())
            return 0;
        const QByteArrayView size = line.first(tab);
        if (!writtenNumber(size) && !isRounded(size))
            return 0;
        const QByteArrayView path = line.sliced(tab + 1);
        const qsizetype next = path.indexOf('\t');
        if (next > 0 && writtenNumber(path.first(next))) // a table of numbers
            return 0;
        ++lines;
    }
    return lines == 0 ? 0 : 85;
}

ImportResult readDu(std::vector<ImportSource> &sources, const ImportOptions &options)
{
    if (options.by != "bytes" && !options.by.empty() && options.by != "blocks")
        return {.fault = {{{},
                           u"du counts 'bytes' or 'blocks', not "_s
                               + quotedText(QByteArrayView(options.by))}}};
    ListedSizes sizes;
    for (ImportSource &source : sources) {
        if (std::optional<ImportFault> fault = readSizes(source, &sizes))
            return {.fault = std::move(fault)};
    }
    const bool countsBytes = options.by.empty() ? !sizes.areOfPages : options.by == "bytes";
    weighListed(&sizes, countsBytes ? 1 : duBlockSize);
    return treeResult(std::move(sizes.tree),
                      {.weight = u"size"_s,
                       .unit = TreeMeaning::Unit::Bytes,
                       .coloring = TreeMeaning::Coloring::ByTop,
                       .color = u"folder"_s,
                       .ownName = u"(folder)"_s},
                      sources, u"there is no path with a size above 0"_s);
}

} // namespace ORR::Companion
