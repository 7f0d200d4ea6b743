#include "companion/import/graphs/foreign_graph.h"

#include "companion/import/graphs/foreign_text.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <csetjmp>
#include <cstring>
#include <memory>
#include <vector>

extern "C" {
#include <cgraph.h>
}

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

// The parser of the library has a stack of 10,000 entries and takes several for each brace, and
// what frees a graph calls itself for each subgraph in another.
constexpr int deepestBraces = 1000;
// Its scanner takes time by the square of a string: a second for that many bytes.
constexpr qsizetype longestString = 1 << 20;
// Two braces with a hundred thousand names each are ten thousand million edges, so the memory is
// counted as it is taken.
constexpr size_t mostMemory = size_t(1) << 30;

// Memory of one graph, which is given back as a whole; and the way out of the library, which has
// none of its own, when it is used up.
struct Arena
{
    std::vector<std::unique_ptr<char[]>> pieces;
    char *free = nullptr;
    size_t left = 0;
    size_t taken = 0;
    std::jmp_buf wayOut;
};

// The library hands nothing of ours to its functions but for the text.
struct LibraryState
{
    Arena *arena = nullptr;
    QByteArray messages;
    const QByteArray *text = nullptr;
    qsizetype place = 0;
    bool isSpoilt = false; // left in the middle of its work
};
LibraryState library;

constexpr size_t pieceBytes = size_t(1) << 18;
constexpr size_t alignment = alignof(std::max_align_t);

void *openMemory(Agdisc_t * /*discipline*/)
{
    return library.arena;
}

void *takeMemory(void *state, size_t asked)
{
    Arena *arena = static_cast<Arena *>(state);
    const size_t size = (asked + alignment - 1) / alignment * alignment;
    arena->taken += size;
    if (arena->taken > mostMemory || asked > mostMemory)
        std::longjmp(arena->wayOut, 1); // NOLINT(cert-err52-cpp): there are no objects in between
    if (size > arena->left) {
        arena->left = std::max(size, pieceBytes);
        arena->pieces.push_back(std::make_unique<char[]>(arena->left)); // zeros, as asked for
        arena->free = arena->pieces.back().get();
    }
    void *taken = arena->free;
    arena->free += size;
    arena->left -= size;
    return taken;
}

void *resizeMemory(void *state, void *old, size_t oldSize, size_t asked)
{
    void *taken = takeMemory(state, asked);
    if (old)
        std::memcpy(taken, old, std::min(oldSize, asked));
    return taken;
}

void freeMemory(void * /*state*/, void * /*memory*/) { }

int readText(void * /*channel*/, char *buffer, int size)
{
    const qsizetype count = std::min<qsizetype>(size, library.text->size() - library.place);
    std::memcpy(buffer, library.text->constData() + library.place, size_t(count));
    library.place += count;
    return int(count);
}

int writeNothing(void * /*channel*/, const char * /*text*/)
{
    return 0;
}

int flushNothing(void * /*channel*/)
{
    return 0;
}

int keepMessage(char *message)
{
    constexpr qsizetype mostMessages = 4000;
    if (library.messages.size() < mostMessages)
        library.messages += message;
    return 0;
}

// "Error: <stdin>: syntax error in line 3 near 'x'" and what else was said.
ImportFault libraryFault(const std::string &source)
{
    static const QRegularExpression line(u"line (\\d+)"_s);
    QString words = QString::fromUtf8(library.messages).simplified();
    const QRegularExpressionMatch match = line.match(words);
    words.remove(u"Error: "_s);
    words.remove(u"<unknown>: "_s);
    if (words.isEmpty())
        words = u"there is no graph"_s;
    return {{.source = source, .line = match.hasMatch() ? match.captured(1).toLongLong() : 0},
            u"this is no DOT: "_s + words};
}

// Takes over what the library read.
class GraphCopy
{
public:
    GraphCopy(Agraph_t *root, const QList<QByteArray> &wantedNames);

    ForeignGraph copied();

private:
    // An attribute that is wanted and that objects of a kind have.
    struct Wanted
    {
        QByteArray name;
        Agsym_t *symbol;
    };

    ForeignGraph::Values valuesOf(void *object, int kind) const;
    QByteArray decoded(const char *text) const;
    void copyClusters();
    void copyNodes();
    void copyEdges();

    Agraph_t *graph;
    QList<Wanted> wanted[3]; // by the kind: graphs, nodes and edges
    bool isLatin1 = false;
    ForeignGraph copy;
    QHash<quint64, int> clusterOf; // by the node's number: the innermost
    QHash<quint64, int> nodePlaces;
};

GraphCopy::GraphCopy(Agraph_t *root, const QList<QByteArray> &wantedNames) : graph(root)
{
    for (const int kind : {AGRAPH, AGNODE, AGEDGE}) {
        for (const QByteArray &name : wantedNames) {
            QByteArray key = name; // the library takes no constant ones
            if (Agsym_t *symbol = agattr(graph, kind, key.data(), nullptr))
                wanted[kind].append({name, symbol});
        }
    }
}

QByteArray GraphCopy::decoded(const char *text) const
{
    return isLatin1 ? QString::fromLatin1(text).toUtf8() : QByteArray(text);
}

