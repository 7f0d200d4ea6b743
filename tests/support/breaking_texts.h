#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

// Texts that would end a value, an element, a formula or a line of a terminal if somebody forgot to
// write them as what they are, and what puts them into a graph.

// Each begins with a letter, so that none is a number, a word that an engine knows or has an escape
// of a label. One of them is no UTF-8.
const QByteArrayList &breakingTexts();

// A text of as many characters that means nothing to any reader.
QByteArray harmlessText(const QByteArray &hostile);

// The value as it stands in a graph.
QByteArray quotedInGraph(const QByteArray &value);

// What is left of the text where XML has no way to write all of it.
QString asXmlHasIt(const QByteArray &text);

enum class GraphElement { Root, Cluster, Node, Edge };

// The graph, one of those in tests/drawings, with the attribute at all elements of the kind, where
// it goes before what they say themselves.
QByteArray withAttribute(const QByteArray &graph, GraphElement element, const QByteArray &name,
                         const QByteArray &value);
