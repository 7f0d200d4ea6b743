#include "companion/check/object_places.h"
#include "companion/check/object_rules.h"
#include "companion/check/ordered_findings.h"
#include "companion/check/rules.h"
#include "companion/findings/quoted_text.h"
#include "graph/limits.h"
#include "graph/message_text.h"
#include "layout/sequence/umlseq_attributes.h"

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

using namespace Graph;

namespace {

namespace Rows = Layout::UmlseqAttributes;

// A row or a column that is none of the grid.
QString gridFailure(const QString &axis, int index, const QString &object)
{
    return u"Unable to lay out the sequence diagram: %1 %2 of %3 is not between 0 and %4"_s.arg(
        axis, QString::number(index), object, QString::number(Limits::mostGridLines - 1));
}

bool isOfGrid(int index)
{
    return index >= 0 && index < Limits::mostGridLines;
}

// "no row", "no column", "neither row nor column"; empty if it has both.
QString whatIsMissing(bool hasRow, bool hasColumn)
{
    if (hasRow && hasColumn)
        return {};
    return hasRow ? u"no column"_s : hasColumn ? u"no row"_s : u"neither row nor column"_s;
}

QString inQuotes(const QString &id)
{
    return u'"' + messageText(id) + u'"';
}

class SequenceCheck
{
public:
    SequenceCheck(const CheckedInput &checkedInput, FindingList *list)
        : input(checkedInput), graph(&checkedInput.graph), findings(list)
    {
    }

    void checkSubgraphs();
    void checkNodes();
    void checkReturns();

private:
    // A subgraph around the one at hand.
    struct Open
    {
        const DotSubgraph *subgraph;
        bool isTaken; // it is a part of the diagram
        bool inFragment; // a fragment or in one
    };

    // The findings of one pass: each goes through the text in its order.
    struct Pass
    {
        explicit Pass(FindingList *list)
            : noPlace(Rules::noGridPlace, list), noFragment(Rules::sectionWithoutFragment, list),
              noCall(Rules::returnWithoutCall, list), outside(Rules::outsideGrid, list)
        {
        }
        OrderedFindings noPlace;
        OrderedFindings noFragment;
        OrderedFindings noCall;
        OrderedFindings outside;
    };

    Open enter(const CheckedSubgraph &checked, const Open &around, Pass *pass);
    bool isObject(const DotNode *node) const;
    void checkReturn(const CheckedEdge &checked, Pass *pass);
    template <typename Object>
    void checkGrid(const Object *object, const QString &name, qsizetype place, Pass *pass);
    void addGridFailure(const QString &message, qsizetype place, Pass *pass) const;

