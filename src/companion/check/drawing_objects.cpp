#include "companion/check/drawing_objects.h"

#include "companion/check/attribute_values.h"
#include "companion/check/rules.h"
#include "companion/findings/quoted_text.h"
#include "drawing/font_answer.h"
#include "graph/dot_tokenizer.h"
#include "layout/attribute_tables.h"
#include "layout/charts/bubble_attributes.h"
#include "layout/charts/chart_attributes.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

using namespace Graph;
using namespace Graph::Layout;
using Drawing::LayoutIndex;

namespace {

void placeAtIdentifier(qsizetype offset, const ForetoldDrawing &made, Finding *finding)
{
    finding->offset = offset;
    finding->end = identifierEnd(made.bytes, offset);
}

// What says how large a node is. What is not a number is no size.
bool hasSize(const ForetoldDrawing &made, const DotNode *node)
{
    if (made.engine == LayoutIndex::FlatBubble)
        return BubbleAttributes::radius.of(made.graph, node) > 0.0
            || BubbleAttributes::area.of(made.graph, node) > 0.0;
    return ChartAttributes::area.of(made.graph, node) > 0.0;
}

// The sizes that the node is given whose values are told themselves.
template <typename Visit>
void visitToldSizes(const ForetoldDrawing &made, const DotNode *node, const Visit &visit)
{
    const auto look = [&](const auto &row) {
        const QString *value = row.find(made.graph, node);
        if (value && (!isMeant(row, *value) || !isSensible(row, *value)))
            visit(row, *value);
    };
    if (made.engine == LayoutIndex::FlatBubble) {
        look(BubbleAttributes::radius);
        look(BubbleAttributes::area);
    } else {
        look(ChartAttributes::area);
    }
}

// Why nothing can be drawn by the size; empty if it is only below 0.
QString unusableSize(const AttributeRow &row, const QString &value, double size)
{
    const QString name = row.name.text();
    const QString article = name.startsWith(u'a') ? u"an "_s : u"a "_s;
    if (std::isinf(size))
        return article + name + " is infinite"_L1;
    return std::isnan(size) || !isMeant(row, value) ? article + name + " is no number"_L1
                                                    : QString();
}

LeftOutNodes::Reason reasonFor(const ForetoldDrawing &made, const DotNode *node)
{
    if (!hasSize(made, node))
        return LeftOutNodes::WithoutArea;
    // A stack of bars is a subgraph of the root, and those within it are looked for nowhere.
    if (made.engine == LayoutIndex::Bar && node->owner->depth > 1)
        return LeftOutNodes::TooDeep;
    return LeftOutNodes::TooSmall;
}

// Tells the subgraphs of a legend, where the nodes of one subgraph come together.
class LegendMembers
{
public:
    explicit LegendMembers(DotSubgraph *legendSubgraph) : legend(legendSubgraph) { }

    bool hold(const DotNode *node)
    {
        if (node->owner != last) {
            last = node->owner;
            isInside = legend && DotGraph::commonSubgraph(last, legend) == legend;
        }
        return isInside;
    }

private:
    DotSubgraph *legend;
    DotSubgraph *last = nullptr;
    bool isInside = false;
};

// Empty for an engine whose labels are all seen, or may well size their nodes if they are not.
QString reasonForNoLabel(std::optional<LayoutIndex> engine)
{
    if (engine == LayoutIndex::Matrix)
        return u"the group has no headers"_s;
    if (engine == LayoutIndex::Treemap)
        return u"the cell is too small"_s;
    return engine == LayoutIndex::Sunburst ? u"slices have no labels"_s : QString();
}

QString reasonText(LeftOutNodes::Reason reason, bool isBubble, bool isOne)
{
    switch (reason) {
    case LeftOutNodes::WithoutArea:
        return (isOne ? "has no area"_L1 : "have no area"_L1)
            + (isBubble ? " and no radius"_L1 : ""_L1);
    case LeftOutNodes::TooDeep:
        return (isOne ? "stands"_L1 : "stand"_L1) + " in a subgraph of a subgraph"_L1;
    default:
        return (isOne ? "is"_L1 : "are"_L1) + " too small to be seen"_L1;
    }
}

} // namespace

void placeAt(const DotObject *object, const ForetoldDrawing &made, Finding *finding)
{
    if (!object)
        return;
    for (const CheckedNode &node : made.text.nodes()) {
        if (node.node == object)
            return placeAtIdentifier(node.place, made, finding);
    }
    for (const CheckedSubgraph &subgraph : made.text.subgraphs()) {
        if (subgraph.subgraph == object)
            return placeAtIdentifier(subgraph.id < 0 ? subgraph.keyword : subgraph.id, made,
                                     finding);
    }
}

