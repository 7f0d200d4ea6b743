#include "companion/produce/tree_paint.h"

#include "companion/produce/number_words.h"
#include "companion/produce/palette.h"
#include "graph/numbers.h"

#include <algorithm>

namespace ORR::Companion {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostEntries = 16;
constexpr double leastTold = 0.001; // of the whole; a smaller share of a colour is not seen

// All fills of the palette but the grey.
qsizetype colorCount()
{
    return kindFills().size() - 1;
}

QString withShare(const QString &name, double weight, double whole)
{
    return name + u"  "_s + percentWords(weight / whole);
}

} // namespace

TreePaint::TreePaint(const ShownTree &tree, const TreeMeaning &meaning) : numbers(meaning)
{
    switch (meaning.coloring) {
    case TreeMeaning::Coloring::ByTop:
        paintTops(tree);
        break;
    case TreeMeaning::Coloring::ByKind:
        paintKinds(tree);
        break;
    case TreeMeaning::Coloring::ByShare:
        tellScale(tree);
        break;
    }
}

void TreePaint::paintTops(const ShownTree &tree)
{
    double rest = 0;
    for (const int top : tree.root().children) {
        const ShownThing &thing = tree[top];
        const bool hasColor = thing.sort == ShownThing::Thing && fills.size() < colorCount()
            && thing.weight >= leastTold * tree.root().weight;
        if (!hasColor) {
            // An own weight says what it is, or is a gap.
            rest += thing.sort == ShownThing::Own ? 0 : thing.weight;
            continue;
        }
        const QByteArray fill = kindFills().at(fills.size());
        fills.insert(top, fill);
        keyEntries.append({withShare(thing.name, thing.weight, tree.root().weight), fill});
    }
    if (rest >= leastTold * tree.root().weight && rest > 0)
        keyEntries.append({withShare(u"other"_s, rest, tree.root().weight), neutralFill()});
}

QString TreePaint::kindName(int kind) const
{
    return kind >= 0 && kind < numbers.kinds.size() ? numbers.kinds.at(kind) : u"other"_s;
}

QByteArray TreePaint::kindFill(int kind) const
{
    return fills.value(kind, neutralFill());
}

void TreePaint::paintKinds(const ShownTree &tree)
{
    const double whole = tree.root().weight;
    double rest = 0;
    qsizetype used = 0; // of the palette
    for (const KindWeight &kind : tree.root().kinds) {
        const bool hasOwn = kind.kind >= 0 && kind.kind < numbers.kindFills.size();
        const bool isTold = kind.kind >= 0 && keyEntries.size() < mostEntries
            && (hasOwn || used < colorCount()) && kind.weight >= leastTold * whole;
        if (hasOwn)
            fills.insert(kind.kind, numbers.kindFills.at(kind.kind).toLatin1());
        else if (isTold)
            fills.insert(kind.kind, kindFills().at(used++));
        if (isTold)
            keyEntries.append(
                {withShare(kindName(kind.kind), kind.weight, whole), kindFill(kind.kind)});
        else
            rest += kind.weight;
    }
    if (rest > 0 && rest >= leastTold * whole)
        keyEntries.append({withShare(u"other"_s, rest, whole), neutralFill()});
}

QByteArray TreePaint::stepFill(int step) const
{
    const double place = double(step) / (scaleSteps - 1);
    switch (numbers.scale) {
    case TreeMeaning::Scale::BadToGood:
        return scaleFill(ColorScale::Diverging, place);
    case TreeMeaning::Scale::GoodToBad:
        return scaleFill(ColorScale::Diverging, 1 - place);
    case TreeMeaning::Scale::Rising:
        break;
    }
    return scaleFill(ColorScale::Rising, place);
}

QByteArray TreePaint::shareFill(double part, double whole) const
{
    if (!(whole > 0))
        return unscaledFill();
    const double place = (part / whole - numbers.low) / (numbers.high - numbers.low);
    return stepFill(std::clamp(Graph::truncated(place * scaleSteps), 0, scaleSteps - 1));
}

// One entry a step, which are equally wide; the outer ones hold what lies beyond, if anything can.
void TreePaint::tellScale(const ShownTree &tree)
{
    const double width = (numbers.high - numbers.low) / scaleSteps;
    const bool isParts = numbers.sharesAreParts;
    const auto words = [isParts](double value) {
        return shortNumber(isParts ? value * 100 : value);
    };
    const QString unit = isParts ? u" %"_s : QString();
    for (int step = 0; step < scaleSteps; ++step) {
        const QString from = words(numbers.low + step * width);
        const QString to = words(numbers.low + (step + 1) * width);
        const bool isOpenBelow = step == 0 && numbers.low != 0;
        const bool isOpenAbove = step == scaleSteps - 1 && !(isParts && numbers.high == 1);
        const QString range = isOpenBelow ? u"below "_s + to
            : isOpenAbove                 ? from + u" and more"_s
                                          : from + u'\u2013' + to;
        keyEntries.append({range + unit, stepFill(step)});
    }
    // Without any whole a thing has no share.
    for (int thing = 0; thing < tree.size(); ++thing) {
        if (tree[thing].children.isEmpty() && !(tree[thing].whole > 0)) {
            keyEntries.append({u"none"_s, unscaledFill()});
            break;
        }
    }
}

QByteArray TreePaint::fillOf(const ShownThing &thing) const
{
    switch (numbers.coloring) {
    case TreeMeaning::Coloring::ByShare:
        return shareFill(thing.part, thing.whole);
    case TreeMeaning::Coloring::ByKind:
        return thing.kinds.isEmpty() ? neutralFill() : kindFill(thing.kinds.constFirst().kind);
    case TreeMeaning::Coloring::ByTop:
        break;
    }
    return fills.value(thing.top, neutralFill());
}

} // namespace ORR::Companion
