#pragma once

#include "device/device.h"

#include <QList>
#include <QPoint>
#include <QSize>

namespace ORR::Graph {

// One line of a label. Here and below sizes are in points, as `TextImage` measures them.
struct TextBlockLine
{
    enum Alignment { Left = 0, Right = 1, Centre = 2 };

    Device::Text *text = nullptr; // owned by the device
    Alignment alignment = Centre;
    int width = 0; // of the text in its font
    int height = 0;
};

// A measured label of several lines. An empty block has no lines and no size.
struct TextBlock
{
    QList<TextBlockLine> lines;
    int width = 0; // of the widest line
    int height = 0; // of all lines, with the font's leading between them

    bool isEmpty() const { return lines.isEmpty(); }
    QSize size() const { return {width, height}; }

    // Draws the lines below each other from a point of the page on, aligned in the block's width.
    // The alignment of a single line is not applied.
    static void draw(const TextBlock &block, QPoint topLeft, Device *device);
};

} // namespace ORR::Graph
