#include "layout/sequence/uml_sequence.h"

#include "graph/attribute_values.h"
#include "graph/limits.h"
#include "graph/message_text.h"
#include "graph/subgraph_walk.h"
#include "layout/sequence/grid_solver.h"
#include "layout/sequence/pending_edges.h"
#include "layout/sequence/uml_edges.h"
#include "layout/sequence/uml_nodes.h"

#include <algorithm>
#include <utility>

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;

namespace {

const QString colName = u"col"_s;
const QString heightName = u"height"_s;
const QString nestingName = u"nesting"_s;
const QString rowName = u"row"_s;
const QString umlName = u"uml"_s;
const QString visibleName = u"visible"_s;
const QString widthName = u"width"_s;

const QString activationType = u"activation"_s;
const QString foundMessageType = u"foundmessage"_s;
const QString fragmentType = u"combinedfragment"_s;
const QString lifeLineType = u"lifeline"_s;
const QString messageType = u"message"_s;
const QString objectType = u"object"_s;
const QString returnType = u"return"_s;
const QString sectionType = u"section"_s;
const QString spacerType = u"spacer"_s;

// The object that a node stands for; null if it stands for none.
std::unique_ptr<GridObject> makeNodeObject(const DotGraph *graph, DotNode *node)
{
    const auto number = [&](const QString &name) {
        return integerFrom(graph->nodeAttribute(node, name));
    };
    const QString uml = graph->nodeAttribute(node, umlName);
    if (uml == objectType)
        return std::make_unique<UmlObject>(number(rowName), number(colName), node);
    if (uml == foundMessageType)
        return std::make_unique<UmlFoundMessage>(number(rowName), number(colName), node);
    if (uml == activationType) {
        return std::make_unique<UmlActivation>(number(rowName), number(colName),
                                               number(nestingName), node);
    }
    if (uml == spacerType) {
        const InvisibleGridObject::Size size{number(widthName), number(heightName)};
        return std::make_unique<InvisibleGridObject>(number(rowName), number(colName), size,
                                                     InvisibleGridObject::Centre,
                                                     InvisibleGridObject::Centre, node);
    }
    return nullptr;
}

// The object of an edge between two objects; null if it stands for none.
std::unique_ptr<GridObject> makeEdgeObject(const DotGraph *graph, DotEdge *edge, GridObject *tail,
                                           GridObject *head)
{
    const QString uml = graph->edgeAttribute(edge, umlName);
    if (uml == messageType)
        return std::make_unique<UmlMessage>(tail, head, edge);
    if (uml == lifeLineType)
        return std::make_unique<UmlLifeLine>(tail, head, edge);
    if (uml == returnType) {
        if (auto *activation = dynamic_cast<UmlActivation *>(tail)) {
            const int row = integerFrom(graph->edgeAttribute(edge, rowName));
            const bool visible = graph->edgeAttribute(edge, visibleName) == "true"_L1;
            return std::make_unique<UmlReturn>(row, activation, head, visible, edge);
        }
    }
    return nullptr;
}

// What a message calls the object, whose element may be null.
QString describe(const GridObject &object)
{
    if (!object.element())
        return u"the end of a fragment"_s;
    switch (object.objectKind()) {
    case GridObject::NodeKind:
        return u"\"%1\""_s.arg(messageText(static_cast<const DotNode *>(object.element())->id));
    case GridObject::ClusterKind:
        return u"\"%1\""_s.arg(messageText(static_cast<const DotSubgraph *>(object.element())->id));
    default: {
        const auto *edge = static_cast<const DotEdge *>(object.element());
        return u"\"%1\" -> \"%2\""_s.arg(messageText(edge->tail->id), messageText(edge->head->id));
    }
    }
}

// Null if the index is one of the grid.
QString gridFailure(const GridObject &object, const QString &axis, int index)
{
    if (index >= 0 && index < Limits::mostGridLines)
        return {};
    return u"Unable to lay out the sequence diagram: %1 %2 of %3 is not between 0 and %4\n"_s.arg(
        axis, QString::number(index), describe(object), QString::number(Limits::mostGridLines - 1));
}

} // namespace

// What lives only while a diagram is built.
struct UmlSequence::Build
{
    explicit Build(DotGraph *dotGraph) : graph(dotGraph), pending(objects) { }

    UmlCombinedFragment *innermost() const
    {
        return open.isEmpty() ? nullptr : open.constLast().fragment;
    }

    struct OpenFragment
    {
        const DotSubgraph *subgraph;
        UmlCombinedFragment *fragment;
    };

    DotGraph *graph;
    NodeObjects objects;
    PendingEdges pending;
    QList<OpenFragment> open; // those around the subgraph at hand
};

UmlSequence::UmlSequence() = default;

UmlSequence::~UmlSequence() = default;

