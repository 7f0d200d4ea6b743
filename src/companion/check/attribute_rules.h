#pragma once

#include "companion/check/checked_text.h"
#include "companion/findings/finding_list.h"

#include <QByteArray>

namespace ORR::Companion {

// Finds attributes that nothing reads, and values that can't be read, for an engine or, where the
// name is none of an engine, those that hold for every one. The bytes are those that offsets count.
//
// A value that a later one of the same name replaces is not looked at.
void checkAttributes(const CheckedText &text, const QByteArray &bytes, const QString &engine,
                     FindingList *findings);

} // namespace ORR::Companion
