#pragma once

#include <QList>

namespace ORR::Graph::Layout {

// A cell of a declaration grid along one axis: for widths a line is a column and `cross` is the
// row, for heights the other way round.
//
// Addresses come from the input and may be as large as an int: nothing here grows with them, only
// with the number of cells. The lines and the entries between occupied ones count as entries of
// size 0, and several cells at one address as one of the size of the last of them.
struct GridCell
{
    int line = 0;
    int cross = 0;
    double size = 0.0;
    double from = 0.0; // result: where the cell begins
    double to =
        0.0; // result: where the next line begins at the same `cross`, gap not yet taken off
};

// Both functions set `from` and `to` of all cells. Lines follow each other from `start`, each `gap`
// behind the end of the last one, and what has size 0 takes no room and no gap. What lies behind
// the last line is `end` + `gap`, so that the last line reaches exactly to `end`.
//
// `extra` is one additional piece of room for the whole call: it goes behind the first thing that
// takes room and nowhere else, also where every row flows by itself. That is meant.

// A true table: every line starts at one position and is as large as its largest entry.
void alignedPositions(QList<GridCell> &cells, double start, double end, double gap, double extra);

// Every `cross` runs by itself: a cell starts where its neighbour before it ends.
void flowPositions(QList<GridCell> &cells, double start, double end, double gap, double extra);

} // namespace ORR::Graph::Layout
