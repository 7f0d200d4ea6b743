#include "layout/sequence/uml_sequence.h"

#include "graph/limits.h"
#include "graph/message_text.h"
#include "graph/subgraph_walk.h"
#include "layout/sequence/grid_solver.h"
#include "layout/sequence/pending_edges.h"
#include "layout/sequence/uml_edges.h"
#include "layout/sequence/uml_nodes.h"
#include "layout/sequence/uml_reading.h"
#include "layout/sequence/umlseq_attributes.h"

#include <algorithm>
#include <utility>

namespace ORR::Graph::Layout {

using namespace Qt::StringLiterals;

namespace {

namespace Rows = UmlseqAttributes;

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

// An activation ends on the row of the return that comes from it, visible or not; of several the
// last one made counts.
void endActivation(GridObject *tail, const GridObject &edge)
{
    if (dynamic_cast<const UmlReturn *>(&edge))
        static_cast<UmlActivation *>(tail)->setEndRow(edge.row());
}

QList<GridClaim> claimsOf(const QList<const GridObject *> &objects, bool columns)
{
    QList<GridClaim> claims;
    claims.reserve(objects.size());
    for (const GridObject *object : objects) {
        if (columns)
            claims.append(
                {object->col(), object->xOffset(), object->width(), object->spansAxis(true)});
        else
            claims.append(
                {object->row(), object->yOffset(), object->height(), object->spansAxis(false)});
    }
    return claims;
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

QString UmlSequence::run(const LayoutContext &context)
{
    return UmlSequence().draw(context);
}

UmlSequence::UmlSequence() = default;

UmlSequence::~UmlSequence() = default;

QString UmlSequence::draw(const LayoutContext &context)
{
    const auto [graph, device] = context;
    {
        Build build(graph);
        collect(build);
    }
    if (failed())
        return failure;

    const GraphStyle style(graph, device);
    measure(style);
    const QList<const GridObject *> objects = allObjects();
    const QList<int> colPos = solveGrid(colCount, claimsOf(objects, true));
    const QList<int> rowPos = solveGrid(rowCount, claimsOf(objects, false));

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

// What hangs on others comes after them: outer fragments, which were made first, after those within
// them, and edges after nodes.
void UmlSequence::measure(const GraphStyle &style)
{
    for (auto cluster = clusterObjects.rbegin(); cluster != clusterObjects.rend(); ++cluster)
        (*cluster)->measure(style);
    for (const Objects *list : {&nodeObjects, &edgeObjects}) {
        for (const std::unique_ptr<GridObject> &object : *list)
            object->measure(style);
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
            const int kind = Rows::subgraphKind.of(build.graph, subgraph);
            if (kind == Rows::CombinedFragment)
                collectFragment(build, subgraph);
            else if (kind == Rows::Section && build.innermost())
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
        GridObject *tail = build.objects.value(edge->tail);
        std::unique_ptr<GridObject> object =
            makeEdgeObject(build.graph, edge, tail, build.objects.value(edge->head));
        if (!object)
            continue;
        endActivation(tail, *object);
        addTo(parent, std::move(object));
    }
}

void UmlSequence::collectFragment(Build &build, DotSubgraph *subgraph)
{
    std::unique_ptr<UmlCombinedFragment> made = makeFragment(build.graph, subgraph);
    UmlCombinedFragment *fragment = made.get();
    addTo(build.innermost(), std::move(made));
    build.open.append({subgraph, fragment});
}

void UmlSequence::collectSection(Build &build, DotSubgraph *subgraph)
{
    UmlCombinedFragment *fragment = build.innermost();
    const int row = Rows::row.of(build.graph, subgraph);
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
