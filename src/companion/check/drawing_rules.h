#pragma once

#include "companion/check/checked_text.h"
#include "companion/findings/finding_list.h"
#include "driver/layout_table.h"

#include <QByteArray>

#include <optional>

namespace ORR::Companion {

// Makes the drawing of a text, upon a device that only watches, and tells what can be known only
// from it: that it fails, that nothing of it can be seen, that it is too large, what is left out.
// Without any font nothing is told but that, on standard error.
//
// `bytes` is the text with its line ends normalised and `text` what was heard of it. Without an
// engine the text is replayed. The graph is to be looked at by no rule afterwards: the engine
// writes its places on it.
void foretellDrawing(const QByteArray &bytes, const CheckedText &text, Graph::DotGraph *graph,
                     std::optional<Driver::LayoutIndex> engine, FindingList *findings);

} // namespace ORR::Companion
