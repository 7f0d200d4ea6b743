#include "support/golden.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

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
    if (qEnvironmentVariableIsSet("ORR_UPDATE_GOLDENS")) {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(actual) != actual.size())
            return testing::AssertionFailure() << "cannot write " << path.toStdString();
        return testing::AssertionFailure() << "golden written: " << path.toStdString();
    }
    const QByteArray expected = readTestFile(path);
    if (actual == expected)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
        << path.toStdString() << ": " << firstDifference(actual, expected);
}
