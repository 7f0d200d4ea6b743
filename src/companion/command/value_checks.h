#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <string>

// What the value of an option has to be.
namespace ORR::Companion {

struct ValueCheck
{
    // Says what is wrong with a value, behind the name of the option; empty if nothing is. None:
    // anything is right.
    std::function<QString(const std::string &value)> fault = {};
    QStringList words = {}; // all that are right, where these are a few
};

ValueCheck isOneOf(const QStringList &words);
ValueCheck isWholeNumber(qint64 least, qint64 greatest);
ValueCheck isNumber(double least, double greatest);

} // namespace ORR::Companion
