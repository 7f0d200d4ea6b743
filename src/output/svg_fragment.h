#pragma once

#include <QByteArray>
#include <QString>

namespace ORR::Graph {

// What lies within the root element of an SVG that the toolkit painted of a rich text, to become
// part of another SVG: shapes, texts, paint and pictures. Only elements and attributes of a closed
// list are copied, every value escaped anew; an element that is not on the list goes with all that
// it holds, the title and the description among them. Characters that XML forbids are left out.
//
// A fault in the SVG ends the copy; what it leaves open is closed. Linear in the text.
//
// idPrefix: stands before each id and in what refers to one.
QByteArray svgFragment(const QByteArray &svg, const QString &idPrefix = {});

} // namespace ORR::Graph
