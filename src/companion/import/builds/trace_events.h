#pragma once

#include "companion/import/reading/import_source.h"

#include <QByteArray>
#include <QList>

#include <optional>

namespace ORR::Companion {

// Something that took a time.
struct TraceEvent
{
    double start; // in microseconds, finite
    double end; // not before it
    QByteArray thread; // events of one thread lie within each other
    QByteArray name; // "InstantiateFunction"
    QByteArray detail; // "std::sort<int *>"; may be empty
};

// The events of a text in Chromium's Trace Event Format that have a duration: complete ones ("X"),
// and pairs of a beginning and an end ("B" and "E", "b" and "e"). The format has no versions; it is
// published by way of
// https://chromium.googlesource.com/catapult/+/main/docs/trace-event-format.md. Sums, which clang
// writes behind them, are passed over. They are in the order in which they begin, thread by thread,
// and what lies around others is before them.
std::optional<ImportFault> readTraceEvents(ImportSource *source, QList<TraceEvent> *events);

} // namespace ORR::Companion
