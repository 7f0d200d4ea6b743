#pragma once

#include <QByteArray>
#include <QDataStream>

namespace ORR::Companion {

// How a drawing is made, beyond what its input says.
struct DrawingOptions
{
    QByteArray engine = {}; // by its name, in any case; empty for the root's attribute `layout`
    qint32 format = 0; // a `Drawing::Format`
    bool htmlLabels = false; // see `Drawing::Job`
    double scale = 1.0; // these three: see `Graph::DrawingExtras`
    QByteArray background = {};
    bool embedded = false;
};

// One drawing for a worker to make. File names are bytes in no particular encoding.
struct DrawingTask
{
    bool hasFile = true;
    QByteArray input = {}; // the name of the file, or the bytes themselves
    QByteArray output = {}; // the name of the file; empty if the answer is to have the drawing
    DrawingOptions options = {};
};

// What came of it.
struct DrawingAnswer
{
    bool isDrawn = false;
    QByteArray message = {}; // in UTF-8, without a line feed; empty for success
    qint64 microseconds = 0; // from its start to its end
    qint64 peakMemory = 0; // kilobytes that the worker held at most meanwhile; 0 if not measured
    QByteArray drawing = {}; // if there is no file
};

// How they travel to a worker and back, whose two ends are the same program: each as the only field
// of a message, in the form of Qt's streams, in this order.
QDataStream &operator<<(QDataStream &stream, const DrawingTask &task);
QDataStream &operator>>(QDataStream &stream, DrawingTask &task);
QDataStream &operator<<(QDataStream &stream, const DrawingAnswer &answer);
QDataStream &operator>>(QDataStream &stream, DrawingAnswer &answer);

} // namespace ORR::Companion
