#pragma once

#include "companion/findings/finding.h"

#include <QByteArray>

namespace ORR::Companion {

struct CheckOptions
{
    // The engine that is to draw the text, as the user names it; empty for what holds for every
    // engine. A text that is replayed needs none.
    QString engine;
};

// What is wrong with one text, sorted by place and located, the same on every call. Of a rule with
// many findings a hundred are told and the others counted. Whatever the bytes are, there is an
// answer: an unreadable text is a finding.
QList<Finding> checkText(const QByteArray &bytes, const CheckOptions &options);

} // namespace ORR::Companion