QString UmlSequence::run(DotGraph *graph, Device *device)
{
    {
        Build build(graph);
        collect(build);
    }
    if (failed())
        return failure;

    const QList<const GridObject *> objects = allObjects();
    const GraphStyle style(graph, device);
    const QList<int> colPos = solveGrid(colCount, objects, true, style);
    const QList<int> rowPos = solveGrid(rowCount, objects, false, style);

    device->begin(colPos.constLast(), rowPos.constLast());
    for (const GridObject *object : objects)
        object->paint(device, colPos, rowPos, style);
    return device->end();
}

void UmlSequence::addObject(std::unique_ptr<GridObject> object)
{
    if (!failed())
        failure = gridFailure(*object, u"row"_s, object->row());
    if (!failed())
        failure = gridFailure(*object, u"column"_s, object->col());
    if (!failed()) {
        rowCount = std::max(rowCount, object->row() + 1);
        colCount = std::max(colCount, object->col() + 1);
    }
    switch (object->objectKind()) {
    case GridObject::ClusterKind:
        clusterObjects.push_back(std::move(object));
        break;
    case GridObject::EdgeKind:
        edgeObjects.push_back(std::move(object));
        break;
    default:
        nodeObjects.push_back(std::move(object));
        break;
    }
}

// In painter's order: inner fragments lie over outer ones, which were made first, and arrows over
// everything.
QList<const GridObject *> UmlSequence::allObjects() const
{
    QList<const GridObject *> objects;
    const std::size_t count = clusterObjects.size() + nodeObjects.size() + edgeObjects.size();
    objects.reserve(static_cast<qsizetype>(count));
    for (const Objects *list : {&clusterObjects, &nodeObjects, &edgeObjects}) {
        for (const std::unique_ptr<GridObject> &object : *list)
            objects.append(object.get());
    }
    return objects;
}

// Ends early after a failure: beyond the limit there is no room to count on.
void UmlSequence::collect(Build &build)
{
    const DotSubgraph *root = build.graph->root();
    const auto enter = [&](DotSubgraph *subgraph) {
        if (failed())
            return false;
        if (subgraph != root) {
            const QString uml = build.graph->graphAttribute(subgraph, umlName);
            if (uml == fragmentType)
                collectFragment(build, subgraph);
            else if (uml == sectionType && build.innermost())
                collectSection(build, subgraph);
            else
                return false;
        }
        collectMembers(build, subgraph);
        return true;
    };
    const auto leave = [&](const DotSubgraph *subgraph) {
        if (!failed() && !build.open.isEmpty() && build.open.constLast().subgraph == subgraph)
            closeFragment(build);
    };
    walkSubgraphs(build.graph->root(), enter, leave);
}

// The nodes of a subgraph, then all edges that can be made by now. An edge that had to wait thus
// belongs to the fragment where the last of its ends turned up.
void UmlSequence::collectMembers(Build &build, const DotSubgraph *subgraph)
{
    UmlCombinedFragment *parent = build.innermost();
    for (DotNode *node : subgraph->nodes) {
        std::unique_ptr<GridObject> object = makeNodeObject(build.graph, node);
        if (!object)
            continue;
        build.objects.insert(node, object.get());
        build.pending.nodeIsKnown(node);
        addTo(parent, std::move(object));
    }
    for (DotEdge *edge : subgraph->edges)
        build.pending.add(edge);
    const QList<DotEdge *> ready = build.pending.takeReady();
    for (DotEdge *edge : ready) {
        std::unique_ptr<GridObject> object = makeEdgeObject(
            build.graph, edge, build.objects.value(edge->tail), build.objects.value(edge->head));
        if (object)
            addTo(parent, std::move(object));
    }
}

void UmlSequence::collectFragment(Build &build, DotSubgraph *subgraph)
{
    const auto number = [&](const QString &name) {
        return integerFrom(build.graph->graphAttribute(subgraph, name));
    };
    auto made = std::make_unique<UmlCombinedFragment>(number(rowName), number(colName), subgraph);
    UmlCombinedFragment *fragment = made.get();
    addTo(build.innermost(), std::move(made));
    build.open.append({subgraph, fragment});
}

void UmlSequence::collectSection(Build &build, DotSubgraph *subgraph)
{
    UmlCombinedFragment *fragment = build.innermost();
    const int row = integerFrom(build.graph->graphAttribute(subgraph, rowName));
    addTo(fragment, fragment->addSection(row, subgraph));
}

void UmlSequence::closeFragment(Build &build)
{
    std::unique_ptr<GridObject> spacer = build.innermost()->close();
    build.open.removeLast();
    addTo(build.innermost(), std::move(spacer));
}

void UmlSequence::addTo(UmlCombinedFragment *parent, std::unique_ptr<GridObject> object)
{
    if (parent)
        parent->addChild(object.get());
    addObject(std::move(object));
}

} // namespace ORR::Graph::Layout
