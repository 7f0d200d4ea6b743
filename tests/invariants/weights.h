#pragma once

#include "drawing/layout_table.h"
#include "graph/dot_graph.h"
#include "invariants/drawn_objects.h"

#include <QList>
#include <QString>
#include <QStringList>

// How large an object is drawn for a unit of its weight, as far as rounded coordinates tell.
struct Weighed
{
    QString id;
    double least = 0.0;
    double most = 0.0;
};

// The objects of an engine that shows weights, in families whose members have one scale. None for
// an engine that shows none. The graph is that of the input, as it was before the run.
QList<QList<Weighed>> weighedFamilies(ORR::Drawing::LayoutIndex layout, const Drawn &drawn,
                                      const ORR::Graph::DotGraph &graph);

// How many rows of the table say how the engine shows weights. One, also for an engine that shows
// none: whoever adds an engine says so.
qsizetype weightRowCount(ORR::Drawing::LayoutIndex layout);

// The ids of those that can't have the scale of those before them.
QStringList outOfProportion(const QList<Weighed> &family);
