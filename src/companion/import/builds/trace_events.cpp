#include "companion/import/builds/trace_events.h"

#include "companion/import/reading/json_kinds.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr double unset = std::numeric_limits<double>::quiet_NaN();

// What tells beginnings and ends of the same event, or the events of a thread.
QByteArray keyOf(JsonValue event, std::initializer_list<QByteArrayView> names)
{
    QByteArray key;
    for (const QByteArrayView name : names) {
        const JsonValue value = event[name];
        key += value.isString() ? value.bytes() : QByteArray::number(value.number(-1), 'g', 17);
        key += '\n';
    }
    return key;
}

class EventReader
{
public:
    EventReader(const JsonDocument &text, QList<TraceEvent> *read)
        : document(text), kinds(&text), events(read)
    {
    }

    std::optional<ImportFault> add(JsonValue event);
    // Of the last one, too.
    const std::optional<ImportFault> &faultOfKind() const { return kinds.fault(); }

private:
    TraceEvent eventAt(JsonValue event, double start, double end);
    std::optional<ImportFault> addComplete(JsonValue event, double start);
    void addEnd(JsonValue event, double end);

    const JsonDocument &document;
    JsonKinds kinds;
    QList<TraceEvent> *events;
    QHash<QByteArray, QList<TraceEvent>> begun; // and not ended yet, the newest last
};

TraceEvent EventReader::eventAt(JsonValue event, double start, double end)
{
    return {.start = start,
            .end = end,
            .thread = keyOf(event, {"pid", "tid"}),
            .name = kinds.string(event["name"]).bytes(),
            .detail = event["args"]["detail"].bytes()};
}

std::optional<ImportFault> EventReader::add(JsonValue event)
{
    if (const std::optional<ImportFault> &strange = kinds.fault())
        return strange;
    const QByteArray phase = kinds.string(kinds.object(event)["ph"]).bytes();
    const bool isComplete = phase == "X";
    const bool isBeginning = phase == "b" || phase == "B";
    const bool isEnd = phase == "e" || phase == "E";
    if (!isComplete && !isBeginning && !isEnd)
        return std::nullopt; // an instant, a name, a counter
    const double time = event["ts"].number(unset);
    if (!std::isfinite(time))
        return document.faultAt(event, u"an event needs its time in \"ts\""_s);
    if (isComplete)
        return addComplete(event, time);
    if (isBeginning)
        begun[keyOf(event, {"cat", "id", "tid"})].append(eventAt(event, time, time));
    else
        addEnd(event, time);
    return std::nullopt;
}

std::optional<ImportFault> EventReader::addComplete(JsonValue event, double start)
{
    const double duration = event["dur"].number(unset);
    const double end = start + duration;
    if (!(duration >= 0) || !std::isfinite(end)) {
        return document.faultAt(event, u"an event needs a duration of 0 or above in \"dur\""_s);
    }
    if (!event["name"].bytes().startsWith("Total "))
        events->append(eventAt(event, start, end));
    return std::nullopt;
}

void EventReader::addEnd(JsonValue event, double end)
{
    const auto open = begun.find(keyOf(event, {"cat", "id", "tid"}));
    if (open == begun.end() || open->isEmpty())
        return;
    TraceEvent ended = open->takeLast();
    ended.end = std::max(ended.start, end);
    events->append(ended);
}

bool isBefore(const TraceEvent &a, const TraceEvent &b)
{
    if (a.thread != b.thread)
        return a.thread < b.thread;
    return a.start != b.start ? a.start < b.start : a.end > b.end;
}

} // namespace

std::optional<ImportFault> readTraceEvents(ImportSource *source, QList<TraceEvent> *events)
{
    std::optional<ImportFault> fault;
    const std::optional<JsonDocument> document =
        JsonDocument::read(source->rest(), source->name(), &fault);
    if (!document)
        return fault;
    // Either form is that of the published format.
    const JsonValue root = document->root();
    const JsonValue all = root.isArray() ? root : root["traceEvents"];
    if (!all.isArray())
        return document->faultAt(root, u"there are no \"traceEvents\""_s);
    EventReader reader(*document, events);
    for (JsonValue event = all.first(); !event.isMissing(); event = event.next()) {
        fault = reader.add(event);
        if (fault)
            return fault;
    }
    if (reader.faultOfKind())
        return reader.faultOfKind();
    if (events->isEmpty())
        return document->faultAt(all, u"none of these events has a duration"_s);
    std::stable_sort(events->begin(), events->end(), isBefore);
    return std::nullopt;
}

} // namespace ORR::Companion
