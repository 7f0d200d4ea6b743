#pragma once

#include "drawing/format_table.h"

#include <QByteArray>
#include <QTemporaryDir>

#include <functional>

// Makes devices that write into a temporary folder, and reads what they wrote.
class DrawingFolder
{
public:
    // What is drawn on a device of the format, `end` included, as the bytes of its file; empty if
    // there is none.
    QByteArray drawnFile(ORR::Drawing::Format format,
                         const std::function<void(ORR::Graph::Device *)> &draw) const;

private:
    QTemporaryDir folder;
};
