// What the program makes of the environment that it is started in.
#include "drawing/format_table.h"
#include "driver/program_run.h"
#include "support/golden.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <unistd.h>

using namespace ORR::Drawing;
using namespace Qt::StringLiterals;

namespace {

const QStringList arguments{u"-K"_s, u"treemap"_s, u"-T"_s, u"svg"_s};

// A graph whose drawing is full of fractions.
const QByteArray fractions =
    "digraph { graph [width=\"3.75\" height=\"2.5\"];"
    " a [area=\"1.5\" label=a fillcolor=\"0.25 0.5 0.75\" fontsize=\"10.5\"]; b [area=\"2.25\"]; }";

class Surroundings : public ProgramTest
{
protected:
    ProgramRun drawIn(const QList<QPair<QString, QString>> &environment,
                      const QByteArray &graph = fractions) const
    {
        return run({.arguments = arguments, .input = graph, .environment = environment});
    }

    // The line of the trace that tells where the home was found.
    static QByteArray foundHome(const ProgramRun &traced)
    {
        return traced.errors.mid(traced.errors.lastIndexOf("ORRHOME: ["));
    }

    const QByteArray plainly = draw(fractions, u"svg"_s).output;
    // The build tree is laid out like an installation.
    const QString home =
        QDir::cleanPath(QFileInfo(QStringLiteral(ORR_PROGRAM)).path() + u"/../share/orrlayout"_s);
    const QPair<QString, QString> trace{u"DEBUG_ORRHOME_TRACE"_s, u"1"_s};
};

} // namespace

TEST_F(Surroundings, nothing_is_printed_without_home_and_runtime_directory)
{
    for (const QString &value : {QString(), u""_s, u"/nonexistent"_s}) {
        const ProgramRun drawn = drawIn({{u"HOME"_s, value}, {u"XDG_RUNTIME_DIR"_s, QString()}});
        EXPECT_TRUE(succeeded(drawn));
        EXPECT_EQ(drawn.output, plainly);
    }
}

TEST_F(Surroundings, nothing_is_printed_in_an_empty_environment)
{
    // The pinned fonts would not be known there; what is drawn may differ.
    const ProgramRun drawn =
        run({.arguments = QStringList{u"-i"_s, QStringLiteral(ORR_PROGRAM)} + arguments,
             .input = fractions,
             .command = u"/usr/bin/env"_s});
    EXPECT_TRUE(succeeded(drawn));
    EXPECT_TRUE(drawn.output.contains("<svg"));
}

TEST_F(Surroundings, settings_of_how_fonts_are_painted_change_no_drawing)
{
    const QByteArray graph = "digraph { a [area=3 label=\"Waltz, 1234\"]; b [area=2 label=fi]; }";
    for (const QByteArray &setting :
         {QByteArray("antialias\" mode=\"assign\"><bool>false</bool>"),
          QByteArray("hintstyle\" mode=\"assign\"><const>hintfull</const>"),
          QByteArray("hintstyle\" mode=\"assign\"><const>hintnone</const>"),
          QByteArray("rgba\" mode=\"assign\"><const>rgb</const>")}) {
        writeFile(u"fonts.conf"_s,
                  "<?xml version=\"1.0\"?>\n<fontconfig><include>" ORR_TEST_FONTS
                  "</include>\n<match target=\"font\"><edit name=\""
                      + setting + "</edit></match></fontconfig>\n");
        for (const QString &format : {u"svg"_s, u"png"_s}) {
            const ProgramRun drawn =
                run({.arguments = {u"-K"_s, u"treemap"_s, u"-T"_s, format},
                     .input = graph,
                     .environment = {{u"FONTCONFIG_FILE"_s, path(u"fonts.conf"_s)}}});
            EXPECT_TRUE(succeeded(drawn));
            EXPECT_TRUE(drawn.output == draw(graph, format).output) << setting.toStdString();
        }
    }
}

TEST_F(Surroundings, nothing_is_printed_about_a_font_cache_that_cannot_be_written)
{
    writeFile(u"fonts.conf"_s, R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig>
    <dir>/usr/share/fonts/truetype/liberation</dir>
    <cachedir>/dev/null/cache</cachedir>
</fontconfig>
)");
    EXPECT_TRUE(succeeded(drawIn({{u"FONTCONFIG_FILE"_s, path(u"fonts.conf"_s)}})));
}

