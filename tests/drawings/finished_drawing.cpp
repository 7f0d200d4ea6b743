#include "finished_drawing.h"

#include "support/golden.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdlib>
#include <minizip/unzip.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int timeLimit = 120000; // milliseconds; far more than any drawing takes
constexpr int tolerance = 2; // of 255

int channelDifference(QRgb plainA, QRgb plainB)
{
    // The colour of a pixel that is hardly there says little.
    const QRgb a = qPremultiply(plainA);
    const QRgb b = qPremultiply(plainB);
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b))});
}

// Where the two pictures differ most, and by how much; no difference gives 0.
std::pair<QPoint, int> worstPixel(const QImage &a, const QImage &b)
{
    std::pair<QPoint, int> worst{{}, 0};
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const int difference = channelDifference(a.pixel(x, y), b.pixel(x, y));
            if (difference > worst.second)
                worst = {{x, y}, difference};
        }
    }
    return worst;
}

} // namespace

FinishedDrawing draw(const QString &input, const QString &engine, const QString &format)
{
    const QTemporaryDir folder;
    const QString output = folder.filePath(u"drawing."_s + format);
    QStringList arguments{u"-T"_s, format, u"-o"_s, output, input};
    if (!engine.isEmpty())
        arguments << u"-K"_s << engine;
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"FONTCONFIG_FILE"_s, QStringLiteral(ORR_TEST_FONTS));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(ORR_PROGRAM), arguments);
    FinishedDrawing drawing;
    if (program.waitForFinished(timeLimit) && program.exitStatus() == QProcess::NormalExit)
        drawing.status = program.exitCode();
    drawing.errors = program.readAllStandardError();
    QFile file(output);
    if (file.open(QIODevice::ReadOnly))
        drawing.bytes = file.readAll();
    return drawing;
}

QByteArray packagePart(const QByteArray &package, const QString &part)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"package.zip"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(package) != package.size()
        || !file.flush()) {
        ADD_FAILURE() << "cannot write " << path.toStdString();
        return {};
    }
    QByteArray content;
    unzFile zip = unzOpen(path.toUtf8().constData());
    if (zip && unzLocateFile(zip, part.toUtf8().constData(), 1) == UNZ_OK
        && unzOpenCurrentFile(zip) == UNZ_OK) {
        char buffer[16384];
        int count = 0;
        while ((count = unzReadCurrentFile(zip, buffer, sizeof buffer)) > 0)
            content.append(buffer, count);
        EXPECT_EQ(unzCloseCurrentFile(zip), UNZ_OK) << "damaged: " << part.toStdString();
    } else {
        ADD_FAILURE() << "no part " << part.toStdString();
    }
    if (zip)
        unzClose(zip);
    return content;
}

QByteArray onWhite(const QByteArray &png)
{
    const QImage drawn = QImage::fromData(png);
    QImage page(drawn.size(), QImage::Format_RGB32);
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            const QRgb color = qPremultiply(drawn.pixel(x, y));
            const int white = 255 - qAlpha(color);
            page.setPixel(x, y,
                          qRgb(qRed(color) + white, qGreen(color) + white, qBlue(color) + white));
        }
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly) && page.save(&buffer, "PNG"));
    return bytes;
}

testing::AssertionResult matchesPicture(const QByteArray &encoded, const QString &path)
{
    if (qEnvironmentVariableIsSet("ORR_UPDATE_GOLDENS"))
        return matchesGolden(encoded, path);
    const QImage actual = QImage::fromData(encoded);
    const QImage expected(path);
    const QString left = QDir::temp().filePath(u"differs-"_s + QFileInfo(path).fileName());
    const auto differs = [&](const std::string &how) {
        QFile file(left);
        if (file.open(QIODevice::WriteOnly))
            file.write(encoded);
        return testing::AssertionFailure()
            << path.toStdString() << ": " << how << "; what was drawn is in " << left.toStdString();
    };
    if (actual.isNull() || expected.isNull())
        return differs(actual.isNull() ? "nothing drawn" : "no golden");
    if (actual.size() != expected.size())
        return differs("size " + std::to_string(actual.width()) + " by "
                       + std::to_string(actual.height()));
    const auto [pixel, difference] = worstPixel(actual, expected);
    if (difference > tolerance)
        return differs("pixel " + std::to_string(pixel.x()) + "," + std::to_string(pixel.y())
                       + " off by " + std::to_string(difference));
    return testing::AssertionSuccess();
}
