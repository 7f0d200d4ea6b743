#pragma once

#include "markup/reading.h"
#include "support/corpus.h"

#include <QByteArray>
#include <QSize>
#include <QString>

// One graph on its way through the program to a file.
struct ReadDrawing
{
    QString message; // of the engine or the replay; empty for success
    QByteArray bytes;
    Reading reading;
    QSize size; // of a picture
};

// The file alone, without what is read in it. A finished drawing is replayed, and the layout is not
// looked at.
ReadDrawing fileOf(ORR::Drawing::Format format, ORR::Drawing::LayoutIndex layout,
                   const QByteArray &graph);

// The file and what a reader finds in it.
ReadDrawing drawingOf(ORR::Drawing::Format format, ORR::Drawing::LayoutIndex layout,
                      const QByteArray &graph);

// Draws both graphs and expects the same structure of their files, with something drawn in it; of
// pictures that they are some. Gives the first one.
ReadDrawing expectSameStructure(ORR::Drawing::Format format, ORR::Drawing::LayoutIndex layout,
                                const QByteArray &hostile, const QByteArray &plain);
