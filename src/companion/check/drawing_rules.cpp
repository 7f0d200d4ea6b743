#include "companion/check/drawing_rules.h"

#include "companion/check/drawing_objects.h"
#include "companion/check/drawing_toolkit.h"
#include "companion/check/replay_rules.h"
#include "companion/check/rules.h"
#include "companion/check/tree_faults.h"
#include "companion/findings/quoted_text.h"
#include "drawing/held_standard_error.h"
#include "graph/dot_tokenizer.h"
#include "graph/limits.h"
#include "layout/attribute_tables.h"
#include "layout/charts/chart_legend.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

using namespace Graph;
using Drawing::LayoutIndex;

namespace {

#ifndef __SANITIZE_ADDRESS__
// The libraries of pictures complain there about those that an input holds.
using QuietLibraries = Drawing::HeldStandardError;
#else
// What the sanitizers say is to be seen.
struct QuietLibraries
{
};
#endif

// The legend of an engine that draws one.
DotSubgraph *legendOf(const DotGraph *graph, LayoutIndex engine)
{
    return Layout::hasLegends(Drawing::layoutRow(engine).name) ? Layout::findLegend(graph)
                                                               : nullptr;
}

// A sequence fails by an object outside of its grid. Of one that the message names the rule of such
// objects has told.
bool isToldByItsObject(const QString &message, const ForetoldDrawing &made)
{
    return made.engine == LayoutIndex::UmlSeq && message.contains(u'"');
}

void placeAtName(qsizetype place, const ForetoldDrawing &made, Finding *finding)
{
    finding->offset = place;
    finding->end = identifierEnd(made.bytes, place);
}

// What keeps a graph from being a tree, in the order in which the engine looks: subgraphs, of which
// the root is one in the text, a root that is not the only one, a cycle.
void placeTreeFault(const ForetoldDrawing &made, Finding *finding)
{
    const CheckedText &text = made.text;
    if (text.subgraphs().size() > 1) {
        placeAt(text.subgraphs().at(1).subgraph, made, finding);
        return;
    }
    if (const auto roots = firstRoots(text); roots.size() > 1) {
        placeAtName(roots[1]->place, made, finding);
        finding->suggestion = "a tree has one root, and no edge leads to %1 and none to %2"_L1.arg(
            quotedText(roots[0]->node->id), quotedText(roots[1]->node->id));
    } else if (const CheckedEdge *edge = edgeOfCycle(text)) {
        placeAtName(edge->tail, made, finding);
        finding->suggestion = u"this edge closes a cycle: leave out one edge of it"_s;
    }
}

void findFailure(const QString &message, const ForetoldDrawing &made, FindingList *findings)
{
    if (isToldByItsObject(message, made))
        return;
    Finding finding{&Rules::drawingFails, "the drawing fails: "_L1 + message.trimmed()};
    if (made.engine == LayoutIndex::GfTree)
        placeTreeFault(made, &finding);
    findings->add(finding);
}

QString sizeText(QSize size)
{
    return u"%1 x %2 points"_s.arg(size.width()).arg(size.height());
}

// Why nothing is drawn, as far as it can be told.
QString emptinessReason(const std::optional<LeftOutNodes> &leftOut)
{
    if (!leftOut)
        return {};
    if (leftOut->all == 0)
        return u": there are no nodes"_s;
    if (!leftOut->unusableSize.isEmpty())
        return ": "_L1 + leftOut->unusableSize;
    if (leftOut->nodes[LeftOutNodes::WithoutArea].count + leftOut->toldAtValue == leftOut->all)
        return u": no node has an area"_s;
    if (leftOut->nodes[LeftOutNodes::TooSmall].count > 0)
        return u": every node is too small to be seen"_s;
    return {};
}

// Why nothing of the drawing can be seen; empty if something can.
QString blankness(const ForetoldDrawing &made, const std::optional<LeftOutNodes> &leftOut)
{
    const std::optional<QSize> page = made.drawing.page();
    if (!page)
        return u"nothing is drawn: the text has no \"bb\", the size of the page"_s;
    if (page->isEmpty())
        return "nothing can be seen: the page is "_L1 + sizeText(*page) + " large"_L1;
    if (!made.drawing.drawsSomething())
        return u"nothing is drawn"_s + emptinessReason(leftOut);
    if (!made.drawing.showsSomething())
        return "nothing can be seen: all that is drawn lies beside the page of "_L1
            + sizeText(*page);
    return {};
}

void findLargePage(QSize page, FindingList *findings)
{
    const int longer = std::max(page.width(), page.height());
    if (longer <= Limits::longestImageSide)
        return;
    // An image that is scaled to its longest side has to keep a pixel of the other one.
    const int shorter = std::min(page.width(), page.height());
    const bool isThin = shorter * (Limits::longestImageSide / longer) < 1.0;
    findings->add({&Rules::largeDrawing,
                   "the drawing is "_L1 + sizeText(page)
                       + (isThin ? " large: it can't be an image"_L1
                                 : " large: images of it are scaled down"_L1)});
}

void tellOf(const ForetoldDrawing &made, FindingList *findings)
{
    const std::optional<LeftOutNodes> leftOut = leftOutNodes(made);
    if (const QString blank = blankness(made, leftOut); !blank.isEmpty()) {
        findings->add({&Rules::blankDrawing, blank});
        return;
    }
    findLargePage(*made.drawing.page(), findings);
    if (leftOut && !leftOut->hasInfinite)
        findLeftOutNodes(*leftOut, made, findings);
    findUnseenLabels(made, findings);
    findUnshownTexts(made, findings);
    findReplacedFonts(made, findings);
}

} // namespace

void DrawingRules::checkLayout(const QString &engine) const
{
    const auto layout = Drawing::chooseLayout(engine);
    if (!layout || !startsDrawingToolkit(lastWords))
        return;
    DotSubgraph *const legend = legendOf(graph, *layout);
    WatchedDrawing drawing(graph, legend);
    const ForetoldDrawing made{bytes, text, graph, layout, legend, drawing};
    const QString message = [&] {
        [[maybe_unused]] const QuietLibraries quiet;
        return Drawing::layoutRow(*layout).run({graph, &drawing});
    }();
    if (!message.isEmpty())
        findFailure(message, made, findings);
    else
        tellOf(made, findings);
}

void DrawingRules::checkReplayed() const
{
    const bool hasFonts = startsDrawingToolkit(lastWords);
    WatchedDrawing drawing(hasFonts ? WatchedDrawing::Fonts::There
                                    : WatchedDrawing::Fonts::Missing);
    const qsizetype root = text.subgraphs().front().keyword;
    const bool isWhole = [&] {
        [[maybe_unused]] const QuietLibraries quiet;
        return checkReplay(bytes, graph, root, &drawing, findings);
    }();
    if (isWhole && hasFonts)
        tellOf({bytes, text, graph, std::nullopt, nullptr, drawing}, findings);
}

} // namespace ORR::Companion
