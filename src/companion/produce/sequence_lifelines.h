#pragma once

#include "companion/produce/graph_text.h"
#include "companion/produce/sequence_columns.h"

#include <QList>
#include <QString>

namespace ORR::Companion {

// The lines below the participants and the bars upon them, from the top to the bottom. A line is a
// chain from one thing to the next, as it would otherwise run through what stands upon it.
class SequenceLifelines
{
public:
    SequenceLifelines(GraphText *text, const SequenceColumns &columns, qsizetype participants);

    // The line begins below a node on a row. Until then the participant has none.
    void begin(int participant, const GraphText::Id &head, int row);
    bool isBegun(int participant) const { return !lines[participant].last.isEmpty(); }
    bool isEnded(int participant) const { return lines[participant].isEnded; }
    // The last thing on the line; it may be begun anew.
    void end(int participant, const GraphText::Id &foot, int row);

    // Bars, each 4 points beside the one that it lies on.
    void openBar(int participant, int row, const QString &fill);
    void closeBar(int participant, int row);
    qsizetype bars(int participant) const { return lines[participant].bars.size(); }
    // The innermost bar and where it begins; there has to be one.
    GraphText::Id bar(int participant) const { return lines[participant].bars.constLast().id; }
    int barRow(int participant) const { return lines[participant].bars.constLast().row; }

    // The bars end at a row, for something that lies upon the line, and go on at another one.
    void interrupt(int participant, int row);
    void resume(int participant, int row);
    // The line goes to a node on a row and on below it.
    void through(int participant, const GraphText::Id &node, int row);
    // It ends at a row and goes on at a later one, with dots in between if time passes.
    void leaveOut(int participant, int from, int to, bool isDotted);

private:
    struct Bar
    {
        GraphText::Id id;
        int row;
        QString fill;
    };
    struct Line
    {
        GraphText::Id last = {};
        int lastRow = 0;
        bool isEnded = false;
        QList<Bar> bars = {}; // the innermost one last
        QList<QString> interrupted = {}; // their fills
    };

    void link(const GraphText::Id &from, const GraphText::Id &to, QStringView style);
    GraphText::Id place(int participant, int row);

    GraphText *graph;
    const SequenceColumns &grid;
    QList<Line> lines;
};

} // namespace ORR::Companion
