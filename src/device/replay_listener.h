#pragma once

#include "graph/dot_fault.h"

#include <QByteArrayView>
#include <QtGlobal>

namespace ORR::Graph::Graphviz {

// An op of a drawing attribute, or one of a path within it. Offsets count the bytes of the
// attribute's value.
struct OpPlace
{
    char letter = '\0'; // NUL for none: the attribute has no ops, or the first is still to come
    qsizetype offset = -1;
    bool followsBlank = true; // whether it stands by itself: at the beginning or behind a blank
};

// What is wrong with an op of a drawing attribute, or with another number of a replayed text. The
// replay goes on all the same.
struct OpFault
{
    enum class Cause {
        UnknownOp, // a character that no op begins with, which is stepped over
        MissingNumber, // the value ends, or a comma comes, where a number should; it counts as 0
        NotANumber, // a word that is no number, which counts as 0, or no finite one
        MissingPoints, // fewer points or gradient stops than the count says: the value ends, or an
                       // op comes, where one should
        NegativeCount, // a count or a length below 0, which counts as 0
        MissingDash, // no `-` between the length of a text and the text
        ShortText, // the value ends before the text is as long as its length says
        LongText, // the text goes on behind the length that is said: no blank comes there
    };

    Cause cause = Cause::UnknownOp;
    qsizetype offset = 0; // the op, the word, or the count that is not true
    qsizetype end = 0;
    qint64 stated = 0; // the count, and how many there are
    qint64 there = 0;
    OpPlace op = {}; // the op that it is in; of an unknown one the op ahead of it
    bool followsBlank = true; // of an unknown op: whether it stands by itself
};

// A colour or a style that an op names: a stop of a gradient is a colour of its own.
struct OpWord
{
    enum class Kind { Color, Style };

    Kind kind = Kind::Color;
    QByteArrayView text = {}; // empty for the default
    qsizetype offset = 0; // of its first byte, in the attribute's value
    OpPlace op = {};
};

// Hears what a replay reads, with offsets in the text with its line ends normalised.
class ReplayListener
{
public:
    ReplayListener() = default;
    virtual ~ReplayListener() = default;
    ReplayListener(const ReplayListener &) = delete;
    ReplayListener &operator=(const ReplayListener &) = delete;

    // An attribute is acted on: those of its value's faults that come next are in this one.
    // `value` is the place of the value's first byte, or of its opening quote; `name` is valid
    // until the last of them.
    virtual void attributeReplayed([[maybe_unused]] QByteArrayView name,
                                   [[maybe_unused]] qsizetype value)
    {
    }
    // Faults come in the order in which the value is read; one of a count that counts too much
    // stands at the count, behind what was read.
    virtual void opFaultFound([[maybe_unused]] const OpFault &fault) { }
    // In the order in which the value is read.
    virtual void wordRead([[maybe_unused]] const OpWord &word) { }
    // The first "bb", with the number of its fields; `numbers` if each of them is a number.
    virtual void pageRead([[maybe_unused]] qsizetype fields, [[maybe_unused]] bool numbers) { }
    // The text breaks the grammar of the replay: what follows is not drawn.
    virtual void replayRejected([[maybe_unused]] const DotFault &fault) { }
};

} // namespace ORR::Graph::Graphviz
