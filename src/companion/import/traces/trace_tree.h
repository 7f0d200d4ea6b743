#pragma once

#include "companion/import/traces/trace_spans.h"

#include <QList>

namespace ORR::Companion {

// The spans by who asked for them, each in the order of time. One whose parent is not there is a
// root.
class TraceTree
{
public:
    explicit TraceTree(QList<TraceSpan> found);

    const QList<TraceSpan> &spans() const { return all; }
    const QList<int> &roots() const { return first; }
    const QList<int> &children(int span) const { return below[span]; }
    int parent(int span) const { return above[span]; } // -1 for a root
    // From the roots downward, each behind its parent. Spans that ask for each other in a circle
    // are not among them.
    const QList<int> &inOrder() const { return order; }

    // Whether it only says that others were asked: the call is told by what it asked for.
    bool isCallSide(int span) const;
    // Equal for spans below which the same was done.
    int likeness(int span) const { return shapes[span]; }
    // The time that it did not spend waiting for those below, nanoseconds.
    qint64 ownTime(int span) const;

private:
    void findParents();
    void findShapes();

    QList<TraceSpan> all;
    QList<int> above;
    QList<QList<int>> below;
    QList<int> first;
    QList<int> order;
    QList<int> shapes;
};

} // namespace ORR::Companion
