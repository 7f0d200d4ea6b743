#pragma once

#include <QString>

// The names of the attributes that the two Graflib engines and their painter read and write, each
// in one place. What they mean, their units and defaults: see the headers of the engines.
namespace ORR::Graph::Layout::Names {

using namespace Qt::StringLiterals;

inline const QString arrowhead = u"arrowhead"_s;
inline const QString col = u"col"_s;
inline const QString color = u"color"_s;
inline const QString contentPos = u"contentpos"_s;
inline const QString crossing = u"crossing"_s;
inline const QString d1 = u"d1"_s;
inline const QString d2 = u"d2"_s;
inline const QString expandColor = u"expandcolor"_s;
inline const QString expander = u"expander"_s;
inline const QString fontSize = u"fontsize"_s;
inline const QString grid = u"grid"_s;
inline const QString headSegment = u"headsegment"_s;
inline const QString height = u"height"_s;
inline const QString label = u"label"_s;
inline const QString level = u"level"_s;
inline const QString lhead = u"lhead"_s;
inline const QString ltail = u"ltail"_s;
inline const QString margin = u"margin"_s;
inline const QString nodeSep = u"nodesep"_s;
inline const QString pad = u"pad"_s;
inline const QString peripheries = u"peripheries"_s;
inline const QString rankDir = u"rankdir"_s;
inline const QString rankSep = u"ranksep"_s;
inline const QString row = u"row"_s;
inline const QString shape = u"shape"_s;
inline const QString slash = u"slash"_s;
inline const QString sort = u"sort"_s;
inline const QString style = u"style"_s;
inline const QString tailSegment = u"tailsegment"_s;
inline const QString width = u"width"_s;
inline const QString xOffset = u"xoffset"_s;

} // namespace ORR::Graph::Layout::Names
