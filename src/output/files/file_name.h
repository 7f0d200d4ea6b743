#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace ORR::Graph {

// File names are bytes, and not all of them are UTF-8. These two turn any name into a text and back
// without loss, so that two names never become one. What is UTF-8 is read as such. In any other
// name each byte above 0x7F stands as the lone surrogate 0xDC00 + byte, which no UTF-8 gives (the
// idea is that of PEP 383 of the Python language).
QString fileNameText(QByteArrayView bytes);
QByteArray fileNameBytes(const QString &text);

} // namespace ORR::Graph
