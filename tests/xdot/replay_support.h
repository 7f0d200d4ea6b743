#pragma once

#include "device/device.h"

#include <QByteArray>
#include <QStringList>

// Parses the text and replays it on the device; the message of the replay. A text that even the
// reader of graphs rejects is replayed beside an empty graph.
QString replayOn(const QByteArray &text, ORR::Graph::Device &device);

// The calls that a replay makes on a device with objects, without the last one, `end`. Fails the
// test if the replay has a message.
QStringList replayCalls(const QByteArray &text);

// The calls between `begin` and `end` for one node "n" in a graph of 100 by 50 points, without its
// own begin and end. `attributes` is the inside of its attribute list.
QStringList nodeCalls(const QByteArray &attributes);

// The same for one node whose "_draw_" or "_ldraw_" is `ops`.
QStringList drawCalls(const QByteArray &ops);
QStringList labelCalls(const QByteArray &ops);

// "digraph ... {", the page of 100 by 50 points, the statements, "}".
QByteArray page(const QByteArray &statements);
