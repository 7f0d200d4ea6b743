#pragma once

#include "output/svg.h"
#include "output/svg_rich_text.h"

#include <QByteArray>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

// What `draw(device)` writes, without the frame that `begin` and `end` put around it.
template <typename SvgDevice = ORR::Graph::Svg, typename Draw>
QByteArray drawn(Draw draw)
{
    QByteArray bytes;
    SvgDevice device(&bytes);
    draw(device);
    EXPECT_EQ(device.end(), QString());
    EXPECT_TRUE(bytes.endsWith("</svg>\n"));
    bytes.chop(7);
    return bytes;
}

// The whole document that `draw(device)` gives.
template <typename SvgDevice = ORR::Graph::SvgRichText, typename Draw>
QByteArray document(Draw draw)
{
    QByteArray bytes;
    SvgDevice device(&bytes);
    device.begin(100, 50);
    draw(device);
    EXPECT_EQ(device.end(), QString());
    return bytes;
}

// Whether a reader that checks namespaces too takes the document to its end.
inline testing::AssertionResult isWellFormed(const QByteArray &xml)
{
    QXmlStreamReader reader(xml);
    while (!reader.atEnd())
        reader.readNext();
    if (!reader.hasError())
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
        << reader.errorString().toStdString() << " in line " << reader.lineNumber() << " of\n"
        << xml.toStdString();
}
