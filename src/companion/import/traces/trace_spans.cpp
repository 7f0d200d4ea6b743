#include "companion/import/traces/trace_spans.h"

#include "companion/import/reading/json_kinds.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

constexpr qint64 longestTime = qint64(1) << 61; // sums of two are still numbers

// A member by its name in JSON or, as some encoders are told to write it, that of the definition:
// "parentSpanId", "parent_span_id".
JsonValue protoMember(const JsonValue &value, QByteArrayView name)
{
    const JsonValue member = value[name];
    if (!member.isMissing())
        return member;
    QByteArray defined;
    for (const char c : name) {
        const bool isCapital = c >= 'A' && c <= 'Z';
        defined += isCapital ? QByteArray{"_"} + char(c | 0x20) : QByteArray(1, c);
    }
    return value[defined];
}

// Digits of base 16, in which letters may be of either size. Tempo writes base 64.
QByteArray otlpId(const JsonValue &value)
{
    const QByteArray id = value.bytes();
    const bool isHex = std::all_of(id.begin(), id.end(), [](char c) {
        return (c >= '0' && c <= '9') || ((c | 0x20) >= 'a' && (c | 0x20) <= 'f');
    });
    return isHex ? id.toLower() : id;
}

class SpanReader
{
public:
    SpanReader(const JsonDocument &json, QList<TraceSpan> *found, QList<ImportFault> *told)
        : document(json), kinds(&json), spans(found), notes(told)
    {
    }

    bool read(std::optional<ImportFault> *fault);

private:
    bool readExport(const JsonValue &whole);
    void readResource(const JsonValue &resource);
    void readOtlpSpan(const JsonValue &value, const QString &service);
    void readJaegerTrace(const JsonValue &trace);
    void readJaegerSpan(const JsonValue &value, const JsonValue &processes);
    qint64 nanoseconds(const JsonValue &written, double factor);
    void add(TraceSpan span, qint64 duration, const JsonValue &value);

    const JsonDocument &document;
    JsonKinds kinds;
    QList<TraceSpan> *spans;
    QList<ImportFault> *notes;
    qint64 backward = 0; // spans that end before they begin
    qint64 beyond = 0; // times that were cut
};

bool SpanReader::read(std::optional<ImportFault> *fault)
{
    const JsonValue root = document.root();
    JsonValue other;
    if (!root.isArray()) {
        other = readExport(root) ? JsonValue() : root;
    } else {
        for (JsonValue one = root.first(); !one.isMissing() && other.isMissing(); one = one.next())
            other = readExport(one) ? JsonValue() : one;
    }
    *fault = kinds.fault();
    if (other.isMissing() || *fault)
        return !*fault;
    *fault = document.faultAt(other,
                              u"there is neither 'resourceSpans', as OTLP has it, nor "
                              "'data' with traces, as Jaeger has it"_s);
    return false;
}

// False if it is of no form that is known.
bool SpanReader::readExport(const JsonValue &whole)
{
    const JsonValue inner = whole["trace"].isObject() ? whole["trace"] : whole;
    const JsonValue sent = kinds.array(protoMember(inner, "resourceSpans"));
    const JsonValue resources = sent.isArray() ? sent : kinds.array(inner["batches"]);
    const JsonValue traces = kinds.array(whole["data"]);
    for (JsonValue one = resources.first(); !one.isMissing(); one = one.next())
        readResource(kinds.object(one));
    for (JsonValue one = traces.first(); !one.isMissing(); one = one.next())
        readJaegerTrace(kinds.object(one));
    if (whole["spans"].isArray())
        readJaegerTrace(whole);
    return resources.isArray() || traces.isArray() || whole["spans"].isArray();
}

// Of 19 digits a double would lose three. What is too long for a number of nanoseconds is cut, and
// told once.
qint64 SpanReader::nanoseconds(const JsonValue &written, double factor)
{
    const JsonValue value = kinds.number(written);
    bool isWhole = false;
    const qint64 whole = value.bytes().toLongLong(&isWhole);
    const double number = value.number() * factor;
    if (std::isnan(number))
        return 0;
    if (std::abs(number) < double(longestTime))
        return isWhole && factor == 1 ? whole : qint64(number);
    if (beyond++ == 0)
        notes->append(document.faultAt(value,
                                       u"this time is longer than can be told in nanoseconds, and "
                                       "is cut"_s));
    return number > 0 ? longestTime : -longestTime;
}

void SpanReader::readResource(const JsonValue &resource)
{
    QString service;
    const JsonValue attributes = kinds.array(kinds.object(resource["resource"])["attributes"]);
    for (JsonValue one = attributes.first(); !one.isMissing(); one = one.next()) {
        if (one["key"].bytes() == "service.name")
            service = kinds.string(protoMember(one["value"], "stringValue")).text();
    }
    // The name that scopes had before version 0.16 is still about.
    for (const char *const word : {"scopeSpans", "instrumentationLibrarySpans"}) {
        const JsonValue scopes = kinds.array(protoMember(resource, word));
        for (JsonValue scope = scopes.first(); !scope.isMissing(); scope = scope.next()) {
            const JsonValue all = kinds.array(kinds.object(scope)["spans"]);
            for (JsonValue span = all.first(); !span.isMissing(); span = span.next())
                readOtlpSpan(kinds.object(span), service);
        }
    }
}

