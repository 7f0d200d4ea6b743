#include "companion/command/value_checks.h"

#include <QByteArray>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ORR::Companion {

namespace {

QString quoted(const std::string &text)
{
    return u'\'' + QString::fromStdString(text) + u'\'';
}

} // namespace

ValueCheck isOneOf(const QStringList &words)
{
    const auto fault = [words](const std::string &value) {
        if (words.contains(QString::fromStdString(value)))
            return QString();
        return "%1 is none of %2"_L1.arg(quoted(value), words.join(", "_L1));
    };
    return {fault, words};
}

ValueCheck isWholeNumber(qint64 least, qint64 greatest)
{
    return {[=](const std::string &value) {
        const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
        bool isNumber = std::all_of(value.begin(), value.end(), isDigit);
        const qint64 number = isNumber ? QByteArray::fromStdString(value).toLongLong(&isNumber) : 0;
        if (isNumber && number >= least && number <= greatest)
            return QString();
        return u"%1 is no whole number from %2 to %3"_s.arg(quoted(value)).arg(least).arg(greatest);
    }};
}

ValueCheck isNumber(double least, double greatest)
{
    return {[=](const std::string &value) {
        bool isNumber = value.find_first_of(" \t\n\v\f\r") == std::string::npos;
        const double number = isNumber ? QByteArray::fromStdString(value).toDouble(&isNumber) : 0.0;
        if (isNumber && number >= least && number <= greatest)
            return QString();
        return u"%1 is no number from %2 to %3"_s.arg(quoted(value), QString::number(least),
                                                      QString::number(greatest, 'f', 0));
    }};
}

} // namespace ORR::Companion
