#pragma once

#include "companion/produce/graph_text.h"

#include <QList>
#include <QString>

namespace ORR::Companion {

// What an author says of a thing that is not drawn but read, such as where a click leads.
struct AuthorFact
{
    QString name;
    QString value;
};

// How an author wants a thing to be drawn; what is empty or 0 is the picture's own.
struct ThingLook
{
    QString fill = {};
    QString line = {};
    QString letters = {}; // colour of the text
    QString shape = {};
    QString style = {};
    int width = 0; // of the line, in points
    bool twoLines = false; // around it
    QString family = {}; // of the font
    double textSize = 0; // points, where there is room
    QList<AuthorFact> facts = {};

    // Whether it has colours and an outline of its own, and so none that mean something else.
    bool hasPaint() const
    {
        return !fill.isEmpty() || !line.isEmpty() || !letters.isEmpty() || !shape.isEmpty()
            || !style.isEmpty() || width > 0 || twoLines;
    }
    bool isEmpty() const
    {
        return !hasPaint() && family.isEmpty() && textSize <= 0 && facts.isEmpty();
    }
};

// The same of a link from one thing to another.
struct LinkLook
{
    QString color = {};
    QString style = {};
    int width = 0; // points
    bool hasArrow = false;
    QString label = {}; // no engine draws it: a page tells it
    QList<AuthorFact> facts = {};

    bool isEmpty() const
    {
        return color.isEmpty() && style.isEmpty() && width == 0 && !hasArrow && label.isEmpty()
            && facts.isEmpty();
    }
};

// Adds a look in the words of the engines that draw trees; of a thing, all but the size of its
// text, which goes by the room.
void addLook(const ThingLook &look, Attributes *attributes);
void addLook(const LinkLook &look, Attributes *attributes);

void addFacts(const QList<AuthorFact> &facts, Attributes *attributes);

} // namespace ORR::Companion
