// What `orr check` foretells as a program: the toolkit that measures texts is started only for it.
#include "driver/program_run.h"
#include "support/golden.h"

using namespace Qt::StringLiterals;

namespace {

class DrawingCheckTest : public ProgramTest
{
protected:
    void SetUp() override
    {
        writeFile(u"blank.dot"_s, "digraph { a [aera=\"1\"]; }\n");
        writeFile(u"fonts.conf"_s,
                  "<?xml version=\"1.0\"?><fontconfig><dir>/none</dir></fontconfig>");
    }

    ProgramRun check(const QStringList &arguments,
                     const QList<QPair<QString, QString>> &environment = {}) const
    {
        return run({.arguments = QStringList{u"check"_s} + arguments, .environment = environment});
    }

    QList<QPair<QString, QString>> withoutFonts() const
    {
        return {{u"FONTCONFIG_FILE"_s, path(u"fonts.conf"_s)}};
    }
};

} // namespace

TEST_F(DrawingCheckTest, says_nothing_on_standard_error)
{
    const ProgramRun run = check({u"-K"_s, u"treemap"_s, u"blank.dot"_s},
                                 {{u"DISPLAY"_s, u":77"_s},
                                  {u"QT_QPA_PLATFORM"_s, u"none-such"_s},
                                  {u"QT_DEBUG_PLUGINS"_s, u"1"_s},
                                  {u"QT_HASH_SEED"_s, u"5"_s},
                                  {u"XDG_RUNTIME_DIR"_s, {}}});
    EXPECT_EQ(run.errors, "");
    EXPECT_TRUE(run.output.contains("blank.dot: warning: nothing is drawn: no node has an area"))
        << run.output.toStdString();
}

TEST_F(DrawingCheckTest, checks_the_rest_without_any_font_and_says_so_once)
{
    const ProgramRun run =
        check({u"-K"_s, u"treemap"_s, u"blank.dot"_s, u"blank.dot"_s}, withoutFonts());
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "orr check: the drawing is not checked: Unable to find a font\n");
    EXPECT_EQ(run.output.count("[unknown-attribute]"), 2);
    EXPECT_EQ(run.output.count("[blank-drawing]"), 0);
}

// Both streams in one, as on a terminal.
TEST_F(DrawingCheckTest, prints_what_it_found_ahead_of_what_is_missing)
{
    const ProgramRun run =
        this->run({.arguments = {u"-c"_s, u"exec \"$0\" check -K treemap blank.dot 2>&1"_s,
                                 QStringLiteral(ORR_PROGRAM)},
                   .environment = withoutFonts(),
                   .command = u"sh"_s});
    const qsizetype found = run.output.indexOf("[unknown-attribute]");
    EXPECT_GE(found, 0) << run.output.toStdString();
    EXPECT_GT(run.output.indexOf("orr check: the drawing is not checked"), found);
}

// Too few files may be open for what draws.
TEST_F(DrawingCheckTest, prints_what_it_found_where_what_draws_can_not_be_started)
{
    const auto starved = [&](const QString &options) {
        return this->run({.arguments = {u"-c"_s,
                                        u"ulimit -n 8; exec \"$0\" check -K treemap "_s + options
                                            + u" blank.dot"_s,
                                        QStringLiteral(ORR_PROGRAM)},
                          .command = u"sh"_s});
    };
    const ProgramRun text = starved({});
    EXPECT_EQ(text.status, 1);
    EXPECT_EQ(text.errors, "Unable to open enough files\n");
    EXPECT_EQ(text.output.count("[unknown-attribute]"), 1) << text.output.toStdString();
    const ProgramRun json = starved(u"--format json"_s);
    EXPECT_EQ(json.status, 1);
    EXPECT_TRUE(json.output.contains("\"unknown-attribute\"")) << json.output.toStdString();
}

TEST_F(DrawingCheckTest, needs_no_font_without_an_engine)
{
    EXPECT_EQ(check({u"blank.dot"_s}, withoutFonts()).errors, "");
    EXPECT_EQ(check({u"-K"_s, u"none"_s, u"blank.dot"_s}, withoutFonts()).errors, "");
}

// Its nodes are looked for by their names once the toolkit has been started.
TEST_F(DrawingCheckTest, finds_the_objects_of_the_first_replay_as_of_the_second)
{
    writeFile(u"rich.xdot"_s,
              "digraph { graph [xdotversion=\"1.2\" bb=\"0,0,99,99\"];\n"
              "a [_ldraw_=\"F 9 5 -Arial H 9 9 -1 9 15 -<img src='a'/>x\"]; }\n");
    const ProgramRun run = check({u"rich.xdot"_s, u"rich.xdot"_s});
    EXPECT_EQ(run.output.count("rich.xdot:2:1: warning: 1 picture"), 2) << run.output.toStdString();
}

TEST_F(DrawingCheckTest, writes_no_file)
{
    const QStringList before = files();
    check({u"-K"_s, u"treemap"_s, u"blank.dot"_s});
    EXPECT_EQ(files(), before);
}
