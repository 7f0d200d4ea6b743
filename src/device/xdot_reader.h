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

    // A reader of a part of the text, for the same listener.
    XDotReader within(QByteArrayView part) const
    {
        return XDotReader(part, listener, base + (part.data() - text.data()));
    }

    // Whether nothing but blanks is left.
    bool atEnd();

    // The next character that is no blank; NUL at the end.
    char nextOp();

    // Whether a word that is not empty comes next.
    bool hasWord();
    // Tells a fault that the bytes from `start` to where reading is are at. Nothing where nobody
    // listens.
    void tell(OpFault::Cause cause, qsizetype start, qint64 stated = 0, qint64 there = 0) const;
    // Where reading is, for `tell`.
    qsizetype place() const { return position; }
    // Likewise, behind the blanks that come next.
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
    void tellNumber(QByteArrayView word, bool whole) const;
    void tellLength(QByteArrayView word, int length, qsizetype dash) const;

    QByteArrayView text;
    ReplayListener *listener;
    qsizetype base;
    qsizetype position = 0;
};

} // namespace ORR::Graph::Graphviz