std::optional<LeftOutNodes> leftOutNodes(const ForetoldDrawing &made)
{
    if (!made.engine || !hasLegends(Drawing::layoutRow(*made.engine).name))
        return {};
    LeftOutNodes leftOut;
    LegendMembers legendMembers(made.legend);
    for (const CheckedNode &checked : made.text.nodes()) {
        const DotNode *node = checked.node;
        if (legendMembers.hold(node))
            continue;
        ++leftOut.all;
        if (made.drawing.draws(node))
            continue;
        bool isTold = false;
        visitToldSizes(made, node, [&](const auto &row, const QString &value) {
            const double size = row.of(made.graph, node);
            isTold = true;
            leftOut.hasInfinite = leftOut.hasInfinite || !std::isfinite(size);
            if (leftOut.unusableSize.isEmpty())
                leftOut.unusableSize = unusableSize(row, value, size);
        });
        if (isTold) {
            ++leftOut.toldAtValue;
            continue;
        }
        LeftOutNodes::Nodes &nodes = leftOut.nodes[reasonFor(made, node)];
        if (nodes.count++ == 0)
            nodes.first = node;
    }
    return leftOut;
}

void findLeftOutNodes(const LeftOutNodes &leftOut, const ForetoldDrawing &made,
                      FindingList *findings)
{
    const bool isBubble = made.engine == LayoutIndex::FlatBubble;
    for (int i = 0; i < LeftOutNodes::reasonCount; ++i) {
        const auto &[count, first] = leftOut.nodes[i];
        if (count == 0)
            continue;
        Finding finding{
            &Rules::leftOutNode,
            u"%1 of %2 nodes %3"_s.arg(QString::number(count), QString::number(leftOut.all),
                                       reasonText(LeftOutNodes::Reason(i), isBubble, count == 1))};
        placeAt(first, made, &finding);
        findings->add(finding);
    }
}

void findUnseenLabels(const ForetoldDrawing &made, FindingList *findings)
{
    const QString reason = reasonForNoLabel(made.engine);
    if (reason.isEmpty())
        return;
    qint64 count = 0;
    qsizetype first = nowhere;
    const auto look = [&](const DotObject *object, qsizetype place) {
        if (!made.drawing.isUnlabelled(object))
            return;
        first = count++ == 0 ? place : std::min(first, place);
    };
    if (made.drawing.hasUnlabelled()) {
        for (const CheckedNode &node : made.text.nodes())
            look(node.node, node.place);
        for (const CheckedSubgraph &subgraph : made.text.subgraphs())
            look(subgraph.subgraph, subgraph.id < 0 ? subgraph.keyword : subgraph.id);
    }
    if (count == 0)
        return;
    Finding finding{
        &Rules::unseenLabel,
        (count == 1 ? u"1 label is not drawn: "_s : u"%1 labels are not drawn: "_s.arg(count))
            + reason};
    placeAtIdentifier(first, made, &finding);
    findings->add(finding);
}

void findUnshownTexts(const ForetoldDrawing &made, FindingList *findings)
{
    const auto tell = [&](const Rule &rule, const WatchedDrawing::Texts &texts, const QString &one,
                          const QString &many) {
        if (texts.count == 0)
            return;
        Finding finding{&rule, texts.count == 1 ? one : many.arg(texts.count)};
        placeAt(texts.first, made, &finding);
        findings->add(finding);
    };
    tell(Rules::plainRichText, made.drawing.tooDearTexts(),
         u"1 rich text takes too long to lay out and is drawn as plain text"_s,
         u"%1 rich texts take too long to lay out and are drawn as plain text"_s);
    tell(Rules::missingPicture, made.drawing.missingPictures(),
         u"1 picture is not in its text, or is too large, and is an empty box"_s,
         u"%1 pictures are not in their texts, or are too large, and are empty boxes"_s);
}

void findReplacedFonts(const ForetoldDrawing &made, FindingList *findings)
{
    for (const auto &[family, object] : made.drawing.families()) {
        const QString replacing = Drawing::replacingFamily(family);
        if (replacing.isEmpty())
            continue;
        Finding finding{&Rules::replacedFont,
                        "no font "_L1 + quotedText(family) + " is there: "_L1
                            + quotedText(replacing) + " takes its place"_L1};
        placeAt(object, made, &finding);
        findings->add(finding);
    }
}

} // namespace ORR::Companion
