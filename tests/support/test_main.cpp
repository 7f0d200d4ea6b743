#include <gtest/gtest.h>

#include <QApplication>
#include <QHashSeed>
#include <QProcessEnvironment>

using namespace Qt::StringLiterals;

// The main of every test program: the pinned fonts, no display, the resolution of all drawings and
// no other setting of the toolkit, and the application object that measuring and painting need.
int main(int argc, char **argv)
{
    for (const QString &name : QProcessEnvironment::systemEnvironment().keys()) {
        if (name.startsWith("QT_"_L1))
            qunsetenv(name.toLocal8Bit().constData());
    }
    QHashSeed::setDeterministicGlobalSeed();
    qputenv("FONTCONFIG_FILE", ORR_TEST_FONTS);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_FONT_DPI", "72");
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
