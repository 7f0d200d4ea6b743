#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QImage>
#include <QString>
#include <QStringList>

// What the real program makes of an input file.
struct FinishedDrawing
{
    int status = -1;
    QByteArray errors; // standard error
    QByteArray bytes; // the file that it wrote
};

// Runs the program on the file with the pinned fonts. `engine` is empty for a replay.
FinishedDrawing draw(const QString &input, const QString &engine, const QString &format);

// One part of a zip package; a failure and an empty result if it is not there.
QByteArray packagePart(const QByteArray &package, const QString &part);

// The PNG picture on a white page, as a PNG.
QByteArray onWhite(const QByteArray &png);

// Whether the picture has the size of the one in the file and its pixels, within 2 of 255 a channel
// of the premultiplied colour: what the mathematics of another processor may move an antialiased
// edge by, and far less than half a pixel of anything. A difference leaves the picture beside the
// build, named in the message. With ORR_UPDATE_GOLDENS the file is written instead, and the check
// fails.
testing::AssertionResult matchesPicture(const QByteArray &encoded, const QString &path);
