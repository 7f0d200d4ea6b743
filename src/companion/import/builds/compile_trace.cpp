#include "companion/import/builds/compile_trace.h"

#include "companion/import/builds/trace_events.h"
#include "companion/import/programs/symbol_name.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr double secondsOfUnit = 1e-6;

enum TraceKind {
    Headers,
    Classes,
    Templates,
    ClassInstances,
    FunctionInstances,
    Code,
    Optimization,
    Backend,
    Other,
};

struct KindOfEvent
{
    QByteArrayView event;
    TraceKind kind;
};

// What isn't named here, passes of the optimizer mostly, is of the kind of what it lies in.
constexpr std::array<KindOfEvent, 12> kindsOfEvents{
    {{"Source", Headers},
     {"ParseClass", Classes},
     {"ParseTemplate", Templates},
     {"InstantiateClass", ClassInstances},
     {"InstantiateFunction", FunctionInstances},
     {"PerformPendingInstantiations", FunctionInstances},
     {"CodeGen Function", Code},
     {"Optimizer", Optimization},
     {"Backend", Backend},
     {"CodeGenPasses", Backend},
     {"Frontend", Other},
     {"ExecuteCompiler", Other}}};

int kindOf(const TraceEvent &event, int around)
{
    const auto *const known =
        std::ranges::find(kindsOfEvents, QByteArrayView(event.name), &KindOfEvent::event);
    return known == kindsOfEvents.end() ? around : int(known->kind);
}

// Of a header that lies where those of the system do, the part that is included.
QByteArray headerName(const QByteArray &path)
{
    constexpr QByteArrayView folder = "/include/";
    const qsizetype place = path.lastIndexOf(folder);
    if (place < 0)
        return path;
    const QByteArray name = path.sliced(place + folder.size());
    const qsizetype end = name.indexOf('/');
    const bool isOfMachine = end >= 0 && name.first(end).contains("-linux-");
    return isOfMachine ? name.sliced(end + 1) : name;
}

QByteArray nameOf(const TraceEvent &event)
{
    if (event.detail.isEmpty())
        return event.name;
    if (event.name == "Source")
        return headerName(event.detail);
    // Of templates all instances together say more than each of them. Passes have mangled names.
    const bool isSymbol = event.name.startsWith("Instantiate") || event.detail.startsWith("_Z");
    return isSymbol ? shortSymbol(event.detail) : event.detail;
}

// An event that is not over yet.
struct OpenEvent
{
    double end;
    WeightTree::Item item;
    int kind;
    double beside; // the microseconds in which none of those within it runs
};

} // namespace

QStringList compileKinds()
{
    return {u"Source (headers)"_s,
            u"ParseClass"_s,
            u"ParseTemplate"_s,
            u"InstantiateClass"_s,
            u"InstantiateFunction"_s,
            u"CodeGen Function"_s,
            u"Optimizer"_s,
            u"Backend"_s,
            u"other"_s};
}

bool CompileTrace::looksLike(QByteArrayView beginning)
{
    const QByteArrayView text = beginning.trimmed();
    if (text.startsWith('{'))
        return text.contains("\"traceEvents\"");
    return text.startsWith('[') && text.contains("\"ph\"") && text.contains("\"ts\"");
}

WeightTree::Item CompileTrace::itemOf(const TraceEvent &event, WeightTree::Item parent, int kind)
{
    if (byKind) {
        const WeightTree::Item item =
            tree.child(WeightTree::root, compileKinds().at(kind).toUtf8());
        tree.setKind(item, kind);
        return item;
    }
    const QByteArray name = nameOf(event);
    WeightTree::Item item = tree.child(parent, name);
    // A class is parsed and instantiated at the same place.
    if (tree.kind(item) >= 0 && tree.kind(item) != kind)
        item = tree.child(parent, name + " (" + event.name + ')');
    tree.setKind(item, kind);
    return item;
}

std::optional<ImportFault> CompileTrace::read(ImportSource *source, const QByteArray &below)
{
    QList<TraceEvent> events;
    if (std::optional<ImportFault> fault = readTraceEvents(source, &events))
        return fault;
    addEvents(events, below.isEmpty() ? WeightTree::root : tree.child(WeightTree::root, below));
    return std::nullopt;
}

void CompileTrace::addEvents(const QList<TraceEvent> &events, WeightTree::Item top)
{
    QList<OpenEvent> open;
    const auto closeLast = [&] {
        const OpenEvent last = open.takeLast();
        tree.addWeight(last.item, std::max(0.0, last.beside) * secondsOfUnit);
    };
    QByteArray thread;
    for (const TraceEvent &event : events) {
        while (!open.isEmpty() && (open.last().end <= event.start || event.thread != thread))
            closeLast();
        thread = event.thread;
        // One that is longer than what it began in counts as far as that goes.
        const double end = open.isEmpty() ? event.end : std::min(event.end, open.last().end);
        const WeightTree::Item parent = open.isEmpty() ? top : open.last().item;
        const int kind = kindOf(event, open.isEmpty() ? int(Other) : open.last().kind);
        const double duration = end - event.start;
        if (!open.isEmpty())
            open.last().beside -= duration;
        open.append(
            {.end = end, .item = itemOf(event, parent, kind), .kind = kind, .beside = duration});
    }
    while (!open.isEmpty())
        closeLast();
}

} // namespace ORR::Companion
