#include "companion/import/graphs/dot_import.h"

#include "companion/import/dependencies/deps_reading.h"
#include "companion/import/graphs/foreign_graph.h"
#include "companion/import/graphs/foreign_looks.h"
#include "companion/import/graphs/foreign_text.h"
#include "companion/import/graphs/laid_out_graph.h"
#include "companion/produce/dependency_picture.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// What is left out of a graph, or not taken as it stands.
struct ForeignOmissions
{
    qint64 nodes = 0; // that are invisible
    qint64 edges = 0;
    qint64 weights = 0; // below zero, or beyond double
};

// The weight of an edge counts in a matrix.
double edgeWeight(const ForeignGraph::Values &values, ForeignOmissions *left)
{
    bool isNumber = false;
    const double weight = values["weight"].toDouble(&isNumber);
    const bool isNone = isNumber ? !std::isfinite(weight) : !values["weight"].isEmpty();
    if (isNone || weight < 0)
        ++left->weights;
    return std::isfinite(weight) && weight > 0 ? weight : 1;
}

// Authors move others apart with what can't be seen.
bool isInvisible(const ForeignGraph::Values &values)
{
    return values["style"].contains("invis");
}

// Things by the names of nodes, groups by those of clusters, several graphs beside each other.
ForeignOmissions addGraph(const ForeignGraph &graph, Dependencies *all)
{
    ForeignOmissions left;
    QList<Dependencies::Item> groups;
    for (const ForeignGraph::Cluster &cluster : graph.clusters) {
        const Dependencies::Item parent =
            cluster.parent < 0 ? WeightTree::root : groups[cluster.parent];
        groups.append(all->groupIn(parent, cluster.name));
        all->setLabel(groups.last(), foreignLabel(cluster.values, cluster.name, graph.name));
    }
    QList<Dependencies::Item> things;
    for (const ForeignGraph::Node &node : graph.nodes) {
        if (isInvisible(node.values)) {
            things.append(WeightTree::none);
            ++left.nodes;
            continue;
        }
        const Dependencies::Item group = node.cluster < 0 ? WeightTree::root : groups[node.cluster];
        things.append(all->thingIn(group, node.name));
        all->setLabel(things.last(), foreignLabel(node.values, node.name, graph.name));
        const ThingLook look = foreignLook(graph, node);
        if (!look.isEmpty())
            all->setLook(things.last(), look);
    }
    for (const ForeignGraph::Edge &edge : graph.edges) {
        const bool isSeen = !isInvisible(edge.values) && things[edge.tail] != WeightTree::none
            && things[edge.head] != WeightTree::none;
        if (!isSeen) {
            ++left.edges;
            continue;
        }
        const Dependencies::Item tail = things[edge.tail];
        const Dependencies::Item head = things[edge.head];
        all->need(tail, head, edgeWeight(edge.values, &left));
        const LinkLook look = foreignLinkLook(graph, edge);
        if (!look.isEmpty())
            all->setLinkLook(tail, head, look);
    }
    return left;
}

void tellOfRest(qint64 line, const std::string &source, QList<ImportFault> *notes)
{
    if (line > 0)
        notes->append({{.source = source, .line = line},
                       u"what stands behind the first graph is passed over, from here on"_s});
}

void tellOfGraph(const ForeignGraph &graph, const ForeignOmissions &left, const std::string &source,
                 QList<ImportFault> *notes)
{
    const ImportPlace place{.source = source};
    if (!graph.isDirected)
        notes->append(
            {place,
             u"the graph has no directions; its edges lead from the first node to the second"_s});
    if (left.nodes + left.edges > 0)
        notes->append({place,
                       u"what is invisible is left out, with its edges: %1 nodes and %2 edges"_s
                           .arg(left.nodes)
                           .arg(left.edges)});
    if (left.weights > 0)
        notes->append(
            {place,
             u"weights of edges that are no number of 0 or more count as 1: %1 of them"_s.arg(
                 left.weights)});
    tellOfRest(graph.restLine, source, notes);
}

// The library has a name for a graph without one, which begins with "%".
QString foreignTitle(const ForeignGraph &graph)
{
    const QByteArray label = graph.values["label"];
    const bool isPlain = !label.isEmpty() && !graph.values.isHtml("label");
    if (isPlain)
        return foreignLabel(graph.values, graph.name, graph.name);
    return graph.name.startsWith('%') ? QString() : QString::fromUtf8(graph.name);
}

QString foreignDirection(const ForeignGraph &graph)
{
    const QByteArray direction = graph.values["rankdir"].toUpper();
    return direction == "LR" || direction == "RL" || direction == "BT" || direction == "TB"
        ? QString::fromLatin1(direction)
        : QString();
}

ImportResult readLaidOut(std::vector<ImportSource> &sources, const ImportOptions &options)
{
    ImportResult result;
    if (sources.size() != 1) {
        result.fault = ImportFault{{.source = sources.back().name()},
                                   u"a layout is made of one graph, not of several"_s};
        return result;
    }
    const std::string &name = sources.front().name();
    const QByteArray text = sources.front().rest();
    tellOfRest(measuredForeignText(text).restLine, name, &result.notes);
    result.picture = layOutForeignGraph(text, options.layout, name, &result.fault);
    return result;
}

// Behind comments and blanks.
QByteArrayView firstWords(QByteArrayView text)
{
    for (;;) {
        text = text.trimmed();
        if (text.startsWith("\xEF\xBB\xBF"))
            text = text.sliced(3);
        const bool isLine = text.startsWith("//") || text.startsWith('#');
        if (!isLine && !text.startsWith("/*"))
            return text;
        const QByteArrayView ending = isLine ? "\n" : "*/";
        const qsizetype end = text.indexOf(ending);
        if (end < 0)
            return {};
        text = text.sliced(end + ending.size());
    }
}

} // namespace

int likenessOfDot(QByteArrayView beginning)
{
    const QByteArray words = firstWords(beginning)
                                 .first(std::min<qsizetype>(200, firstWords(beginning).size()))
                                 .toByteArray()
                                 .toLower();
    const bool isStrict = words.startsWith("strict");
    const QByteArray word = isStrict ? words.sliced(6).trimmed() : words;
    const bool isGraph = word.startsWith("digraph") || word.startsWith("graph");
    if (!isGraph)
        return 0;
    // "graph TD" begins a diagram of another language.
    return firstWords(beginning).contains('{') ? 95 : 20;
}

ImportResult readDot(std::vector<ImportSource> &sources, const ImportOptions &options)
{
    if (!options.layout.empty())
        return readLaidOut(sources, options);
    ImportResult result;
    Dependencies all;
    DependencyMeaning meaning{.needs = u"an edge from the row to the column"_s,
                              .inCycle = u"edges of a cycle"_s,
                              .within = u"to itself, or within a group"_s,
                              .things = u"nodes"_s};
    for (ImportSource &source : sources) {
        const auto graph =
            readForeignGraph(source.rest(), source.name(), lookedAtAttributes(), &result.fault);
        if (!graph)
            return result;
        const ForeignOmissions left = addGraph(*graph, &all);
        tellOfGraph(*graph, left, source.name(), &result.notes);
        meaning.direction = foreignDirection(*graph);
        meaning.name = foreignTitle(*graph);
    }
    if (all.thingCount() == 0) {
        result.fault = ImportFault{{.source = sources.front().name()}, u"the graph has no nodes"_s};
        return result;
    }
    result.fault = weightFault(all, sources.front().name());
    if (!result.fault)
        result.picture = std::make_unique<DependencyPicture>(std::move(all), meaning);
    return result;
}

} // namespace ORR::Companion
