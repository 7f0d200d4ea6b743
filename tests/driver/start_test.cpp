// Starts that fail, and what they need: the program says in one line what failed.
#include "driver/program_run.h"
#include "support/golden.h"

#include <QDir>
#include <QFile>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList toStandardOutput{u"-K"_s, u"treemap"_s, u"-T"_s, u"svg"_s};

class Start : public ProgramTest
{
protected:
    // A library of the toolkit's ends the process in this way.
    ProgramRun spoiled(const QString &way) const
    {
        return run({.arguments = toStandardOutput,
                    .input = smallGraph(),
                    .environment = {{u"LD_PRELOAD"_s, QStringLiteral(ORR_SPOILED_START)},
                                    {u"SPOILED_START"_s, way},
                                    {u"ASAN_OPTIONS"_s, u"verify_asan_link_order=0"_s}}});
    }

    // A configuration that knows of fonts in this folder only.
    void writeFontsOf(const QString &directory) const
    {
        const QString text = u"<?xml version=\"1.0\"?>\n"
                             "<!DOCTYPE fontconfig SYSTEM \"urn:fontconfig:fonts.dtd\">\n"
                             "<fontconfig><dir>%1</dir><cachedir>%2</cachedir></fontconfig>\n"_s;
        writeFile(u"fonts.conf"_s, text.arg(directory, path(u"cache"_s)).toUtf8());
    }

    ProgramRun drawWithFonts(const QString &configuration) const
    {
        return run({.arguments = toStandardOutput,
                    .input = smallGraph(),
                    .environment = {{u"FONTCONFIG_FILE"_s, configuration}}});
    }
};

std::function<void()> withDescriptors(rlim_t count)
{
    return [=] {
        const rlimit limit{count, count};
        ::setrlimit(RLIMIT_NOFILE, &limit);
    };
}

} // namespace

TEST_F(Start, that_ends_by_an_exit_says_what_was_said_and_fails)
{
    EXPECT_TRUE(failedWith(spoiled(u"exit"_s),
                           "Unable to start the toolkit: (spoiled): no display, no word\n"));
}

TEST_F(Start, that_fails_says_nothing_that_a_terminal_obeys)
{
    EXPECT_TRUE(failedWith(spoiled(u"exit with controls"_s),
                           "Unable to start the toolkit: \\x1b]0;title\\x07\\x9b31m \xC3\xA9\n"));
}

TEST_F(Start, that_ends_without_a_word_says_so_much)
{
    EXPECT_TRUE(failedWith(spoiled(u"silent exit"_s), "Unable to start the toolkit\n"));
}

TEST_F(Start, that_ends_with_many_words_says_the_first_of_them)
{
    const ProgramRun failed = spoiled(u"long exit"_s);
    EXPECT_EQ(failed.status, 1);
    EXPECT_TRUE(failed.errors.startsWith("Unable to start the toolkit: ab ab "));
    EXPECT_TRUE(failed.errors.endsWith('\n'));
    EXPECT_EQ(failed.errors.count('\n'), 1);
    EXPECT_LT(failed.errors.size(), 1100);
}

TEST_F(Start, that_aborts_says_what_was_said_and_fails)
{
    EXPECT_TRUE(failedWith(spoiled(u"abort"_s), "Unable to start the toolkit: assertion\n"));
}

TEST_F(Start, that_throws_says_what_was_thrown_and_fails)
{
    const ProgramRun failed = spoiled(u"throw"_s);
    EXPECT_EQ(failed.status, 1);
    EXPECT_TRUE(failed.errors.startsWith("Unable to start the toolkit: terminate called"))
        << failed.errors.toStdString();
    EXPECT_TRUE(failed.errors.endsWith("what(): thrown\n")) << failed.errors.toStdString();
    EXPECT_EQ(failed.errors.count('\n'), 1);
}

// The toolkit looks for the folder of its plugins in a file beside the program.
TEST_F(Start, that_finds_no_platform_says_so_in_one_line)
{
    ASSERT_TRUE(QFile::copy(QStringLiteral(ORR_PROGRAM), path(u"alone"_s)));
    writeFile(u"qt.conf"_s, "[Paths]\nPlugins = /nonexistent\n");
    const ProgramRun failed =
        run({.arguments = toStandardOutput, .input = smallGraph(), .command = path(u"alone"_s)});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.output, "");
    EXPECT_TRUE(failed.errors.startsWith("Unable to start the toolkit: "));
    EXPECT_TRUE(failed.errors.contains("platform plugin")) << failed.errors.toStdString();
    EXPECT_EQ(failed.errors.count('\n'), 1);
}

TEST_F(Start, with_few_descriptors_draws_the_same_or_says_why_not)
{
    const QByteArray plainly = draw(smallGraph(), u"svg"_s).output;
    ASSERT_FALSE(plainly.isEmpty());
    int failures = 0;
    for (const rlim_t count : {6, 7, 8, 10, 14, 15, 16, 17, 24}) {
        const ProgramRun drawn = run({.arguments = toStandardOutput,
                                      .input = smallGraph(),
                                      .before = withDescriptors(count)});
        if (drawn.status == 0) {
            EXPECT_TRUE(succeeded(drawn)) << count;
            EXPECT_EQ(drawn.output, plainly) << count;
            continue;
        }
        ++failures;
        EXPECT_TRUE(failedWith(drawn, "Unable to open enough files\n")) << count;
    }
    EXPECT_GE(failures, 2) << "6 and 7 are too few";
    EXPECT_LT(failures, 9) << "24 are enough";
}

TEST_F(Start, without_fonts_draws_nothing_and_says_so)
{
    writeFontsOf(u"/nonexistent"_s);
    EXPECT_TRUE(failedWith(drawWithFonts(path(u"fonts.conf"_s)), "Unable to find a font\n"));
    EXPECT_EQ(QDir(path(u"."_s)).entryList({u"orr_*"_s}), QStringList()) << "left behind";
}

TEST_F(Start, without_the_configuration_of_fonts_draws_nothing_and_says_so)
{
    EXPECT_TRUE(failedWith(drawWithFonts(u"/nonexistent/fonts.conf"_s),
                           "Unable to read the configuration of the fonts\n"));
}

TEST_F(Start, does_not_repeat_what_is_said_about_a_fault_in_the_configuration_of_fonts)
{
    writeFile(u"fonts.conf"_s,
              "<?xml version=\"1.0\"?>\n"
              "<!DOCTYPE fontconfig SYSTEM \"urn:fontconfig:fonts.dtd\">\n"
              "<fontconfig><dir>/usr/share/fonts/truetype/liberation</dir>"
              "<cachedir>/dev/null/cache</cachedir><nonsense/></fontconfig>\n");
    EXPECT_TRUE(succeeded(drawWithFonts(path(u"fonts.conf"_s))));
}

TEST_F(Start, needs_no_font_to_help)
{
    writeFontsOf(u"/nonexistent"_s);
    const ProgramRun helped = run(
        {.arguments = {u"-h"_s}, .environment = {{u"FONTCONFIG_FILE"_s, path(u"fonts.conf"_s)}}});
    EXPECT_TRUE(succeeded(helped));
    EXPECT_EQ(helped.output, helpText());
}