ForeignGraph::Values GraphCopy::valuesOf(void *object, int kind) const
{
    ForeignGraph::Values values;
    for (const auto &[name, symbol] : wanted[kind]) {
        char *value = agxget(object, symbol);
        if (!value || *value == '\0')
            continue;
        values.add(name, decoded(value));
        if (aghtmlstr(value))
            values.setHtml(name);
    }
    return values;
}

// Subgraphs from the outside in; what stands in one that is no cluster belongs to the one around.
void GraphCopy::copyClusters()
{
    struct Open
    {
        Agraph_t *next;
        int cluster;
    };
    QList<Open> path{{agfstsubg(graph), -1}};
    while (!path.isEmpty()) {
        Agraph_t *subgraph = path.last().next;
        if (!subgraph) {
            path.removeLast();
            continue;
        }
        int cluster = path.last().cluster;
        path.last().next = agnxtsubg(subgraph);
        const QByteArray name = decoded(agnameof(subgraph));
        if (name.startsWith("cluster")) {
            copy.clusters.append({name, cluster, valuesOf(subgraph, AGRAPH)});
            cluster = int(copy.clusters.size()) - 1;
            for (Agnode_t *node = agfstnode(subgraph); node; node = agnxtnode(subgraph, node))
                clusterOf.insert(AGID(node), cluster);
        }
        path.append({agfstsubg(subgraph), cluster});
    }
}

void GraphCopy::copyNodes()
{
    for (Agnode_t *node = agfstnode(graph); node; node = agnxtnode(graph, node)) {
        nodePlaces.insert(AGID(node), int(copy.nodes.size()));
        copy.nodes.append(
            {decoded(agnameof(node)), clusterOf.value(AGID(node), -1), valuesOf(node, AGNODE)});
    }
}

void GraphCopy::copyEdges()
{
    for (Agnode_t *node = agfstnode(graph); node; node = agnxtnode(graph, node)) {
        for (Agedge_t *edge = agfstout(graph, node); edge; edge = agnxtout(graph, edge))
            copy.edges.append({nodePlaces.value(AGID(agtail(edge))),
                               nodePlaces.value(AGID(aghead(edge))), valuesOf(edge, AGEDGE)});
    }
}

ForeignGraph GraphCopy::copied()
{
    char charset[] = "charset";
    const char *given = agget(graph, charset);
    isLatin1 = given && QByteArrayView(given).toByteArray().toLower().startsWith("latin");
    copy.name = decoded(agnameof(graph));
    if (copy.name.startsWith('%'))
        copy.name.clear(); // a number of the library's for what has no name
    copy.isDirected = agisdirected(graph);
    copy.values = valuesOf(graph, AGRAPH);
    copyClusters();
    copyNodes();
    copyEdges();
    return copy;
}

// What could not be handed to the library at all.
std::optional<QString> refusal(const QByteArray &text, const ForeignTextMeasure &measure)
{
    if (text.contains('\0'))
        return u"this is no DOT: there is a NUL byte in it"_s;
    if (library.isSpoilt)
        return u"a graph before this one took too much memory"_s;
    if (measure.longestString > longestString)
        return u"a string is longer than a megabyte"_s;
    if (measure.deepest > deepestBraces)
        return u"braces or HTML are nested deeper than %1 levels"_s.arg(deepestBraces);
    return std::nullopt;
}

// Null if there is none, or if it is too large. Nothing that has a destructor lives in here, since
// it is left by a jump.
Agraph_t *readByLibrary(Arena *arena, bool *isTooLarge)
{
    // With a way to close the memory the library would leave what it has elsewhere to it, too.
    static Agmemdisc_t memory{openMemory, takeMemory, resizeMemory, freeMemory, nullptr};
    static Agiodisc_t input{readText, writeNothing, flushNothing};
    static Agdisc_t discipline{&memory, &AgIdDisc, &input};
    if (setjmp(arena->wayOut) != 0) { // NOLINT(cert-err52-cpp)
        library.isSpoilt = true;
        *isTooLarge = true;
        return nullptr;
    }
    return agread(nullptr, &discipline);
}

} // namespace

QByteArray ForeignGraph::Values::operator[](QByteArrayView wanted) const
{
    for (const Value &value : all) {
        if (value.name == wanted)
            return value.value;
    }
    return {};
}

std::optional<ForeignGraph> readForeignGraph(const QByteArray &text, const std::string &source,
                                             const QList<QByteArray> &wanted,
                                             std::optional<ImportFault> *fault)
{
    const ForeignTextMeasure measure = measuredForeignText(text);
    if (const auto refused = refusal(text, measure)) {
        *fault = ImportFault{{.source = source}, *refused};
        return std::nullopt;
    }
    // What it has read ahead behind the graph the library would take for the next one's beginning.
    const QByteArray graphText = text.first(measure.graphEnd);
    Arena arena;
    library = {.arena = &arena, .messages = {}, .text = &graphText};
    agseterrf(keepMessage);
    agreadline(1);
    bool isTooLarge = false;
    Agraph_t *graph = readByLibrary(&arena, &isTooLarge);
    if (!graph) {
        *fault = isTooLarge
            ? ImportFault{{.source = source}, u"this graph takes more than a gigabyte"_s}
            : libraryFault(source);
        return std::nullopt;
    }
    ForeignGraph copy = GraphCopy(graph, wanted).copied();
    copy.restLine = measure.restLine;
    agclose(graph);
    return copy;
}

} // namespace ORR::Companion
