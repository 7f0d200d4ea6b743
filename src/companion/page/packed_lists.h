#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace ORR::Companion {

// Lists of the table of a page, shorter than they are: readers add up.

// Each number less the one that stands so many places before it.
QByteArray differences(const QList<int> &numbers, qsizetype width = 1);

// A text of JSON whose first character is as much above '#' as the text begins like the last one,
// which it then replaces; then comes its rest.
QByteArray textAfter(QString *last, const QString &text);

} // namespace ORR::Companion