TEST_F(Surroundings, locale_changes_nothing)
{
    for (const QString &locale : {u"C"_s, u"POSIX"_s, u"C.UTF-8"_s, u"de_DE.UTF-8"_s,
                                  u"tr_TR.UTF-8"_s, u"no such locale"_s}) {
        const ProgramRun drawn = drawIn({{u"LC_ALL"_s, locale}});
        EXPECT_TRUE(succeeded(drawn)) << locale.toStdString();
        EXPECT_EQ(drawn.output, plainly) << locale.toStdString();
    }
}

// The locales of a machine are few; this one, with a comma in its numbers, is made for the test.
TEST_F(Surroundings, locale_with_decimal_comma_changes_nothing)
{
    const ProgramRun made =
        run({.arguments = {u"-i"_s, u"de_DE"_s, u"-f"_s, u"UTF-8"_s, path(u"de_DE.UTF-8"_s)},
             .command = u"localedef"_s});
    if (!QFileInfo::exists(path(u"de_DE.UTF-8/LC_NUMERIC"_s)))
        GTEST_SKIP() << "no locale can be made here: " << made.errors.toStdString();
    const ProgramRun drawn =
        drawIn({{u"LC_ALL"_s, u"de_DE.UTF-8"_s}, {u"LOCPATH"_s, QFileInfo(path(u"x"_s)).path()}});
    EXPECT_TRUE(succeeded(drawn));
    EXPECT_EQ(drawn.output, plainly);
}

TEST_F(Surroundings, same_input_gives_the_same_bytes)
{
    for (const FormatRow &row : formatTable()) {
        const auto drawn = [&](const QString &seed) {
            return run({.arguments = {u"-K"_s, u"treemap"_s, u"-T"_s, row.name},
                        .input = fractions,
                        .environment = {{u"QT_HASH_SEED"_s, seed}}})
                .output;
        };
        const QByteArray first = drawn(QString());
        EXPECT_FALSE(first.isEmpty()) << row.name.data();
        EXPECT_TRUE(drawn(QString()) == first) << row.name.data();
        EXPECT_TRUE(drawn(u"4711"_s) == first) << row.name.data();
    }
}

TEST_F(Surroundings, file_names_are_utf8_in_every_locale)
{
    writeFile(u"größe.dot"_s, fractions);
    EXPECT_TRUE(succeeded(
        run({.arguments = {u"-K"_s, u"treemap"_s, u"-o"_s, u"übersicht.svg"_s, u"größe.dot"_s},
             .environment = {{u"LC_ALL"_s, u"C"_s}}})));
    EXPECT_EQ(fileContent(u"übersicht.svg"_s), plainly);
}

TEST_F(Surroundings, labels_are_html_with_one_exact_entry)
{
    const QByteArray graph = draw("digraph { a [area=1 label=\"<b>bold</b>\"] }").output;
    const auto with = [&](const QString &name, const QString &value) {
        return run({.arguments = {u"-T"_s, u"svg"_s},
                    .input = graph,
                    .environment = {{name, value}}})
            .output;
    };
    const QByteArray plain = with(u"ORR_GVLAYOUT_USE_HTML"_s, QString());
    EXPECT_TRUE(plain.contains("&lt;b&gt;")) << plain.toStdString();
    EXPECT_NE(with(u"ORR_GVLAYOUT_USE_HTML"_s, u"1"_s), plain);
    EXPECT_EQ(with(u"ORR_GVLAYOUT_USE_HTML"_s, u"2"_s), plain);
    EXPECT_EQ(with(u"ORR_GVLAYOUT_USE_HTML"_s, u"1 "_s), plain);
    EXPECT_EQ(with(u"ORR_GVLAYOUT_USE_HTML"_s, u""_s), plain);
    EXPECT_EQ(with(u"orr_gvlayout_use_html"_s, u"1"_s), plain);
}

TEST_F(Surroundings, home_is_traced_only_when_asked)
{
    EXPECT_TRUE(succeeded(drawIn({{trace.first, u"OFF"_s}})));
    const ProgramRun traced = drawIn({trace});
    EXPECT_EQ(traced.status, 0);
    EXPECT_TRUE(traced.errors.startsWith("ORRHOME: Init argv0='")) << traced.errors.toStdString();
    EXPECT_EQ(traced.output, plainly);
}

TEST_F(Surroundings, home_is_found_from_the_build_tree)
{
    EXPECT_EQ(foundHome(drawIn({trace})), u"ORRHOME: [%1] from Abs argv0\n"_s.arg(home).toUtf8());
}

TEST_F(Surroundings, home_is_found_through_a_symbolic_link)
{
    ASSERT_TRUE(QFile::link(QStringLiteral(ORR_PROGRAM), path(u"linked"_s)));
    const auto called = [&](const QString &as) {
        return foundHome(run({.arguments = arguments,
                              .input = fractions,
                              .environment = {trace, {u"PATH"_s, path(u"."_s)}},
                              .command = as}));
    };
    EXPECT_EQ(called(path(u"linked"_s)), u"ORRHOME: [%1] from Abs argv0\n"_s.arg(home).toUtf8());
}

