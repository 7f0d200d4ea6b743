#pragma once

#include "companion/import/import_format.h"

// Traces of calls between services: JSON of OTLP 1.x, as exporters send it and the collector
// writes it, one document a line
// (https://opentelemetry.io/docs/specs/otlp/#json-protobuf-encoding), also several in an array,
// with the names of the definition ("resource_spans"), or below "batches" as Grafana Tempo answers
// (https://grafana.com/docs/tempo/latest/api_docs/); and what Jaeger's query
// service answers and its page saves, API version 3
// (https://www.jaegertracing.io/docs/latest/apis/).
namespace ORR::Companion {

int likenessOfTrace(QByteArrayView beginning);
ImportResult readTrace(std::vector<ImportSource> &sources, const ImportOptions &options);

} // namespace ORR::Companion
