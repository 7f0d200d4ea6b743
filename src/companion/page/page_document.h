#pragma once

#include <QByteArray>
#include <QString>

namespace ORR::Companion {

// What differs from page to page.
struct PageContent
{
    QString title = {}; // plain text, of one line
    QByteArray drawing = {}; // an SVG element
    QByteArray data = {}; // JSON that is safe within a script element
    QByteArray rules = {}; // of its own, for the end of the style sheet
};

// The page: one HTML document that needs nothing else. Its Content-Security-Policy allows its own
// script and style, by their SHA-256, and pictures that are part of it; nothing else is loaded or
// run. The same content gives the same bytes.
QByteArray pageDocument(const PageContent &content);

} // namespace ORR::Companion
