#pragma once

#include "output/visio/visio_geometry.h"

#include <QHash>
#include <QList>

#include <set>
#include <utility>

namespace ORR::Graph {

// What became of rows that were offered to a subpath.
enum class SubpathMerge {
    None, // not taken
    Contained, // they were a part of it already
    Appended,
    Prepended,
    Inserted, // a curve in place of a straight piece
};

// Offers the rows N to the subpath E and changes E if it takes them. i is the first index of a row
// of E at N's first point, j that of one at N's last point from i on, each -1 if there is none.
// Rows are equal if their points are; their kinds are not compared.
SubpathMerge mergeSubpath(const QList<VisioRow> &N, QList<VisioRow> &E, qsizetype i, qsizetype j);

// Finds, among many subpaths, those that could take given rows, and rows by their point within a
// subpath. It is told of each change.
class VisioSubpathIndex
{
public:
    // What an operation costs, in row visits.
    static constexpr int costOfRow = 10;
    static constexpr int costOfSearch = 10;

    explicit VisioSubpathIndex(const QList<QList<VisioRow>> &subpaths);

    // The first subpath behind `after` that might take the rows, or -1. Those that it leaves out
    // would not.
    int candidate(const QList<VisioRow> &rows, int after) const;

    // The first index from `from` on of a row at the point of `wanted`, or -1.
    // Here and below `rows` are those of the subpath.
    qsizetype indexOf(const QList<VisioRow> &rows, int subpath, const VisioRow &wanted,
                      qsizetype from) const;

    // There is a further subpath.
    void added(const QList<VisioRow> &rows);
    // Bracket the offering of `count` rows to the subpath.
    void leaves(const QList<VisioRow> &rows, int subpath);
    void returns(const QList<VisioRow> &rows, int subpath, SubpathMerge merge, qsizetype count);

private:
    using Point = std::pair<double, double>;
    using Piece = std::pair<Point, Point>;
    using Subpaths = std::set<int>;

    // Where the points of one subpath stand. Rows are told by their distance from the row that came
    // first when it was made, so that rows put ahead of it move no other.
    struct Places
    {
        QHash<Point, QList<qsizetype>> rows; // ascending; empty for a short subpath
        qsizetype first = 0; // the place of the first row
    };

    static Point pointOf(const VisioRow &row) { return {row.x + 0.0, row.y + 0.0}; }
    static bool isShort(const QList<VisioRow> &rows);

    void addOpenEnds(const QList<VisioRow> &rows, int subpath);
    void addPieces(const QList<VisioRow> &rows, int subpath, qsizetype from, qsizetype to);
    void place(const QList<VisioRow> &rows, int subpath);

    QHash<Point, Subpaths> openFirst; // open subpaths by their ends
    QHash<Point, Subpaths> openLast;
    QHash<Piece, Subpaths> pieces; // by two neighbouring points; may name a subpath that lost them
    QList<Places> places;
};

} // namespace ORR::Graph
