#pragma once

#include "graph/dot_graph.h"

#include <QTextStream>

namespace ORR::Graph {

// Writes a graph as DOT text, in the one nested form that `parseDot` and the replay of drawings
// read back:
//
//   digraph "name" {
//     graph [label="", bb="0,0,100,50"];
//     node [fontname="Arial"];
//     edge [fontname="Arial"];
//     subgraph "cluster_1" {
//       b;
//     }
//     a [label="x"];
//     a -> b;
//   }
//
// Attributes stand in the order of their map, which is that of their first insertion, so that a
// text is the same on every run. In values a double quote gets a backslash, and nothing else is
// escaped: a value that ends in a backslash does not read back. Node ids are written bare, and so
// has a producer to choose them: an id that the reader does not take for one unquoted identifier (a
// blank or a comma in it, a keyword, a leading dash) gives a text that reads back as something
// else or not at all. The work is linear in what is written, whatever the nesting.

// The whole graph from its root on. plainLabels: whether values lose their HTML, see
// `plainLabelText`; it is stored in the subgraphs.
void writeDot(DotSubgraph *root, QTextStream &stream, bool plainLabels);

// One subgraph with all that is in it; one of depth 0 is a whole graph. The indentation is two
// blanks a level, and stops growing at level 100: a text of deeply nested subgraphs would otherwise
// be made of blanks.
void writeSubgraph(int depth, DotSubgraph *subgraph, QTextStream &stream);

// One statement. The name may be a keyword, an id, or the text of an edge.
void writeStatement(int depth, const QString &name, const AttributeMap &attributes,
                    QTextStream &stream, bool skipIfEmpty, bool plainLabels);

// An HTML label as a plain one: tags go, line breaks become the escape \n, the four common
// character references become their characters.
QString plainLabelText(const QString &html);

} // namespace ORR::Graph
