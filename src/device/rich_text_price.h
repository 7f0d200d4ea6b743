#pragma once

#include <QStringView>
#include <QtGlobal>

namespace ORR::Graph {

// What the toolkit needs to lay out and paint a rich text, estimated before it sees the text and in
// one pass: in steps of about five microseconds, from measurements, rather too much than too
// little.
//
// - a character: 1 step, 5 beyond printable ASCII and for an entity; one within the value of an
//   attribute that holds a picture: a hundredth
// - a tag: 8 steps; a cell 16 more; with `style`, `face` or `size` 60 more, since it may need a
// font
//   of its own
// - a place in the grid of a table, whether a cell fills it or not: 8 steps
// - a list item, a picture: a hundredth step for each one before it
// - a picture: a step for every 50 pixels
// - a tag behind a style sheet: a step for every 64 characters of the sheet, more the deeper it
// lies
//
// All within a table within a table counts twice, and so forth: each table is laid out twice, once
// to find the widths of the columns.
struct RichTextPrice
{
    qint64 steps = 0; // once beyond a limit, the counting ends

    // Whether the text is to be laid out at all; see limits.h.
    bool isAffordable = true;

    // The places in the grids of its tables, each as many times as it is laid out.
    qint64 gridPlaces = 0;
};

RichTextPrice richTextPrice(QStringView html);

} // namespace ORR::Graph
