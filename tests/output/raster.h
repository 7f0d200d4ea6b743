#pragma once

#include "output/file.h"

#include <QImage>
#include <QImageReader>
#include <QTemporaryDir>

#include <gtest/gtest.h>

// The image that `draw(device)` gives on a page of the size, read back from the file.
template <typename Draw>
QImage painted(QSize page, Draw draw, const QString &name = QStringLiteral("a.png"))
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    ORR::Graph::File device(path);
    device.begin(page.width(), page.height());
    draw(device);
    EXPECT_EQ(device.end(), QString());
    QImageReader reader(path);
    reader.setAllocationLimit(256); // megabytes; the default refuses the largest drawings
    return reader.read();
}
