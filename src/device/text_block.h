#pragma once

#include "device/device.h"

#include <QList>
#include <QPoint>

namespace ORR::Graph {

// One line of a label.
struct TextBlockLine
{
    enum Alignment { Left = 0, Right = 1, Centre = 2 };

    Device::Text *text = nullptr; // owned by the device
    Alignment alignment = Centre;
    int width = 0; // as measured
    int height = 0;
};

// A measured label of several lines. An empty block has no lines and no size.
struct TextBlock
{
    QList<TextBlockLine> lines;
    int width = 0; // of the widest line
    int height = 0; // of all lines, with the font's leading between them

    bool isEmpty() const { return lines.isEmpty(); }

    // Draws the lines below each other, aligned in the block's width. The alignment of a single
    // line is not applied.
    static void draw(const TextBlock &block, QPoint topLeft, Device *device);
};

} // namespace ORR::Graph
