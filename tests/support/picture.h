#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QString>

// The pictures of the documents. They are kept on white, so that black texts are read on a dark
// page, too.

// The picture as it looks on white, without transparency.
QImage onWhite(const QImage &picture);

// Whether both look the same on white. Renders of two processors may differ in the shade of an
// edge. Of another size, or with more than a few such pixels, they are two pictures.
bool isSamePicture(const QImage &a, const QImage &b);

// Whether the picture is the one that is kept in the file. With ORR_UPDATE_GOLDENS set in the
// environment the file is written anew instead, on white, unless it is the same already; to write
// it fails.
testing::AssertionResult matchesPicture(const QImage &actual, const QString &path);
