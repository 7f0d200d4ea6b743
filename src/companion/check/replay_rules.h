#pragma once

#include "companion/findings/finding_list.h"
#include "device/device.h"

#include <QByteArray>

namespace ORR::Companion {

// Replays a drawing upon a device and tells what is wrong with its text: ops that do not exist,
// counts that do not hold, unknown colours, a missing page, or a text that the replay rejects. The
// text is the one that the graph was read from, with its line ends normalised; `root` is where the
// graph's first word stands. Of the graph only the order of parallel edges changes. False if there
// is no drawing to look at: the text is rejected or has no page.
bool checkReplay(const QByteArray &text, Graph::DotGraph *graph, qsizetype root,
                 Graph::Device *device, FindingList *findings);

} // namespace ORR::Companion
