#pragma once

#include "graph/dot_graph.h"

#include <QByteArray>

// Whether a text is one whose drawing as xdot has to come back from the replay: the graph is that
// of the text. What xdot can't hold (docs/round-trip.md) is not plain:
//
// - an id of a node that is no unquoted identifier: empty, with white space, one of `, ; = ] }`, a
//   dash, quote or opening bracket in front, or one of the four keywords
// - an id of a subgraph with a quote
// - a backslash, also by its number in HTML: at the end of an id or a value it swallows the closing
//   quote, and a value ends wherever an op or a line is cut
bool isPlain(const QByteArray &text, const ORR::Graph::DotGraph &graph);
