#pragma once

#include "graph/dot_fault.h"
#include "graph/dot_graph.h"

#include <QByteArray>

#include <memory>
#include <optional>

namespace ORR::Graph {

class DotListener;

// Reads a whole DOT text into a graph. Null if the text is rejected, for whatever reason. The
// dialect:
//
//   file      = "digraph" [ID] body
//   body      = "{" statement* "}"
//   statement = ( "graph" attrs | "node" attrs | "edge" attrs      defaults of the enclosing body
//               | "subgraph" [ID] body                             always a new subgraph
//               | ID attrs | ID "->" ID attrs ) [";"]
//   attrs     = [ "[" ( ID "=" ID [","] )* "]" ]
//
// Keywords may be quoted and are case-sensitive. There are no `name = value` statements, no chains
// of edges and no ports; the name of the graph is dropped.
//
// The work is linear in the text, nesting is bounded by memory only, and a text of 2 GiB or more is
// rejected.
std::unique_ptr<DotGraph> parseDot(const QByteArray &input);

// A graph, or why there is none.
struct DotReading
{
    std::unique_ptr<DotGraph> graph; // null if the text is rejected
    std::optional<DotFault> fault; // has a value exactly then
};

// The same reading, at the same cost.
DotReading readDot(const QByteArray &input);

// The same reading by the same parser, which tells a listener what it reads and where. The listener
// is not kept; what it throws counts as a rejection for want of memory.
DotReading parseDot(const QByteArray &input, DotListener &listener);

} // namespace ORR::Graph
