#include "importer.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

constexpr double pointsPerInch = 72.0;

} // namespace

QSizeF Seen::page() const
{
    static const QRegularExpression start(
        u"startPage\\([^\\n]*svg:height: ([0-9.]+)in, svg:width: ([0-9.]+)in"_s);
    const QRegularExpressionMatch match = start.match(calls);
    return QSizeF(match.captured(2).toDouble(), match.captured(1).toDouble()) * pointsPerInch;
}

QStringList Seen::texts() const
{
    QStringList found;
    static const QRegularExpression text(u"insertText \\(([^\\n]*)\\)\\n"_s);
    for (auto it = text.globalMatch(calls); it.hasNext();)
        found += it.next().captured(1);
    return found;
}

QStringList Seen::outlines() const
{
    static const QRegularExpression path(u"drawPath \\([^\\n]*"_s);
    static const QRegularExpression step(
        u"path-action: ([A-Z])[^()]*?svg:x: ([-0-9.]+)in[^()]*?svg:y: ([-0-9.]+)in"_s);
    QStringList found;
    for (auto it = path.globalMatch(calls); it.hasNext();) {
        const QString line = it.next().captured(0);
        QStringList places;
        for (auto steps = step.globalMatch(line); steps.hasNext();) {
            const QRegularExpressionMatch match = steps.next();
            places += u"%1 %2,%3"_s.arg(match.captured(1))
                          .arg(qRound(match.captured(2).toDouble() * pointsPerInch))
                          .arg(qRound(match.captured(3).toDouble() * pointsPerInch));
        }
        found += places.join(u' ');
    }
    return found;
}

Seen readBy(const QString &path)
{
    const QString program = QStandardPaths::findExecutable(u"vsd2raw"_s);
    if (program.isEmpty())
        return {true, QString()};
    QProcess process;
    process.start(program, {path});
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0);
    return {false, QString::fromUtf8(process.readAllStandardOutput())};
}
