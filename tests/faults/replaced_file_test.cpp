// What becomes of the file that the output takes the place of, and where it can't take it.
#include "faults/fault_run.h"
#include "support/golden.h"

#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class ReplacedFile : public FaultTest
{
protected:
    struct stat status(const QString &name) const
    {
        struct stat found = {};
        EXPECT_EQ(::lstat(QFile::encodeName(path(name)).constData(), &found), 0);
        return found;
    }

    void drawOver(const QString &name) const
    {
        EXPECT_TRUE(succeeded(run({.arguments = arguments(name), .input = smallGraph()})));
        EXPECT_EQ(fileContent(name), drawing(smallGraph()));
    }
};

ORR_FOR_EACH_FORMAT(ReplacedFile);

} // namespace

TEST_P(ReplacedFile, gives_its_permissions_to_the_new_one)
{
    for (const mode_t mode : {0600, 0640, 0777}) {
        ASSERT_EQ(::chmod(QFile::encodeName(path(output())).constData(), mode), 0);
        drawOver(output());
        EXPECT_EQ(status(output()).st_mode & 07777, mode);
    }
}

TEST_P(ReplacedFile, new_one_has_the_permissions_of_any_new_file)
{
    const QString name = u"new."_s + format();
    EXPECT_TRUE(succeeded(run(
        {.arguments = arguments(name), .input = smallGraph(), .before = [] { ::umask(0027); }})));
    EXPECT_EQ(status(name).st_mode & 07777, mode_t(0640));
}

TEST_P(ReplacedFile, symbolic_links_stay)
{
    const QString link = u"link."_s + format();
    ASSERT_TRUE(QFile::link(output(), path(link)));
    ASSERT_EQ(::chmod(QFile::encodeName(path(output())).constData(), 0604), 0);
    drawOver(link);
    EXPECT_TRUE(S_ISLNK(status(link).st_mode));
    EXPECT_EQ(fileContent(output()), drawing(smallGraph()));
    EXPECT_EQ(status(output()).st_mode & 07777, mode_t(0604));
}

TEST_P(ReplacedFile, link_to_nothing_makes_what_it_leads_to)
{
    const QString link = u"link."_s + format();
    ASSERT_TRUE(QFile::link(u"made"_s, path(link)));
    drawOver(link);
    EXPECT_TRUE(S_ISLNK(status(link).st_mode));
    EXPECT_TRUE(S_ISREG(status(u"made"_s).st_mode));
}

TEST_P(ReplacedFile, other_name_of_it_keeps_what_stood_there)
{
    ASSERT_EQ(::link(QFile::encodeName(path(output())).constData(),
                     QFile::encodeName(path(u"other"_s)).constData()),
              0);
    drawOver(output());
    EXPECT_EQ(fileContent(u"other"_s), oldContent);
}

TEST_P(ReplacedFile, pipe_with_a_name_is_written_to)
{
    const QString script =
        u"mkfifo \"pipe.$1\"; cat \"pipe.$1\" > received & \"$0\" -K treemap -T \"$1\" -o "
        "\"pipe.$1\" in.dot; status=$?; wait; test -p \"pipe.$1\" && exit $status"_s;
    writeFile(u"in.dot"_s, smallGraph());
    EXPECT_TRUE(
        succeeded(run({.arguments = {u"-c"_s, script, QStringLiteral(ORR_PROGRAM), format()},
                       .command = u"/bin/sh"_s})));
    EXPECT_EQ(fileContent(u"received"_s), drawing(smallGraph()));
}

// What is written to is the file that is open already, whatever its name.
TEST_P(ReplacedFile, standard_output_as_a_file_is_written_over)
{
    const QString link = u"stdout."_s + format();
    ASSERT_TRUE(QFile::link(u"/dev/stdout"_s, path(link)));
    const ino_t before = status(output()).st_ino;
    const QString script = u"exec \"$0\" -K treemap -T \"$1\" -o \"stdout.$1\" >> \"out.$1\""_s;
    EXPECT_TRUE(
        succeeded(run({.arguments = {u"-c"_s, script, QStringLiteral(ORR_PROGRAM), format()},
                       .input = smallGraph(),
                       .command = u"/bin/sh"_s})));
    EXPECT_EQ(status(output()).st_ino, before);
    EXPECT_EQ(fileContent(output()), drawing(smallGraph()));
}

// Another file that is mounted there, as containers do it, can't be replaced by a rename.
TEST_P(ReplacedFile, mounted_one_is_written_over)
{
    const QString script = u"mount --bind mounted \"out.$1\" || exit 77; "
                           "exec \"$0\" -K treemap -T \"$1\" -o \"out.$1\""_s;
    writeFile(u"mounted"_s, QByteArray(100'000, 'x'));
    const auto drawn = runMounted(script, smallGraph());
    if (!drawn)
        GTEST_SKIP() << "nothing can be mounted here";
    EXPECT_TRUE(succeeded(*drawn));
    EXPECT_EQ(fileContent(u"mounted"_s), drawing(smallGraph()));
    EXPECT_EQ(fileContent(output()), oldContent);
}
