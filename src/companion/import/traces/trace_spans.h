#pragma once

#include "companion/import/reading/import_fault.h"
#include "companion/import/reading/import_source.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace ORR::Companion {

// A piece of work that somebody did, and who asked for it.
struct TraceSpan
{
    enum Kind { Internal, Server, Client, Producer, Consumer };

    QByteArray trace = {};
    QByteArray id = {};
    QByteArray parent = {}; // empty for the first of a trace
    QString service = {};
    QString name = {};
    Kind kind = Internal;
    bool hasFailed = false;
    qint64 start = 0; // nanoseconds from some beginning
    qint64 duration = 0; // nanoseconds, not below 0
};

// All spans of a source, of either format, as one document or one a line. False with a fault.
bool readTraceSpans(ImportSource *source, QList<TraceSpan> *spans, QList<ImportFault> *notes,
                    std::optional<ImportFault> *fault);

} // namespace ORR::Companion
