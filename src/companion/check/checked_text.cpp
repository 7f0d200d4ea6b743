#include "companion/check/checked_text.h"

#include "companion/syntax/misreadings.h"

#include <algorithm>
#include <iterator>

namespace ORR::Companion {

using namespace Graph;

namespace {

// No text is so long that a place in it would not fit.
qint32 placeFrom(qsizetype offset)
{
    return static_cast<qint32>(offset);
}

DotObject *objectOf(const AttributeMention &attribute)
{
    if (attribute.node)
        return attribute.node;
    if (attribute.edge)
        return attribute.edge;
    return attribute.subgraph;
}

} // namespace

qsizetype CheckedText::endOf(const CheckedList &list) const
{
    return &list == &attributeLists.back() ? static_cast<qsizetype>(readAttributes.size())
                                           : std::next(&list)->first;
}

std::vector<const DotNode *> CheckedText::undeclaredNodes() const
{
    std::vector<const DotNode *> byEdge;
    for (const CheckedNode &node : firstMentions) {
        if (node.byEdge || node.isMisread)
            byEdge.push_back(node.node);
    }
    std::vector<const DotNode *> declared = declaredLater;
    const std::less<> byAddress; // an order also of addresses that are not of one array
    std::sort(byEdge.begin(), byEdge.end(), byAddress);
    std::sort(declared.begin(), declared.end(), byAddress);
    std::vector<const DotNode *> undeclared;
    std::set_difference(byEdge.begin(), byEdge.end(), declared.begin(), declared.end(),
                        std::back_inserter(undeclared), byAddress);
    return undeclared;
}

void CheckedText::subgraphOpened(DotSubgraph *subgraph, qsizetype keyword, qsizetype id)
{
    openedSubgraphs.push_back({subgraph, placeFrom(keyword), placeFrom(id)});
}

bool CheckedText::isInComment(qsizetype place) const
{
    return misreadings && misreadings->isInComment(place);
}

void CheckedText::nodeMentioned(DotNode *node, NodeMention mention, bool first, qsizetype place)
{
    const bool byEdge = mention != NodeMention::Statement;
    const bool ofComment = isInComment(place);
    const bool isMisread = misreadings && misreadings->isMisread(place);
    isEdgeMisread = (mention == NodeMention::Head && isEdgeMisread) || ofComment || isMisread;
    if (mention == NodeMention::Tail && misreadings && misreadings->isPortOfQuoted(place))
        undeclareLast();
    lastDeclaration = Declaration::None;
    if (ofComment) {
        if (first)
            ofComments.insert(node);
        return;
    }
    const bool isNew = first || (!ofComments.isEmpty() && ofComments.remove(node));
    if (isNew)
        firstMentions.push_back({node, placeFrom(place), byEdge, isMisread});
    else if (!byEdge && !isMisread)
        declaredLater.push_back(node);
    if (!byEdge && !isMisread)
        lastDeclaration = isNew ? Declaration::First : Declaration::Later;
}

// A quoted name with a port is read as a statement, and is the end of an edge: "a":port -> b.
void CheckedText::undeclareLast()
{
    if (lastDeclaration == Declaration::First)
        firstMentions.back().byEdge = true;
    else if (lastDeclaration == Declaration::Later)
        declaredLater.pop_back();
}

void CheckedText::edgeRead(DotEdge *edge, qsizetype tail, qsizetype head)
{
    if (!isEdgeMisread)
        readEdges.push_back({edge, placeFrom(tail), placeFrom(head)});
}

void CheckedText::attributeRead(const AttributeMention &attribute)
{
    if (isInComment(attribute.nameOffset))
        return;
    DotObject *object = objectOf(attribute);
    if (attributeLists.empty() || attributeLists.back().object != object
        || attributeLists.back().target != attribute.target)
        attributeLists.push_back(
            {attribute.target, object, static_cast<qsizetype>(readAttributes.size())});
    readAttributes.push_back(
        {attribute.name, placeFrom(attribute.nameOffset), placeFrom(attribute.valueOffset)});
}

const AttributeMap &attributesOf(const CheckedList &list)
{
    if (list.target == AttributeTarget::NodeDefaults)
        return static_cast<const DotSubgraph *>(list.object)->nodeDefaults;
    if (list.target == AttributeTarget::EdgeDefaults)
        return static_cast<const DotSubgraph *>(list.object)->edgeDefaults;
    return list.object->attributes;
}

} // namespace ORR::Companion
