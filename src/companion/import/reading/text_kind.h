#pragma once

#include <QByteArrayView>
#include <QString>

namespace ORR::Companion {

// What a beginning clearly is, of those kinds that nobody takes for a table: "JSON", "XML", "no
// text". Empty for anything else.
QString notTabular(QByteArrayView beginning);

// What a beginning is by the bytes that all files of a kind begin with: "a PNG picture"; of gzip
// and the like also what to do about it. Empty if it may be text.
QString binaryKind(QByteArrayView beginning);

// "JSON", "XML with <coverage>" by the element around all. Empty for anything else.
QString structuredKind(QByteArrayView beginning);

} // namespace ORR::Companion
