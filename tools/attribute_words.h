#pragma once

#include "attributes/attribute_row.h"

#include <QList>
#include <QStringList>

// The parts of a row in words, for whatever is written from the tables.
namespace ORR::Docs {

// Of the elements in their order: root, cluster, node, edge.
QList<Graph::AttributeElement> elementsIn(Graph::AttributeElements elements);
// "root, cluster"
QString elementText(Graph::AttributeElements elements);
// "number, points"; without a unit the type alone.
QString typeText(const Graph::AttributeRow &row);
// How the elements of a row are looked up: "own"; or, where they differ, a cluster, a node and the
// root each in their own way: "root: own; cluster: inherited".
QString lookupText(const Graph::AttributeRow &row);
// The defaults of a row, "none" where there are none.
QString defaultText(const Graph::AttributeRow &row);

} // namespace ORR::Docs
