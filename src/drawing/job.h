#pragma once

#include "drawing/format_table.h"
#include "graph/dot_graph.h"
#include "output/output.h"

#include <QByteArray>
#include <QString>

#include <memory>

// The run of one drawing, for whoever draws: bytes, an engine and a format go in, a file or bytes
// come out, or a message.
//
// A process that draws prepares itself once, in this order: `prepareToolkit` and `startToolkit`
// (toolkit.h), `startApplication` (environment.h) and, before its first drawing, `fontFault`. A job
// then depends on nothing but what stands in it and on the fonts of the machine: what was drawn
// before, and in which order, changes no drawing. All of this belongs to one thread.
//
// What libraries say about the pictures in an input goes to standard error, see
// `HeldStandardError`.

namespace ORR::Drawing {

// One drawing to be made.
struct Job
{
    QByteArray input; // one graph as DOT; with `xdotversion` at its root it is replayed
    QString engine = {}; // by its name in the table, in any case; not looked at for a replay
    Format format = Format::Svg;
    bool htmlLabels = false; // whether all labels are HTML, whatever the input says
    QString homeDirectory = {}; // see `findHome`; a VSDX without it has no pages
    Graph::DrawingExtras extras = {}; // of which the format takes what its row says
};

// What came of a job, or of a part of it.
struct Outcome
{
    enum Fault {
        None,
        Input, // it is no graph
        Engine, // the graph needs one, and there is none of that name
        Drawing, // the engine can't lay the graph out, or the output did not take everything
        Memory, // ran out
    };

    Fault fault = None;
    // For a user, with its line feed; empty for success. It may hold characters of the input, see
    // `Graph::printableMessage`.
    QString message = {};
};

// The graph of a job, or null and why there is none.
struct Reading
{
    std::unique_ptr<Graph::DotGraph> graph;
    Outcome outcome = {};
};

// A target in memory for a drawing of that format. The bytes are not owned; they are emptied, and
// stay so if the drawing fails.
Graph::OutputTarget inMemory(QByteArray *bytes, Format format);

// Reads the input of a job.
Reading readGraph(const Job &job);

// Draws a graph that was read for the same job, once: the engines leave their numbers in it. The
// graph stays the caller's, to be freed or kept; freeing a large one takes time.
//
// A target that is a file is opened first and appears whole or not at all. With nothing to open,
// the drawing is made all the same, and the message is that of the device.
Outcome drawGraph(const Job &job, Graph::DotGraph *graph, const Graph::OutputTarget &target);

// Both, and frees the graph.
Outcome draw(const Job &job, const Graph::OutputTarget &target);

} // namespace ORR::Drawing
