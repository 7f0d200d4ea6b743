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

// Whether the picture has the size and, within `tolerance` a channel, the pixels of the one in the
// file. A difference leaves the picture beside the build, named in the message. With
// ORR_UPDATE_GOLDENS the file is written instead, and the check fails.
testing::AssertionResult matchesPicture(const QByteArray &encoded, const QString &path,
                                        int tolerance);
