#pragma once

#include "companion/produce/dependencies.h"

#include <QList>
#include <QString>

namespace ORR::Companion {

// Dependencies as they are drawn: no more parts than asked for, each a thing or a whole folder, in
// an order in which what is needed stands ahead of what needs it, as far as there are no cycles and
// folders are kept together.
struct FoldedDependencies
{
    struct Part
    {
        Dependencies::Item item;
        QString name; // within the innermost group
        qsizetype things; // that it stands for
        bool isThing; // itself; else a folder
        bool isRest; // of a folder whose other things have parts of their own
        bool isInCycle = false;
        int component = 0; // the parts that need each other in a circle have one number
    };
    struct Edge
    {
        enum Kind {
            Within, // of a part to itself
            Needs,
            InCycle, // between two that need each other in a circle
            Against, // the order of the groups, in which the needed one ought to come first
        };
        int tail;
        int head;
        double weight;
        Kind kind;
    };
    // A folder with two parts or more, which stand in a row.
    struct Group
    {
        Dependencies::Item item;
        QString name; // within the group around it
        int first;
        int count;
        int parent; // of the groups; -1 for none
    };

    QList<Part> parts;
    QList<Edge> edges; // ordered by tail and head
    QList<Group> groups; // those around ahead of those within
};

// `most` is at least 1.
FoldedDependencies foldedDependencies(const Dependencies &whole, int most);

} // namespace ORR::Companion
