#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// The elements of an XML text, one a line, indented by their depth, each with the names of its
// attributes; a failed assertion if the text is not well-formed.
QStringList elementTree(const QByteArray &xml);

// What a DOT text holds: subgraphs, nodes and edges with the names of their attributes, sorted; a
// failed assertion if it is no graph.
QStringList graphTree(const QByteArray &dot);
