#pragma once

#include <QByteArrayView>
#include <QString>

namespace ORR::Companion {

// What a beginning clearly is, of those kinds that nobody takes for a table: "JSON", "XML", "no
// text". Empty for anything else.
QString notTabular(QByteArrayView beginning);

} // namespace ORR::Companion
