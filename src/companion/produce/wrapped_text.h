#pragma once

#include <QFontMetricsF>
#include <QString>

namespace ORR::Companion {

// The text in lines that are no wider, in points, where its blanks allow it; a word that is wider
// is parted. Lines that it has remain.
QString wrappedText(const QString &text, const QFontMetricsF &metrics, double width);

} // namespace ORR::Companion
