#include "companion/import/trees/folded_import.h"

#include "companion/findings/quoted_text.h"
#include "companion/import/reading/first_lines.h"
#include "companion/import/reading/written_number.h"
#include "companion/import/trees/path_walk.h"
#include "companion/import/trees/tree_result.h"

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr char frameSeparator = ';';

// A call whose own calls have so much of its caller's samples is the trunk of a tree.
constexpr double trunkPart = 0.75;

struct FoldedLine
{
    QByteArrayView stack;
    QByteArrayView count; // empty if there is none
};

bool isStackBlank(char c)
{
    return c == ' ' || c == '\t';
}

FoldedLine foldedLine(QByteArrayView line)
{
    while (!line.isEmpty() && isStackBlank(line.back()))
        line.chop(1);
    qsizetype start = line.size();
    while (start > 0 && !isStackBlank(line[start - 1]))
        --start;
    const QByteArrayView count = line.sliced(start);
    while (start > 0 && isStackBlank(line[start - 1]))
        --start;
    return {.stack = line.first(start), .count = count};
}

bool isStackComment(QByteArrayView line)
{
    return line.startsWith("# ");
}

std::optional<ImportFault> readStacks(ImportSource &source, WeightTree *tree, PathWalk *stacks)
{
    QByteArrayView line;
    while (source.nextLine(&line)) {
        const FoldedLine parts = foldedLine(line);
        if (parts.count.isEmpty() || isStackComment(line))
            continue;
        if (parts.stack.isEmpty())
            return source.faultHere(quotedText(line)
                                    + u" is no folded stack; frames with ';' between are followed "
                                      "by a blank and a count"_s);
        QString why;
        const std::optional<double> count = writtenWeight(parts.count, &why);
        if (!count)
            return source.faultHere(why + u"; a folded stack ends with its count"_s);
        tree->addWeight(stacks->at(parts.stack), *count);
    }
    return std::nullopt;
}

QList<double> stackTotals(const WeightTree &tree)
{
    QList<double> totals(tree.size());
    for (WeightTree::Item item = WeightTree::Item(tree.size()) - 1; item >= 0;
         --item) { // what is called comes first
        totals[item] += tree.ownWeight(item);
        if (item != WeightTree::root)
            totals[tree.parent(item)] += totals[item];
    }
    return totals;
}

// The frame from which the samples spread: up to it nearly all are in one call. Colours by the
// outermost calls would mostly be one colour.
WeightTree::Item trunkOf(const WeightTree &tree)
{
    const QList<double> totals = stackTotals(tree);
    WeightTree::Item trunk = WeightTree::root;
    for (WeightTree::Item call = tree.firstChild(trunk); call != WeightTree::none;) {
        const double called = totals[call] - tree.ownWeight(call);
        if (called > 0 && called >= trunkPart * totals[trunk]) {
            trunk = call;
            call = tree.firstChild(trunk);
        } else {
            call = tree.nextSibling(call);
        }
    }
    return trunk;
}

// Gives all that the trunk calls, and what that calls, a kind for each; what is beside the trunk
// has none.
QStringList setBranches(WeightTree *tree, WeightTree::Item trunk)
{
    KindNames branches;
    for (WeightTree::Item item = 1; item < tree->size(); ++item) { // callers come first
        if (tree->parent(item) == trunk)
            tree->setKind(item, branches.of(tree->name(item)));
        else
            tree->setKind(item, tree->kind(tree->parent(item)));
    }
    return branches.rankIn(tree);
}

} // namespace

int likenessOfFolded(QByteArrayView beginning)
{
    int whole = 0;
    int deep = 0;
    for (const QByteArrayView line : firstLines(beginning)) {
        if (isStackComment(line))
            continue;
        const FoldedLine parts = foldedLine(line);
        const std::optional<double> count = writtenNumber(parts.count);
        if (!count || *count < 0 || parts.stack.isEmpty())
            return 0;
        ++whole;
        deep += parts.stack.contains(frameSeparator) ? 1 : 0;
    }
    if (whole == 0 || deep == 0)
        return 0;
    return 2 * deep >= whole ? 90 : 60;
}

ImportResult readFolded(std::vector<ImportSource> &sources, const ImportOptions & /*options*/)
{
    WeightTree tree;
    PathWalk stacks(&tree, frameSeparator, PathWalk::Parts::Names);
    for (ImportSource &source : sources) {
        if (std::optional<ImportFault> fault = readStacks(source, &tree, &stacks))
            return {.fault = std::move(fault)};
    }
    const WeightTree::Item trunk = trunkOf(tree);
    const QString caller = QString::fromUtf8(tree.name(trunk));
    const QStringList branches = setBranches(&tree, trunk);
    return treeResult(
        std::move(tree),
        {.weight = u"samples"_s,
         .unit = TreeMeaning::Unit::Count,
         .coloring = TreeMeaning::Coloring::ByKind,
         .color = trunk == WeightTree::root ? u"outermost calls"_s : u"called by "_s + caller,
         .kinds = branches,
         .pathsAreFiles = false},
        sources, u"there is no stack with a count above 0"_s);
}

} // namespace ORR::Companion
