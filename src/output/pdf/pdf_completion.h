#pragma once

#include <QByteArray>
#include <QList>
#include <QRectF>
#include <QString>

namespace ORR::Graph {

// An area of the page and the address that it leads to, which is ASCII.
struct PdfLink
{
    QRectF area; // in points from the upper left corner of the page
    QByteArray address;
};

// What a file has beyond what the toolkit's writer gives it.
struct PdfCompletion
{
    QString title = {}; // of the document; empty for none
    QList<PdfLink> links = {}; // a later one lies above an earlier one
    int height = 0; // of the page, in points
};

// A file with one page that the toolkit's writer has made, with that in it and without the time at
// which it was made, so that the same drawing is the same file. Empty if it is not understood.
QByteArray completedPdf(const QByteArray &file, const PdfCompletion &completion);

} // namespace ORR::Graph
