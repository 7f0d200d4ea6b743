#pragma once

#include "companion/draw/planned_drawing.h"

#include <variant>

namespace ORR::Companion {

// The formats of a comma list or of several names, or what is wrong.
std::variant<QList<qint32>, QString> readFormats(const QStringList &names);

// Why there is no engine of that name; empty if there is one.
QString engineFault(const QString &name);

// Reads a line of a file of jobs, an object with these members:
//
//   in       the input, a file
//   engine   its engine; else that of the request
//   formats  a list of formats, or one; else those of the request
//   out      the output, or a list of as many as there are formats; else as the request says
//   scale, background, embed
//            as the options say; else as the request does
//   id       anything, for the answer
//
// A file name that is no UTF-8 has a lone surrogate, "\udc80" to "\udcff", in place of each of its
// bytes above 0x7f, as Python has it. What is wrong comes in place of a job, as a sentence.
std::variant<LineOfJob, QString> readJobLine(const QByteArray &line, const DrawRequest &request);

} // namespace ORR::Companion
