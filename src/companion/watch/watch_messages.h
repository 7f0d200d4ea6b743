#pragma once

#include "companion/draw/planned_drawing.h"

#include <string>

// What `orr watch` says of an input on standard error, as whole lines. `program`: its name, as
// messages begin.
namespace ORR::Companion {

// One that can't be read, and why.
std::string waitingMessage(const std::string &program, const QByteArray &input,
                           const std::string &fault);

// Anything else that is to be said of it.
std::string inputMessage(const std::string &program, const QByteArray &input,
                         const QByteArray &message);

// What came of its drawings, which have an answer each: a line for all that were drawn, and one for
// each message.
std::string drawingMessages(const std::string &program, const QByteArray &input,
                            const QList<PlannedDrawing> &drawings,
                            const QList<DrawingAnswer> &answers);

} // namespace ORR::Companion
