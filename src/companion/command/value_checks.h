#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <string>

// What the value of an option has to be.
namespace ORR::Companion {

// Says what is wrong with a value, behind the name of the option; empty if nothing is.
using ValueCheck = std::function<QString(const std::string &value)>;

ValueCheck isOneOf(const QStringList &words);
ValueCheck isWholeNumber(qint64 least, qint64 greatest);
ValueCheck isNumber(double least, double greatest);

} // namespace ORR::Companion
