#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace ORR::Companion {

// To be called before a graph is read that is to be drawn, any number of times: ids are found by
// hashes, whose seed is the same in every process that draws.
void prepareDrawingToolkit();

// Starts what measures and paints texts, unless this process has it already. False if there is no
// font. A start that fails ends the process; standard output then gets what `lastWords` gives,
// which is asked for ahead of the start only.
bool startsDrawingToolkit(const std::function<QByteArray()> &lastWords);

// Why the drawings were not checked, as a line; empty if they were, or none was asked for.
QString drawingToolkitFault();

// Takes down what was started, if anything was. Nothing may be drawn afterwards.
void endDrawingToolkit();

} // namespace ORR::Companion
