#pragma once

#include "companion/check/checked_text.h"
#include "companion/findings/finding_list.h"

#include <QByteArray>

namespace ORR::Companion {

// A graph that has been read, what is known of its text, and what draws it.
struct CheckedInput
{
    const CheckedText &text;
    const QByteArray &bytes; // what offsets count
    const Graph::DotGraph &graph;
    QString engine; // in small letters; anything but the name of one stands for all of them
};

// Finds objects that are in each other's way, that count for nothing, or that are hardly meant.
void checkObjects(const CheckedInput &input, FindingList *findings);

// The rules of sequence diagrams (object_sequence.cpp).
void checkSequence(const CheckedInput &input, FindingList *findings);

// A finding at an identifier of the text.
Finding findingAt(const CheckedInput &input, qsizetype place, const Rule &rule,
                  const QString &sentence, const QString &suggestion = {});

} // namespace ORR::Companion
