#pragma once

#include <QList>
#include <QString>

namespace ORR::Companion {

// Who takes part in a sequence of messages.
struct SequenceParticipant
{
    enum Kind { Plain, Actor, Boundary, Control, Entity, Database, Collections, Queue };

    QString name; // may have several lines
    Kind kind = Plain;
    QString stereotype = {}; // "service"; empty for none
    QString fill = {}; // "#RRGGBB"; empty for that of all
    int box = -1; // the number of the box that it stands in; neighbours only
};

// A frame around neighbouring participants.
struct SequenceBox
{
    QString title;
    QString fill = {}; // "#RRGGBB"; empty for a pale one
};

// What happens next. Participants are meant by their numbers.
struct SequenceStep
{
    enum Type {
        Message, // from `from` to `to`
        Activate, // a bar on `to`; right behind a message it begins there
        Deactivate, // ends the innermost bar of `to`
        Create, // `to` stands where the next message to it arrives
        Destroy, // of `to`
        Note, // `side` of `from`, or over `from` to `to`
        Reference, // over `from` to `to`
        Divider, // across everything
        Delay, // time passes
        Space, // room and no more
        BeginFragment, // `keyword` in its tag, `text` is the guard of its first section
        NextSection, // `text` is its guard
        EndFragment,
    };
    enum Head { NoHead, Filled, Open, Cross, Circle };
    enum Side { Over, Left, Right };

    // In place of a participant: whoever is beyond the left or the right end of the diagram.
    static constexpr int leftOutside = -1;
    static constexpr int rightOutside = -2;

    Type type = Message;
    int from = leftOutside;
    int to = leftOutside;
    QString text = {}; // may have several lines
    QString keyword = {};
    Head head = Filled; // at `to`
    Head tail = NoHead; // at `from`
    bool isDashed = false;
    Side side = Over;
    QString color = {}; // "#RRGGBB", of a message's line and of any other's fill
};

// Messages between participants in the order of time. Fragments nest.
struct Sequence
{
    QString title = {};
    QList<SequenceParticipant> participants = {};
    QList<SequenceBox> boxes = {};
    QList<SequenceStep> steps = {};
};

} // namespace ORR::Companion
