#pragma once

#include "companion/page/given_attributes.h"
#include "graph/dot_graph.h"
#include "output/page_svg.h"

#include <QByteArray>
#include <QString>

namespace ORR::Companion {

// What the script of a page reads about a drawing: one object of JSON, in which lists have an entry
// for each object of the drawing, in the order of their groups. web/objects.js has its type.
//
// engine: its name in small letters, empty for a text that was replayed. graph: after the drawing.
QByteArray pageData(const QString &engine, const Graph::DotGraph &graph,
                    const GivenAttributes &given, const Graph::PageSvg &drawing);

} // namespace ORR::Companion
