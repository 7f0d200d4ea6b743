#pragma once

#include "companion/findings/finding_list.h"
#include "graph/dot_graph.h"

#include <QByteArray>

namespace ORR::Companion {

// What is wrong with a drawing that is replayed: ops that do not exist, counts that do not hold, a
// missing page, or a text that the replay rejects. The text is the one that the graph was read
// from, with its line ends normalised; `root` is where the graph's first word stands. Of the graph
// only the order of parallel edges changes. False if there is no drawing to look at: the text is
// rejected or has no page.
bool checkReplay(const QByteArray &text, Graph::DotGraph *graph, qsizetype root,
                 FindingList *findings);

} // namespace ORR::Companion
