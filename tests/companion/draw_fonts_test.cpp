// `orr draw --fonts`: the same letters, whatever fonts the machine has and prefers.
#include "companion/draw_run.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class DrawFontsTest : public DrawTest
{
protected:
    // On a machine whose configuration knows no font.
    ProgramRun drawWithoutFonts(const QStringList &arguments,
                                const QList<QPair<QString, QString>> &more = {}) const
    {
        writeFile(u"none.conf"_s,
                  "<?xml version=\"1.0\"?><fontconfig><dir>/none</dir></fontconfig>");
        return run({.arguments = QStringList{u"draw"_s, u"-K"_s, u"treemap"_s, u"-o"_s, u"-"_s,
                                             u"good.dot"_s}
                        + arguments,
                    .environment =
                        QList<QPair<QString, QString>>{{u"FONTCONFIG_FILE"_s, path(u"none.conf"_s)}}
                        + more});
    }
};

} // namespace

TEST_F(DrawFontsTest, pinned_are_those_of_the_installation)
{
    const ProgramRun drawn = drawWithoutFonts({u"--fonts"_s, u"pinned"_s});
    EXPECT_EQ(drawn.status, 0) << drawn.errors.toStdString();
    EXPECT_FALSE(drawn.output.isEmpty());
    EXPECT_EQ(drawn.output, drawnAlone(u"good.dot"_s, u"treemap"_s, u"svg"_s));
}

TEST_F(DrawFontsTest, of_the_machine_are_taken_where_nothing_else_is_said)
{
    for (const QStringList &arguments : {QStringList(), {u"--fonts"_s, u"machine"_s}}) {
        const ProgramRun drawn = drawWithoutFonts(arguments);
        EXPECT_NE(drawn.status, 0);
        EXPECT_TRUE(drawn.errors.contains("Unable to find a font")) << drawn.errors.toStdString();
    }
}

TEST_F(DrawFontsTest, pinned_have_to_be_installed)
{
    ASSERT_TRUE(QDir().mkpath(path(u"elsewhere/conf"_s)));
    const ProgramRun drawn =
        drawWithoutFonts({u"--fonts"_s, u"pinned"_s}, {{u"ORRHOME"_s, path(u"elsewhere"_s)}});
    EXPECT_EQ(drawn.status, 2);
    EXPECT_EQ(drawn.errors,
              "orr draw: --fonts: there is no fonts.conf in the installation\n"
              "Try 'orr draw --help'.\n");
    EXPECT_EQ(drawMany({u"--fonts"_s, u"mine"_s, u"good.dot"_s}).status, 2);
}
