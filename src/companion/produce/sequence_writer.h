#pragma once

#include "companion/produce/graph_text.h"
#include "companion/produce/sequence.h"
#include "companion/produce/sequence_columns.h"
#include "companion/produce/sequence_lifelines.h"

#include <QByteArray>
#include <QFontMetricsF>
#include <QList>

namespace ORR::Companion {

// How wide texts may become before they go on in the next line, in points, and how large they are.
struct SequenceTextSizes
{
    int font;
    double name;
    double message;
    double note;
    double guard;
};

// Writes a sequence whose fragments are closed as a graph for the engine umlseq: once, from its
// first step to its last.
class SequenceWriter
{
public:
    SequenceWriter(const Sequence &sequence, const SequenceTextSizes &sizes);

    // Boxes end at a row, of which one knows only behind a writing without them.
    QByteArray written(const QString &title, int boxesEnd = 0);
    // That of the last line.
    int lastRow() const { return row; }

private:
    enum Direction { Rightward, Leftward };

    void writeDefaults();
    void writeTop(const QString &title);
    void writeBoxes(int end);
    void writeBottom();
    void writeStep(qsizetype i);

    void writeMessage(qsizetype i);
    void openBarsBehind(qsizetype i, bool *opensTarget, QString *fill);
    void drawArrow(const SequenceStep &step, const GraphText::Id &source,
                   const GraphText::Id &target, SequenceStep::Head head, bool hasText);
    GraphText::Id touch(int participant, Direction direction);
    GraphText::Id end(int participant, SequenceStep::Head head, Direction direction);
    GraphText::Id cross(int participant);
    bool destroysTarget(qsizetype i);
    GraphText::Id openTail(int participant, Direction direction);
    GraphText::Id createdTarget(int participant);

    void writeNote(const SequenceStep &step);
    void writeBand(const SequenceSpan &span, const SequenceStep &step);
    void writeDelay(const SequenceStep &step);
    void beginFragment(qsizetype i);
    void beginSection(const QString &guard, const QString &fill, bool isFramed);

    GraphText::Id object(int participant, int atRow);
    double objectWidth(int participant) const;
    GraphText::Id spacer(int atRow, int column, int width);
    GraphText::Id bareText(int atRow, int column, QStringView text, int font);
    int middle(const SequenceSpan &span) const;
    QString wrapped(const QString &text, double width) const;
    void standUp(int participant);

    const Sequence &steps; // outlives the writer
    SequenceTextSizes sizes;
    QFontMetricsF metrics;
    SequenceColumns columns;
    GraphText graph;
    SequenceLifelines lines;
    QList<bool> isTaken; // steps that were written with the one before
    QList<bool> isAwaited; // participants that the next message to them creates
    struct Fragment
    {
        int row;
        bool isFramed;
        QString fill;
    };
    QList<Fragment> open;
    int row = 0;
};

// Black or white letters, whichever are easier to read upon a fill.
QString sequenceLetters(const QString &fill);

} // namespace ORR::Companion
