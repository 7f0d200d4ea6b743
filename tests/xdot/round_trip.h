#pragma once

#include "device/device.h"
#include "graph/dot_graph.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QImage>
#include <QString>

#include <functional>

// Draws a graph on a device: what an engine's `run` does. Returns its message.
using Engine = std::function<QString(ORR::Graph::DotGraph *, ORR::Graph::Device *)>;

// One drawing made twice: straight on each device, and as xdot text that is then replayed on it.
struct RoundTrip
{
    QString message; // the first that any of the runs gave; empty if all went well
    QByteArray xdot;
    QByteArray directSvg;
    QByteArray replayedSvg;
    QImage directPng; // with polygons in place of square rectangles, which are a unit larger
    QImage replayedPng;
};

// Parses the text anew for each run, since engines keep their results in the graph.
RoundTrip roundTrip(const QByteArray &dot, const Engine &run);

// The number of pixels in which the two drawings differ by more than can be seen, the replayed one
// taken without the margin that it has around it. All pixels of the larger one if their sizes do
// not fit.
qsizetype differingPixels(const QImage &direct, const QImage &replayed);

// The whole check of an engine, one line per drawing: no message, the xdot text and its replay to
// SVG as the goldens `folder/name.xdot` and `folder/name.svg`, and no more than `allowed` pixels
// between the direct and the replayed PNG. What fails leaves both pictures in the temporary folder,
// and the failure says where.
testing::AssertionResult roundTripHolds(const QString &folder, const QString &name,
                                        const QByteArray &dot, const Engine &run,
                                        qsizetype allowed = 0);
