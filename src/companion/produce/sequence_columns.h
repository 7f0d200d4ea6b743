#pragma once

#include "companion/produce/sequence.h"

#include <QList>

namespace ORR::Companion {

// The participants that a fragment goes across.
struct SequenceSpan
{
    int first = -1;
    int last = -1;

    bool isEmpty() const { return first < 0; }
    void add(int participant);
    void add(const SequenceSpan &other);
};

// The columns of a grid for a sequence. Beside its lifeline each participant may have one for
// notes, frames and boxes on both sides; columns that nothing stands on take room, too, so there
// are only those that are asked for.
class SequenceColumns
{
public:
    enum Slot { BoxLeft, FrameLeft, NoteLeft, Life, NoteRight, FrameRight, BoxRight, SlotCount };

    explicit SequenceColumns(const Sequence &sequence);

    int of(int participant, Slot slot) const;
    int leftEdge() const { return 0; }
    int rightEdge() const { return count - 1; }

    // Across all that a step is about; empty where that is nobody.
    SequenceSpan everybody() const { return {.first = 0, .last = participants - 1}; }
    // Of the fragment that the step of that number begins.
    SequenceSpan spanOf(qsizetype step) const { return spans[step]; }

private:
    void ask(int participant, Slot slot);
    void askFor(const SequenceStep &step);
    void findSpans(const Sequence &sequence);

    int participants;
    int count = 0;
    QList<int> columns; // by participant and slot; -1 for none
    QList<SequenceSpan> spans; // by step
};

// Across the participants that a step is about.
SequenceSpan sequenceSpan(const SequenceStep &step);

} // namespace ORR::Companion
