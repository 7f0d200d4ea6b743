// A table of surroundings. In each of them the drawings are the same as anywhere else, nothing is
// said, and nothing is left behind.
#include "driver/program_run.h"
#include "support/golden.h"

#include <QDir>
#include <QDirIterator>

#include <algorithm>
#include <cstddef>
#include <ostream>

#include <sched.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

struct Surrounding
{
    const char *name;
    QList<QPair<QString, QString>> environment = {};
    QStringList arguments = {}; // beside those that a drawing needs
    std::function<void()> before = {};
};

void PrintTo(const Surrounding &surrounding, std::ostream *stream)
{
    *stream << surrounding.name;
}

void useOneProcessor()
{
    cpu_set_t all;
    cpu_set_t one;
    CPU_ZERO(&one);
    ::sched_getaffinity(0, sizeof all, &all);
    int processor = 0;
    while (processor < CPU_SETSIZE - 1 && !CPU_ISSET(processor, &all))
        ++processor;
    CPU_SET(processor, &one);
    ::sched_setaffinity(0, sizeof one, &one);
}

void closeItselfToOthers()
{
    ::umask(0077);
}

void openItselfToOthers()
{
    ::umask(0);
}

const Surrounding surroundings[] = {
    {"no_home", {{u"HOME"_s, QString()}}},
    {"empty_home", {{u"HOME"_s, u""_s}}},
    {"home_that_is_not_there", {{u"HOME"_s, u"/nonexistent"_s}}},
    {"home_that_takes_no_file", {{u"HOME"_s, u"/proc"_s}}},
    {"no_folder_of_the_session", {{u"XDG_RUNTIME_DIR"_s, QString()}}},
    {"relative_folder_of_the_session", {{u"XDG_RUNTIME_DIR"_s, u"session"_s}}},
    {"folder_of_the_session_that_is_not_there",
     {{u"XDG_RUNTIME_DIR"_s, u"/nonexistent/session"_s}}},
    {"folder_of_the_session_of_others", {{u"XDG_RUNTIME_DIR"_s, u"/"_s}}},
    {"no_path", {{u"PATH"_s, QString()}}},
    {"platform_minimal", {{u"QT_QPA_PLATFORM"_s, u"minimal"_s}}},
    {"platform_xcb", {{u"QT_QPA_PLATFORM"_s, u"xcb"_s}, {u"DISPLAY"_s, QString()}}},
    {"platform_unknown", {{u"QT_QPA_PLATFORM"_s, u"nonesuch"_s}}},
    {"platform_with_settings", {{u"QT_QPA_PLATFORM"_s, u"offscreen:configfile=nonesuch"_s}}},
    {"theme_gtk3", {{u"QT_QPA_PLATFORMTHEME"_s, u"gtk3"_s}}},
    {"theme_gtk3_and_display",
     {{u"QT_QPA_PLATFORMTHEME"_s, u"gtk3"_s}, {u"DISPLAY"_s, u":4711"_s}}},
    {"desktop",
     {{u"XDG_CURRENT_DESKTOP"_s, u"KDE"_s},
      {u"KDE_FULL_SESSION"_s, u"true"_s},
      {u"XDG_SESSION_TYPE"_s, u"wayland"_s},
      {u"WAYLAND_DISPLAY"_s, u"wayland-4711"_s},
      {u"SESSION_MANAGER"_s, u"local/nowhere:@/tmp/.ICE-unix/4711"_s},
      {u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path=/nonexistent"_s}}},
    {"snap", {{u"SNAP"_s, u"/snap/x"_s}}},
    {"style", {{u"QT_STYLE_OVERRIDE"_s, u"windows"_s}}},
    {"input_method", {{u"QT_IM_MODULE"_s, u"ibus"_s}, {u"XMODIFIERS"_s, u"@im=ibus"_s}}},
    {"accessibility", {{u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s}}},
    {"folder_of_plugins", {{u"QT_PLUGIN_PATH"_s, u"/nonexistent"_s}}},
    {"folder_of_platforms", {{u"QT_QPA_PLATFORM_PLUGIN_PATH"_s, u"/nonexistent"_s}}},
    {"generic_plugins", {{u"QT_QPA_GENERIC_PLUGINS"_s, u"evdevmouse,nonesuch"_s}}},
    {"folder_of_fonts", {{u"QT_QPA_FONTDIR"_s, u"/nonexistent"_s}}},
    {"resolution_of_fonts", {{u"QT_FONT_DPI"_s, u"200"_s}}},
    {"scale", {{u"QT_SCALE_FACTOR"_s, u"2"_s}}},
    {"scales_of_screens", {{u"QT_SCREEN_SCALE_FACTORS"_s, u"1.5"_s}}},
    {"policy_of_scales",
     {{u"QT_SCALE_FACTOR_ROUNDING_POLICY"_s, u"Floor"_s}, {u"QT_SCALE_FACTOR"_s, u"1.7"_s}}},
    {"no_scales", {{u"QT_ENABLE_HIGHDPI_SCALING"_s, u"0"_s}}},
    {"scales_by_themselves", {{u"QT_AUTO_SCREEN_SCALE_FACTOR"_s, u"1"_s}}},
    {"physical_resolution", {{u"QT_USE_PHYSICAL_DPI"_s, u"1"_s}}},
    {"direction_of_writing", {{u"QT_LAYOUT_DIRECTION"_s, u"RightToLeft"_s}}},
    {"cache_of_glyphs", {{u"QT_MAX_CACHED_GLYPH_SIZE"_s, u"1"_s}}},
    {"no_cache_of_fonts", {{u"QT_NO_FT_CACHE"_s, u"1"_s}}},
    {"subpixels", {{u"QT_SUBPIXEL_AA_TYPE"_s, u"RGB"_s}}},
    {"no_bold_made_of_regular", {{u"QT_NO_SYNTHESIZED_BOLD"_s, u"1"_s}}},
    {"small_images", {{u"QT_IMAGEIO_MAXALLOC"_s, u"1"_s}}},
    {"seed_of_hashes", {{u"QT_HASH_SEED"_s, u"4711"_s}}},
    {"warnings_are_fatal",
     {{u"QT_FATAL_WARNINGS"_s, u"1"_s},
      {u"QT_FATAL_CRITICALS"_s, u"1"_s},
      {u"XDG_RUNTIME_DIR"_s, QString()}}},
    {"logging", {{u"QT_LOGGING_RULES"_s, u"*=true"_s}, {u"QT_LOGGING_TO_CONSOLE"_s, u"1"_s}}},
    {"logging_in_a_pattern", {{u"QT_MESSAGE_PATTERN"_s, u"%{backtrace}"_s}}},
    {"logging_of_plugins", {{u"QT_DEBUG_PLUGINS"_s, u"1"_s}}},
    {"other_loop_of_events", {{u"QT_NO_GLIB"_s, u"0"_s}, {u"G_MESSAGES_DEBUG"_s, u"all"_s}}},
    {"shaper", {{u"HB_SHAPER_LIST"_s, u"fallback"_s}}},
    {"hinting", {{u"FREETYPE_PROPERTIES"_s, u"truetype:interpreter-version=35"_s}}},
    {"search_for_fonts_that_talks", {{u"FC_DEBUG"_s, u"1"_s}}},
    {"language_of_fonts", {{u"FC_LANG"_s, u"ja"_s}}},
    {"japanese", {{u"LC_ALL"_s, u"ja_JP.UTF-8"_s}, {u"LANGUAGE"_s, u"ja"_s}}},
    {"locale_in_parts",
     {{u"LC_ALL"_s, QString()}, {u"LANG"_s, u"ro_RO"_s}, {u"LC_CTYPE"_s, u"tr_TR.ISO-8859-9"_s}}},
    {"time_zone", {{u"TZ"_s, u"Asia/Tokyo"_s}}},
    {"one_processor", {}, {}, useOneProcessor},
    {"closed_to_others", {}, {}, closeItselfToOthers},
    {"open_to_others", {}, {}, openItselfToOthers},
    {"argument_of_platform", {}, {u"-platform"_s, u"minimal"_s}},
    {"argument_of_no_platform", {}, {u"--platform"_s, u"nonesuch"_s}},
    {"argument_of_theme", {}, {u"-platformtheme"_s, u"gtk3"_s}},
    {"argument_of_style", {}, {u"-style=windows"_s}},
    {"argument_of_plugin", {}, {u"-plugin"_s, u"nonesuch"_s}},
    {"argument_of_direction", {}, {u"-reverse"_s}},
    {"argument_of_window", {}, {u"-qwindowgeometry"_s, u"10x10+1+1"_s}},
};

// Letters that join, letters that languages write in forms of their own, a letter of no pinned
// font.
const QByteArray graph = "digraph { graph [width=\"375\" height=\"250\"];"
                         " a [area=\"1.5\" label=\"flight of ş and Ĳ\" fontsize=\"10.5\"];"
                         " b [area=\"2.25\" label=\"bold 海\" fontname=\"Times\" style=bold];"
                         " c [area=1 label=\"<b>rich</b> <i>text</i>\"]; a -> b; }";

class SurroundingsTable : public ProgramTest, public testing::WithParamInterface<Surrounding>
{
protected:
    SurroundingsTable() : home(path(u"home"_s)), temporary(path(u"temporary"_s))
    {
        QDir().mkpath(home);
        QDir().mkpath(temporary);
    }

    // The engine's SVG and PNG, and the replay of its xdot text with labels of HTML. One engine
    // stands for all, as text and as pixels: it is letters that the surroundings could change.
    QList<ProgramRun> drawIn(const Surrounding &surrounding) const
    {
        static const QByteArray laidOut = draw(graph).output;
        return {drawOne(surrounding, u"svg"_s, graph), drawOne(surrounding, u"png"_s, graph),
                drawOne(surrounding, u"svg"_s, laidOut)};
    }

    // Everything that lies in the working directory, the home and the temporary directory.
    QStringList leftBehind() const
    {
        QStringList found;
        QDirIterator entries(path(u"."_s), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                             QDirIterator::Subdirectories);
        while (entries.hasNext())
            found.append(QDir::cleanPath(entries.next()));
        found.removeOne(home);
        found.removeOne(temporary);
        return found;
    }

private:
    ProgramRun drawOne(const Surrounding &surrounding, const QString &format,
                       const QByteArray &input) const
    {
        return run(
            {.arguments =
                 surrounding.arguments + QStringList{u"-K"_s, u"treemap"_s, u"-T"_s, format},
             .input = input,
             .environment = QList<QPair<QString, QString>>{{u"HOME"_s, home},
                                                           {u"TMPDIR"_s, temporary},
                                                           {u"ORR_GVLAYOUT_USE_HTML"_s, u"1"_s}}
                 + surrounding.environment,
             .before = surrounding.before});
    }

    const QString home;
    const QString temporary;
};

} // namespace

TEST_P(SurroundingsTable, changes_nothing_says_nothing_leaves_nothing)
{
    static const QList<ProgramRun> plain = drawIn({"plain"});
    const QList<ProgramRun> drawn = drawIn(GetParam());
    EXPECT_TRUE(plain.at(1).output.startsWith("\x89PNG"));
    EXPECT_TRUE(plain.at(2).output.contains("rich")) << "the replay draws no rich text";
    for (qsizetype i = 0; i < drawn.size(); ++i) {
        EXPECT_TRUE(succeeded(plain.at(i))) << i;
        EXPECT_TRUE(succeeded(drawn.at(i))) << i;
        EXPECT_FALSE(drawn.at(i).output.isEmpty()) << i;
        EXPECT_TRUE(drawn.at(i).output == plain.at(i).output) << "drawing " << i << " differs";
    }
    EXPECT_EQ(leftBehind(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Each, SurroundingsTable, testing::ValuesIn(surroundings),
                         [](const testing::TestParamInfo<Surrounding> &tested) {
                             return tested.param.name;
                         });

using Display = ProgramTest;

// A server that listens where the X server's would.
TEST_F(Display, is_never_asked)
{
    const int server = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    const int number = 10'000 + ::getpid();
    const QByteArray name = "/tmp/.X11-unix/X" + QByteArray::number(number);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    // The name of a socket that is no file begins with a null.
    std::copy(name.cbegin(), name.cend(), address.sun_path + 1);
    ASSERT_EQ(::bind(server, reinterpret_cast<const sockaddr *>(&address),
                     static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1
                                            + static_cast<size_t>(name.size()))),
              0);
    ASSERT_EQ(::listen(server, 5), 0);
    for (const QString &platform : {QString(), u"xcb"_s, u"offscreen"_s}) {
        const ProgramRun drawn = run({.arguments = {u"-K"_s, u"treemap"_s, u"-T"_s, u"svg"_s},
                                      .input = graph,
                                      .environment = {{u"DISPLAY"_s, u":%1"_s.arg(number)},
                                                      {u"QT_QPA_PLATFORM"_s, platform},
                                                      {u"QT_QPA_PLATFORMTHEME"_s, u"gtk3"_s}}});
        EXPECT_TRUE(succeeded(drawn));
        EXPECT_EQ(::accept(server, nullptr, nullptr), -1) << "it was asked";
    }
    ::close(server);
}
