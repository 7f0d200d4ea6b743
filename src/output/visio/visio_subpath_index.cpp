#include "output/visio/visio_subpath_index.h"

#include <algorithm>

namespace ORR::Graph {

namespace {

// A subpath of no more rows is searched by looking at them.
constexpr qsizetype shortSubpath = 16;

int nextIn(const std::set<int> &subpaths, int after)
{
    const auto found = subpaths.upper_bound(after);
    return found == subpaths.end() ? -1 : *found;
}

int earlier(int a, int b)
{
    return a < 0 ? b : b < 0 ? a : std::min(a, b);
}

template <typename Key>
void removeFrom(QHash<Key, std::set<int>> &subpaths, const Key &key, int subpath)
{
    const auto found = subpaths.find(key);
    if (found == subpaths.end())
        return;
    found->erase(subpath);
    if (found->empty())
        subpaths.erase(found);
}

bool isClosed(const QList<VisioRow> &rows)
{
    return rows.constFirst().samePoint(rows.constLast());
}

SubpathMerge joinAtEnd(const QList<VisioRow> &N, QList<VisioRow> &E)
{
    if (isClosed(E))
        return SubpathMerge::None;
    if (N.constFirst().samePoint(E.constLast())) {
        E.append(N.mid(1));
        return SubpathMerge::Appended;
    }
    if (N.constLast().samePoint(E.constFirst())) {
        E.first() = N.constLast();
        for (qsizetype k = N.size() - 2; k >= 0; --k)
            E.prepend(N.at(k));
        return SubpathMerge::Prepended;
    }
    return SubpathMerge::None;
}

} // namespace

SubpathMerge mergeSubpath(const QList<VisioRow> &N, QList<VisioRow> &E, qsizetype i, qsizetype j)
{
    if (i < 0 || j < 0 || i >= j)
        return joinAtEnd(N, E);
    const bool curveOverLine = j == i + 1 && E.at(j).kind == VisioRow::LineTo
        && N.constLast().kind == VisioRow::SplineKnot;
    if (curveOverLine) {
        const QList<VisioRow> behind = E.mid(j + 1);
        E.resize(j);
        E.append(N.mid(1));
        E.append(behind);
        return SubpathMerge::Inserted;
    }
    const bool contained = i + N.size() <= E.size()
        && std::equal(N.cbegin(), N.cend(), E.cbegin() + i,
                      [](const VisioRow &n, const VisioRow &e) { return n.samePoint(e); });
    return contained ? SubpathMerge::Contained : SubpathMerge::None;
}

VisioSubpathIndex::VisioSubpathIndex(const QList<QList<VisioRow>> &subpaths)
{
    for (const QList<VisioRow> &rows : subpaths)
        added(rows);
}

// Rows are taken in by a subpath that ends where they start or starts where they end, by one that
// has a straight piece between their ends, and by one that has every piece of theirs: of those
// pieces the one that fewest subpaths have.
int VisioSubpathIndex::candidate(const QList<VisioRow> &rows, int after) const
{
    static const Subpaths none;
    const auto having = [this](const Piece &piece) -> const Subpaths & {
        const auto found = pieces.constFind(piece);
        return found == pieces.constEnd() ? none : *found;
    };
    const auto at = [](const QHash<Point, Subpaths> &ends, const Point &point) -> const Subpaths & {
        const auto found = ends.constFind(point);
        return found == ends.constEnd() ? none : *found;
    };
    const Point first = pointOf(rows.constFirst());
    const Point last = pointOf(rows.constLast());
    int next = earlier(nextIn(at(openLast, first), after), nextIn(at(openFirst, last), after));
    if (rows.size() < 2)
        return next;
    const auto ofPiece = [&](qsizetype k) -> const Subpaths & {
        return having({pointOf(rows.at(k - 1)), pointOf(rows.at(k))});
    };
    const Subpaths *rarest = &ofPiece(1);
    for (qsizetype k = 2; k < rows.size() && !rarest->empty(); ++k) {
        const Subpaths &found = ofPiece(k);
        if (found.size() < rarest->size())
            rarest = &found;
    }
    next = earlier(next, nextIn(*rarest, after));
    if (rows.constLast().kind == VisioRow::SplineKnot)
        next = earlier(next, nextIn(having({first, last}), after));
    return next;
}

qsizetype VisioSubpathIndex::indexOf(const QList<VisioRow> &rows, int subpath,
                                     const VisioRow &wanted, qsizetype from) const
{
    if (isShort(rows)) {
        for (qsizetype k = from; k < rows.size(); ++k) {
            if (rows.at(k).samePoint(wanted))
                return k;
        }
        return -1;
    }
    const Places &known = places.at(subpath);
    const auto found = known.rows.constFind(pointOf(wanted));
    if (found == known.rows.constEnd())
        return -1;
    const auto row = std::lower_bound(found->cbegin(), found->cend(), from + known.first);
    return row == found->cend() ? -1 : *row - known.first;
}

void VisioSubpathIndex::added(const QList<VisioRow> &rows)
{
    const int subpath = static_cast<int>(places.size());
    places.append(Places());
    place(rows, subpath);
    addOpenEnds(rows, subpath);
}

void VisioSubpathIndex::leaves(const QList<VisioRow> &rows, int subpath)
{
    removeFrom(openFirst, pointOf(rows.constFirst()), subpath);
    removeFrom(openLast, pointOf(rows.constLast()), subpath);
}

void VisioSubpathIndex::returns(const QList<VisioRow> &rows, int subpath, SubpathMerge merge,
                                qsizetype count)
{
    addOpenEnds(rows, subpath);
    if (merge == SubpathMerge::None || merge == SubpathMerge::Contained)
        return;
    Places &known = places[subpath];
    const bool whole = known.rows.isEmpty(); // it may just have become long
    const qsizetype fresh = count - 1;
    if (merge == SubpathMerge::Inserted || (whole && !isShort(rows))) {
        place(rows, subpath);
    } else if (merge == SubpathMerge::Appended) {
        addPieces(rows, subpath, rows.size() - fresh, rows.size());
        for (qsizetype k = rows.size() - fresh; !whole && k < rows.size(); ++k)
            known.rows[pointOf(rows.at(k))].append(k + known.first);
    } else if (merge == SubpathMerge::Prepended) {
        addPieces(rows, subpath, 1, fresh + 1);
        known.first -= fresh;
        for (qsizetype k = fresh - 1; !whole && k >= 0; --k)
            known.rows[pointOf(rows.at(k))].prepend(k + known.first);
    }
}

bool VisioSubpathIndex::isShort(const QList<VisioRow> &rows)
{
    return rows.size() <= shortSubpath;
}

void VisioSubpathIndex::addOpenEnds(const QList<VisioRow> &rows, int subpath)
{
    if (isClosed(rows))
        return;
    openFirst[pointOf(rows.constFirst())].insert(subpath);
    openLast[pointOf(rows.constLast())].insert(subpath);
}

void VisioSubpathIndex::addPieces(const QList<VisioRow> &rows, int subpath, qsizetype from,
                                  qsizetype to)
{
    for (qsizetype k = from; k < to; ++k)
        pieces[{pointOf(rows.at(k - 1)), pointOf(rows.at(k))}].insert(subpath);
}

// Enters all rows of the subpath anew.
void VisioSubpathIndex::place(const QList<VisioRow> &rows, int subpath)
{
    addPieces(rows, subpath, 1, rows.size());
    Places &known = places[subpath];
    known = Places();
    for (qsizetype k = 0; !isShort(rows) && k < rows.size(); ++k)
        known.rows[pointOf(rows.at(k))].append(k);
}

} // namespace ORR::Graph