// A kind is its number or its name.
TraceSpan::Kind otlpKind(const JsonValue &value)
{
    static constexpr const char *names[] = {"SPAN_KIND_INTERNAL", "SPAN_KIND_SERVER",
                                            "SPAN_KIND_CLIENT", "SPAN_KIND_PRODUCER",
                                            "SPAN_KIND_CONSUMER"};
    for (int kind = 0; kind < 5; ++kind) {
        if (value.number() == kind + 1 || value.bytes() == names[kind])
            return TraceSpan::Kind(kind);
    }
    return TraceSpan::Internal;
}

void SpanReader::readOtlpSpan(const JsonValue &value, const QString &service)
{
    TraceSpan span{.trace = otlpId(kinds.string(protoMember(value, "traceId"))),
                   .id = otlpId(kinds.string(protoMember(value, "spanId"))),
                   .parent = otlpId(kinds.string(protoMember(value, "parentSpanId"))),
                   .service = service,
                   .name = kinds.string(value["name"]).text(),
                   .kind = otlpKind(value["kind"])};
    const JsonValue status = kinds.object(value["status"])["code"];
    span.hasFailed = status.number() == 2 || status.bytes() == "STATUS_CODE_ERROR";
    span.start = nanoseconds(protoMember(value, "startTimeUnixNano"), 1);
    add(span, nanoseconds(protoMember(value, "endTimeUnixNano"), 1) - span.start, value);
}

void SpanReader::readJaegerTrace(const JsonValue &trace)
{
    const JsonValue all = kinds.array(trace["spans"]);
    const JsonValue processes = kinds.object(trace["processes"]);
    for (JsonValue span = all.first(); !span.isMissing(); span = span.next())
        readJaegerSpan(kinds.object(span), processes);
}

void SpanReader::readJaegerSpan(const JsonValue &value, const JsonValue &processes)
{
    TraceSpan span{.trace = kinds.string(value["traceID"]).bytes(),
                   .id = kinds.string(value["spanID"]).bytes(),
                   .parent = kinds.string(value["parentSpanID"]).bytes(),
                   .name = kinds.string(value["operationName"]).text()};
    const JsonValue process =
        value["process"].isObject() ? value["process"] : processes[value["processID"].bytes()];
    span.service = kinds.string(process["serviceName"]).text();
    const JsonValue references = kinds.array(value["references"]);
    for (JsonValue one = references.first(); !one.isMissing(); one = one.next()) {
        if (span.parent.isEmpty() && one["traceID"].bytes() == span.trace)
            span.parent = one["spanID"].bytes();
    }
    const JsonValue tags = kinds.array(value["tags"]);
    for (JsonValue tag = tags.first(); !tag.isMissing(); tag = tag.next()) {
        const QByteArray key = tag["key"].bytes();
        const JsonValue said = tag["value"];
        if (key == "error")
            span.hasFailed = said.kind() == JsonValue::True || said.bytes() == "true";
        static constexpr const char *names[] = {"internal", "server", "client", "producer",
                                                "consumer"};
        for (int kind = 0; key == "span.kind" && kind < 5; ++kind) {
            if (said.bytes() == names[kind])
                span.kind = TraceSpan::Kind(kind);
        }
    }
    span.start = nanoseconds(value["startTime"], 1000);
    add(span, nanoseconds(value["duration"], 1000), value);
}

void SpanReader::add(TraceSpan span, qint64 duration, const JsonValue &value)
{
    if (span.service.isEmpty())
        span.service = u"(unnamed)"_s;
    if (duration < 0 && backward++ == 0)
        notes->append(document.faultAt(value,
                                       u"a span ends before it begins, and counts as one "
                                       "that takes no time"_s));
    span.duration = std::max<qint64>(0, duration);
    spans->append(span);
}

// Whether each line is a document of its own, as the collector writes them.
bool isOneALine(const QByteArray &text)
{
    const qsizetype end = text.indexOf('\n');
    if (end < 0)
        return false;
    const QByteArray first = text.first(end).trimmed();
    return first.startsWith('{') && first.endsWith('}') && text.indexOf('{', end) > 0;
}

bool readDocument(const QByteArray &text, const ImportPlace &place, QList<TraceSpan> *spans,
                  QList<ImportFault> *notes, std::optional<ImportFault> *fault)
{
    const std::optional<JsonDocument> document = JsonDocument::read(text, place.source, fault);
    const bool isRead = document && SpanReader(*document, spans, notes).read(fault);
    if (!isRead && place.line > 0)
        (*fault)->place.line = place.line;
    return isRead;
}

} // namespace

bool readTraceSpans(ImportSource *source, QList<TraceSpan> *spans, QList<ImportFault> *notes,
                    std::optional<ImportFault> *fault)
{
    const QByteArray text = source->rest();
    ImportPlace place{.source = source->name()};
    if (!source->fault().empty()) {
        *fault = ImportFault{place, QString::fromStdString(source->fault())};
        return false;
    }
    if (!isOneALine(text))
        return readDocument(text, place, spans, notes, fault);
    for (const QByteArray &line : text.split('\n')) {
        ++place.line;
        if (!line.trimmed().isEmpty() && !readDocument(line, place, spans, notes, fault))
            return false;
    }
    return true;
}

} // namespace ORR::Companion
