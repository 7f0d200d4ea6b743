#include "support/golden.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

// The number of the first line in which the two differ, and both lines.
std::string firstDifference(const QByteArray &actual, const QByteArray &expected)
{
    const QList<QByteArray> a = actual.split('\n');
    const QList<QByteArray> e = expected.split('\n');
    qsizetype i = 0;
    while (i < a.size() && i < e.size() && a.at(i) == e.at(i))
        ++i;
    return "line " + std::to_string(i + 1) + "\n  expected: " + e.value(i).toStdString()
        + "\n  actual:   " + a.value(i).toStdString();
}

QByteArray withoutLastDigits(const QByteArray &bytes)
{
    static const QRegularExpression longNumber(u"\\d+\\.\\d{11,}"_s);
    const QString text = QString::fromUtf8(bytes);
    QString shortened;
    qsizetype copied = 0;
    for (const QRegularExpressionMatch &match : longNumber.globalMatch(text)) {
        shortened += QStringView(text).mid(copied, match.capturedStart() - copied);
        shortened += QString::number(match.capturedView().toDouble(), 'g', 12);
        copied = match.capturedEnd();
    }
    shortened += QStringView(text).mid(copied);
    return shortened.toUtf8();
}

// What `comparable` leaves of both is compared; the golden is written as it is.
testing::AssertionResult matches(const QByteArray &actual, const QString &path,
                                 const std::function<QByteArray(const QByteArray &)> &comparable)
{
    if (qEnvironmentVariableIsSet("ORR_UPDATE_GOLDENS")) {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(actual) != actual.size())
            return testing::AssertionFailure() << "cannot write " << path.toStdString();
        return testing::AssertionFailure() << "golden written: " << path.toStdString();
    }
    const QByteArray drawn = comparable(actual);
    const QByteArray expected = comparable(readTestFile(path));
    if (drawn == expected)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
        << path.toStdString() << ": " << firstDifference(drawn, expected);
}

} // namespace

QByteArray readTestFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        ADD_FAILURE() << "cannot read " << path.toStdString();
        return {};
    }
    return file.readAll();
}

testing::AssertionResult matchesGolden(const QByteArray &actual, const QString &path)
{
    return matches(actual, path, [](const QByteArray &bytes) { return bytes; });
}

testing::AssertionResult matchesGoldenNumbers(const QByteArray &actual, const QString &path)
{
    return matches(actual, path, withoutLastDigits);
}