    const CheckedInput &input;
    const DotGraph *graph;
    FindingList *findings;
    std::vector<const DotSubgraph *> taken; // sorted by address behind `checkSubgraphs`
    std::vector<const DotNode *> called; // the heads of messages, sorted by address
};

void SequenceCheck::addGridFailure(const QString &message, qsizetype place, Pass *pass) const
{
    pass->outside.add(place, [&] { return findingAt(input, place, Rules::outsideGrid, message); });
}

template <typename Object>
void SequenceCheck::checkGrid(const Object *object, const QString &name, qsizetype place,
                              Pass *pass)
{
    const int row = Rows::row.of(graph, object);
    const int col = Rows::col.of(graph, object);
    if (!isOfGrid(row))
        addGridFailure(gridFailure(u"row"_s, row, name), place, pass);
    else if (!isOfGrid(col))
        addGridFailure(gridFailure(u"column"_s, col, name), place, pass);
}

// The subgraphs come in the order of the text: each behind the one that it is in.
void SequenceCheck::checkSubgraphs()
{
    Pass pass(findings);
    std::vector<Open> open;
    for (const CheckedSubgraph &checked : input.text.subgraphs()) {
        while (!open.empty() && open.back().subgraph != checked.subgraph->parent)
            open.pop_back();
        const Open entered =
            open.empty() ? Open{checked.subgraph, true, false} : enter(checked, open.back(), &pass);
        if (entered.isTaken)
            taken.push_back(checked.subgraph);
        open.push_back(entered);
    }
    std::sort(taken.begin(), taken.end(), std::less<>());
}

SequenceCheck::Open SequenceCheck::enter(const CheckedSubgraph &checked, const Open &around,
                                         Pass *pass)
{
    const DotSubgraph *subgraph = checked.subgraph;
    const qsizetype place = checked.id < 0 ? checked.keyword : checked.id;
    const int kind = around.isTaken ? Rows::subgraphKind.of(graph, subgraph) : -1;
    if (kind < 0)
        return {subgraph, false, false};
    const bool isSection = kind == Rows::Section;
    if (isSection && !around.inFragment) {
        pass->noFragment.add(place, [&] {
            return findingAt(
                input, place, Rules::sectionWithoutFragment,
                "section %1 is in no fragment and is left out"_L1.arg(quotedText(subgraph->id)),
                u"write it into a subgraph with graph [uml=combinedfragment]"_s);
        });
        return {subgraph, false, false};
    }
    const QString missing = whatIsMissing(Rows::row.isGiven(graph, subgraph),
                                          isSection || Rows::col.isGiven(graph, subgraph));
    if (!missing.isEmpty()) {
        pass->noPlace.add(place, [&] {
            return findingAt(input, place, Rules::noGridPlace,
                             "%1 %2 has %3"_L1.arg(isSection ? u"section"_s : u"fragment"_s,
                                                   quotedText(subgraph->id), missing));
        });
    }
    checkGrid(subgraph, inQuotes(subgraph->id), place, pass);
    return {subgraph, true, true};
}

// Whether the node is a part of the diagram.
bool SequenceCheck::isObject(const DotNode *node) const
{
    return Rows::nodeKind.of(graph, node) >= 0
        && std::binary_search(taken.begin(), taken.end(), node->owner, std::less<>());
}

void SequenceCheck::checkNodes()
{
    const std::vector<CheckedNode> &nodes = input.text.nodes();
    Pass pass(findings);
    std::vector<ObjectPlace> places;
    for (size_t i = 0; i < nodes.size(); ++i) {
        const DotNode *node = nodes[i].node;
        if (!isObject(node))
            continue;
        const QString missing =
            whatIsMissing(Rows::row.isGiven(graph, node), Rows::col.isGiven(graph, node));
        if (!missing.isEmpty()) {
            pass.noPlace.add(nodes[i].place, [&] {
                return findingAt(input, nodes[i].place, Rules::noGridPlace,
                                 "node %1 has %2"_L1.arg(quotedText(node->id), missing));
            });
            continue; // its place is no one's choice
        }
        checkGrid(node, inQuotes(node->id), nodes[i].place, &pass);
        const int kind = Rows::nodeKind.of(graph, node);
        if (kind != Rows::Spacer)
            places.push_back({nullptr, Rows::row.of(graph, node), Rows::col.of(graph, node),
                              kind == Rows::Activation ? Rows::nesting.of(graph, node) : 0, i});
    }
    OrderedFindings shared(Rules::sharedPlace, findings);
    for (const SharedPlace &place : sharedPlaces(std::move(places))) {
        const CheckedNode &later = nodes[place.later.number];
        shared.add(later.place, [&] {
            return findingAt(
                input, later.place, Rules::sharedPlace,
                "node %1 lies over %2, in row %3 and column %4 as well"_L1.arg(
                    quotedText(later.node->id), quotedText(nodes[place.earlier].node->id),
                    QString::number(place.later.row), QString::number(place.later.col)));
        });
    }
}

void SequenceCheck::checkReturns()
{
    Pass pass(findings);
    for (const CheckedEdge &checked : input.text.edges()) {
        if (Rows::edgeKind.of(graph, checked.edge) == Rows::Message && isObject(checked.edge->tail))
            called.push_back(checked.edge->head);
    }
    std::sort(called.begin(), called.end(), std::less<>());
    for (const CheckedEdge &checked : input.text.edges()) {
        if (Rows::edgeKind.of(graph, checked.edge) == Rows::Return && isObject(checked.edge->tail)
            && isObject(checked.edge->head))
            checkReturn(checked, &pass);
    }
}

void SequenceCheck::checkReturn(const CheckedEdge &checked, Pass *pass)
{
    const DotEdge *edge = checked.edge;
    const QString tail = quotedText(edge->tail->id);
    const bool isEnd = Rows::nodeKind.of(graph, edge->tail) == Rows::Activation;
    if (!isEnd || !std::binary_search(called.begin(), called.end(), edge->tail, std::less<>())) {
        pass->noCall.add(checked.tail, [&] {
            return findingAt(input, checked.tail, Rules::returnWithoutCall,
                             isEnd ? "no message calls %1, which returns"_L1.arg(tail)
                                   : "%1 is no activation: its return is left out"_L1.arg(tail));
        });
    }
    if (!isEnd)
        return;
    if (!Rows::returnRow.isGiven(graph, edge)) {
        pass->noPlace.add(checked.tail, [&] {
            return findingAt(input, checked.tail, Rules::noGridPlace,
                             "the return of %1 has no row"_L1.arg(tail));
        });
    }
    const int row = Rows::returnRow.of(graph, edge);
    if (!isOfGrid(row))
        addGridFailure(gridFailure(u"row"_s, row,
                                   inQuotes(edge->tail->id) + " -> "_L1 + inQuotes(edge->head->id)),
                       checked.tail, pass);
}

} // namespace

void checkSequence(const CheckedInput &input, FindingList *findings)
{
    SequenceCheck check(input, findings);
    check.checkSubgraphs();
    check.checkNodes();
    check.checkReturns();
}

} // namespace ORR::Companion