TEST_F(Surroundings, home_is_found_for_a_relative_and_a_bare_name)
{
    ASSERT_TRUE(QFile::link(QStringLiteral(ORR_PROGRAM), path(u"linked"_s)));
    const auto byShell = [&](const QString &name) {
        return foundHome(
            run({.arguments = QStringList{u"-c"_s, name + u" \"$@\""_s, u"sh"_s} + arguments,
                 .input = fractions,
                 .environment = {trace, {u"PATH"_s, path(u"."_s)}},
                 .command = u"/bin/sh"_s}));
    };
    EXPECT_EQ(byShell(u"./linked"_s), u"ORRHOME: [%1] from Rel argv0\n"_s.arg(home).toUtf8());
    EXPECT_EQ(byShell(u"linked"_s), u"ORRHOME: [%1] from argv0 on Path\n"_s.arg(home).toUtf8());
}

TEST_F(Surroundings, home_is_found_through_its_variable)
{
    ASSERT_TRUE(QDir().mkpath(path(u"elsewhere/conf"_s)));
    EXPECT_EQ(foundHome(drawIn({trace, {u"ORRHOME"_s, path(u"elsewhere"_s)}})),
              u"ORRHOME: [%1] from $ORRHOME variable\n"_s.arg(path(u"elsewhere"_s)).toUtf8());
}

TEST_F(Surroundings, home_is_found_from_an_installation)
{
    const QString prefix = path(u"opt/orr"_s);
    const ProgramRun installed =
        run({.arguments = {u"--install"_s, QStringLiteral(ORR_BUILD_FOLDER), u"--prefix"_s, prefix},
             .command = QStringLiteral(ORR_CMAKE)});
    ASSERT_EQ(installed.status, 0) << installed.errors.toStdString();
    const QString placed = prefix + u"/bin/orrlayout"_s;
    // Links into it, one behind the other, from the prefix of something else.
    ASSERT_TRUE(QDir().mkpath(path(u"usr/bin"_s)) && QDir().mkpath(path(u"usr/share/orrlayout"_s)));
    ASSERT_TRUE(QFile::link(placed, path(u"orrlayout"_s)));
    ASSERT_TRUE(QFile::link(u"../../orrlayout"_s, path(u"usr/bin/draw"_s)));
    const QByteArray package = draw(fractions, u"vsdx"_s).output;
    // As older ones are laid out.
    const QString older = path(u"older"_s);
    ASSERT_TRUE(QDir().mkpath(older + u"/bin/pc-win64"_s));
    ASSERT_TRUE(QFile::link(prefix + u"/share/orrlayout/conf"_s, older + u"/conf"_s));
    ASSERT_TRUE(QFile::copy(placed, older + u"/bin/pc-win64/orrlayout"_s));
    const struct
    {
        QString program;
        QString home;
    } calls[]{
        {placed, prefix + u"/share/orrlayout"_s},
        {path(u"orrlayout"_s), prefix + u"/share/orrlayout"_s},
        {path(u"usr/bin/draw"_s), prefix + u"/share/orrlayout"_s},
        {older + u"/bin/pc-win64/orrlayout"_s, older},
    };
    for (const auto &call : calls) {
        const ProgramRun drawn = run({.arguments = {u"-K"_s, u"treemap"_s, u"-T"_s, u"vsdx"_s},
                                      .input = fractions,
                                      .environment = {trace},
                                      .command = call.program});
        EXPECT_EQ(foundHome(drawn), u"ORRHOME: [%1] from Abs argv0\n"_s.arg(call.home).toUtf8());
        EXPECT_TRUE(drawn.output == package) << "made from another template";
    }
}

TEST_F(Surroundings, drawing_without_a_home_is_still_made)
{
    ASSERT_TRUE(QFile::copy(QStringLiteral(ORR_PROGRAM), path(u"alone"_s)));
    const auto drawnBy = [&](const QString &format) {
        return run({.arguments = {u"-K"_s, u"treemap"_s, u"-T"_s, format},
                    .input = fractions,
                    .environment = {{u"PATH"_s, u"/usr/bin"_s}},
                    .command = path(u"alone"_s)});
    };
    EXPECT_EQ(drawnBy(u"svg"_s).output, plainly);
    EXPECT_TRUE(succeeded(drawnBy(u"vsdx"_s)));
}
