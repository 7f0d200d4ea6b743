#pragma once

#include "companion/check/checked_text.h"
#include "companion/findings/finding_list.h"

#include <QByteArray>

namespace ORR::Companion {

// The attributes of a replayed text that are named like those of its ops, `_..._`, and are none of
// them: nothing of theirs is drawn. Every other attribute may be one of whoever made the text.
void checkReplayedNames(const CheckedText &text, const QByteArray &bytes, FindingList *findings);

} // namespace ORR::Companion
