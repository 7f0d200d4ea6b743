#include <gtest/gtest.h>

#include <QApplication>
#include <QHashSeed>

// The main of every test program: the pinned fonts, no display, the resolution of all drawings, and
// the application object that measuring and painting need.
int main(int argc, char **argv)
{
    QHashSeed::setDeterministicGlobalSeed();
    qputenv("FONTCONFIG_FILE", ORR_TEST_FONTS);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_FONT_DPI", "72");
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
