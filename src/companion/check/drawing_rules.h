#pragma once

#include "companion/check/checked_text.h"
#include "companion/findings/finding_list.h"

#include <QByteArray>
#include <QString>

namespace ORR::Companion {

// Makes the drawing of a text, upon a device that only watches, and tells what can be known only
// from it: that it fails, that nothing of it can be seen, that it is too large, what is left out.
// A text that has its layout is replayed, and nothing is told of any other without an engine that
// there is. Without any font nothing is told but that, on standard error.
//
// `bytes` is the text with its line ends normalised. The graph is to be looked at by no rule
// afterwards: the engine writes its places on it.
void foretellDrawing(const CheckedText &text, const QByteArray &bytes, const QString &engine,
                     Graph::DotGraph *graph, FindingList *findings);

} // namespace ORR::Companion
