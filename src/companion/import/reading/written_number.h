#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace ORR::Companion {

// A decimal number as tools write it, "12", "-3.5", "1e+06", without blanks around it; nothing if
// the text is anything else, "nan" and "inf" too. Beyond double it is infinite.
std::optional<double> writtenNumber(QByteArrayView text);

// The same of what can't be below zero, nor beyond double: a size, a duration.
std::optional<double> writtenAmount(QByteArrayView text);

// Such a number that can be the weight of a thing: finite and not below 0. If it is none, `why` is
// the sentence of the fault: "'-3' is below 0".
std::optional<double> writtenWeight(QByteArrayView text, QString *why);

// Digits of base 16 behind "0x", of base 8 behind "0", else of base 10; nothing if it is none, or
// beyond double.
std::optional<double> writtenSize(QByteArrayView text);

} // namespace ORR::Companion
