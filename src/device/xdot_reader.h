#pragma once

#include "device/replay_listener.h"

#include <QByteArrayView>
#include <QString>

namespace ORR::Graph::Graphviz {

// Reads the fields of xdot ops, one behind the other. Nothing fails: what is no number, or is
// missing, is 0. A listener hears of it.
class XDotReader
{
public:
    // The listener may be null and is not owned. `offset` is where the bytes stand in the value
    // that the listener counts from.
    explicit XDotReader(QByteArrayView bytes, ReplayListener *hearer = nullptr,
                        qsizetype offset = 0)
        : text(bytes), listener(hearer), base(offset)
    {
    }

    // A reader of a part of the text, for the same listener. Until it reads an op itself, it is in
    // that of this one.
    XDotReader within(QByteArrayView part) const
    {
        XDotReader inner(part, listener, base + (part.data() - text.data()));
        inner.op = op;
        return inner;
    }

    // Whether nothing but blanks is left.
    bool atEnd();

    // The next character that is no blank; NUL at the end. What is told from now on is in that op.
    char nextOp();
    // Tells that no op begins with the character that `nextOp` gave, which is stepped over.
    void tellUnknownOp();

    // Whether a word that is not empty comes next.
    bool hasWord();
    // Tells a fault that the bytes from `start` to where reading is are at. Nothing where nobody
    // listens.
    void tell(OpFault::Cause cause, qsizetype start, qint64 stated = 0, qint64 there = 0) const;
    // Tells a word that was read here.
    void tellWord(OpWord::Kind kind, QByteArrayView word) const
    {
        if (listener)
            listener->wordRead({kind, word, base + (word.data() - text.data()), op});
    }
    // As long as it is set, an op that comes where a number should is told as the end of the points
    // that are counted here. It is not owned.
    struct CountedPoints
    {
        qsizetype place; // of the count, for `tell`
        qint64 stated;
        qint64 there; // so far
    };
    void setCounted(const CountedPoints *points) { counted = points; }

    // Where reading is behind the blanks that come next, for `tell`.
    qsizetype nextPlace()
    {
        skipBlanks();
        return position;
    }

    // Up to a blank, a comma or the end, which is not stepped over; blanks ahead are.
    QByteArrayView word();
    double real();
    // Rounded if it is written with a point.
    int integer();
    // A length, a `-`, and that many bytes, or fewer if the text ends before. What stands between
    // the length and the `-` is stepped over.
    QByteArrayView countedBytes();
    QString countedString() { return QString::fromUtf8(countedBytes()); }

private:
    void skipBlanks();
    void tellNoNumber(QByteArrayView word) const;
    void tellLength(QByteArrayView word, int length, qsizetype dash) const;

    QByteArrayView text;
    ReplayListener *listener;
    qsizetype base;
    qsizetype position = 0;
    const CountedPoints *counted = nullptr;
    OpPlace op; // known only where somebody listens
    OpPlace formerOp;
};

} // namespace ORR::Graph::Graphviz
