#pragma once

#include "companion/import/reading/import_fault.h"
#include "companion/produce/picture.h"

#include <QByteArray>

#include <memory>

namespace ORR::Companion {

// Has one of Graphviz' programs (dot, neato, fdp, circo; https://graphviz.org/docs/layouts/) lay a
// graph out and makes of what it writes with -Txdot1.2 a drawing that replays. The program is
// looked for in PATH, started without a shell, and ended after a minute. With "kept" the text is
// such an xdot already.
std::unique_ptr<Picture> layOutForeignGraph(const QByteArray &text, const std::string &program,
                                            const std::string &source,
                                            std::optional<ImportFault> *fault);

// An xdot of that program's in the form that replays: every object with its drawing, the texts of
// the ends of edges among the others; ports, markup and widths, by which left-aligned texts would
// be moved, are left out.
std::optional<QByteArray> replayableText(const QByteArray &xdot, const std::string &source,
                                         std::optional<ImportFault> *fault);

} // namespace ORR::Companion
