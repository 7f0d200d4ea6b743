#pragma once

#include "companion/produce/chart_key.h"
#include "companion/produce/picture.h"
#include "companion/produce/tree_paint.h"
#include "companion/produce/tree_texts.h"

#include <QStringList>

namespace ORR::Companion {

// The legend beside a round chart and the room that it leaves.
struct DiscRoom
{
    ChartKey key;
    int diameter = 0;
    QStringList notes = {}; // what had no room
};

// The largest disc with the legend at its right or below it, whichever leaves more room. `margin`
// is that of the engine, on all sides. The title stands on top of the legend.
DiscRoom discRoom(const TreeJob &job, const ShownTree &tree, const TreePaint &paint,
                  const QString &size, int margin);

} // namespace ORR::Companion
