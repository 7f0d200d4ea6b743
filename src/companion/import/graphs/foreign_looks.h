#pragma once

#include "companion/import/graphs/foreign_graph.h"
#include "companion/produce/dependencies.h"

#include <QString>

// Graphviz' attributes in the words of the dialect (https://graphviz.org/doc/info/attrs.html).
namespace ORR::Companion {

// The names of the attributes that the others here look at.
QList<QByteArray> lookedAtAttributes();

// "#rrggbb", "none" for transparent, or empty for what is no colour: a name of SVG, or of X11 with
// its number left out; "#rrggbb" and "#rrggbbaa"; hue, saturation and value. Of several the first.
QString foreignColor(const QByteArray &value);

// A label as it is read: its escapes replaced, markup and the fields of records as lines.
QString foreignLabel(const ForeignGraph::Values &values, const QByteArray &name,
                     const QByteArray &graph);

// How nodes and edges are drawn, and what is told of them: `url` of URL or href, and `tooltip`.
// An arrow is one that the graph asks for: without a word all edges would have one.
ThingLook foreignLook(const ForeignGraph &graph, const ForeignGraph::Node &node);
LinkLook foreignLinkLook(const ForeignGraph &graph, const ForeignGraph::Edge &edge);

} // namespace ORR::Companion
