#pragma once

#include "companion/findings/finding.h"

#include <QByteArray>

#include <functional>

namespace ORR::Companion {

struct CheckOptions
{
    // The engine that is to draw the text, as the user names it; empty for what holds for every
    // engine. A text that is replayed needs none.
    QString engine = {};
    // Where what draws can't be started the process ends, and standard output gets what this makes
    // of the findings so far; nothing without it. Asked at most once in a process.
    std::function<QByteArray(const QList<Finding> &)> lastWords = {};
    // Whether the process ends after it. What was read is left to the system then: to take a large
    // graph apart takes half as long as to read it.
    bool isLast = false;
};

// What is wrong with one text, sorted by place and located, the same on every call. Of a rule with
// many findings a hundred are told and the others counted. Whatever the bytes are, there is an
// answer: an unreadable text is a finding.
QList<Finding> checkText(const QByteArray &bytes, const CheckOptions &options);

// The engine that a text names at its root, as it names it; empty if there is none.
QString engineNamedBy(const QByteArray &bytes);

} // namespace ORR::Companion
