#pragma once

#include "layout/arrow_head.h"

#include <QList>
#include <QPoint>
#include <QRect>

namespace ORR::Graph::Layout {

// The ends of a level line between two boxes that face each other.
struct Shaft
{
    QPoint tip; // on the box that it runs to
    QPoint start; // on the box that it comes from
};

// At the height `y`, from the right side of one box to the left side of the other, or the other way
// round.
Shaft levelShaft(const QRect &from, const QRect &to, int y, bool rightward);

// An arrow between two things of one column, on their right: a line out from the one that it comes
// from and down, and a line out from the one that it runs to and up.
struct Hook
{
    QList<QPoint> out;
    QList<QPoint> back;
};

// `label` is the box of the label, whose top is the height at which the hook begins. The lines meet
// halfway down it, or leave the stretch beside the label open.
Hook hookBeside(const QRect &label, const QRect &from, const QRect &to, bool labelled);

} // namespace ORR::Graph::Layout
