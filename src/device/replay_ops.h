#pragma once

#include "device/device.h"
#include "device/replay_listener.h"
#include "device/replay_state.h"

#include <QByteArrayView>

namespace ORR::Graph::Graphviz {

// What the page has on each side of a replayed drawing, in points.
inline constexpr int pageMargin = 4;

// Maps xdot coordinates, y upward from the bottom left, to those of the page, y downward from the
// corner of its margin.
struct PageTransform
{
    int canvasHeight = 0; // without the margins

    QPoint map(int x, int y) const;
    QPointF map(double x, double y) const;
};

// Replays the ops of one drawing attribute: shapes are drawn, texts are collected in the state, and
// what sets colours, fonts and styles acts on it. Unknown ops are stepped over a character at a
// time. `state` is the frame of the attribute.
//
// A count of points or of gradient stops is never believed. Points that are missing read as (0, 0),
// like every number that is missing, but no more than four of them: those beyond would lie upon one
// another. A listener, which may be null, hears of such counts and of all else that is wrong.
void replayDrawing(QByteArrayView ops, ReplayState &state, Device *device,
                   const PageTransform &page, ReplayListener *listener = nullptr);

} // namespace ORR::Graph::Graphviz
