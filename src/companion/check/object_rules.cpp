#include "companion/check/object_rules.h"

#include "companion/check/object_places.h"
#include "companion/check/ordered_findings.h"
#include "companion/check/rules.h"
#include "companion/findings/quoted_text.h"
#include "graph/dot_tokenizer.h"
#include "layout/attribute_tables.h"
#include "layout/charts/legend_attributes.h"
#include "layout/charts/matrix_attributes.h"
#include "layout/graflib/gfdecl_attributes.h"

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

using namespace Graph;

namespace {

// A name that nodes and subgraphs share finds the one or the other.
void findSharedIds(const CheckedInput &input, FindingList *list)
{
    OrderedFindings findings(Rules::sharedId, list);
    for (const CheckedSubgraph &checked : input.text.subgraphs()) {
        if (checked.id < 0 || !checked.subgraph->parent)
            continue;
        const DotNode *node = input.graph.findNode(checked.subgraph->id);
        if (!node || input.text.isOfComments(node))
            continue;
        findings.add(checked.id, [&] {
            return findingAt(
                input, checked.id, Rules::sharedId,
                "%1 names a subgraph and a node"_L1.arg(quotedText(checked.subgraph->id)),
                u"give one of them another name"_s);
        });
    }
}

// A text without a single declaration is written that way on purpose.
void findUndeclaredNodes(const CheckedInput &input, FindingList *list)
{
    const std::vector<const DotNode *> undeclared = input.text.undeclaredNodes();
    if (undeclared.size() == input.text.nodes().size())
        return;
    OrderedFindings findings(Rules::undeclaredNode, list);
    for (const CheckedNode &checked : input.text.nodes()) {
        if (!checked.byEdge || checked.isMisread
            || !std::binary_search(undeclared.begin(), undeclared.end(), checked.node,
                                   std::less<>()))
            continue;
        findings.add(checked.place, [&] {
            return findingAt(
                input, checked.place, Rules::undeclaredNode,
                "node %1 is mentioned by edges only"_L1.arg(quotedText(checked.node->id)),
                u"declare it by a statement of its own, or mend the name"_s);
        });
    }
}

// What an attribute `legend` says that makes no legend; nothing for the one that does.
QString legendFault(const CheckedList &list, const DotSubgraph *legend)
{
    switch (list.target) {
    case AttributeTarget::Node:
    case AttributeTarget::NodeDefaults:
        return u"a node is no legend"_s;
    case AttributeTarget::Edge:
    case AttributeTarget::EdgeDefaults:
        return u"an edge is no legend"_s;
    case AttributeTarget::Subgraph:
        break;
    }
    const auto *subgraph = static_cast<const DotSubgraph *>(list.object);
    if (!subgraph->parent)
        return u"the whole graph is the legend"_s;
    if (subgraph != legend)
        return "there is a legend ahead of this one: %1"_L1.arg(
            legend->parent ? quotedText(legend->id) : u"the graph"_s);
    return {};
}

// The one that counts: the first with the attribute, as they begin in the text.
const DotSubgraph *legendOf(const CheckedInput &input)
{
    for (const CheckedSubgraph &checked : input.text.subgraphs()) {
        if (checked.subgraph->attributes.contains("legend"_attribute))
            return checked.subgraph;
    }
    return nullptr;
}

void findMisplacedLegends(const CheckedInput &input, FindingList *list)
{
    const AttributeName name = Layout::LegendAttributes::legend.name;
    const DotSubgraph *legend = legendOf(input);
    OrderedFindings findings(Rules::misplacedLegend, list);
    for (const CheckedList &attributes : input.text.lists()) {
        for (qsizetype i = attributes.first; i < input.text.endOf(attributes); ++i) {
            const CheckedAttribute &attribute = input.text.attributes()[size_t(i)];
            if (attribute.name != name)
                continue;
            const QString fault = legendFault(attributes, legend);
            if (fault.isEmpty())
                continue;
            findings.add(attribute.nameOffset, [&] {
                return findingAt(input, attribute.nameOffset, Rules::misplacedLegend, fault,
                                 u"write 'graph [legend=right]' in the subgraph of the legend"_s);
            });
        }
    }
}

// Subgraphs beside each other in one cell of their parent's grid.
void findSharedCells(const CheckedInput &input, FindingList *list)
{
    namespace Rows = Layout::GfdeclAttributes;
    const std::vector<CheckedSubgraph> &subgraphs = input.text.subgraphs();
    std::vector<ObjectPlace> places;
    for (size_t i = 1; i < subgraphs.size(); ++i) {
        const DotSubgraph *subgraph = subgraphs[i].subgraph;
        places.push_back({subgraph->parent, Rows::row.of(&input.graph, subgraph),
                          Rows::col.of(&input.graph, subgraph), 0, i});
    }
    OrderedFindings findings(Rules::sharedPlace, list);
    for (const SharedPlace &shared : sharedPlaces(std::move(places))) {
        const CheckedSubgraph &later = subgraphs[shared.later.number];
        const qsizetype place = later.id < 0 ? later.keyword : later.id;
        findings.add(place, [&] {
            return findingAt(input, place, Rules::sharedPlace,
                             "subgraph %1 lies over %2, in row %3 and column %4 as well"_L1.arg(
                                 quotedText(later.subgraph->id),
                                 quotedText(subgraphs[shared.earlier].subgraph->id),
                                 QString::number(shared.later.row),
                                 QString::number(shared.later.col)));
        });
    }
}

// Whether the node heads a column (`x`) or a row (`y`) of the matrix.
bool heads(const CheckedInput &input, const DotNode *node, KnownAttribute number, int otherAxis)
{
    namespace Rows = Layout::MatrixAttributes;
    // What the input brings along counts like what the engine writes.
    return Rows::axis.of(&input.graph, node->owner) != otherAxis
        || input.graph.findAttribute(node, number);
}

void findEdgesWithoutCell(const CheckedInput &input, FindingList *list)
{
    enum Axis { Columns, Rows }; // the words of `axis`
    OrderedFindings findings(Rules::edgeWithoutCell, list);
    for (const CheckedEdge &checked : input.text.edges()) {
        const DotNode *tail = checked.edge->tail;
        const DotNode *head = checked.edge->head;
        const bool tailIsRow = heads(input, tail, "y"_attribute, Columns);
        if (tailIsRow && heads(input, head, "x"_attribute, Rows))
            continue;
        findings.add(checked.tail, [&] {
            return tailIsRow
                ? findingAt(
                    input, checked.head, Rules::edgeWithoutCell,
                    "%1 heads no column: the edge lies in column 0"_L1.arg(quotedText(head->id)),
                    u"an edge runs from the header of a row to that of a column"_s)
                : findingAt(input, checked.tail, Rules::edgeWithoutCell,
                            "%1 heads no row: the edge lies in row 0"_L1.arg(quotedText(tail->id)),
                            u"an edge runs from the header of a row to that of a column"_s);
        });
    }
}

} // namespace

void checkObjects(const CheckedInput &input, FindingList *findings)
{
    findSharedIds(input, findings);
    findUndeclaredNodes(input, findings);
    if (Layout::hasLegends(input.engine))
        findMisplacedLegends(input, findings);
    else if (input.engine == "gfdecl"_L1)
        findSharedCells(input, findings);
    else if (input.engine == "matrix"_L1)
        findEdgesWithoutCell(input, findings);
    else if (input.engine == "umlseq"_L1)
        checkSequence(input, findings);
}

Finding findingAt(const CheckedInput &input, qsizetype place, const Rule &rule,
                  const QString &sentence, const QString &suggestion)
{
    return {&rule, sentence, suggestion, place, identifierEnd(input.bytes, place)};
}

} // namespace ORR::Companion
