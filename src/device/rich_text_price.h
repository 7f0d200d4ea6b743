#pragma once

#include <QStringView>
#include <QtGlobal>

namespace ORR::Graph {

// What the toolkit needs to lay out and paint a rich text, estimated before it sees the text and in
// one pass, in steps of about five microseconds. Its characters, tags, attributes, grids of tables,
// pictures and style sheets count; what each of them costs stands in limits.h.
//
// All within a table within a table counts twice, and so forth: each table is laid out twice, once
// to find the widths of the columns.
struct RichTextPrice
{
    qint64 steps = 0; // once beyond a limit, the counting ends

    // Of these, what its pictures cost, and the characters that their addresses take.
    qint64 pictureSteps = 0;
    qint64 pictureCharacters = 0;

    // Whether the text is to be laid out at all; see limits.h.
    bool isAffordable = true;

    // The places in the grids of its tables, each as many times as it is laid out.
    qint64 gridPlaces = 0;
};

RichTextPrice richTextPrice(QStringView html);

} // namespace ORR::Graph
