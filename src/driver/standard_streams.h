#pragma once

#include <QByteArray>

#include <optional>

namespace ORR::Driver {

// Which of the standard streams the process was given by whoever started it.
struct StandardStreams
{
    bool input = true;
    bool output = true;
    bool error = true;
};

// Finds out which of the descriptors 0, 1 and 2 are closed and takes their numbers, so that no file
// that is opened later lands on one of them and is read as the input or written over by a message.
// To be called before anything else opens a file.
StandardStreams reserveStandardStreams();

// A pipe that its reader closed and a file that has grown to the limit of the process shall make a
// write fail, rather than end the process by a signal.
void ignoreSignalsOfWriting();

// Reads to the end of a descriptor, also of a non-blocking one. Nothing if reading fails. Reading
// stops when `limit` bytes are exceeded; the result is then longer than the limit.
std::optional<QByteArray> readToEnd(int descriptor, qsizetype limit);

// Writes all bytes to a descriptor that stays open, also to a non-blocking one. False if not all of
// them arrived.
bool writeToEnd(int descriptor, const QByteArray &bytes);

} // namespace ORR::Driver
