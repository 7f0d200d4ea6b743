#pragma once

#include "output/visio/visio_markup.h"

#include <QByteArray>

namespace ORR::Graph {

// The markup of one shape's children. Most of it is written in one go; three things come late and
// grow where they were first needed: the connection points that edges glue to, the glued ends of an
// edge, and what ties a shape to its containers.
class VisioElement
{
public:
    struct LatePart
    {
        QByteArray head; // around the content, while there is any
        QByteArray content;
        QByteArray tail;
        qsizetype at = -1; // where in the body; -1 for nowhere yet
    };

    explicit VisioElement(int depth) : body(depth) { }

    VisioMarkup body;
    LatePart connections;
    LatePart ends;
    LatePart container;

    // Gives the part its place, unless it has one.
    void settle(LatePart &part);

    // About that of everything.
    qsizetype size() const;
    // Appends everything to the document.
    void appendTo(QByteArray &document) const;
};

} // namespace ORR::Graph
