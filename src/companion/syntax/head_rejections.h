#pragma once

#include "companion/syntax/explanation.h"
#include "graph/dot_fault.h"

#include <QByteArray>

#include <optional>

// Why the beginning of a text is none of a graph.
namespace ORR::Companion {

// A text that is not of UTF-8, by its byte order mark or its first bytes. Nothing for any other.
std::optional<Explanation> explainEncoding(const QByteArray &text);

// A text that begins with something else than "digraph".
Explanation explainHead(const Graph::DotFault &fault, const QByteArray &text);

} // namespace ORR::Companion
