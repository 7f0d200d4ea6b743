#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// What a reader of a file finds in it, apart by what an input may decide and what it may not.
struct Reading
{
    // The elements, one a line, indented by their depth, with the names of their attributes, the
    // names of cells and formulas; the input's texts and all numbers in them are left out. Of a DOT
    // text: subgraphs, nodes and edges with the names of their attributes.
    QStringList structure;
    // The values of attributes, what stands within elements and the strings in formulas.
    QStringList texts;
    // How many of the elements draw something: shapes, texts, objects with a drawing.
    int drawn = 0;

    // Whether one of the texts has this in it.
    bool says(const QString &text) const;
    void append(const Reading &other);
};

// A failed assertion if the text is not well-formed.
Reading readXml(const QByteArray &xml);

// A failed assertion if the text is no graph.
Reading readXDotText(const QByteArray &dot);

// A drawing of any format, by the suffix of its name ("drawing.svg"). Of a picture nothing is read
// but that it is one, and its size.
Reading readDrawing(const QString &path);
