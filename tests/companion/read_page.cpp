#include "companion/read_page.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QProcess>

using namespace Qt::StringLiterals;

QJsonObject readPage(const QByteArray &page)
{
    QProcess reader;
    reader.start(u"python3"_s, {QStringLiteral(ORR_TEST_FOLDER "/read_page.py")});
    reader.write(page);
    reader.closeWriteChannel();
    EXPECT_TRUE(reader.waitForFinished(60'000));
    const QByteArray errors = reader.readAllStandardError();
    EXPECT_EQ(reader.exitCode(), 0) << errors.toStdString();
    return QJsonDocument::fromJson(reader.readAllStandardOutput()).object();
}
