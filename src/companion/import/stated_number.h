#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace ORR::Companion {

// A number as tools write it in lines and tables, with nothing before and behind it: digits, maybe
// with a point, an exponent and a sign. Nothing of anything else, "nan" and "inf" as well; one
// beyond double is infinite.
std::optional<double> statedNumber(QByteArrayView written);

// Such a number that can be the weight of a thing: finite and not below 0. If it is none, `why` is
// the sentence of the fault: "'-3' is below 0".
std::optional<double> statedWeight(QByteArrayView written, QString *why);

} // namespace ORR::Companion
