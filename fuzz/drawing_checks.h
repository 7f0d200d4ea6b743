#pragma once

#include "device/device.h"
#include "drawing/format_table.h"
#include "graph/dot_graph.h"

#include <QByteArray>

#include <functional>

// Draws a graph on a device, `end` included: an engine or the replay. Gives the message of the run.
using Run = std::function<QString(ORR::Graph::DotGraph *graph, ORR::Graph::Device *device)>;

// Draws the text twice on a device that writes down its calls, and requires that both runs make the
// same calls and give the same message, and that a run without a message has drawn. Draws it a
// third time as SVG or xdot, as its length is even or odd, and judges that as `checkFile` does. A
// text that is no graph is none of a run's business.
void checkCalls(const QByteArray &text, const Run &run);

// The same for the file of a format, which is judged as well: XML is well-formed and holds nothing
// but elements that draw, SVG no attribute and no link that does more, a picture can be read, and
// xdot is replayed if the text is plain (plain_input.h). Large pictures are not painted: they would
// take all the time.
void checkFile(const QByteArray &text, const Run &run, ORR::Drawing::Format format);
